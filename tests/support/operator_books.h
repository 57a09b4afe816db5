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

/// Books whose operators the supervisor 张三, number 1, divides the work of; what the host says is
/// recorded.
struct OperatorBooks {
    /// Makes books at a place, or opens those that are there.
    explicit OperatorBooks(const std::string& location, bool isNew = true);
    /// On an engine made elsewhere, whose database has its tables and no operator.
    explicit OperatorBooks(std::unique_ptr<Engine> engine);

    /// Runs a batch; throws when it fails.
    void run(const std::string& batch);
    /// Adds the next operator with the rights to these functions, without a password.
    void insert(const std::string& name, std::initializer_list<int> functions = {},
                bool isSupervisor = false);
    /// Every operator in the order of the ids, as "2 李明" or "1 张三 主管" and the numbers of the
    /// functions granted.
    std::vector<std::string> stored();
    /// The stored rights string of an operator.
    std::string rightsOf(int userId);
    std::string hashOf(int userId);
    /// Somebody is logged on by this name from a workstation; by a number, too, unless it is 0.
    void logOn(const std::string& name, const std::string& station, int process = 1,
               int userId = 0);
    /// Whether any of the locks of a change is held here.
    bool holdsLocks();

    CNbCwDB database;
    RecordingMessages messages;
    HostMessages installed{messages};
    HostSession session{{.database = &database,
                         .databaseName = "books",
                         .accountId = 3,
                         .logonUser = {1, 1, 1, 1, "张三"}}};
};

/// A rights string that grants these functions.
std::string rightsText(std::initializer_list<int> functions);

}  // namespace chengheng
