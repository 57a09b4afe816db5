#include "base/values/numbers.h"
#include "sheets/delimited/delimited_text.h"
#include "sheets/written_cells.h"

namespace chengheng {
namespace {

/// The signs of a kind of text, and when a cell must stand in quotes.
struct Form {
    char separator;
    std::string_view lineEnd;
    std::string_view quotedAnywhere;  ///< a cell with one of these
    std::string_view quotedAtEnds;    ///< a cell that begins or ends with one of these
};

// Tabs and semicolons are quoted too, so that nobody takes them for the separator.
constexpr Form csv{',', "\r\n", ",;\t\"\r\n", " "};
// A quote inside a cell stays bare, as the programs on the other side expect it.
constexpr Form block{'\t', "\n", "\t\r\n", "\""};

std::string digitsOf(const Sheet& sheet, const Cell& cell, std::size_t column) {
    if (!cell.isNumber()) return cell.text;
    const auto decimals =
        column < sheet.columns.size() ? sheet.columns[column].decimals : std::nullopt;
    return decimals ? ftoa(cell.number, *decimals) : cellText(cell);
}

bool isQuoted(std::string_view cell, const Form& form) {
    constexpr auto none = std::string_view::npos;
    if (cell.find_first_of(form.quotedAnywhere) != none) return true;
    return cell.find_first_of(form.quotedAtEnds) == 0 ||
           (!cell.empty() && cell.find_last_of(form.quotedAtEnds) == cell.size() - 1);
}

void append(std::string& text, std::string_view cell, const Form& form) {
    if (!isQuoted(cell, form)) {
        text += cell;
        return;
    }
    text += '"';
    for (const char letter : cell) text.append(letter == '"' ? 2 : 1, letter);
    text += '"';
}

std::optional<SheetFailure> write(const Sheet& sheet, const Form& form, std::string& text) {
    if (std::optional<SheetFailure> failure = checkWrittenCells(sheet)) return failure;
    for (const SheetRow& row : sheet.rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (column > 0) text += form.separator;
            append(text, digitsOf(sheet, row[column], column), form);
        }
        text += form.lineEnd;
    }
    return std::nullopt;
}

}  // namespace

std::optional<SheetFailure> csvText(const Sheet& sheet, std::string& text) {
    text = "\xEF\xBB\xBF";
    return write(sheet, csv, text);
}

std::optional<SheetFailure> writeClipboardBlock(const Sheet& sheet, std::string& text) {
    text.clear();
    return write(sheet, block, text);
}

}  // namespace chengheng
