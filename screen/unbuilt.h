#pragma once

#include "base/messages/messages.h"

namespace chengheng {

/// Says that what bears this title has no window yet.
void tellUnbuilt(IMessages& messages, const char* title);

}  // namespace chengheng
