#include "books/carrying/carry_repeat.h"

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include "books/carrying/carry_sql.h"
#include "books/carrying/carry_texts.h"
#include "books/carrying/detail_changes.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/access/selected_cells.h"
#include "data/tables/vouchers.h"
#include "opening/editing/step_writer.h"
#include "session/last_failure.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

Status readAccountsWithEntries(std::set<std::int32_t>& accounts) {
    const SelectedCells cells(*g_pDB, carry_sql::accountsWithEntries);
    if (!cells.isRead()) return g_pDB->lastStatus();
    for (int row = 0; row < cells.rows(); ++row)
        accounts.insert(cells.number<std::int32_t>(row, 0));
    return Status::done();
}

/// The opening balances may be typed while vouchers are not posted yet; what opens a year may then
/// no longer be moved by another.
Status readHasVouchers(bool& hasVouchers) {
    Status status = readIsBrowsing(*g_pDB, hasVouchers);
    if (!status || hasVouchers) return status;
    const auto unposted = hasRows<_UnregMainInfo>(*g_pDB, carry_sql::unpostedVouchers);
    hasVouchers = unposted.value_or(false);
    return unposted ? Status::done() : g_pDB->lastStatus();
}

UntoldOutcome look(BothYears& years, RepeatPlan& plan, const CarryProgress& progress) {
    if (UntoldOutcome asked = askedFor(WriteRight::carryForward); asked.outcome != Outcome::done)
        return asked;
    bool hasVouchers = false;
    bool hasSums = false;
    Status status = selectOpenBooks();
    if (status) status = readHasVouchers(hasVouchers);
    if (status) status = readHasSums(*g_pDB, hasSums);
    if (!status) return UntoldOutcome::failed();
    if (hasVouchers) return carryRefused(carry_texts::repeatBrowsing);
    if (!hasSums) return carryRefused(carry_texts::notCarriedYet);
    if (UntoldOutcome read = years.read(progress); read.outcome != Outcome::done) return read;
    YearEnd start;
    Members members;
    std::set<std::int32_t> withEntries;
    status = readYearStart(*g_pDB, start);
    if (status) status = members.read(*g_pDB);
    if (status) status = readAccountsWithEntries(withEntries);
    if (!status) return UntoldOutcome::failed();
    plan = planRepeat(years.end(), std::move(start), {years.membersBefore(), members}, withEntries);
    return UntoldOutcome::done();
}

/// Vouchers that came since keep it back. Opening entries that came since would no longer add up to
/// the balance of their account.
UntoldOutcome writeDetails(const RepeatPlan& plan, bool takesBack) {
    std::set<std::int32_t> withEntries;
    bool hasVouchers = false;
    Status status = readHasVouchers(hasVouchers);
    if (status && hasVouchers)
        return carryRefused(takesBack ? carry_texts::notTakenBack : carry_texts::repeatBrowsing);
    if (status) status = readAccountsWithEntries(withEntries);
    bool isCurrent = std::ranges::none_of(plan.carried, [&](const CarryDifference& each) {
        return withEntries.contains(each.accountNow);
    });
    if (status && isCurrent)
        status = writeDetailChanges(*g_pDB, detailChanges(plan, takesBack), isCurrent);
    if (!status) return UntoldOutcome::failed();
    return isCurrent ? UntoldOutcome::done()
                     : UntoldOutcome::stale({.text = carry_texts::changedMeanwhile});
}

}  // namespace

Outcome lookAtRepeat(const BooksRegistry& registry, RepeatPlan& plan, std::vector<Notice>& untold,
                     const CarryProgress& progress) {
    BothYears years(registry, untold);
    UntoldOutcome looked = look(years, plan, progress);
    if (looked.notice) untold.push_back(*std::move(looked.notice));
    return looked.outcome;
}

CarriedAgain carriedAgain(const RepeatPlan& plan) {
    const auto kept = std::make_shared<const RepeatPlan>(plan);
    return {.make = [kept](const OpeningSheet& sheet) { return repeatStep(*kept, sheet); },
            .beside = [kept](bool takesBack) { return writeDetails(*kept, takesBack); },
            .remark = plan.text(true)};
}

Outcome repeatCarry(const RepeatPlan& plan, IMessages& messages) {
    OpeningBooks books;
    if (!selectOpenBooks() || !readOpeningBooks(*g_pDB, books)) {
        tellLastFailure(messages);
        return Outcome::failed;
    }
    const CarriedAgain carried = carriedAgain(plan);
    EditStep written;
    return StepWriter(books, WriteRight::carryForward).write(messages, carried.make, written, [&] {
        return carried.beside(false);
    });
}

}  // namespace chengheng
