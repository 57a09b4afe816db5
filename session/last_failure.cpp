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

std::optional<Notice> lastFailureNotice() {
    if (g_pDB != nullptr && g_pDB->lastStatus().failure == Failure::cancelled) return std::nullopt;
    return Notice{.text = lastFailureText(), .icon = MessageIcon::warning, .beep = true};
}

void tellLastFailure(IMessages& messages) {
    if (const auto notice = lastFailureNotice()) messages.tell(*notice);
}

}  // namespace chengheng
