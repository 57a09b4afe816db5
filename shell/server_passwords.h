#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "base/messages/refusal.h"
#include "shell/secret_store.h"

class QWidget;

namespace chengheng {

/// The passwords of database servers while the program runs: those that addresses held, that the
/// keyring keeps and that the operator gave. None is written anywhere but into the keyring.
class ServerPasswords {
  public:
    /// Both outlive this.
    ServerPasswords(SecretStore& store, IMessages& messages)
        : m_store(store), m_messages(messages) {}

    /// Remembers the secrets of an address and gives the address without them.
    std::string take(const std::string& location);
    void remember(const std::string& location, const std::string& password);

    using Work = std::function<std::optional<Refusal>(const std::string& location)>;
    /// Does something with an address, as often as the server wants another password and one can
    /// be had. A refusal of the kind serverPassword means that the operator gave it up.
    std::optional<Refusal> withPassword(const std::string& location, QWidget* parent,
                                        const Work& work);

  private:
    bool findAnother(const std::string& address, QWidget* parent);
    void keep(const std::string& address);

    SecretStore& m_store;
    IMessages& m_messages;
    std::map<std::string, std::string> m_known;  ///< whole addresses, by those without secrets
    std::map<std::string, bool> m_isAsked;       ///< whether the keyring was asked for it
    std::string m_toBeKept;                      ///< the address whose password is to be kept
};

}  // namespace chengheng
