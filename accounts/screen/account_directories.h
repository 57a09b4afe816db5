#pragma once

#include <string>
#include <vector>

#include "base/values/status.h"

namespace chengheng {

/// The directories that an account's auxiliary books go by.
enum class AccountDirectory { persons, departments, projects, units };

const char* titleOf(AccountDirectory directory);

struct DirectoryEntry {
    std::string code;
    std::string name;
};

/// Reads everything in a directory of the open set of books (g_pDB).
Status readDirectory(AccountDirectory directory, std::vector<DirectoryEntry>& entries);

}  // namespace chengheng
