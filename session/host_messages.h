#pragma once

#include "base/messages/messages.h"

namespace chengheng {

/// Who the host's own functions talk through. They are called by their prescribed names and
/// take no IMessages (CCheckAuth, CyrencyIsExist); everything else has its own handed in.
/// With none installed, notices go to stderr and a question gets its cautious answer.
IMessages& hostMessages();

/// Installs messages for the host's own functions for as long as it lives; afterwards those
/// installed before serve again. The messages are not owned.
class HostMessages {
  public:
    explicit HostMessages(IMessages& messages);
    ~HostMessages();
    HostMessages(const HostMessages&) = delete;
    HostMessages& operator=(const HostMessages&) = delete;

  private:
    IMessages* m_before;
};

}  // namespace chengheng
