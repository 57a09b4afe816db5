#include "host/screen/CNxMiddleDialog.h"

#include "host/services/last_failure.h"
#include "host/services/open_books.h"

bool CNxMiddleDialog::SelectDatabase() { return chengheng::selectOpenBooks(); }

void CNxMiddleDialog::TellFailure() { messages().tell(chengheng::lastFailureNotice()); }
