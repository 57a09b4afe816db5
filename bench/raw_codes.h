#pragma once

#include <sqlite3.h>

#include <vector>

namespace bench {

/// An account as a program that knows nothing but the engine would keep it.
struct RawCode {
    int id;
    char code[20], name[64], type[16];
    int grade, end, direct, cash, bank;
    char assBook[8], help[16];
    int exchange, number;
    char page[16];
    int amount;
    char unit[16];
};

sqlite3_stmt* prepare(sqlite3* database, const char* sql);

/// Runs a prepared select of whole accounts: the floor of reading them.
std::vector<RawCode> rawCodes(sqlite3_stmt* statement);

}  // namespace bench
