#include "setting/hub_functions.h"

#include <algorithm>
#include <iterator>

#include "base/messages/checks.h"
#include "base/values/text.h"
#include "data/access/CNbCwDB.h"
#include "data/lookups/CGetData.h"
#include "data/tables/settlement.h"
#include "session/CCheckAuth.h"
#include "session/host_globals.h"
#include "session/last_failure.h"
#include "session/rights_texts.h"
#include "setting/hub_texts.h"

namespace chengheng {
namespace {

/// What a function asks of who opens it. Right 0: no right is asked.
struct HubNeeds {
    HubFunction function;
    bool isForSupervisors;
    int right;
    bool needsForeignCurrency;
};

constexpr HubNeeds hubNeeds[] = {
    {HubFunction::divide, true, 0, false},         {HubFunction::bursar, false, 41, false},
    {HubFunction::exchange, false, 46, true},      {HubFunction::begleft, false, 43, false},
    {HubFunction::species, false, 52, false},      {HubFunction::method, false, 57, false},
    {HubFunction::exit, false, 0, false},          {HubFunction::departments, false, 8, false},
    {HubFunction::persons, false, 1, false},       {HubFunction::unitClasses, false, 75, false},
    {HubFunction::units, false, 75, false},        {HubFunction::projectClasses, false, 14, false},
    {HubFunction::projectItems, false, 13, false}, {HubFunction::parameters, false, 40, false},
    {HubFunction::ownPassword, false, 0, false},   {HubFunction::operationLog, true, 0, false},
};

Refusal closedFunction(const char* text, MessageIcon icon) {
    return {RefusalKind::wrongInput, {.text = text, .icon = icon}};
}

std::optional<Refusal> supervisor(const HubNeeds& needs) {
    const bool isSupervisor = g_lpLogonUserInfo != nullptr && g_lpLogonUserInfo->lManager == 1;
    if (!needs.isForSupervisors || isSupervisor) return std::nullopt;
    const Refusal refusal = closedFunction(rights_texts::supervisorMissing, MessageIcon::stop);
    noteRefusal(0, refusal);
    return refusal;
}

std::optional<Refusal> right(const HubNeeds& needs) {
    return needs.right == 0 ? std::nullopt : rightRefusal(needs.right);
}

std::optional<Refusal> foreignCurrency(const HubNeeds& needs) {
    const auto* const books = CGetData::m_pzAccountMInfo;
    const bool keepsForeignCurrency = books != nullptr && books->bFgn != 0;
    if (!needs.needsForeignCurrency || keepsForeignCurrency) return std::nullopt;
    return closedFunction(hub_texts::noForeignCurrency, MessageIcon::information);
}

constexpr Check<HubNeeds> hubChecks[] = {
    {"supervisor", supervisor},
    {"right", right},
    {"foreign currency", foreignCurrency},
};

}  // namespace

bool opensOnlyOpeningBalances(std::string_view launchArgument) {
    return isSameInAnyCase(launchArgument, "-ERPCONSOLE") ||
           isSameInAnyCase(launchArgument, "-ERPSINGLE");
}

void HubFunctions::open(HubFunction function) {
    const auto needs = std::ranges::find(hubNeeds, function, &HubNeeds::function);
    if (needs == std::end(hubNeeds)) return;
    if (const auto refusal = firstRefusal<HubNeeds>(hubChecks, *needs)) {
        m_messages.tell(refusal->notice);
        return;
    }
    if (function == HubFunction::species) {
        openSpecies();
    } else {
        m_windows.show(function);
    }
}

void HubFunctions::openSpecies() {
    if (g_pDB->DBSelect(g_lpszNbZwDBName) == 0) return;
    _SignInfo** types = nullptr;
    int count = 0;
    if (g_pDB->Sign_GetInfo(types, count, nullptr) == 0) {
        m_windows.show(HubFunction::species);
        g_pDB->Sign_ReleaseAllBuffer();
        return;
    }
    if (g_pDB->lastStatus().failure != Failure::missing) {
        tellLastFailure(m_messages);
        return;
    }
    g_pDB->Code_ReleaseAllBuffer();
    if (m_windows.runPresetWizard() == wizardFinished) m_windows.show(HubFunction::species);
}

}  // namespace chengheng
