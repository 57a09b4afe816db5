#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/values/exact_sum.h"
#include "base/values/numbers.h"
#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_sql.h"
#include "books/checking/integrity_texts.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {
namespace {

constexpr std::array<const char*, 3> amounts{
    integrity_texts::openingMoney, integrity_texts::debitMoney, integrity_texts::creditMoney};
constexpr std::size_t amountCount = periodsInAYear * amounts.size();

using Amounts = std::array<double, amountCount>;

/// Those of the accounts that have any, by id.
Status readAmounts(Engine& engine, std::unordered_map<int, Amounts>& read) {
    return forEachRow(engine, integrity_sql::moneyOfPeriods, {}, [&read](const Cursor& row) {
        const std::int64_t period = row.integer(1);
        if (period < 1 || period > periodsInAYear) return Status::done();  // told by another check
        Amounts& of = read[static_cast<int>(row.integer(0))];
        const auto first = static_cast<std::size_t>(period - 1) * amounts.size();
        for (std::size_t at = 0; at < amounts.size(); ++at)
            of[first + at] += numberIn(row, static_cast<int>(at) + 2);
        return Status::done();
    });
}

/// What lies below an account, while more may come.
struct OpenTotal {
    const CheckedAccount* account = nullptr;
    std::array<MoneySum, amountCount> total{};

    void add(const Amounts& of) {
        for (std::size_t at = 0; at < amountCount; ++at) total[at].add(of[at]);
    }
    void add(const OpenTotal& below) {
        for (std::size_t at = 0; at < amountCount; ++at) total[at] += below.total[at];
    }
};

void compare(const OpenTotal& open, const Amounts& own, FaultList& notes) {
    int times = 0;
    std::size_t first = 0;
    for (std::size_t at = 0; at < amountCount; ++at) {
        const double total = open.total[at].value();
        const double difference = std::fabs(own[at] - total);
        // What is no number is told by another check.
        if (!std::isfinite(difference) || difference < 0.005) continue;
        if (times++ == 0) first = at;
    }
    if (times == 0) return;
    const int period = static_cast<int>(first / amounts.size()) + 1;
    notes.add(integrity_texts::parentDiffers(*open.account, period, amounts[first % amounts.size()],
                                             ftoa(own[first], 2),
                                             ftoa(open.total[first].value(), 2), times));
}

}  // namespace

// Directions play no part: an account above others has what the end accounts below it have.
Status checkParentSums(CheckedBooks& books, FaultList& notes) {
    std::unordered_map<int, Amounts> read;
    if (Status status = readAmounts(books.engine(), read); !status) return status;
    std::vector<OpenTotal> open;
    const auto closeLast = [&] {
        const OpenTotal closing = open.back();
        open.pop_back();
        // One that has no amounts yet gets them with the first that is entered below it.
        const auto own = read.find(closing.account->id);
        if (own != read.end()) compare(closing, own->second, notes);
        if (!open.empty()) open.back().add(closing);
    };
    for (const CheckedAccount& account : books.accounts()) {
        while (!open.empty() && !account.code.starts_with(open.back().account->code)) closeLast();
        if (!account.isEnd) {
            open.emplace_back().account = &account;
            continue;
        }
        const auto own = read.find(account.id);
        if (!open.empty() && own != read.end()) open.back().add(own->second);
    }
    while (!open.empty()) closeLast();
    return Status::done();
}

}  // namespace chengheng
