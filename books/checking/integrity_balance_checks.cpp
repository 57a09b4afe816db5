#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <set>
#include <utility>

#include "base/values/date.h"
#include "base/values/numbers.h"
#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_sql.h"
#include "books/checking/integrity_texts.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {
namespace {

struct Figure {
    const char* title;
    int decimals;  ///< to which the books round it
};

constexpr std::array<Figure, 9> figures{{{integrity_texts::openingMoney, 2},
                                         {integrity_texts::debitMoney, 2},
                                         {integrity_texts::creditMoney, 2},
                                         {integrity_texts::openingQuantity, 5},
                                         {integrity_texts::debitQuantity, 5},
                                         {integrity_texts::creditQuantity, 5},
                                         {integrity_texts::openingForeign, 2},
                                         {integrity_texts::debitForeign, 2},
                                         {integrity_texts::creditForeign, 2}}};

using Figures = std::array<double, figures.size()>;
using FiguresByPeriod = std::map<std::pair<int, int>, Figures>;

/// By account and period.
Status readFigures(Engine& engine, const char* sql, FiguresByPeriod& sums) {
    return forEachRow(engine, sql, {}, [&sums](const Cursor& row) {
        Figures& values =
            sums[{static_cast<int>(row.integer(0)), static_cast<int>(row.integer(1))}];
        for (std::size_t at = 0; at < values.size(); ++at)
            values[at] = row.real(static_cast<int>(at) + 2);
        return Status::done();
    });
}

bool hasAuxiliaryDimension(const CheckedAccount& account) {
    return account.letters.find_first_of("ABCD") != std::string::npos;
}

void compare(const CheckedAccount& account, int period, const Figures& sums,
             const Figures& auxiliary, FaultList& faults) {
    for (std::size_t at = 0; at < figures.size(); ++at) {
        const auto [title, decimals] = figures[at];
        if (!areEqual(sums[at], auxiliary[at], decimals))
            faults.add(integrity_texts::sumsDiffer(account, period, title, ftoa(sums[at], decimals),
                                                   ftoa(auxiliary[at], decimals)));
    }
}

struct OpeningColumn {
    const char* name;
    int decimals;
};
constexpr std::array<OpeningColumn, 3> openingColumns{
    {{"mBegin", 2}, {"dAmtBegin", 5}, {"mFgnBegin", 2}}};

struct OpeningRow {
    int period;
    std::int64_t id;
    std::array<double, openingColumns.size()> figures;
};

/// The figure that most periods have is taken for the right one.
double usualFigure(const std::vector<OpeningRow>& rows, std::size_t column) {
    std::map<double, int> times;
    for (const OpeningRow& row : rows)
        if (std::isfinite(row.figures[column])) ++times[row.figures[column]];
    if (times.empty()) return 0;
    return std::ranges::max_element(times, {}, [](const auto& entry) { return entry.second; })
        ->first;
}

void compareOpenings(const CheckedAccount& account, const std::vector<OpeningRow>& rows,
                     FaultList& faults) {
    for (std::size_t at = 0; at < openingColumns.size(); ++at) {
        const auto [name, decimals] = openingColumns[at];
        const double usual = usualFigure(rows, at);
        for (const OpeningRow& row : rows)
            if (std::isfinite(row.figures[at]) && !areEqual(row.figures[at], usual, decimals))
                faults.add(integrity_texts::openingDiffers(account, row.period, row.id, name,
                                                           ftoa(row.figures[at], decimals),
                                                           ftoa(usual, decimals)));
    }
}

/// "1, 2, 2, 14".
std::string listed(const std::vector<int>& periods) {
    std::string text;
    for (const int period : periods) text += (text.empty() ? "" : ", ") + std::to_string(period);
    return text;
}

bool isFullYear(const std::vector<int>& periods) {
    if (periods.size() != periodsInAYear) return false;
    for (int period = 1; period <= periodsInAYear; ++period)
        if (periods[static_cast<std::size_t>(period - 1)] != period) return false;
    return true;
}

}  // namespace

/// Half of the last decimal the books keep counts as none, too.
bool areEqual(double one, double other, int decimals) {
    const double half = 0.5 * std::pow(10.0, -decimals);
    return std::abs(one - other) < half + 1e-12 * std::abs(one);
}

Status checkPeriodSums(CheckedBooks& books, FaultList& faults) {
    std::map<int, std::vector<int>> periods;
    const Status status =
        forEachRow(books.engine(), integrity_sql::periods, {}, [&periods](const Cursor& row) {
            periods[static_cast<int>(row.integer(0))].push_back(static_cast<int>(row.integer(1)));
            return Status::done();
        });
    for (const auto& [id, found] : periods) {
        const CheckedAccount* account = books.findAccount(id);
        if (account != nullptr && !isFullYear(found))
            faults.add(integrity_texts::wrongPeriods(*account, listed(found)));
    }
    return status;
}

// While there are no vouchers, every period begins with the same opening figures; in books that
// begin mid-year the first period has those of the year's start.
Status checkOpenings(CheckedBooks& books, FaultList& faults) {
    bool hasVouchers = false;
    bool isMidYear = false;
    Status status =
        forEachRow(books.engine(), integrity_sql::anyVoucher, {}, [&hasVouchers](const Cursor&) {
            hasVouchers = true;
            return Status::done();
        });
    if (status)
        status = forEachRow(books.engine(), integrity_sql::firstDay, {}, [&](const Cursor& row) {
            const auto start = parseDate(row.text(0));
            isMidYear = isMidYear || (start && start->month != 1);
            return Status::done();
        });
    if (!status || hasVouchers) return status;
    std::map<int, std::vector<OpeningRow>> rows;
    status =
        forEachRow(books.engine(), integrity_sql::openingsOfPeriods, {}, [&](const Cursor& row) {
            const auto period = static_cast<int>(row.integer(1));
            if (period != 1 || !isMidYear)
                rows[static_cast<int>(row.integer(0))].push_back(
                    {period,
                     row.integer(2),
                     {numberIn(row, 3), numberIn(row, 4), numberIn(row, 5)}});
            return Status::done();
        });
    for (const auto& [id, found] : rows) {
        const CheckedAccount* account = books.findAccount(id);
        if (account != nullptr) compareOpenings(*account, found, faults);
    }
    return status;
}

Status checkAuxiliarySums(CheckedBooks& books, FaultList& faults) {
    FiguresByPeriod sums;
    FiguresByPeriod auxiliary;
    Status status = readFigures(books.engine(), integrity_sql::accountFigures, sums);
    if (status) status = readFigures(books.engine(), integrity_sql::auxiliaryFigures, auxiliary);
    if (!status) return status;
    for (const CheckedAccount& account : books.accounts()) {
        if (!account.isEnd || !hasAuxiliaryDimension(account)) continue;
        for (int period = 1; period <= periodsInAYear; ++period)
            compare(account, period, sums[{account.id, period}], auxiliary[{account.id, period}],
                    faults);
    }
    return Status::done();
}

}  // namespace chengheng
