#pragma once

#include <optional>
#include <string>
#include <vector>

namespace chengheng {

/// The directories that an account's auxiliary books go by.
enum class AccountDirectory { persons, departments, projects, units };

const char* titleOf(AccountDirectory directory);

struct DirectoryEntry {
    std::string code;
    std::string name;
};

/// Everything in a directory of the open set of books (g_pDB); nothing when it cannot be read.
std::optional<std::vector<DirectoryEntry>> readDirectory(AccountDirectory directory);

}  // namespace chengheng
