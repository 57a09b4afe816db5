#include "base/messages/held_messages.h"

#include <utility>

namespace chengheng {

void HeldMessages::tell(const Notice& notice) {
    if (!m_isHolding) return m_shown.tell(notice);
    if (m_first.text.empty()) {
        m_first = notice;
    } else if (m_first.text != notice.text && m_first.detail != notice.text) {
        // What came first is the cause; the rest follows from it.
        m_first.detail += (m_first.detail.empty() ? "" : "\n") + notice.text;
    }
}

Answer HeldMessages::ask(const Question& question) {
    Question asked = question;
    const Notice held = std::exchange(m_first, {});
    for (const std::string& words : {held.text, held.detail})
        if (!words.empty()) asked.detail += (asked.detail.empty() ? "" : "\n") + words;
    return m_shown.ask(asked);
}

HeldMessages::Hold::~Hold() {
    m_messages.m_isHolding = false;
    const Notice held = std::exchange(m_messages.m_first, {});
    if (!held.text.empty()) m_messages.m_shown.tell(held);
}

}  // namespace chengheng
