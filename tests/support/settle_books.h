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

/// Books with settlement methods that an operator works on; what the host says is recorded.
struct SettleBooks {
    /// Makes empty books at a place, or opens those that are there.
    explicit SettleBooks(const std::string& location, bool isNew = true);
    /// On an engine made elsewhere, whose database has its tables.
    explicit SettleBooks(std::unique_ptr<Engine> engine);

    /// Runs a batch; throws when it fails.
    void run(const std::string& batch);
    /// Inserts methods with the ids 1, 2, ... from "number name flag" each.
    void insert(const std::vector<std::string>& methods);
    /// Every stored method in the order of the ids, as "id number name flag".
    std::vector<std::string> stored();
    /// Whether any of the locks of a change is held here.
    bool holdsLocks();

    CNbCwDB database;
    RecordingMessages messages;
    HostMessages installed{messages};
    HostSession session{
        {.database = &database, .databaseName = "books", .logonUser = {1, 1, 1, 1, "王芳"}}};
};

}  // namespace chengheng
