#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "books/list/books_registry.h"

namespace chengheng {

/// A database that the log-on window offers.
struct LogonChoice {
    std::string label;  ///< "示例帐套 2026年度"
    std::string location;
    int year = 0;  ///< 0: not known before it is opened

    bool operator==(const LogonChoice&) const = default;
};

/// The years of all sets, set by set, the latest year of a set first.
std::vector<LogonChoice> logonChoices(const std::vector<BooksSet>& sets);

/// Position of a place in the choices; a place they do not hold is added at the end, labelled
/// by itself without its password.
std::size_t choiceOf(std::vector<LogonChoice>& choices, std::string_view location);

}  // namespace chengheng
