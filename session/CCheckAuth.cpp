#include "session/CCheckAuth.h"

#include <optional>
#include <string>

#include "data/access/selected_cells.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "session/rights_list.h"
#include "session/rights_texts.h"
#include "session/services_sql.h"

namespace {

using namespace chengheng;

/// The rights string of an operator of the open books; nothing when it cannot be read.
std::optional<std::string> readRights(std::int32_t userId) {
    if (!selectOpenBooks()) return std::nullopt;
    const SelectedCells cells(*g_pDB, services_sql::rightsOf(userId));
    if (cells.rows() == 0) return std::nullopt;
    return std::string(cells.text(0, 0));
}

/// In words.
std::optional<std::string> refusalText(int function) {
    const CDivideWInfo* const user = g_lpLogonUserInfo;
    if (user != nullptr && user->lManager == 1) return std::nullopt;
    const char* const name = functionName(function);
    if (name == nullptr) return rights_texts::rightUnknown(function);
    if (user == nullptr) return rights_texts::nobodyLoggedOn(name);
    const auto rights = readRights(user->lUserId);
    if (!rights) return rights_texts::rightsUnreadable(name, lastFailureText());
    if (!grants(*rights, function)) return rights_texts::rightMissing(name);
    return std::nullopt;
}

}  // namespace

std::optional<Refusal> chengheng::rightRefusal(int function) {
    auto text = refusalText(function);
    if (!text) return std::nullopt;
    return Refusal{RefusalKind::wrongInput, {.text = *std::move(text), .icon = MessageIcon::stop}};
}

CCheckAuth::CCheckAuth(int function, int, void*) {
    const auto refusal = rightRefusal(function);
    m_isGranted = !refusal;
    if (refusal) hostMessages().tell(refusal->notice);
}
