#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/messages/messages.h"
#include "base/messages/refusal.h"
#include "data/access/table_locks.h"
#include "data/access/unit_words.h"

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

/// The right that a change asks for, by the number of its function in the rights list.
enum class WriteRight {
    supervisor = -1,  ///< no function, but being a supervisor
    own = 0,          ///< everybody's, of what is the own
    persons = 1,
    departments = 8,
    projectItems = 13,
    projectClasses = 14,
    newYear = 35,
    parameters = 40,
    accounts = 41,
    opening = 43,
    carryForward = 45,
    currencies = 46,
    voucherTypes = 52,
    settlement = 57,
    units = 75,
};

/// Why whoever is logged on may not make a change, by what the books hold now; nothing when he
/// may. Who works with books without logging on, as chbooks does who can write the file, needs no
/// right.
std::optional<Refusal> writeRefusal(WriteRight right);

/// The same as what becomes of the change; done when he may.
UntoldOutcome askedFor(WriteRight right);

/// What a change asks for: the right to it, and the tables that it locks, those that refer to the
/// changed one and the changed one.
struct LockLists {
    WriteRight right;
    const char* referring;
    const char* own;
    ReleaseOrder releaseOrder = ReleaseOrder::asTaken;
};

/// Runs work on the open set of books between the locks, where the right to it is there. They are
/// released before anything is told, so that nobody waits for an operator to read.
Outcome underLocks(IMessages& messages, const LockLists& tables,
                   const std::function<UntoldOutcome()>& work);

/// What is done, in the words of the operation log; asked for once it is written.
using ChangeWords = std::function<std::string()>;

/// The same with the function that the change belongs to.
UnitWords unitWords(WriteRight right, ChangeWords words);

/// What is changed by its name, and by the name it gets where that is another: "1 现金 → 1 现款".
std::string changedName(const std::string& before, const std::string& after);

/// Runs the writing of a change in one unit of work, which counts only when it is done.
UntoldOutcome inOneUnit(WriteRight right, const ChangeWords& words,
                        const std::function<UntoldOutcome()>& work);

/// Runs the checks and the writing of a change that asks nothing: between the locks, in one
/// unit of work. What the work wrote is taken back or durable before anything is told.
Outcome changeRecords(IMessages& messages, const LockLists& tables, const ChangeWords& words,
                      const std::function<UntoldOutcome()>& work);

/// Tells what there is to tell.
Outcome told(IMessages& messages, const UntoldOutcome& result);

}  // namespace chengheng
