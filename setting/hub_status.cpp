#include "setting/hub_status.h"

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
        lines.push_back({hub_texts::logonDate, isoText(g_tmLogonTime.day)});
    }
    return lines;
}

}  // namespace chengheng
