#include "books/carrying/carry_forward.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "base/values/numbers.h"
#include "books/carrying/carry_plan.h"
#include "books/carrying/carry_sql.h"
#include "books/carrying/carry_texts.h"
#include "books/carrying/carry_writing.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "opening/balance/trial_balance.h"
#include "opening/storing/posting.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

/// Of the obstacles so many are told in a box.
constexpr std::size_t obstaclesTold = 8;

/// Whether there are balances, or details of balances, of whatever account.
Status readIsFilled(CNbCwDB& database, bool& isFilled) {
    const std::optional<bool> sums = hasRows<_AccSumInfo>(database, carry_sql::anyRow);
    if (!sums) return database.lastStatus();
    const std::optional<bool> details = hasRows<_AssAccInfo>(database, carry_sql::anyRow);
    if (!details) return database.lastStatus();
    isFilled = *sums || *details;
    return Status::done();
}

std::string obstaclesText(const CarryPlan& plan) {
    std::string lines;
    const std::size_t told = std::min(plan.obstacles.size(), obstaclesTold);
    for (std::size_t at = 0; at < told; ++at)
        lines += (at > 0 ? "\n" : "") + plan.obstacles[at].text;
    if (told < plan.obstacles.size())
        lines += "\n" + fmt::format(carry_texts::moreObstacles, plan.obstacles.size());
    return fmt::format(carry_texts::obstacles, lines);
}

std::string remarkOn(const CarryPlan& plan, const OpeningBooks& books) {
    const TrialBalance balance(books.classes, books.sheet.accounts());
    return fmt::format(carry_texts::carried, plan.accounts.size(),
                       ftoaWithSap(balance.debitTotal(), 2), ftoaWithSap(balance.creditTotal(), 2));
}

/// What is taken over, from where and into what.
class Carrying {
  public:
    Carrying(const BooksRegistry& registry, std::vector<Notice>& untold,
             const CarryProgress& progress, const std::string& lastYear = {})
        : m_before(registry, untold, lastYear), m_progress(progress) {}

    UntoldOutcome run(CarriedForward& result) {
        Status status = selectOpenBooks();
        if (status) status = readIsFilled(*g_pDB, result.isFilled);
        if (status && result.isFilled) return carryRefused(carry_texts::notEmpty);
        UntoldOutcome read = status ? m_before.read(m_progress) : UntoldOutcome::failed();
        return read.outcome == Outcome::done ? write(result) : std::move(read);
    }

    UntoldOutcome look(CarryPreview& preview) {
        UntoldOutcome read = m_before.read(m_progress);
        if (read.outcome != Outcome::done) return read;
        OpeningBooks books;
        Members members;
        Status status = readIsFilled(*g_pDB, preview.isFilled);
        if (status) status = readIsBrowsing(*g_pDB, preview.isBrowsing);
        if (status) status = readOpeningBooks(*g_pDB, books);
        if (status) status = members.read(*g_pDB);
        if (!status) return UntoldOutcome::failed();
        preview.plan = planCarry(m_before.end(), books.sheet, {m_before.membersBefore(), members});
        for (const CarriedAccount& carried : preview.plan.accounts) {
            const OpeningAccount& account = books.sheet.accounts()[carried.place];
            preview.accounts.push_back(
                {account.code, account.name, account.isDebit, carried.closing, account.opening()});
        }
        for (OpeningAccount& account : books.sheet.accounts()) account.balances = {};
        putCarried(preview.plan, books.sheet);
        const TrialBalance balance(books.classes, books.sheet.accounts());
        preview.debitTotal = balance.debitTotal();
        preview.creditTotal = balance.creditTotal();
        preview.balance = balance.texts();
        return read;
    }

    UntoldOutcome verify(std::vector<CarryDifference>& differences) {
        UntoldOutcome read = m_before.read(m_progress);
        if (read.outcome != Outcome::done) return read;
        YearEnd start;
        Members members;
        Status status = readYearStart(*g_pDB, start);
        if (status) status = members.read(*g_pDB);
        if (!status) return UntoldOutcome::failed();
        differences = compareYears(m_before.end(), start, members);
        return read;
    }

