#include "shell/server_passwords.h"

#include <utility>

#include "data/engines/open_engine.h"
#include "shell/server_password_window.h"
#include "shell/shell_texts.h"

namespace chengheng {

std::string ServerPasswords::take(const std::string& location) {
    std::string address = shownLocation(location);
    if (address == location) return address;
    const std::string typed = serverPasswordIn(m_known[address]);
    const bool hasOwn = typed.empty() || !serverPasswordIn(location).empty();
    m_known[address] = hasOwn ? location : withServerPassword(location, typed);
    return address;
}

void ServerPasswords::remember(const std::string& location, const std::string& password) {
    std::string& known = m_known.try_emplace(shownLocation(location), location).first->second;
    known = withServerPassword(known, password);
}

std::optional<Refusal> ServerPasswords::withPassword(const std::string& location, QWidget* parent,
                                                     const Work& work) {
    const std::string address = take(location);
    while (true) {
        const auto known = m_known.find(address);
        auto refusal = work(known == m_known.end() ? address : known->second);
        if (!refusal) keep(address);
        if (!refusal || refusal->kind != RefusalKind::serverPassword) return refusal;
        if (!findAnother(address, parent)) return refusal;
    }
}

bool ServerPasswords::findAnother(const std::string& address, QWidget* parent) {
    const bool hadOne = m_known.contains(address) && !serverPasswordIn(m_known[address]).empty();
    m_toBeKept.clear();
    if (!std::exchange(m_isAsked[address], true)) {
        if (const auto kept = m_store.read(address)) {
            remember(address, *kept);
            return true;
        }
    }
    ServerPasswordWindow window(address, hadOne, parent);
    if (window.exec() != QDialog::Accepted) return false;
    remember(address, window.password());
    if (window.isToBeKept()) m_toBeKept = address;
    return true;
}

/// Only a password that the server took is worth keeping.
void ServerPasswords::keep(const std::string& address) {
    if (m_toBeKept.empty() || std::exchange(m_toBeKept, {}) != address) return;
    if (!m_store.write(address, serverPasswordIn(m_known[address])))
        m_messages.tell({.text = shell_texts::notKept, .icon = MessageIcon::warning});
}

}  // namespace chengheng
