#include "host/screen/CNxMiddleDialog.h"

#include "data/CNbCwDB.h"
#include "host/services/host_globals.h"
#include "host/services/last_failure.h"

bool CNxMiddleDialog::SelectDatabase() {
    return g_pDB != nullptr && g_pDB->DBSelect(g_lpszNbZwDBName) != 0;
}

void CNxMiddleDialog::TellFailure() {
    messages().tell({.text = chengheng::lastFailureText(),
                     .icon = chengheng::MessageIcon::warning,
                     .beep = true});
}
