#include "books/making/parameter_rules.h"

#include <fmt/format.h>

#include "accounts/codes/code_levels.h"
#include "base/values/text.h"
#include "books/making/making_texts.h"
#include "books/making/new_books.h"

namespace chengheng {

std::optional<Refusal> neededTextRefusal(std::string_view text, std::size_t longest,
                                         const char* missing, const char* tooLong,
                                         const char* field) {
    if (withoutTrailingBlanks(text).empty()) return inputRefusal(missing, field);
    if (characterCount(text) > longest) return inputRefusal(tooLong, field);
    return std::nullopt;
}

std::optional<Refusal> booksNameRefusal(std::string_view name) {
    return neededTextRefusal(name, longestBooksName, making_texts::nameMissing,
                             making_texts::nameTooLong, books_field::name);
}

std::optional<Refusal> companyRefusal(std::string_view company) {
    return neededTextRefusal(company, longestCompany, making_texts::companyMissing,
                             making_texts::companyTooLong, books_field::company);
}

std::optional<Refusal> startMonthRefusal(int month) {
    if (month >= 1 && month <= 12) return std::nullopt;
    return inputRefusal(making_texts::monthOutOfRange, books_field::startMonth);
}

std::optional<Refusal> levelPatternRefusal(std::string_view pattern) {
    if (isLevelPattern(pattern)) return std::nullopt;
    return inputRefusal(fmt::format(making_texts::patternMalformed, pattern),
                        books_field::levelPattern);
}

}  // namespace chengheng
