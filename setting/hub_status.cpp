#include "setting/hub_status.h"

#include <fmt/format.h>

#include "data/access/CNbCwDB.h"
#include "data/connection/database.h"
#include "session/host_globals.h"
#include "setting/hub_texts.h"

namespace chengheng {

std::vector<HubStatusLine> hubStatus() {
    std::vector<HubStatusLine> lines;
    if (*g_lpszNbZwSetName != '\0') lines.push_back({hub_texts::setName, g_lpszNbZwSetName});
    if (g_lpLogonUserInfo != nullptr) {
        const bool isSupervisor = g_lpLogonUserInfo->lManager == 1;
        lines.push_back(
            {hub_texts::operatorName,
             g_lpLogonUserInfo->sUserName + (isSupervisor ? hub_texts::supervisorMark : "")});
    }
    if (g_tmLogonTime.day.isSet()) {
        const Database* const books = g_pDB == nullptr ? nullptr : g_pDB->selectedDatabase();
        const bool isReadOnly = books != nullptr && books->isReadOnly();
        lines.push_back({hub_texts::logonDate,
                         isoText(g_tmLogonTime.day) + (isReadOnly ? hub_texts::readOnlyMark : "")});
    }
    return lines;
}

HubLogonLine hubLogonLine() {
    const auto& [last, wrong] = logonHistory();
    if (wrong <= 0) return {last.empty() ? "" : fmt::format(hub_texts::lastLogon, last), false};
    return {last.empty() ? fmt::format(hub_texts::wrongBefore, wrong)
                         : fmt::format(hub_texts::wrongSinceThen, last, wrong),
            true};
}

}  // namespace chengheng
