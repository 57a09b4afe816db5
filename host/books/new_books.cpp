#include "host/books/new_books.h"

#include <fmt/format.h>

#include <array>

#include "accounts/code_levels.h"
#include "data/text.h"
#include "host/books/books_texts.h"

namespace chengheng {
namespace {

using Outcome = std::optional<Refusal>;

constexpr std::size_t longestName = 40;
constexpr std::size_t longestCompany = 60;
constexpr std::size_t longestOperator = 20;

Outcome textRefusal(std::string_view text, std::size_t longest, const char* missing,
                    const char* tooLong, const char* field) {
    if (withoutTrailingBlanks(text).empty()) return inputRefusal(missing, field);
    if (characterCount(text) > longest) return inputRefusal(tooLong, field);
    return std::nullopt;
}

Outcome nameRefusal(const NewBooks& books) {
    return textRefusal(books.name, longestName, books_texts::nameMissing, books_texts::nameTooLong,
                       books_field::name);
}

Outcome companyRefusal(const NewBooks& books) {
    return textRefusal(books.company, longestCompany, books_texts::companyMissing,
                       books_texts::companyTooLong, books_field::company);
}

Outcome yearRefusal(const NewBooks& books) {
    if (books.year >= firstBooksYear && books.year <= lastBooksYear) return std::nullopt;
    return inputRefusal(fmt::format(books_texts::yearOutOfRange, firstBooksYear, lastBooksYear),
                        books_field::year);
}

Outcome monthRefusal(const NewBooks& books) {
    if (books.startMonth >= 1 && books.startMonth <= 12) return std::nullopt;
    return inputRefusal(books_texts::monthOutOfRange, books_field::startMonth);
}

Outcome patternRefusal(const NewBooks& books) {
    if (isLevelPattern(books.levelPattern)) return std::nullopt;
    return inputRefusal(fmt::format(books_texts::patternMalformed, books.levelPattern),
                        books_field::levelPattern);
}

Outcome chartRefusal(const NewBooks& books) {
    const bool fits = CodeLevels(books.levelPattern).lengthOf(1) == chartCodeLength;
    if (fits || books.chart == ChartTemplate::empty) return std::nullopt;
    return inputRefusal(fmt::format(books_texts::patternUnfitForChart, books.levelPattern),
                        books_field::levelPattern);
}

Outcome supervisorRefusal(const NewBooks& books) {
    return textRefusal(books.supervisor, longestOperator, books_texts::supervisorMissing,
                       books_texts::supervisorTooLong, books_field::supervisor);
}

Outcome passwordRefusal(const NewBooks& books) {
    if (!books.password.empty()) return std::nullopt;
    return inputRefusal(books_texts::passwordMissing, books_field::password);
}

constexpr std::array checks{
    NewBooksCheck{"name", nameRefusal},
    NewBooksCheck{"company", companyRefusal},
    NewBooksCheck{"year", yearRefusal},
    NewBooksCheck{"start month", monthRefusal},
    NewBooksCheck{"level pattern", patternRefusal},
    NewBooksCheck{"chart fits the pattern", chartRefusal},
    NewBooksCheck{"supervisor", supervisorRefusal},
    NewBooksCheck{"password", passwordRefusal},
};

}  // namespace

std::span<const NewBooksCheck> newBooksChecks() { return checks; }

std::optional<Refusal> newBooksRefusal(const NewBooks& books) {
    for (const NewBooksCheck& check : checks)
        if (Outcome refusal = check.refusal(books)) return refusal;
    return std::nullopt;
}

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
