#include "session/CCheckAuth.h"

#include <fmt/format.h>

#include <optional>
#include <string>

#include "data/access/selected_cells.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "session/last_failure.h"
#include "session/log_notes.h"
#include "session/open_books.h"
#include "session/rights_list.h"
#include "session/rights_texts.h"
#include "session/services_sql.h"
#include "session/session_texts.h"

namespace {

using namespace chengheng;

/// What the open books hold for an operator by now.
struct StoredRights {
    bool isRead = false;
    bool isFound = false;
    bool isSupervisor = false;
    std::string granted = {};

    bool allow(int function) const { return isSupervisor || grants(granted, function); }
};

StoredRights readRights(std::int32_t userId) {
    StoredRights stored;
    if (!selectOpenBooks()) return stored;
    const SelectedCells cells(*g_pDB, services_sql::rightsOf(userId));
    stored.isRead = cells.isRead();
    if (cells.rows() == 0) return stored;
    stored.isSupervisor = cells.number<int>(0, 0) != 0;
    stored.isFound = stored.isSupervisor || !cells.text(0, 1).empty();
    stored.granted = cells.text(0, 2);
    HostSession::setSupervisor(stored.isSupervisor);
    return stored;
}

Refusal refusalOf(std::string text, RefusalKind kind = RefusalKind::wrongInput) {
    return {kind, {.text = std::move(text), .icon = MessageIcon::stop}};
}

Refusal unreadable(const StoredRights& rights, const char* name) {
    return refusalOf(rights_texts::rightsUnreadable(name, rights.isRead ? "" : lastFailureText()),
                     rights.isRead ? RefusalKind::wrongInput : RefusalKind::failed);
}

}  // namespace

std::optional<Refusal> chengheng::rightRefusal(int function) {
    const CDivideWInfo* const user = g_lpLogonUserInfo;
    if (user != nullptr && user->lManager == 1) return std::nullopt;
    auto refusal = storedRightRefusal(function);
    if (refusal) noteRefusal(function, *refusal);
    return refusal;
}

void chengheng::noteRefusal(int function, const Refusal& refusal) {
    if (refusal.kind == RefusalKind::failed) return;
    noteInLog(function, [&refusal] {
        return fmt::format(session_texts::loggedRefusal, refusal.notice.text);
    });
}

std::optional<Refusal> chengheng::storedRightRefusal(int function) {
    const CDivideWInfo* const user = g_lpLogonUserInfo;
    const char* const name = functionName(function);
    if (name == nullptr) return refusalOf(rights_texts::rightUnknown(function));
    if (user == nullptr) return refusalOf(rights_texts::nobodyLoggedOn(name));
    const StoredRights rights = readRights(user->lUserId);
    if (!rights.isFound) return unreadable(rights, name);
    if (!rights.allow(function)) return refusalOf(rights_texts::rightMissing(name));
    return std::nullopt;
}

std::optional<Refusal> chengheng::supervisorRefusal() {
    const CDivideWInfo* const user = g_lpLogonUserInfo;
    if (user == nullptr) return refusalOf(rights_texts::supervisorMissing);
    const StoredRights rights = readRights(user->lUserId);
    if (!rights.isRead) return unreadable(rights, rights_texts::supervisor);
    if (!rights.isSupervisor) return refusalOf(rights_texts::supervisorMissing);
    return std::nullopt;
}

CCheckAuth::CCheckAuth(int function, int, void*) {
    const auto refusal = rightRefusal(function);
    m_isGranted = !refusal;
    if (refusal) hostMessages().tell(refusal->notice);
}
