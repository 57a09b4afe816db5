#include "session/record_change.h"

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/access/unit_of_work.h"
#include "session/last_failure.h"
#include "session/open_books.h"

namespace chengheng {
Result Result::failed() { return {Outcome::failed, lastFailureNotice()}; }

Result resultOfRow(int operationResult, const Notice& whenMissing) {
    if (operationResult == 0) return Result::done();
    if (g_pDB->lastStatus().failure == Failure::missing) return Result::stale(whenMissing);
    return Result::failed();
}

Outcome underLocks(IMessages& messages, const LockLists& tables,
                   const std::function<Result()>& work) {
    const auto run = [&] {
        if (!selectOpenBooks()) return Result::failed();
        const TableLocks locks(*g_pDB, tables.referring, tables.own, tables.releaseOrder);
        return locks.areGranted() ? work() : Result::failed();
    };
    return told(messages, run());
}

Result inOneUnit(const std::function<Result()>& work) {
    UnitOfWork unit(*g_pDB);
    if (!unit.isOpen()) return Result::failed();
    Result result = work();
    if (result.outcome == Outcome::done && !unit.commit()) return Result::failed();
    return result;
}

Outcome changeRecords(IMessages& messages, const LockLists& tables,
                      const std::function<Result()>& work) {
    return underLocks(messages, tables, [&work] { return inOneUnit(work); });
}

Outcome told(IMessages& messages, const Result& result) {
    if (result.notice) messages.tell(*result.notice);
    return result.outcome;
}

}  // namespace chengheng
