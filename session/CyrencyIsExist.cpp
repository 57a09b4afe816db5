#include "session/CyrencyIsExist.h"

#include "data/lookups/existence.h"
#include "session/host_messages.h"
#include "session/last_failure.h"
#include "session/service_texts.h"

int CyrencyIsExist(int currencyId) {
    using namespace chengheng;
    const int existence = currencyExistence(currencyId);
    if (existence > 0) hostMessages().tell({.text = service_texts::currencyGone});
    if (existence < 0)
        hostMessages().tell({.text = service_texts::currencyUnreadable(lastFailureText()),
                             .icon = MessageIcon::stop});
    return existence;
}
