#include "sheets/xlsx/xlsx_writing.h"

#include <fmt/format.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>

#include "base/system/system_error.h"
#include "base/values/numbers.h"
#include "base/values/text.h"
#include "base/values/utf8.h"
#include "sheets/sheet_limits.h"
#include "sheets/sheet_texts.h"
#include "sheets/text_measures.h"
#include "sheets/written_cells.h"
#include "sheets/xlsx/plain_locale.h"
#include "sheets/xlsx/xlsx_escapes.h"

namespace chengheng {
namespace {

/// What is written into a cell, and how it looks there.
struct Look {
    int decimals = -1;  ///< -1: the digits that the number has
    bool isBold = false;
    auto operator<=>(const Look&) const = default;
};

std::string numberFormat(int decimals) {
    return decimals == 0 ? "#,##0"
                         : "#,##0." + std::string(static_cast<std::size_t>(decimals), '0');
}

/// A name that spreadsheet programs take.
std::string sheetName(const std::string& wanted) {
    constexpr std::size_t longest = 31;
    constexpr std::string_view unfit = "[]:*?/\\'";
    std::string name = isUtf8(wanted) ? wanted : "";
    std::ranges::replace_if(
        name,
        [&](char letter) {
            return unfit.find(letter) != unfit.npos || static_cast<unsigned char>(letter) < ' ';
        },
        '_');
    while (utf16Length(name) > longest) name = firstCharacters(name, characterCount(name) - 1);
    return name.empty() ? "Sheet1" : name;
}

/// A workbook with one sheet, as the library makes it.
class Workbook {
  public:
    explicit Workbook(const std::string& path)
        : m_folder(std::filesystem::path(path).parent_path().string()) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        options.tmpdir = m_folder.data();
        m_book = workbook_new_opt(path.c_str(), &options);
    }
    ~Workbook() {
        if (m_book != nullptr) static_cast<void>(close());
    }
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    lxw_error open(const std::string& name) {
        if (m_book != nullptr) m_sheet = workbook_add_worksheet(m_book, name.c_str());
        return m_sheet == nullptr ? LXW_ERROR_CREATING_TMPFILE : LXW_NO_ERROR;
    }
    lxw_worksheet* sheet() { return m_sheet; }
    lxw_format* format(const Look& look) {
        lxw_format*& format = m_formats[look];
        if (format != nullptr) return format;
        format = workbook_add_format(m_book);
        if (look.decimals >= 0) format_set_num_format(format, numberFormat(look.decimals).c_str());
        if (look.isBold) format_set_bold(format);
        return format;
    }
    /// Writes the file.
    lxw_error close() {
        lxw_workbook* const book = std::exchange(m_book, nullptr);
        return workbook_close(book);
    }

  private:
    std::string m_folder;
    lxw_workbook* m_book = nullptr;
    lxw_worksheet* m_sheet = nullptr;
    std::map<Look, lxw_format*> m_formats;
};

Look lookOf(const Sheet& sheet, const Cell& cell, std::size_t row, std::size_t column) {
    Look look;
    look.isBold = sheet.hasHeader && row == 0;
    if (cell.isNumber() && column < sheet.columns.size())
        look.decimals = sheet.columns[column].decimals.value_or(-1);
    return look;
}

lxw_error writeCell(Workbook& book, const Cell& cell, const Look& look, lxw_row_t row,
                    lxw_col_t column) {
    lxw_format* const format = look == Look() ? nullptr : book.format(look);
    if (cell.isNumber())
        return worksheet_write_number(book.sheet(), row, column, cell.number, format);
    return worksheet_write_string(book.sheet(), row, column, escapedForXlsx(cell.text).c_str(),
                                  format);
}

lxw_error writeRows(Workbook& book, const Sheet& sheet) {
    lxw_error error = LXW_NO_ERROR;
    for (std::size_t row = 0; row < sheet.rows.size(); ++row) {
        for (std::size_t column = 0; column < sheet.rows[row].size(); ++column) {
            const Cell& cell = sheet.rows[row][column];
            if (error != LXW_NO_ERROR || cell.isAbsent()) continue;
            error = writeCell(book, cell, lookOf(sheet, cell, row, column),
                              static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column));
        }
    }
    return error;
}

