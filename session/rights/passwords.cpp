#include "session/rights/passwords.h"

#include <sodium.h>

#include <array>

namespace chengheng {
namespace {

bool isLibraryReady() {
    static const bool isReady = sodium_init() >= 0;
    return isReady;
}

}  // namespace

std::string hashPassword(std::string_view password, PasswordCost cost) {
    if (!isLibraryReady()) return {};
    const bool isUsual = cost == PasswordCost::usual;
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    const int result = crypto_pwhash_str(
        hash.data(), password.data(), password.size(),
        isUsual ? crypto_pwhash_OPSLIMIT_INTERACTIVE : crypto_pwhash_OPSLIMIT_MIN,
        isUsual ? crypto_pwhash_MEMLIMIT_INTERACTIVE : crypto_pwhash_MEMLIMIT_MIN);
    return result == 0 ? std::string(hash.data()) : std::string();
}

bool isPasswordHash(std::string_view text) { return text.starts_with(crypto_pwhash_STRPREFIX); }

bool isPasswordOf(std::string_view hash, std::string_view password) {
    if (!isLibraryReady()) return false;
    const std::string terminated(hash);
    return crypto_pwhash_str_verify(terminated.c_str(), password.data(), password.size()) == 0;
}

}  // namespace chengheng
