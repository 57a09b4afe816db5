#include "session/record_change.h"

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/access/unit_of_work.h"
#include "session/CCheckAuth.h"
#include "session/host_globals.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "session/rights_texts.h"

namespace chengheng {
UntoldOutcome UntoldOutcome::failed() { return {Outcome::failed, lastFailureNotice()}; }

UntoldOutcome outcomeOfRow(int operationResult, const Notice& whenMissing) {
    if (operationResult == 0) return UntoldOutcome::done();
    if (g_pDB->lastStatus().failure == Failure::missing) return UntoldOutcome::stale(whenMissing);
    return UntoldOutcome::failed();
}

std::optional<Refusal> writeRefusal(WriteRight right) {
    const CDivideWInfo* const user = g_lpLogonUserInfo;
    const bool isAdministrator = user == nullptr || user->lUserId == 0;
    if (right == WriteRight::own || isAdministrator) return std::nullopt;
    if (right != WriteRight::supervisor) return rightRefusal(static_cast<int>(right));
    if (user->lManager == 1) return std::nullopt;
    return Refusal{RefusalKind::wrongInput,
                   {.text = rights_texts::supervisorMissing, .icon = MessageIcon::stop}};
}

Outcome underLocks(IMessages& messages, const LockLists& tables,
                   const std::function<UntoldOutcome()>& work) {
    const auto run = [&] {
        if (!selectOpenBooks()) return UntoldOutcome::failed();
        if (const auto refusal = writeRefusal(tables.right))
            return UntoldOutcome::refused(refusal->notice);
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
