#include "books/making/new_books.h"

#include <fmt/format.h>

#include <array>

#include "accounts/codes/code_levels.h"
#include "base/values/text.h"
#include "books/making/making_texts.h"
#include "books/making/parameter_rules.h"

namespace chengheng {
namespace {

constexpr std::size_t longestOperator = 20;

std::optional<Refusal> yearRefusal(const NewBooks& books) {
    if (books.year >= firstBooksYear && books.year <= lastBooksYear) return std::nullopt;
    return inputRefusal(fmt::format(making_texts::yearOutOfRange, firstBooksYear, lastBooksYear),
                        books_field::year);
}

std::optional<Refusal> chartRefusal(const NewBooks& books) {
    const bool fits = CodeLevels(books.levelPattern).lengthOf(1) == chartCodeLength;
    if (fits || books.chart == ChartTemplate::empty) return std::nullopt;
    return inputRefusal(fmt::format(making_texts::patternUnfitForChart, books.levelPattern),
                        books_field::levelPattern);
}

std::optional<Refusal> supervisorRefusal(const NewBooks& books) {
    return neededTextRefusal(books.supervisor, longestOperator, making_texts::supervisorMissing,
                             making_texts::supervisorTooLong, books_field::supervisor);
}

std::optional<Refusal> passwordRefusal(const NewBooks& books) {
    if (!books.password.empty()) return std::nullopt;
    return inputRefusal(making_texts::passwordMissing, books_field::password);
}

constexpr std::array checks{
    Check<NewBooks>{"name", [](const NewBooks& books) { return booksNameRefusal(books.name); }},
    Check<NewBooks>{"company", [](const NewBooks& books) { return companyRefusal(books.company); }},
    Check<NewBooks>{"year", yearRefusal},
    Check<NewBooks>{"start month",
                    [](const NewBooks& books) { return startMonthRefusal(books.startMonth); }},
    Check<NewBooks>{"level pattern",
                    [](const NewBooks& books) { return levelPatternRefusal(books.levelPattern); }},
    Check<NewBooks>{"chart fits the pattern", chartRefusal},
    Check<NewBooks>{"supervisor", supervisorRefusal},
    Check<NewBooks>{"password", passwordRefusal},
};

}  // namespace

std::span<const Check<NewBooks>> newBooksChecks() { return checks; }

std::string levelPatternExample(std::string_view pattern) {
    const CodeLevels levels(pattern);
    std::string code;
    std::string example;
    for (int grade = 1; grade <= levels.count(); ++grade) {
        const int added = levels.lengthOf(grade) - levels.lengthOf(grade - 1);
        std::string part(static_cast<std::size_t>(added), '0');
        if (grade == 1) part.front() = '1';
        part.back() = '1';
        code += part;
        example += (grade > 1 ? " / " : "") + code;
    }
    return example;
}

}  // namespace chengheng
