#include "screen/unbuilt.h"

#include <fmt/format.h>

#include "screen/screen_texts.h"

namespace chengheng {

void tellUnbuilt(IMessages& messages, const char* title) {
    messages.tell({.text = fmt::format(screen_texts::unbuiltFunction, title),
                   .icon = MessageIcon::information});
}

}  // namespace chengheng
