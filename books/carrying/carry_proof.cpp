#include "books/carrying/carry_proof.h"

#include <fmt/format.h>

#include <array>
#include <map>
#include <utility>

#include "base/values/numbers.h"
#include "books/carrying/carry_texts.h"
#include "opening/sheet/opening_account.h"

namespace chengheng {
namespace {

/// An account by its code, so that it is the same whatever its ids are, and the dimensions of a
/// detail; none for the account itself.
struct Key {
    std::string code;
    bool isDetail = false;
    EntryDimensions of = {};

    auto operator<=>(const Key&) const = default;
};

struct Side {
    std::int32_t account = 0;
    EntryFigures figures = {};
};

struct Pair {
    std::string name;
    Side closing = {};
    Side opening = {};
};

using Pairs = std::map<Key, Pair>;

void collect(const YearEnd& year, Side Pair::*side, Pairs& pairs) {
    for (const ClosedAccount& account : year.accounts) {
        if (!account.isEnd) continue;
        Pair& pair = pairs[{account.code}];
        pair.name = account.name;
        pair.*side = {account.id, account.closing};
    }
    for (const ClosedDetail& detail : year.details) {
        const ClosedAccount* const account = findAccount(year, detail.account);
        if (!account->isEnd) continue;
        Pair& pair = pairs[{account->code, true, detail.of}];
        pair.name = account->name;
        (pair.*side).figures = (pair.*side).figures + detail.closing;
    }
}

std::optional<EntryDimensions> ofDetail(const Key& key) {
    return key.isDetail ? std::optional(key.of) : std::nullopt;
}

struct Figure {
    double EntryFigures::*figure;
    const char* name;
    Measure measure;
};

constexpr std::array<Figure, 3> countedFigures{
    Figure{&EntryFigures::money, carry_texts::money, Measure::money},
    Figure{&EntryFigures::foreign, carry_texts::foreign, Measure::foreign},
    Figure{&EntryFigures::quantity, carry_texts::quantity, Measure::quantity}};

}  // namespace

std::vector<CarryDifference> compareYears(const YearEnd& before, const YearEnd& now,
                                          const Members& members) {
    Pairs pairs;
    collect(before, &Pair::closing, pairs);
    collect(now, &Pair::opening, pairs);
    std::vector<CarryDifference> differences;
    const Pair* account = nullptr;
    for (const auto& [key, pair] : pairs) {
        // Its details come behind an account.
        if (!key.isDetail) account = &pair;
        for (const Figure& each : countedFigures) {
            const double closing = pair.closing.figures.*each.figure;
            double opening = pair.opening.figures.*each.figure;
            Round(opening, decimalsOf(each.measure));
            if (closing != opening)
                differences.push_back({key.code, pair.name, each.name,
                                       key.isDetail ? members.text(key.of) : "", closing, opening,
                                       account->closing.account, account->opening.account,
                                       each.measure, ofDetail(key)});
        }
    }
    return differences;
}

double EntryFigures::*figureOf(Measure measure) {
    return countedFigures[static_cast<std::size_t>(measure)].figure;
}

std::string differenceText(const CarryDifference& difference) {
    const int decimals = decimalsOf(difference.counted);
    double apart = difference.closing - difference.opening;
    Round(apart, decimals);
    return fmt::format(carry_texts::difference, difference.code, difference.name,
                       difference.detail.empty() ? "" : "(" + difference.detail + ")",
                       difference.measure, ftoaWithSap(difference.closing, decimals),
                       ftoaWithSap(difference.opening, decimals), ftoaWithSap(apart, decimals));
}

}  // namespace chengheng
