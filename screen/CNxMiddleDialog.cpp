#include "screen/CNxMiddleDialog.h"

#include "session/last_failure.h"
#include "session/open_books.h"

bool CNxMiddleDialog::SelectDatabase() { return chengheng::selectOpenBooks().isDone(); }

void CNxMiddleDialog::TellFailure() { chengheng::tellLastFailure(messages()); }
