#include "books/carrying/carry_writing.h"

#include <vector>

#include "books/carrying/carry_sql.h"
#include "opening/storing/posting.h"

namespace chengheng {
namespace {

/// So many accounts or combinations are added at once; more would take room for nothing.
constexpr std::size_t atOnce = 1000;

/// Collects rows of a table and adds them in parts.
template <class Record>
class Adding {
  public:
    explicit Adding(CNbCwDB& database) : m_database(database) {
        m_rows.reserve(atOnce * periodRows);
    }
    /// Likewise, in the middle of a work that tells how much of it is done.
    Adding(CNbCwDB& database, const CarryProgress& progress, std::size_t done, std::size_t total)
        : Adding(database) {
        m_progress = progress;
        m_done = done;
        m_total = total;
    }

    /// The twelve rows of an account or combination, which differ in their period only.
    Status add(Record row) {
        for (int period = 1; period <= periodRows; ++period) {
            row.byPeroid = static_cast<std::uint8_t>(period);
            m_rows.push_back(row);
        }
        return m_rows.size() < atOnce * periodRows ? Status::done() : flush();
    }
    Status flush() {
        if (m_rows.empty()) return Status::done();
        const int result = m_database.addAll<Record>(m_rows);
        m_done += m_rows.size() / periodRows;
        m_rows.clear();
        if (result != 0) return m_database.lastStatus();
        const bool goesOn = !m_progress || m_progress(m_done, m_total);
        return goesOn ? Status::done() : Status::of(Failure::cancelled);
    }

  private:
    CNbCwDB& m_database;
    std::vector<Record> m_rows;
    CarryProgress m_progress;
    std::size_t m_done = 0;
    std::size_t m_total = 0;
};

/// An account with others below it keeps only its money in books that begin mid-year.
_AccSumInfo sumOf(const OpeningAccount& account, OpeningLayout layout) {
    _AccSumInfo row{.lCodeId = account.id, .mBegin = account.opening()};
    if (account.isEnd || layout == OpeningLayout::simple) {
        row.dAmtBegin = account.balance(Measure::quantity).opening;
        row.mFgnBegin = account.balance(Measure::foreign).opening;
    }
    return row;
}

_AssAccInfo sumOf(const ClosedDetail& detail) {
    return {.lCodeId = detail.account,
            .lItemId = detail.of.item,
            .lDeptId = detail.of.department,
            .lPersonId = detail.of.person,
            .lEnterId = detail.of.unit,
            .sItemId = detail.of.itemClass,
            .mBegin = detail.closing.money,
            .dBegin = detail.closing.quantity,
            .mFBegin = detail.closing.foreign};
}

}  // namespace

Status writeCarried(CNbCwDB& database, const CarryPlan& plan, const OpeningSheet& sheet,
                    const CarryProgress& progress) {
    if (database.QRYExecuteSQL(carry_sql::clearSums) == 0) return database.lastStatus();
    const std::size_t accounts = sheet.accounts().size();
    const std::size_t total = accounts + plan.details.size();
    Adding<_AccSumInfo> sums(database, progress, 0, total);
    for (const OpeningAccount& account : sheet.accounts()) {
        if (!deservesRows(account, sheet.layout())) continue;
        if (const Status status = sums.add(sumOf(account, sheet.layout())); !status) return status;
    }
    if (const Status status = sums.flush(); !status) return status;
    Adding<_AssAccInfo> details(database, progress, accounts, total);
    for (const ClosedDetail& detail : plan.details)
        if (const Status status = details.add(sumOf(detail)); !status) return status;
    return details.flush();
}

Status addDetails(CNbCwDB& database, std::span<const ClosedDetail> details) {
    Adding<_AssAccInfo> rows(database);
    for (const ClosedDetail& detail : details)
        if (const Status status = rows.add(sumOf(detail)); !status) return status;
    return rows.flush();
}

}  // namespace chengheng
