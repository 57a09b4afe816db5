#pragma once

#include <optional>
#include <string_view>

#include "base/messages/refusal.h"

// What the parameters of books may be, when books are made and when they are changed later.

namespace chengheng {

// In characters.
inline constexpr std::size_t longestBooksName = 40;
inline constexpr std::size_t longestCompany = 60;

std::optional<Refusal> booksNameRefusal(std::string_view name);
std::optional<Refusal> companyRefusal(std::string_view company);
std::optional<Refusal> startMonthRefusal(int month);
std::optional<Refusal> levelPatternRefusal(std::string_view pattern);

/// Why a text is refused that must be there and be no longer than so many characters.
std::optional<Refusal> neededTextRefusal(std::string_view text, std::size_t longest,
                                         const char* missing, const char* tooLong,
                                         const char* field);

}  // namespace chengheng
