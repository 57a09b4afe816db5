#include "books/parameters/parameter_checks.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "accounts/codes/code_levels.h"
#include "base/values/text.h"
#include "books/making/new_books.h"
#include "books/making/parameter_rules.h"
#include "books/parameters/parameters_texts.h"
#include "data/engines/open_engine.h"
#include "session/failure_texts.h"

namespace chengheng {
namespace {

using Refused = std::optional<Refusal>;

bool changes(const WantedParameters& given, auto field) {
    return given.wanted.*field != given.stored().*field;
}

Refused name(const WantedParameters& given) {
    if (!changes(given, &BooksParameters::name)) return std::nullopt;
    return booksNameRefusal(given.wanted.name);
}

Refused readableList(const WantedParameters& given) {
    const ParameterFacts& facts = given.facts;
    if (facts.listStatus || !changes(given, &BooksParameters::name)) return std::nullopt;
    return failureRefusal(failureText(facts.listStatus, facts.listPath, FailureSubject::registry),
                          books_field::name);
}

Refused freeName(const WantedParameters& given) {
    if (!changes(given, &BooksParameters::name)) return std::nullopt;
    const int year = given.facts.stored.lYear;
    const std::string wanted(withoutBlanksAround(given.wanted.name));
    const std::string place =
        otherPlaceOf(given.facts.listed, wanted, {year, given.facts.location});
    if (place.empty()) return std::nullopt;
    return existsRefusal(
        fmt::format(parameters_texts::nameTaken, wanted, year, shownLocation(place)),
        books_field::name);
}

Refused company(const WantedParameters& given) {
    if (!changes(given, &BooksParameters::company)) return std::nullopt;
    return companyRefusal(given.wanted.company);
}

Refused noCurrencyKept(const WantedParameters& given) {
    const auto& accounts = given.facts.currencyAccounts;
    if (!changes(given, &BooksParameters::hasForeignCurrency) || given.wanted.hasForeignCurrency ||
        accounts.empty())
        return std::nullopt;
    return inputRefusal(
        fmt::format(parameters_texts::accountsKeepCurrency, namedAccounts(accounts)),
        books_field::foreignCurrency);
}

Refused levelPattern(const WantedParameters& given) {
    if (!changes(given, &BooksParameters::levelPattern)) return std::nullopt;
    return levelPatternRefusal(withoutBlanksAround(given.wanted.levelPattern));
}

Refused lengthened(const WantedParameters& given) {
    const std::string stored = given.stored().levelPattern;
    if (withoutBlanksAround(given.wanted.levelPattern).starts_with(stored)) return std::nullopt;
    const bool isFull = stored.size() >= static_cast<std::size_t>(mostLevels);
    return inputRefusal(
        isFull ? fmt::format(parameters_texts::patternAtItsEnd, stored)
               : fmt::format(parameters_texts::patternNotLengthened, stored, stored + "2"),
        books_field::levelPattern);
}

Refused startMonth(const WantedParameters& given) {
    if (!changes(given, &BooksParameters::startMonth)) return std::nullopt;
    return startMonthRefusal(given.wanted.startMonth);
}

Refused freeStart(const WantedParameters& given) {
    const std::string obstacle = startMonthObstacle(given.facts);
    if (!changes(given, &BooksParameters::startMonth) || obstacle.empty()) return std::nullopt;
    return inputRefusal(obstacle, books_field::startMonth);
}

Refused nobodyElse(const WantedParameters& given) {
    if (!changes(given, &BooksParameters::startMonth) || given.passesOverOthers ||
        given.facts.others.empty())
        return std::nullopt;
    return inputRefusal(fmt::format(parameters_texts::othersAtWork, namesOf(given.facts.others)),
                        books_field::startMonth);
}

constexpr std::array checks{
    Check<WantedParameters>{"name", name},
    Check<WantedParameters>{"the list can be read", readableList},
    Check<WantedParameters>{"the list has no such name and year", freeName},
    Check<WantedParameters>{"company", company},
    Check<WantedParameters>{"no account keeps foreign currency", noCurrencyKept},
    Check<WantedParameters>{"level pattern", levelPattern},
    Check<WantedParameters>{"the level pattern is only lengthened", lengthened},
    Check<WantedParameters>{"start month", startMonth},
    Check<WantedParameters>{"nothing depends on the start month", freeStart},
    Check<WantedParameters>{"nobody else is at work", nobodyElse},
};

}  // namespace

std::span<const Check<WantedParameters>> parameterChecks() { return checks; }

std::string namedAccounts(const std::vector<std::string>& accounts) {
    constexpr std::size_t mostNamed = 5;
    std::string names;
    for (std::size_t at = 0; at < std::min(accounts.size(), mostNamed); ++at) {
        if (at > 0) names += parameters_texts::between;
        names += accounts[at];
    }
    if (accounts.size() > mostNamed)
        names += fmt::format(parameters_texts::moreAccounts, accounts.size());
    return names;
}

std::string startMonthObstacle(const ParameterFacts& facts) {
    if (facts.hasVouchers) return parameters_texts::vouchersThere;
    if (facts.hasOpeningEntries) return parameters_texts::entriesThere;
    if (facts.hasFigures) return parameters_texts::figuresThere;
    return {};
}

}  // namespace chengheng
