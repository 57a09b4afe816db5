#include "books/carrying/detail_changes.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "base/values/numbers.h"
#include "books/carrying/carry_sql.h"
#include "books/carrying/carry_writing.h"
#include "data/access/row_lease.h"
#include "data/tables/balances.h"
#include "opening/storing/posting.h"

namespace chengheng {
namespace {

using Rows = std::vector<_AssAccInfo>;

EntryDimensions dimensionsOf(const _AssAccInfo& row) {
    return {.department = row.lDeptId,
            .person = row.lPersonId,
            .unit = row.lEnterId,
            .item = row.lItemId,
            .itemClass = row.sItemId};
}

/// What stands as the opening of the first period.
EntryFigures openingOf(const Rows& rows) {
    FigureSums sums;
    for (const _AssAccInfo& row : rows)
        if (row.byPeroid == 1) sums.add({row.mBegin, row.mFBegin, row.dBegin});
    return sums.total();
}

bool isOneForEachPeriod(const Rows& rows) {
    std::set<int> periods;
    for (const _AssAccInfo& row : rows) periods.insert(row.byPeroid);
    return rows.size() == periodRows && periods.size() == periodRows;
}

/// The details of one account.
class AccountDetails {
  public:
    AccountDetails(CNbCwDB& database, std::int32_t account)
        : m_database(database), m_account(account) {}

    Status read() {
        const RowLease<_AssAccInfo> rows(m_database, carry_sql::detailsOf(m_account).c_str());
        if (!rows.isRead()) return m_database.lastStatus();
        for (const _AssAccInfo* row : rows.rows()) m_stored[dimensionsOf(*row)].push_back(*row);
        return Status::done();
    }

    /// False where the figure is not what the change replaces.
    bool change(const DetailChange& change) {
        const auto [wanted, isNew] = m_wanted.try_emplace(change.of);
        if (isNew) wanted->second = openingOf(m_stored[change.of]);
        double& figure = wanted->second.*figureOf(change.measure);
        double before = change.before;
        Round(before, decimalsOf(change.measure));
        if (figure != before) return false;
        figure = change.after;
        return true;
    }

    Status write() {
        std::string batch;
        std::vector<ClosedDetail> fresh;
        for (const auto& [of, figures] : m_wanted) {
            const Rows& rows = m_stored[of];
            const bool isThere = figures != EntryFigures();
            const bool isKept = isThere && isOneForEachPeriod(rows);
            for (const _AssAccInfo& row : rows) {
                if (isKept)
                    carry_sql::updateDetail(batch, figures, row.lId);
                else
                    carry_sql::deleteDetail(batch, row.lId);
            }
            if (isThere && !isKept) fresh.push_back({m_account, of, figures});
        }
        if (!batch.empty() && m_database.QRYExecuteSQL(batch) == 0) return m_database.lastStatus();
        return addDetails(m_database, fresh);
    }

  private:
    CNbCwDB& m_database;
    const std::int32_t m_account;
    std::map<EntryDimensions, Rows> m_stored;
    std::map<EntryDimensions, EntryFigures> m_wanted;
};

}  // namespace

std::vector<DetailChange> detailChanges(const RepeatPlan& plan, bool takesBack) {
    std::vector<DetailChange> changes;
    for (const CarryDifference& difference : plan.carried) {
        if (!difference.of) continue;
        DetailChange change{difference.accountNow, *difference.of, difference.counted,
                            difference.opening, difference.closing};
        if (takesBack) std::swap(change.before, change.after);
        changes.push_back(std::move(change));
    }
    return changes;
}

Status writeDetailChanges(CNbCwDB& database, std::span<const DetailChange> changes,
                          bool& isCurrent) {
    isCurrent = true;
    while (!changes.empty()) {
        const std::int32_t id = changes.front().account;
        const auto end = std::ranges::find_if(
            changes, [id](const DetailChange& change) { return change.account != id; });
        const auto count = static_cast<std::size_t>(end - changes.begin());
        AccountDetails account(database, id);
        if (const Status status = account.read(); !status) return status;
        for (const DetailChange& change : changes.first(count))
            isCurrent = isCurrent && account.change(change);
        if (!isCurrent) return Status::done();
        if (const Status status = account.write(); !status) return status;
        changes = changes.subspan(count);
    }
    return Status::done();
}

}  // namespace chengheng
