#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace chengheng {

/// What the books of the next year get of a table.
enum class NextYearFate : std::uint8_t {
    taken,    ///< its rows as they are
    changed,  ///< its rows, some cells of which are then those of the new year
    made,     ///< rows of its own for the new year
    left,     ///< nothing: it belongs to the year that ends
};

struct TableOfNextYear {
    const char* table;
    NextYearFate fate;
};

/// Every table of a set of books.
std::span<const TableOfNextYear> tablesOfNextYear();

/// The fate of a table; the items of a project class are taken over.
NextYearFate fateInNextYear(std::string_view table);

/// Whether its rows are copied.
bool isTakenOver(std::string_view table);

}  // namespace chengheng
