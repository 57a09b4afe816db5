#include "session/rights/CCheckAuth.h"

#include <optional>
#include <string>

#include "data/lookups/one_cell.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "session/rights/rights_list.h"
#include "session/rights/services_sql.h"
#include "session/service_texts.h"

namespace {

using namespace chengheng;

/// The rights string of an operator of the open books; nothing when it cannot be read.
std::optional<std::string> readRights(std::int32_t userId) {
    if (!selectOpenBooks()) return std::nullopt;
    return readOneCell(*g_pDB, services_sql::rightsOf(userId)).text;
}

/// What the operator is told; nothing when the function may be used.
std::optional<std::string> refusal(int function) {
    const CDivideWInfo* const user = g_lpLogonUserInfo;
    if (user != nullptr && user->lManager == 1) return std::nullopt;
    const char* const name = functionName(function);
    if (name == nullptr) return service_texts::rightUnknown(function);
    if (user == nullptr) return service_texts::nobodyLoggedOn(name);
    const auto rights = readRights(user->lUserId);
    if (!rights) return service_texts::rightsUnreadable(name, lastFailureText());
    if (!grants(*rights, function)) return service_texts::rightMissing(name);
    return std::nullopt;
}

}  // namespace

CCheckAuth::CCheckAuth(int function, int, void*) {
    const auto text = refusal(function);
    m_isGranted = !text;
    if (text) hostMessages().tell({.text = *text, .icon = MessageIcon::stop});
}
