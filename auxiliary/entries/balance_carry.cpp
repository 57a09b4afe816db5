#include "auxiliary/entries/balance_carry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "auxiliary/members/auxiliary_sql.h"
#include "data/access/row_lease.h"
#include "data/tables/balances.h"
#include "opening/editing/typed_amount.h"
#include "opening/storing/posting.h"

namespace chengheng {
namespace {

/// From here on reading all rows of the account costs less than asking for each combination, and
/// adding records less than a statement for each row.
constexpr std::size_t manyCombinations = 64;
/// So many are added at once; more would take room for nothing.
constexpr std::size_t combinationsAtOnce = 1000;

EntryFigures openingOf(const _AssAccInfo& row) { return {row.mBegin, row.mFBegin, row.dBegin}; }

EntryFigures openingOf(const _AccSumInfo& row) {
    return {row.mBegin, row.mFgnBegin, row.dAmtBegin};
}

bool isTooLargeFigure(const EntryFigures& figures) {
    return std::ranges::any_of(std::array{figures.money, figures.foreign, figures.quantity},
                               [](double value) { return !(std::fabs(value) < leastTooLarge); });
}

/// The first row of each period: a combination has one for each.
std::vector<_AssAccInfo> firstOfPeriods(std::vector<_AssAccInfo> rows) {
    std::ranges::stable_sort(
        rows, {}, [](const _AssAccInfo& row) { return std::pair(row.byPeroid, row.lId); });
    const auto more = std::ranges::unique(rows, {}, &_AssAccInfo::byPeroid);
    rows.erase(more.begin(), more.end());
    return rows;
}

bool haveSameOpening(const std::vector<_AssAccInfo>& rows) {
    return std::ranges::all_of(
        rows, [&](const _AssAccInfo& row) { return openingOf(row) == openingOf(rows.front()); });
}

Status run(CNbCwDB& database, const std::string& batch) {
    if (batch.empty() || database.QRYExecuteSQL(batch) != 0) return Status::done();
    return database.lastStatus();
}

}  // namespace

EntryDimensions BalanceCarry::combinationOf(const EntryDimensions& of) const {
    EntryDimensions kept;
    if (m_member.has(Dimension::department)) kept.department = of.department;
    if (m_member.has(Dimension::person)) kept.person = of.person;
    if (m_member.has(Dimension::unit)) kept.unit = of.unit;
    if (m_member.has(Dimension::item)) {
        kept.item = of.item;
        kept.itemClass = of.itemClass;
    }
    return kept;
}

void BalanceCarry::takeOff(const EntryContent& entry) {
    const EntryFigures figures = -figuresOf(entry, m_account);
    m_total.add(figures);
    if (std::fabs(figures.money) < leastMoney) return;
    m_combinations[combinationOf(entry.of)].add(figures);
}

void BalanceCarry::put(const EntryContent& entry) {
    const EntryFigures figures = figuresOf(entry, m_account);
    m_total.add(figures);
    m_combinations[combinationOf(entry.of)].add(figures);
}

Status BalanceCarry::write(CNbCwDB& database, bool& isTooLarge) {
    isTooLarge = false;
    const Status status = writeAuxiliary(database, isTooLarge);
    return status ? writeAccount(database, isTooLarge) : status;
}

Status BalanceCarry::readRows(CNbCwDB& database, std::map<EntryDimensions, Rows>& rows) const {
    if (m_combinations.size() < manyCombinations) {
        for (const auto& [of, sums] : m_combinations) {
            const RowLease<_AssAccInfo> lease(database, m_member.sumsOf(m_account.id, of).c_str());
            if (!lease.isRead()) return database.lastStatus();
            if (lease.isFound()) rows[of] = lease.copy();
        }
        return Status::done();
    }
    const std::string condition = auxiliary_sql::sums({}, m_account.id, {});
    const RowLease<_AssAccInfo> lease(database, condition.c_str());
    if (!lease.isRead()) return database.lastStatus();
    for (const _AssAccInfo* row : lease.rows()) {
        const EntryDimensions of = combinationOf({.department = row->lDeptId,
                                                  .person = row->lPersonId,
                                                  .unit = row->lEnterId,
                                                  .item = row->lItemId,
                                                  .itemClass = row->sItemId});
        if (m_combinations.contains(of)) rows[of].push_back(*row);
    }
    return Status::done();
}

Status BalanceCarry::writeAuxiliary(CNbCwDB& database, bool& isTooLarge) {
    std::string batch;
    std::map<EntryDimensions, Rows> stored;
    if (const Status status = readRows(database, stored); !status) return status;
    std::vector<FreshSums> fresh;
    for (const auto& [of, sums] : m_combinations) {
        const EntryFigures moved = sums.total();
        const auto found = stored.find(of);
        if (found == stored.end()) {
            fresh.emplace_back(of, moved);
            isTooLarge = isTooLarge || isTooLargeFigure(moved);
            continue;
        }
        if (moved == EntryFigures()) continue;
        const Rows rows = firstOfPeriods(found->second);
        const bool isOneStatement = rows.size() == found->second.size() && haveSameOpening(rows);
        for (const _AssAccInfo& row : rows) {
            const EntryFigures opening = openingOf(row) + moved;
            isTooLarge = isTooLarge || isTooLargeFigure(opening);
            if (!isOneStatement) auxiliary_sql::updateOneRow(batch, opening, row.lId);
        }
        if (isOneStatement)
            m_member.updateSums(batch, openingOf(rows.front()) + moved, m_account.id, of);
    }
    if (const Status status = run(database, batch); !status) return status;
    return fresh.size() < manyCombinations ? insertSums(database, fresh) : addSums(database, fresh);
}

Status BalanceCarry::insertSums(CNbCwDB& database, std::span<const FreshSums> fresh) const {
    if (fresh.empty()) return Status::done();
    std::string batch;
    std::int32_t lastId = 0;
    const int wanted = static_cast<int>(fresh.size()) * periodRows;
    if (Status status = database.readLastIdBefore<_AssAccInfo>(wanted, lastId); !status)
        return status;
    for (const auto& [of, figures] : fresh) {
        for (int period = 1; period <= periodRows; ++period)
            auxiliary_sql::insertAuxiliary(batch, ++lastId, period, m_account.id, of, figures);
    }
    auxiliary_sql::setLastAuxiliaryId(batch, lastId);
    return run(database, batch);
}

/// The same rows as records.
Status BalanceCarry::addSums(CNbCwDB& database, std::span<const FreshSums> fresh) const {
    Rows rows;
    while (!fresh.empty()) {
        const auto part = fresh.first(std::min(fresh.size(), combinationsAtOnce));
        fresh = fresh.subspan(part.size());
        rows.clear();
        for (const auto& [of, figures] : part) {
            for (std::uint8_t period = 1; period <= periodRows; ++period)
                rows.push_back({.byPeroid = period,
                                .lCodeId = m_account.id,
                                .lItemId = of.item,
                                .lDeptId = of.department,
                                .lPersonId = of.person,
                                .lEnterId = of.unit,
                                .sItemId = of.itemClass,
                                .mBegin = figures.money,
                                .dBegin = figures.quantity,
                                .mFBegin = figures.foreign});
        }
        if (database.addAll<_AssAccInfo>(rows) != 0) return database.lastStatus();
    }
    return Status::done();
}

Status BalanceCarry::writeAccount(CNbCwDB& database, bool& isTooLarge) {
    const std::string condition = auxiliary_sql::accountSums(m_account.id);
    const RowLease<_AccSumInfo> lease(database, condition.c_str());
    if (!lease.isRead()) return database.lastStatus();
    const EntryFigures total = m_total.total();
    std::string batch;
    for (const _AccSumInfo* row : lease.rows()) {
        const EntryFigures opening = openingOf(*row) + total;
        isTooLarge = isTooLarge || isTooLargeFigure(opening);
        if (opening != openingOf(*row))
            auxiliary_sql::updateAccountSums(batch, opening, m_account.id, row->byPeroid);
    }
    if (!lease.isFound()) {
        std::int32_t lastId = 0;
        if (Status status = database.readLastIdBefore<_AccSumInfo>(periodRows, lastId); !status)
            return status;
        isTooLarge = isTooLarge || isTooLargeFigure(total);
        for (int period = 1; period <= periodRows; ++period)
            auxiliary_sql::insertAccountSums(batch, ++lastId, m_account.id, period, total);
        auxiliary_sql::setLastAccountSumsId(batch, lastId);
    }
    return run(database, batch);
}

}  // namespace chengheng
