#pragma once

#include "base/messages/messages.h"

namespace chengheng {

/// Messages as modal boxes above the window in front. The only place that makes such boxes.
/// Plain text, a standard icon, Chinese buttons; Escape and the close button give the cautious
/// answer. After a notice the named field of the window in front gets the focus, its text
/// selected, ready to be typed over.
class MessageBoxes final : public IMessages {
  public:
    void tell(const Notice& notice) override;
    Answer ask(const Question& question) override;
};

}  // namespace chengheng
