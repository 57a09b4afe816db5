#include "accounts/transfer/plan_writing.h"

#include <algorithm>
#include <span>

#include "accounts/chart/account_sql.h"
#include "data/access/CNbCwDB.h"
#include "data/tables/accounts.h"

namespace chengheng {
namespace {

constexpr std::size_t rowsAtOnce = 500;

/// Writes a plan step by step and tells how far it is.
class PlanWriter {
  public:
    PlanWriter(CNbCwDB& database, const ImportPlan& plan, const ImportProgress& progress)
        : m_database(database), m_plan(plan), m_progress(progress) {}

    Status write() {
        Status status = tellProgress(0);
        if (status) status = writeAdded();
        if (status) status = writeChanged();
        return status;
    }

  private:
    Status tellProgress(std::size_t more) {
        m_done += more;
        const std::size_t total = m_plan.added.size() + m_plan.changed.size();
        if (!m_progress || m_progress(m_done, total)) return Status::done();
        return Status::of(Failure::cancelled);
    }

    Status run(const std::string& batch) {
        return m_database.QRYExecuteSQL(batch) != 0 ? Status::done() : m_database.lastStatus();
    }

    Status writeAdded() {
        if (m_plan.added.empty()) return Status::done();
        std::span<const _CodeInfo> left = m_plan.added;
        const int count = static_cast<int>(left.size());
        std::int32_t lastId = 0;
        if (Status status = m_database.readLastIdBefore<_CodeInfo>(count, lastId); !status)
            return status;
        while (!left.empty()) {
            const auto part = left.first(std::min(rowsAtOnce, left.size()));
            Status status = run(account_sql::addAccounts(part, lastId));
            if (status) status = tellProgress(part.size());
            if (!status) return status;
            lastId += static_cast<int>(part.size());
            left = left.subspan(part.size());
        }
        return run(account_sql::setLastAccountId(lastId));
    }

    Status writeChanged() {
        for (const _CodeInfo& account : m_plan.changed) {
            if (m_database.Code_Edit(account) != 0) {
                const Status& status = m_database.lastStatus();
                return status.failure == Failure::missing
                           ? Status::of(Failure::missing, account.sCode)
                           : status;
            }
            if (Status status = tellProgress(1); !status) return status;
        }
        return Status::done();
    }

    CNbCwDB& m_database;
    const ImportPlan& m_plan;
    const ImportProgress& m_progress;
    std::size_t m_done = 0;
};

}  // namespace

Status writePlan(CNbCwDB& database, const ImportPlan& plan, const ImportProgress& progress) {
    return PlanWriter(database, plan, progress).write();
}

}  // namespace chengheng
