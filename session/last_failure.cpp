#include "session/last_failure.h"

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/connection/database.h"
#include "session/failure_texts.h"

namespace chengheng {

std::string lastFailureText() {
    if (g_pDB == nullptr) return failureText(Status::of(Failure::notOpen), g_lpszNbZwDBName);
    const Status& status = g_pDB->lastStatus();
    if (status) return {};
    Database* const database = g_pDB->selectedDatabase();
    return failureText(status, database == nullptr ? g_lpszNbZwDBName : database->location());
}

Notice lastFailureNotice() {
    return {.text = lastFailureText(), .icon = MessageIcon::warning, .beep = true};
}

}  // namespace chengheng
