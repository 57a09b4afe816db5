#include <array>
#include <map>
#include <set>

#include "base/values/date.h"
#include "base/values/numbers.h"
#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_sql.h"
#include "books/checking/integrity_texts.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {
namespace {

using integrity_texts::Combination;

struct EntryFigure {
    const char* title;
    int decimals;
};

constexpr std::array entryFigures{EntryFigure{integrity_texts::openingMoney, 2},
                                  EntryFigure{integrity_texts::openingQuantity, 5},
                                  EntryFigure{integrity_texts::openingForeign, 2}};

using CombinationFigures =
    std::map<std::pair<int, Combination>, std::array<double, entryFigures.size()>>;

Status readCombinations(Engine& engine, const char* sql, std::span<const Value> parameters,
                        CombinationFigures& read) {
    return forEachRow(engine, sql, parameters, [&read](const Cursor& row) {
        const Combination combination{.item = row.integer(1),
                                      .department = row.integer(2),
                                      .person = row.integer(3),
                                      .unit = row.integer(4),
                                      .itemClass = std::string(row.text(5))};
        auto& values = read[{static_cast<int>(row.integer(0)), combination}];
        for (std::size_t at = 0; at < values.size(); ++at)
            values[at] = row.real(static_cast<int>(at) + 6);
        return Status::done();
    });
}

/// The period that the books begin with: the first one whose opening the entries make.
Status readFirstPeriod(Engine& engine, std::int64_t& period) {
    return forEachRow(engine, integrity_sql::firstDay, {}, [&period](const Cursor& row) {
        if (const auto start = parseDate(row.text(0))) period = start->month;
        return Status::done();
    });
}

}  // namespace

// An account without a single entry has its auxiliary sums from elsewhere.
Status checkOpeningEntries(CheckedBooks& books, FaultList& faults) {
    CombinationFigures entries;
    CombinationFigures sums;
    std::int64_t period = 1;
    Status status = readFirstPeriod(books.engine(), period);
    if (status) status = readCombinations(books.engine(), integrity_sql::entryFigures, {}, entries);
    if (!status || entries.empty()) return status;
    const Value parameter = Value::of(period);
    status =
        readCombinations(books.engine(), integrity_sql::combinationFigures, {&parameter, 1}, sums);
    std::set<int> accounts;
    for (const auto& [key, values] : entries) {
        accounts.insert(key.first);
        sums.try_emplace(key);
    }
    for (const auto& [key, auxiliary] : sums) {
        const CheckedAccount* account = books.findAccount(key.first);
        if (account == nullptr || !accounts.contains(key.first)) continue;
        const auto& lines = entries[key];
        for (std::size_t at = 0; at < entryFigures.size(); ++at)
            if (!areEqual(lines[at], auxiliary[at], entryFigures[at].decimals))
                faults.add(
                    integrity_texts::entriesDiffer(*account, key.second, entryFigures[at].title,
                                                   ftoa(lines[at], entryFigures[at].decimals),
                                                   ftoa(auxiliary[at], entryFigures[at].decimals)));
    }
    return status;
}

}  // namespace chengheng
