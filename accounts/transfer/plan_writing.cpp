#include "accounts/transfer/plan_writing.h"

#include <algorithm>
#include <span>

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

    Status writeAdded() {
        std::vector<_CodeInfo> added = m_plan.added;
        std::span<_CodeInfo> left = added;
        while (!left.empty()) {
            const auto part = left.first(std::min(rowsAtOnce, left.size()));
            if (m_database.addAll<_CodeInfo>(part) != 0) return m_database.lastStatus();
            if (Status status = tellProgress(part.size()); !status) return status;
            left = left.subspan(part.size());
        }
        return Status::done();
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
