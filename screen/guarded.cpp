#include "screen/guarded.h"

#include <fmt/format.h>

#include "screen/screen_texts.h"

namespace chengheng {

void tellUnexpected(IMessages& messages, const QString& windowTitle, const char* reason) {
    messages.tell({.text = fmt::format(screen_texts::unexpectedError, windowTitle.toStdString(),
                                       reason ? reason : screen_texts::unknownError),
                   .icon = MessageIcon::stop,
                   .beep = true});
}

}  // namespace chengheng
