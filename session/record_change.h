#pragma once

#include <functional>
#include <optional>

#include "base/messages/messages.h"
#include "data/access/table_locks.h"

namespace chengheng {

/// What an action came to. The operator has been told.
enum class Outcome {
    done,
    refused,  ///< a check refused it, or the operator did not want it
    stale,    ///< the records are no longer those that the operator saw
    failed,   ///< the database failed
};

/// What came of it, and what the operator is still to be told once the locks are free.
struct UntoldOutcome {
    Outcome outcome = Outcome::done;
    std::optional<Notice> notice = {};

    static UntoldOutcome done() { return {}; }
    static UntoldOutcome refused(Notice notice) { return {Outcome::refused, std::move(notice)}; }
    static UntoldOutcome stale(Notice notice) { return {Outcome::stale, std::move(notice)}; }
    /// Told in the words of the last failure of g_pDB.
    static UntoldOutcome failed();
};

/// What came of a record operation on the row of an id; stale where there is
/// none.
UntoldOutcome outcomeOfRow(int operationResult, const Notice& whenMissing);

/// The tables that a change locks: those that refer to the changed one, and the changed one.
struct LockLists {
    const char* referring;
    const char* own;
    ReleaseOrder releaseOrder = ReleaseOrder::asTaken;
};

/// Runs work on the open set of books between the locks. They are released before anything is
/// told, so that nobody waits for an operator to read.
Outcome underLocks(IMessages& messages, const LockLists& tables,
                   const std::function<UntoldOutcome()>& work);

/// Runs the writing of a change in one unit of work, which counts only when it is done.
UntoldOutcome inOneUnit(const std::function<UntoldOutcome()>& work);

/// Runs the checks and the writing of a change that asks nothing: between the locks, in one
/// unit of work. What the work wrote is taken back or durable before anything is told.
Outcome changeRecords(IMessages& messages, const LockLists& tables,
                      const std::function<UntoldOutcome()>& work);

/// Tells what there is to tell.
Outcome told(IMessages& messages, const UntoldOutcome& result);

}  // namespace chengheng
