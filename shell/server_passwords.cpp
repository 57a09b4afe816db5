#include "shell/server_passwords.h"

#include <utility>

#include "data/engines/open_engine.h"
#include "shell/server_password_window.h"
#include "shell/shell_texts.h"

namespace chengheng {

std::string ServerPasswords::take(const std::string& location) {
    const std::string password = serverPasswordIn(location);
    std::string address = shownLocation(location);
    if (!password.empty()) remember(address, password);
    return address;
}

void ServerPasswords::remember(const std::string& location, const std::string& password) {
    m_known[shownLocation(location)] = password;
}

std::optional<Refusal> ServerPasswords::withPassword(const std::string& location, QWidget* parent,
                                                     const Work& work) {
    const std::string address = take(location);
    while (true) {
        const auto known = m_known.find(address);
        auto refusal =
            work(known == m_known.end() ? address : withServerPassword(address, known->second));
        if (!refusal || refusal->kind != RefusalKind::serverPassword) {
            keep(address);
            return refusal;
        }
        if (!findAnother(address, parent)) return refusal;
    }
}

bool ServerPasswords::findAnother(const std::string& address, QWidget* parent) {
    const bool hadOne = m_known.contains(address);
    if (!std::exchange(m_isAsked[address], true)) {
        if (const auto kept = m_store.read(address)) {
            m_known[address] = *kept;
            return true;
        }
    }
    ServerPasswordWindow window(address, hadOne, parent);
    if (window.exec() != QDialog::Accepted) return false;
    m_known[address] = window.password();
    m_toBeKept = window.isToBeKept() ? address : std::string();
    return true;
}

/// Only a password that the server took is worth keeping.
void ServerPasswords::keep(const std::string& address) {
    if (m_toBeKept.empty() || std::exchange(m_toBeKept, {}) != address) return;
    if (!m_store.write(address, m_known[address]))
        m_messages.tell({.text = shell_texts::notKept, .icon = MessageIcon::warning});
}

}  // namespace chengheng
