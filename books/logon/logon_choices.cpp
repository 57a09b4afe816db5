#include "books/logon/logon_choices.h"

#include <fmt/format.h>

#include <algorithm>
#include <ranges>

#include "books/logon/logon_texts.h"
#include "data/engines/open_engine.h"

namespace chengheng {
std::vector<LogonChoice> logonChoices(const std::vector<BooksSet>& sets) {
    std::vector<LogonChoice> choices;
    for (const BooksSet& set : sets)
        for (const BooksYear& year : set.years | std::views::reverse)
            choices.push_back(
                {fmt::format(logon_texts::choice, set.name, year.year), year.location, year.year});
    return choices;
}

std::size_t choiceOf(std::vector<LogonChoice>& choices, std::string_view location) {
    const auto found = std::ranges::find(choices, location, &LogonChoice::location);
    const auto position = static_cast<std::size_t>(found - choices.begin());
    if (found == choices.end())
        choices.push_back({shownLocation(location), std::string(location), 0});
    return position;
}

}  // namespace chengheng
