#include "session/record_change.h"

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/access/unit_of_work.h"
#include "session/last_failure.h"
#include "session/open_books.h"

namespace chengheng {
UntoldOutcome UntoldOutcome::failed() { return {Outcome::failed, lastFailureNotice()}; }

UntoldOutcome outcomeOfRow(int operationResult, const Notice& whenMissing) {
    if (operationResult == 0) return UntoldOutcome::done();
    if (g_pDB->lastStatus().failure == Failure::missing) return UntoldOutcome::stale(whenMissing);
    return UntoldOutcome::failed();
}

Outcome underLocks(IMessages& messages, const LockLists& tables,
                   const std::function<UntoldOutcome()>& work) {
    const auto run = [&] {
        if (!selectOpenBooks()) return UntoldOutcome::failed();
        const TableLocks locks(*g_pDB, tables.referring, tables.own, tables.releaseOrder);
        return locks.areGranted() ? work() : UntoldOutcome::failed();
    };
    return told(messages, run());
}

UntoldOutcome inOneUnit(const std::function<UntoldOutcome()>& work) {
    UnitOfWork unit(*g_pDB);
    if (!unit.isOpen()) return UntoldOutcome::failed();
    UntoldOutcome result = work();
    if (result.outcome == Outcome::done && !unit.commit()) return UntoldOutcome::failed();
    return result;
}

Outcome changeRecords(IMessages& messages, const LockLists& tables,
                      const std::function<UntoldOutcome()>& work) {
    return underLocks(messages, tables, [&work] { return inOneUnit(work); });
}

Outcome told(IMessages& messages, const UntoldOutcome& result) {
    if (result.notice) messages.tell(*result.notice);
    return result.outcome;
}

}  // namespace chengheng
