#include "session/CyrencyIsExist.h"

#include <fmt/format.h>

#include "data/lookups/existence.h"
#include "session/host_messages.h"
#include "session/last_failure.h"
#include "session/session_texts.h"

int CyrencyIsExist(int currencyId) {
    using namespace chengheng;
    const int existence = currencyExistence(currencyId);
    if (existence > 0) hostMessages().tell({.text = session_texts::currencyGone});
    if (existence < 0)
        hostMessages().tell(
            {.text = fmt::format(session_texts::currencyUnreadable, lastFailureText()),
             .icon = MessageIcon::stop});
    return existence;
}
