#pragma once

#include "base/messages/messages.h"
#include "bench/timing.h"

namespace bench {

/// Expects to hear nothing; a notice ends the measuring.
class SilentMessages : public chengheng::IMessages {
  public:
    void tell(const chengheng::Notice& notice) override { require(false, notice.text.c_str()); }
    chengheng::Answer ask(const chengheng::Question&) override { return chengheng::Answer::no; }
};

}  // namespace bench
