#pragma once

#include <string>

#include "base/messages/messages.h"

namespace chengheng {

/// Messages of an action that fails in several steps for one cause: while a Hold lives, notices
/// wait and the same is kept once; a question takes what has been said until then as its
/// detail. The messages that show them outlive this.
class HeldMessages : public IMessages {
  public:
    explicit HeldMessages(IMessages& shown) : m_shown(shown) {}

    void tell(const Notice& notice) override;
    Answer ask(const Question& question) override;

    /// Tells at its end what no question has taken.
    class Hold {
      public:
        explicit Hold(HeldMessages& messages) : m_messages(messages) {
            messages.m_isHolding = true;
        }
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

      private:
        HeldMessages& m_messages;
    };

  private:
    IMessages& m_shown;
    bool m_isHolding = false;
    Notice m_first;
};

}  // namespace chengheng
