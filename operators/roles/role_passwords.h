#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/messages/refusal.h"
#include "operators/operator_rules.h"

namespace chengheng {

struct RolePassword {
    int line = 0;  ///< of the file, from 1
    std::string operatorName;
    std::string password;
};

/// Reads "operator<TAB>password", one a line; blank lines are passed over. What is told of a line
/// never holds the password.
std::optional<Refusal> readRolePasswords(std::string_view text,
                                         std::vector<RolePassword>& passwords);

/// The same from a file.
std::optional<Refusal> readRolePasswordFile(const std::string& path,
                                            std::vector<RolePassword>& passwords);

/// Each must be the password that its operator has in the books: the server is to know no other.
std::optional<Refusal> rolePasswordRefusal(std::span<const RolePassword> passwords,
                                           std::span<const OperatorRecord> operators);

}  // namespace chengheng