double widthNeeded(const Sheet& sheet, std::size_t column) {
    constexpr double least = 8;
    constexpr double most = 60;
    constexpr double margin = 2;
    const int decimals =
        column < sheet.columns.size() ? sheet.columns[column].decimals.value_or(-1) : -1;
    double width = least;
    for (const SheetRow& row : sheet.rows) {
        if (column >= row.size()) continue;
        const Cell& cell = row[column];
        const bool isFixed = cell.isNumber() && decimals >= 0;
        width = std::max(
            width, displayWidth(isFixed ? ftoaWithSap(cell.number, decimals) : cellText(cell)));
    }
    return std::min(width + margin, most);
}

lxw_error layOut(Workbook& book, const Sheet& sheet) {
    lxw_error error = LXW_NO_ERROR;
    for (std::size_t column = 0; column < sheet.columnCount(); ++column) {
        const double wanted = column < sheet.columns.size() ? sheet.columns[column].width : 0;
        const double width = wanted > 0 ? wanted : widthNeeded(sheet, column);
        const auto place = static_cast<lxw_col_t>(column);
        if (error == LXW_NO_ERROR)
            error = worksheet_set_column(book.sheet(), place, place, width, nullptr);
    }
    if (sheet.hasHeader) worksheet_freeze_panes(book.sheet(), 1, 0);
    return error;
}

/// What a spreadsheet program would refuse to open.
std::optional<SheetFailure> checkLimits(const Sheet& sheet) {
    constexpr std::size_t longestEscape = 7;
    namespace limits = sheet_limits;
    if (sheet.rows.size() > limits::rows)
        return SheetFailure{.reason = fmt::format(sheet_texts::tooManyRows, limits::rows)};
    if (sheet.columnCount() > limits::columns)
        return SheetFailure{.reason = fmt::format(sheet_texts::tooManyColumns, limits::columns)};
    for (std::size_t row = 0; row < sheet.rows.size(); ++row)
        for (std::size_t column = 0; column < sheet.rows[row].size(); ++column) {
            const std::string& text = sheet.rows[row][column].text;
            if (text.size() > limits::xlsxText / longestEscape &&
                utf16Length(escapedForXlsx(text)) > limits::xlsxText)
                return SheetFailure{
                    .reason = fmt::format(sheet_texts::textTooLong, limits::xlsxText),
                    .row = row + 1,
                    .column = column + 1};
        }
    return std::nullopt;
}

SheetFailure libraryFailure(lxw_error error, int systemError) {
    if (failureOfSystemError(systemError) == Failure::full)
        return SheetFailure{.reason = sheet_texts::diskFull};
    return SheetFailure{.reason = fmt::format(sheet_texts::workbookFailed, lxw_strerror(error))};
}

}  // namespace

std::optional<SheetFailure> makeWorkbook(const Sheet& sheet, const std::string& path) {
    if (std::optional<SheetFailure> failure = checkWrittenCells(sheet)) return failure;
    if (std::optional<SheetFailure> failure = checkLimits(sheet)) return failure;
    const PlainLocale plain;
    errno = 0;
    Workbook book(path);
    lxw_error error = book.open(sheetName(sheet.name));
    if (error == LXW_NO_ERROR) error = layOut(book, sheet);
    if (error == LXW_NO_ERROR) error = writeRows(book, sheet);
    if (error == LXW_NO_ERROR) error = book.close();
    if (error != LXW_NO_ERROR) return libraryFailure(error, errno);
    return std::nullopt;
}

}  // namespace chengheng
