#pragma once

#include <string>
#include <vector>

#include "tests/support/operated_books.h"

namespace chengheng {

/// Books with currencies.
struct CurrencyBooks : OperatedBooks {
    using OperatedBooks::OperatedBooks;

    /// Inserts a currency of five decimals, and its rates of a year, all 0, under the next ids.
    void insert(const char* symbol, const char* name, int year = 2026);
    /// Every stored currency in the order of the ids: "id sequence symbol name mode decimals
    /// error".
    std::vector<std::string> stored();
    /// The rows of "ExchgFix" or "ExchgFlt" in the order of their ids:
    /// "id currency day period rate adjustment".
    std::vector<std::string> rates(const std::string& table);
    /// Those of them with a rate.
    std::vector<std::string> filledRates(const std::string& table);
    /// The last id handed out for the rows of a table.
    int counter(const char* table) { return database.lastId(table); }
    /// All that adding, deleting or filling in may change, to compare.
    std::vector<std::string> everything();
    /// Whether any of the locks of a change is held here.
    bool holdsLocks() { return holdsLocksOf("Code Cyrency ExchgFix ExchgFlt"); }
};

}  // namespace chengheng
