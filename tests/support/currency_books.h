#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/access/CNbCwDB.h"
#include "data/engine/engine.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "tests/support/recording_messages.h"

namespace chengheng {

/// Books with currencies that an operator works on, who logged on in a year; what the host says is
/// recorded.
struct CurrencyBooks {
    /// Makes empty books at a place, or opens those that are there.
    explicit CurrencyBooks(const std::string& location, bool isNew = true, int year = 2026);
    /// On an engine made elsewhere, whose database has its tables.
    explicit CurrencyBooks(std::unique_ptr<Engine> engine, int year = 2026);

    /// Runs a batch; throws when it fails.
    void run(const std::string& batch);
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
    bool holdsLocks();

    CNbCwDB database;
    RecordingMessages messages;
    HostMessages installed{messages};
    HostSession session;
};

}  // namespace chengheng
