#pragma once

#include <optional>
#include <string>

namespace chengheng {

/// A place where secrets outlive the program without lying open.
class SecretStore {
  public:
    virtual ~SecretStore() = default;
    /// Nothing when there is no such secret, or no store.
    virtual std::optional<std::string> read(const std::string& key) = 0;
    /// False when it was not kept.
    virtual bool write(const std::string& key, const std::string& secret) = 0;
};

/// The keyring of the desktop, which opens with the session of whoever sits there.
class DesktopKeyring final : public SecretStore {
  public:
    std::optional<std::string> read(const std::string& key) override;
    bool write(const std::string& key, const std::string& secret) override;
};

}  // namespace chengheng
