#pragma once

#include <memory>
#include <string>

#include "data/access/CNbCwDB.h"
#include "data/engine/engine.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "tests/support/recording_messages.h"

namespace chengheng {

/// Books that an operator works on, who logged on in a year; what the host says is recorded.
struct OperatedBooks {
    /// Makes empty books at a place, or opens those that are there.
    explicit OperatedBooks(const std::string& location, bool isNew = true, int year = 2026);
    /// On an engine made elsewhere, whose database has its tables.
    explicit OperatedBooks(std::unique_ptr<Engine> engine, int year = 2026);

    /// Runs a batch; throws when it fails.
    void run(const std::string& batch);
    /// Throws when the last operation on the database is not done.
    void mustBe(bool isDone) const;
    /// Whether a lock of any of the tables is held here: names with blanks between.
    bool holdsLocksOf(const std::string& tables);

    CNbCwDB database;
    RecordingMessages messages;
    HostMessages installed{messages};
    HostSession session;

  private:
    /// The books know the supervisor who works on them.
    void enterOperator();
};

}  // namespace chengheng
