#include "setting/hub_functions.h"

#include <algorithm>
#include <iterator>

#include "base/values/text.h"
#include "data/access/CNbCwDB.h"
#include "data/lookups/CGetData.h"
#include "session/host_globals.h"
#include "session/rights/CCheckAuth.h"
#include "setting/hub_texts.h"

namespace chengheng {
namespace {

/// What a function asks before it opens, from left to right. Right 0: no right is asked.
struct HubChecks {
    HubFunction function;
    bool isForSupervisors;
    int right;
    bool needsForeignCurrency;
};

constexpr HubChecks hubChecks[] = {
    {HubFunction::divide, true, 0, false},    {HubFunction::bursar, false, 41, false},
    {HubFunction::exchange, false, 46, true}, {HubFunction::begleft, false, 43, false},
    {HubFunction::species, false, 52, false}, {HubFunction::method, false, 57, false},
    {HubFunction::exit, false, 0, false},
};

bool isSupervisor() { return g_lpLogonUserInfo != nullptr && g_lpLogonUserInfo->lManager == 1; }

bool keepsForeignCurrency() {
    return CGetData::m_pzAccountMInfo != nullptr && CGetData::m_pzAccountMInfo->bFgn != 0;
}

bool isAllowed(const HubChecks& checks, IMessages& messages) {
    if (checks.isForSupervisors && !isSupervisor()) {
        messages.tell({.text = hub_texts::noSupervisor, .icon = MessageIcon::stop});
        return false;
    }
    if (checks.right != 0 && !CCheckAuth(checks.right, 1, nullptr)) return false;
    if (checks.needsForeignCurrency && !keepsForeignCurrency()) {
        messages.tell({.text = hub_texts::noForeignCurrency, .icon = MessageIcon::information});
        return false;
    }
    return true;
}

}  // namespace

bool opensOnlyOpeningBalances(std::string_view launchArgument) {
    return isSameInAnyCase(launchArgument, "-ERPCONSOLE") ||
           isSameInAnyCase(launchArgument, "-ERPSINGLE");
}

void HubFunctions::open(HubFunction function) {
    const auto checks = std::ranges::find(hubChecks, function, &HubChecks::function);
    if (checks == std::end(hubChecks) || !isAllowed(*checks, m_messages)) return;
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
    g_pDB->Code_ReleaseAllBuffer();
    if (m_windows.runPresetWizard() == wizardFinished) m_windows.show(HubFunction::species);
}

}  // namespace chengheng
