#pragma once

#include <string>
#include <string_view>

namespace chengheng {

/// A table whose rows have a code and a name.
struct Directory {
    const char* table;
    const char* codeColumn;
    const char* nameColumn;
};

// Over g_pDB. An id is 0 when there is no such row and -1 when the database could not be read;
// among rows of the same name the one with the smallest id counts.

/// Id of the row with this code, else with this name; 0 for an empty text.
int idOf(const Directory& directory, const char* databaseName, std::string_view nameOrCode);

/// Name of the row; empty when there is none or it could not be read.
std::string nameOf(const Directory& directory, const char* databaseName, int id);

/// Id of the account with this code in the selected database.
int accountIdOf(std::string_view code);

}  // namespace chengheng
