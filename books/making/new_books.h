#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/messages/checks.h"
#include "books/making/chart_templates.h"
#include "session/rights/passwords.h"

namespace chengheng {

// Years that the calendar of the books and the clocks of the machines agree on.
inline constexpr int firstBooksYear = 1990;
inline constexpr int lastBooksYear = 2099;

/// What a person says about a set of books to be made.
struct NewBooks {
    std::string name = {};
    std::string company = {};
    int year = 0;
    int startMonth = 1;  ///< the month bookkeeping begins in
    std::string levelPattern = "4222";
    bool hasForeignCurrency = true;
    ChartTemplate chart = ChartTemplate::smallEnterprise;
    std::string supervisor = {};
    std::string password = {};
    /// Path of the file to be made, or server address; empty: beside the other sets.
    std::string location = {};
    PasswordCost passwordCost = PasswordCost::usual;

    bool operator==(const NewBooks&) const = default;
};

/// Names of the fields, for the focus after a refusal and for the command line's messages.
namespace books_field {
inline constexpr const char* name = "name";
inline constexpr const char* company = "company";
inline constexpr const char* year = "year";
inline constexpr const char* startMonth = "startMonth";
inline constexpr const char* levelPattern = "levelPattern";
inline constexpr const char* foreignCurrency = "foreignCurrency";
inline constexpr const char* chart = "chart";
inline constexpr const char* supervisor = "supervisor";
inline constexpr const char* password = "password";
inline constexpr const char* location = "location";
inline constexpr const char* operatorName = "operatorName";
inline constexpr const char* date = "date";
}  // namespace books_field

/// What is asked of new books.
std::span<const Check<NewBooks>> newBooksChecks();

/// "1001 / 100101 / 10010101": the first code of each level by a pattern; empty for a text
/// that is no pattern.
std::string levelPatternExample(std::string_view pattern);

}  // namespace chengheng
