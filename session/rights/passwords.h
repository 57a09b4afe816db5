#pragma once

#include <string>
#include <string_view>

namespace chengheng {

/// How much work a try at a password costs. `least` is for tests alone.
enum class PasswordCost { usual, least };

/// The salted Argon2id hash of a password, as a text that carries its salt and cost; empty
/// when the machine has not the memory for it.
std::string hashPassword(std::string_view password, PasswordCost cost = PasswordCost::usual);

/// Whether a text is a hash of a password, not the password itself.
bool isPasswordHash(std::string_view text);

/// Whether the hash is that of the password. False for anything that is no hash.
bool isPasswordOf(std::string_view hash, std::string_view password);

}  // namespace chengheng
