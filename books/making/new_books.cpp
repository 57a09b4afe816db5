#include "books/making/new_books.h"

#include <fmt/format.h>

#include <array>

#include "accounts/codes/code_levels.h"
#include "base/values/text.h"
#include "books/making/making_texts.h"

namespace chengheng {
namespace {

constexpr std::size_t longestName = 40;
constexpr std::size_t longestCompany = 60;
constexpr std::size_t longestOperator = 20;

std::optional<Refusal> textRefusal(std::string_view text, std::size_t longest, const char* missing,
                                   const char* tooLong, const char* field) {
    if (withoutTrailingBlanks(text).empty()) return inputRefusal(missing, field);
    if (characterCount(text) > longest) return inputRefusal(tooLong, field);
    return std::nullopt;
}

std::optional<Refusal> nameRefusal(const NewBooks& books) {
    return textRefusal(books.name, longestName, making_texts::nameMissing,
                       making_texts::nameTooLong, books_field::name);
}

std::optional<Refusal> companyRefusal(const NewBooks& books) {
    return textRefusal(books.company, longestCompany, making_texts::companyMissing,
                       making_texts::companyTooLong, books_field::company);
}

std::optional<Refusal> yearRefusal(const NewBooks& books) {
    if (books.year >= firstBooksYear && books.year <= lastBooksYear) return std::nullopt;
    return inputRefusal(fmt::format(making_texts::yearOutOfRange, firstBooksYear, lastBooksYear),
                        books_field::year);
}

std::optional<Refusal> monthRefusal(const NewBooks& books) {
    if (books.startMonth >= 1 && books.startMonth <= 12) return std::nullopt;
    return inputRefusal(making_texts::monthOutOfRange, books_field::startMonth);
}

std::optional<Refusal> patternRefusal(const NewBooks& books) {
    if (isLevelPattern(books.levelPattern)) return std::nullopt;
    return inputRefusal(fmt::format(making_texts::patternMalformed, books.levelPattern),
                        books_field::levelPattern);
}

std::optional<Refusal> chartRefusal(const NewBooks& books) {
    const bool fits = CodeLevels(books.levelPattern).lengthOf(1) == chartCodeLength;
    if (fits || books.chart == ChartTemplate::empty) return std::nullopt;
    return inputRefusal(fmt::format(making_texts::patternUnfitForChart, books.levelPattern),
                        books_field::levelPattern);
}

std::optional<Refusal> supervisorRefusal(const NewBooks& books) {
    return textRefusal(books.supervisor, longestOperator, making_texts::supervisorMissing,
                       making_texts::supervisorTooLong, books_field::supervisor);
}

std::optional<Refusal> passwordRefusal(const NewBooks& books) {
    if (!books.password.empty()) return std::nullopt;
    return inputRefusal(making_texts::passwordMissing, books_field::password);
}

constexpr std::array checks{
    Check<NewBooks>{"name", nameRefusal},
    Check<NewBooks>{"company", companyRefusal},
    Check<NewBooks>{"year", yearRefusal},
    Check<NewBooks>{"start month", monthRefusal},
    Check<NewBooks>{"level pattern", patternRefusal},
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
