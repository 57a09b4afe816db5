#include "sheets/sheet.h"

#include <algorithm>

#include "base/values/numbers.h"

namespace chengheng {

std::string cellText(const Cell& cell) {
    return cell.isNumber() && cell.text.empty() ? shortestText(cell.number) : cell.text;
}

const Cell& Sheet::at(std::size_t row, std::size_t column) const {
    static const Cell absent;
    return row < rows.size() && column < rows[row].size() ? rows[row][column] : absent;
}

std::size_t Sheet::columnCount() const {
    std::size_t count = 0;
    for (const SheetRow& row : rows) count = std::max(count, row.size());
    return count;
}

bool isBlankRow(const SheetRow& row) { return std::ranges::all_of(row, &Cell::isAbsent); }

std::string columnLetters(std::size_t column) {
    constexpr std::size_t letters = 26;
    std::string text;
    for (; column > 0; column = (column - 1) / letters)
        text.insert(text.begin(), static_cast<char>('A' + (column - 1) % letters));
    return text;
}

std::string cellAddress(std::size_t row, std::size_t column) {
    return columnLetters(column) + std::to_string(row);
}

}  // namespace chengheng
