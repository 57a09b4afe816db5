#include "books/parameters/parameter_plan.h"

#include <fmt/format.h>

#include "accounts/codes/code_levels.h"
#include "auxiliary/entries/entry_input.h"
#include "base/values/date.h"
#include "books/making/new_books.h"
#include "books/parameters/parameters_texts.h"

namespace chengheng {
namespace {

namespace texts = parameters_texts;

std::string yesOrNo(bool is) { return is ? texts::yes : texts::no; }

std::string monthText(int month) { return fmt::format(texts::month, month); }

/// The other years of the set that the list has these books in: "2024、2025".
std::string otherYears(const ParameterFacts& facts) {
    std::string years;
    for (const BooksSet& set : facts.listed) {
        if (set.name != facts.stored.sName) continue;
        for (const BooksYear& year : set.years)
            if (year.year != facts.stored.lYear)
                years += (years.empty() ? "" : texts::between) + std::to_string(year.year);
    }
    return years;
}

std::string nameEffect(const ParameterFacts& facts, const _zAccountMInfo& record) {
    const std::string years = otherYears(facts);
    if (years.empty()) return texts::nameEffect;
    return texts::nameEffect +
           fmt::format(texts::otherYearsEffect, years, record.lYear, record.sName);
}

std::string foreignEffect(const ParameterFacts& facts, bool hasForeignCurrency) {
    if (hasForeignCurrency) return texts::foreignOnEffect;
    std::string effect = texts::foreignOffEffect;
    if (facts.currencies > 0) effect += fmt::format(texts::currenciesStay, facts.currencies);
    return effect;
}

std::string patternEffect(const std::string& pattern) {
    const CodeLevels levels(pattern);
    return fmt::format(texts::patternEffect, levels.count(), levels.lengthOf(levels.count()));
}

std::string startEffect(const Date& start) {
    return (start.month == 1 ? texts::startInJanuary : texts::startMidYear) +
           fmt::format(texts::entryDay, isoText(openingEntryDay(start)));
}

}  // namespace

ParametersPlan planOf(const WantedParameters& given) {
    const ParameterFacts& facts = given.facts;
    const _zAccountMInfo record = recordWith(given.wanted, facts.stored);
    const BooksParameters before = given.stored();
    const BooksParameters after = parametersOf(record);
    ParametersPlan plan;
    const auto add = [&plan](const char* field, const char* title, std::string from,
                             std::string into, std::string effect) {
        if (from != into)
            plan.changes.push_back(
                {field, title, std::move(from), std::move(into), std::move(effect)});
    };
    add(books_field::name, texts::name, before.name, after.name, nameEffect(facts, record));
    add(books_field::company, texts::company, before.company, after.company, texts::companyEffect);
    add(books_field::foreignCurrency, texts::foreignCurrency, yesOrNo(before.hasForeignCurrency),
        yesOrNo(after.hasForeignCurrency), foreignEffect(facts, after.hasForeignCurrency));
    add(books_field::levelPattern, texts::levelPattern, before.levelPattern, after.levelPattern,
        patternEffect(after.levelPattern));
    add(books_field::startMonth, texts::startMonth, monthText(before.startMonth),
        monthText(after.startMonth), startEffect(record.dtStart));
    if (!facts.others.empty()) plan.othersAtWork = namesOf(facts.others);
    return plan;
}

std::string ParametersPlan::text() const {
    std::string text;
    for (const ParameterChange& change : changes)
        text +=
            fmt::format(texts::change, change.title, change.before, change.after, change.effect);
    if (!othersAtWork.empty()) text += fmt::format(texts::othersSeeLater, othersAtWork);
    return text;
}

std::string ParametersPlan::question() const { return texts::heading + text() + texts::question; }

std::string parameterLines(const BooksParameters& parameters) {
    std::string lines;
    const auto add = [&lines](const char* title, const std::string& value) {
        lines += fmt::format(texts::parameterLine, title, value);
    };
    add(texts::name, parameters.name);
    add(texts::company, parameters.company);
    add(texts::foreignCurrency, yesOrNo(parameters.hasForeignCurrency));
    add(texts::levelPattern, parameters.levelPattern);
    add(texts::startMonth, monthText(parameters.startMonth));
    return lines;
}

}  // namespace chengheng
