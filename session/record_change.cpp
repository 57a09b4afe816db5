#include "session/record_change.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/access/unit_of_work.h"
#include "session/CCheckAuth.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "session/session_texts.h"
#include "session/who_writes.h"

namespace chengheng {
namespace {

/// Being a supervisor, and what is everybody's own, are no functions.
std::int32_t functionOf(WriteRight right) { return std::max(static_cast<std::int32_t>(right), 0); }

}  // namespace

UntoldOutcome UntoldOutcome::failed() { return {Outcome::failed, lastFailureNotice()}; }

UntoldOutcome outcomeOfRow(int operationResult, const Notice& whenMissing) {
    if (operationResult == 0) return UntoldOutcome::done();
    if (g_pDB->lastStatus().failure == Failure::missing) return UntoldOutcome::stale(whenMissing);
    return UntoldOutcome::failed();
}

std::optional<Refusal> writeRefusal(WriteRight right) {
    if (right == WriteRight::own || whoWrites().isAdministrator()) return std::nullopt;
    auto refusal = right == WriteRight::supervisor ? supervisorRefusal()
                                                   : storedRightRefusal(static_cast<int>(right));
    if (refusal) noteRefusal(functionOf(right), *refusal);
    return refusal;
}

UntoldOutcome askedFor(WriteRight right) {
    const auto refusal = writeRefusal(right);
    if (!refusal) return UntoldOutcome::done();
    return refusal->kind == RefusalKind::failed ? UntoldOutcome::failed()
                                                : UntoldOutcome::refused(refusal->notice);
}

Outcome underLocks(IMessages& messages, const LockLists& tables,
                   const std::function<UntoldOutcome()>& work) {
    const auto run = [&] {
        if (!selectOpenBooks()) return UntoldOutcome::failed();
        const TableLocks locks(*g_pDB, tables.referring, tables.own, tables.releaseOrder);
        if (!locks.areGranted()) return UntoldOutcome::failed();
        // A right may be taken away while one waits for the locks.
        const UntoldOutcome asked = askedFor(tables.right);
        return asked.outcome == Outcome::done ? work() : asked;
    };
    return told(messages, run());
}

UnitWords unitWords(WriteRight right, ChangeWords words) {
    return {functionOf(right), std::move(words)};
}

std::string changedName(const std::string& before, const std::string& after) {
    return before == after ? before : fmt::format(session_texts::becomes, before, after);
}

UntoldOutcome inOneUnit(WriteRight right, const ChangeWords& words,
                        const std::function<UntoldOutcome()>& work) {
    UnitOfWork unit(*g_pDB, unitWords(right, words));
    if (!unit.isOpen()) return UntoldOutcome::failed();
    UntoldOutcome result = work();
    if (result.outcome == Outcome::done && !(noteWriter() && unit.commit()))
        return UntoldOutcome::failed();
    return result;
}

Outcome changeRecords(IMessages& messages, const LockLists& tables, const ChangeWords& words,
                      const std::function<UntoldOutcome()>& work) {
    return underLocks(messages, tables, [&] { return inOneUnit(tables.right, words, work); });
}

Outcome told(IMessages& messages, const UntoldOutcome& result) {
    if (result.notice) messages.tell(*result.notice);
    return result.outcome;
}

}  // namespace chengheng
