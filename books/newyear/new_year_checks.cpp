#include "books/newyear/new_year_checks.h"

#include <fmt/format.h>

#include <array>

#include "books/making/new_books.h"
#include "books/newyear/new_year_texts.h"
#include "data/engines/open_engine.h"

namespace chengheng {
namespace {

using Wanted = std::optional<Refusal>;

Wanted homeRefusal(const NewYearFacts& facts) {
    if (facts.hasHome || !facts.isListed) return std::nullopt;
    return failureRefusal(new_year_texts::homeMissing);
}

Wanted parametersRefusal(const NewYearFacts& facts) {
    if (facts.fromYear != 0) return std::nullopt;
    return failureRefusal(
        fmt::format(new_year_texts::parametersMissing, shownLocation(facts.source)),
        new_year_field::books);
}

Wanted yearRefusal(const NewYearFacts& facts) {
    if (facts.year > firstBooksYear && facts.year <= lastBooksYear) return std::nullopt;
    return inputRefusal(fmt::format(new_year_texts::yearOutOfRange, facts.setName, facts.fromYear,
                                    firstBooksYear, lastBooksYear),
                        new_year_field::books);
}

Wanted sourceRefusal(const NewYearFacts& facts) {
    if (!facts.isListed || facts.listedSource.empty()) return std::nullopt;
    return inputRefusal(fmt::format(new_year_texts::otherSource, facts.setName, facts.fromYear,
                                    shownLocation(facts.listedSource), shownLocation(facts.source)),
                        new_year_field::books);
}

Wanted listedRefusal(const NewYearFacts& facts) {
    if (!facts.isListed || facts.listedPlace.empty()) return std::nullopt;
    return existsRefusal(fmt::format(new_year_texts::yearListed, facts.setName, facts.year,
                                     shownLocation(facts.listedPlace)),
                         new_year_field::books);
}

Wanted placeRefusal(const NewYearFacts& facts) {
    if (!facts.place.empty() && facts.place != ":memory:") return std::nullopt;
    return inputRefusal(new_year_texts::placeMissing, new_year_field::target);
}

Wanted takenRefusal(const NewYearFacts& facts) {
    if (facts.isPlaceFree) return std::nullopt;
    return existsRefusal(fmt::format(new_year_texts::placeTaken, shownLocation(facts.place)),
                         new_year_field::target);
}

constexpr std::array checks{
    Check<NewYearFacts>{"folder of the list", homeRefusal},
    Check<NewYearFacts>{"parameters", parametersRefusal},
    Check<NewYearFacts>{"year", yearRefusal},
    Check<NewYearFacts>{"books are those of the list", sourceRefusal},
    Check<NewYearFacts>{"year is not listed", listedRefusal},
    Check<NewYearFacts>{"place", placeRefusal},
    Check<NewYearFacts>{"place is free", takenRefusal},
};

constexpr std::array listChecks{
    Check<NewYearFacts>{"books are those of the list", sourceRefusal},
    Check<NewYearFacts>{"year is not listed", listedRefusal},
};

}  // namespace

std::span<const Check<NewYearFacts>> newYearChecks() { return checks; }
std::span<const Check<NewYearFacts>> newYearListChecks() { return listChecks; }

}  // namespace chengheng
