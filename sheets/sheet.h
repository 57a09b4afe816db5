#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace chengheng {

/// A cell of a sheet: nothing, a text or a number. An empty text is nothing, as no file tells
/// the two apart.
struct Cell {
    enum class Kind { absent, text, number };

    Kind kind = Kind::absent;
    /// The text. Of a number its digits where leading zeros are shown (0101), else empty.
    std::string text;
    double number = 0;

    static Cell of(std::string text) {
        const Kind kind = text.empty() ? Kind::absent : Kind::text;
        return {kind, std::move(text), 0};
    }
    static Cell of(double number) { return {Kind::number, {}, number}; }
    /// A number that its sheet shows with these digits.
    static Cell of(double number, std::string digits) {
        return {Kind::number, std::move(digits), number};
    }

    bool isAbsent() const { return kind == Kind::absent; }
    bool isNumber() const { return kind == Kind::number; }
    bool operator==(const Cell&) const = default;
};

/// What a person sees who typed the cell: the text, the digits of a number (a code typed as
/// 1001 is "1001" again), nothing when it is absent.
std::string cellText(const Cell& cell);

/// How a column of a sheet looks.
struct SheetColumn {
    double width = 0;  ///< in characters; 0: as wide as its cells need
    /// Numbers are written with just so many decimals and thousands separators; without,
    /// with the digits they have.
    std::optional<int> decimals;

    bool operator==(const SheetColumn&) const = default;
};

using SheetRow = std::vector<Cell>;

/// What a spreadsheet file holds: rows of cells. Rows may differ in length.
struct Sheet {
    std::string name = {};
    std::vector<SheetColumn> columns = {};  ///< may be fewer than the cells of a row
    bool hasHeader = false;                 ///< the first row names the columns
    std::vector<SheetRow> rows;

    /// The cell of a row and column, counted from 0; an absent one beyond their ends.
    const Cell& at(std::size_t row, std::size_t column) const;
    std::size_t columnCount() const;
};

/// Whether a row holds nothing.
bool isBlankRow(const SheetRow& row);

/// The letters of a column counted from 1: 1 is "A", 27 is "AA".
std::string columnLetters(std::size_t column);
/// "B7", of a row and column counted from 1.
std::string cellAddress(std::size_t row, std::size_t column);

}  // namespace chengheng
