#pragma once

#include <map>
#include <optional>
#include <string>

#include "shell/secret_store.h"

namespace chengheng {

/// A keyring in memory.
struct RememberedSecrets final : SecretStore {
    std::optional<std::string> read(const std::string& key) override {
        ++readings;
        const auto found = secrets.find(key);
        return found == secrets.end() ? std::nullopt : std::optional(found->second);
    }
    bool write(const std::string& key, const std::string& secret) override {
        if (isOpen) secrets[key] = secret;
        return isOpen;
    }

    std::map<std::string, std::string> secrets;
    bool isOpen = true;
    int readings = 0;
};

}  // namespace chengheng