  private:
    UntoldOutcome write(CarriedForward& result) {
        if (UntoldOutcome asked = askedFor(WriteRight::carryForward);
            asked.outcome != Outcome::done)
            return asked;
        OpeningBooks books;
        CarryPlan plan;
        UntoldOutcome written = inOneUnit(
            WriteRight::carryForward,
            [&] { return fmt::format(carry_texts::logged, plan.accounts.size()); },
            [&] { return writeInUnit(books, plan, result.isFilled); });
        if (written.outcome == Outcome::done) result.remark = remarkOn(plan, books);
        return written;
    }

    /// What others may have done meanwhile is looked at where nobody can any more.
    UntoldOutcome writeInUnit(OpeningBooks& books, CarryPlan& plan, bool& isFilled) {
        bool isBrowsing = false;
        Status status = holdSums(*g_pDB);
        if (status) status = readIsBrowsing(*g_pDB, isBrowsing);
        if (status) status = readIsFilled(*g_pDB, isFilled);
        if (status && isBrowsing) return carryRefused(carry_texts::browsing);
        if (status && isFilled) return carryRefused(carry_texts::notEmpty);
        Members members;
        if (status) status = readOpeningBooks(*g_pDB, books);
        if (status) status = members.read(*g_pDB);
        if (!status) return UntoldOutcome::failed();
        plan = planCarry(m_before.end(), books.sheet, {m_before.membersBefore(), members});
        if (plan.isEmpty) return carryRefused(carry_texts::nothingToCarry);
        if (plan.hasDifferingCharts) return carryRefused(carry_texts::differingCharts);
        if (!plan.obstacles.empty()) return UntoldOutcome::refused({.text = obstaclesText(plan)});
        putCarried(plan, books.sheet);
        status = writeCarried(*g_pDB, plan, books.sheet, m_progress);
        if (status.failure == Failure::cancelled) return carryGivenUp();
        return status ? UntoldOutcome::done() : UntoldOutcome::failed();
    }

    BothYears m_before;
    const CarryProgress& m_progress;
};

Outcome outcomeOf(UntoldOutcome outcome, std::vector<Notice>& untold) {
    if (outcome.notice) untold.push_back(*std::move(outcome.notice));
    return outcome.outcome;
}

}  // namespace

CarriedForward carryForward(const BooksRegistry& registry, std::vector<Notice>& untold,
                            const CarryProgress& progress) {
    CarriedForward result;
    result.outcome = outcomeOf(Carrying(registry, untold, progress).run(result), untold);
    return result;
}

CarriedForward carryForwardFrom(const std::string& lastYear, const BooksRegistry& registry,
                                std::vector<Notice>& untold) {
    CarriedForward result;
    const CarryProgress nobody;
    result.outcome = outcomeOf(Carrying(registry, untold, nobody, lastYear).run(result), untold);
    return result;
}

std::string carriedIntoNewYear(const CarriedForward& carried, std::span<const Notice> untold) {
    return carried.outcome == Outcome::done ? carried.remark
                                            : notCarriedIntoNewYear(untold.back().text);
}

std::string notCarriedIntoNewYear(const std::string& reason) {
    return fmt::format(carry_texts::notCarried, reason);
}

const char* CarryPreview::refusal() const {
    if (isFilled) return carry_texts::alreadyFilled;
    if (isBrowsing) return carry_texts::browsing;
    return plan.isEmpty ? carry_texts::nothingToCarry : nullptr;
}

Outcome previewCarry(const BooksRegistry& registry, CarryPreview& preview,
                     std::vector<Notice>& untold, const CarryProgress& progress) {
    return outcomeOf(Carrying(registry, untold, progress).look(preview), untold);
}

Outcome verifyCarry(const BooksRegistry& registry, std::vector<CarryDifference>& differences,
                    std::vector<Notice>& untold, const CarryProgress& progress) {
    return outcomeOf(Carrying(registry, untold, progress).verify(differences), untold);
}

}  // namespace chengheng
