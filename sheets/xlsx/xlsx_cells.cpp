#include "sheets/xlsx/xlsx_cells.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <utility>

#include "base/values/text.h"
#include "sheets/sheet_limits.h"
#include "sheets/sheet_texts.h"
#include "sheets/xlsx/xlsx_escapes.h"

namespace chengheng {
namespace {

namespace limits = sheet_limits;

template <class Number>
std::optional<Number> numberOf(std::string_view text) {
    Number number{};
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isRead = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return isRead ? std::optional(number) : std::nullopt;
}

/// The column of a cell's address, "AB12" being in 28; 0 when it is none, some number beyond
/// the last column when it is too large.
std::size_t columnOf(std::string_view address) {
    constexpr std::size_t letters = 26;
    std::size_t column = 0;
    for (const char letter : address) {
        if (letter < 'A' || letter > 'Z' || column > limits::columns) break;
        column = column * letters + static_cast<std::size_t>(letter - 'A') + 1;
    }
    return column;
}

}  // namespace

void XlsxCellsHandler::start(std::string_view name, const XmlAttributes& attributes) {
    if (name == "sheetData") {
        m_hasCells = true;
        m_isInRows = true;
    }
    if (!m_isInRows) return;
    if (name == "row") startRow(attributes);
    if (name == "c" && m_row > 0) startCell(attributes);
    if (name == "f") m_hasFormula = true;
    if (name == "v") {
        m_isInValue = true;
        m_value.emplace();
    }
    m_inline.start(name);
}

void XlsxCellsHandler::end(std::string_view name) {
    if (name == "sheetData") m_isInRows = false;
    if (name == "v") m_isInValue = false;
    m_inline.end(name);
    if (name == "c" && m_isInCell) endCell();
}

void XlsxCellsHandler::text(std::string_view piece) {
    if (!m_isInCell) return;
    if (m_isInValue) *m_value += piece;
    m_inline.text(piece);
    if (std::optional<SheetFailure> failure = m_budget.take(0, piece.size())) fail(*failure);
}

void XlsxCellsHandler::startRow(const XmlAttributes& attributes) {
    const auto stated = attributes.find("r");
    const std::size_t row = stated ? numberOf<std::size_t>(*stated).value_or(0) : m_row + 1;
    m_column = 0;
    if (row == 0)
        fail(damagedWorkbook(fmt::format("row \"{}\"", stated.value_or(""))));
    else if (row > limits::rows)
        fail({.reason = fmt::format(sheet_texts::tooManyRows, limits::rows)});
    else
        m_row = row;
}

void XlsxCellsHandler::startCell(const XmlAttributes& attributes) {
    const auto stated = attributes.find("r");
    const std::size_t column = stated ? columnOf(*stated) : m_column + 1;
    if (column == 0 || column > limits::columns)
        return fail(damagedWorkbook(fmt::format("cell \"{}\"", stated.value_or(""))));
    m_column = column;
    m_isInCell = true;
    m_isInValue = false;
    m_kind = attributes["t"];
    m_style = numberOf<std::size_t>(attributes["s"]).value_or(0);
    m_hasFormula = false;
    m_value.reset();
    m_inline.clear();
}

void XlsxCellsHandler::endCell() {
    m_isInCell = false;
    Cell cell = readCell();
    if (hasFailed()) return;
    // A text that many cells refer to is copied into each; others were counted as they came.
    const std::size_t bytes = m_kind == "s" ? cell.text.size() : 0;
    if (std::optional<SheetFailure> failure =
            m_budget.put(m_sheet, m_row - 1, m_column - 1, std::move(cell), bytes))
        fail(*failure);
}

Cell XlsxCellsHandler::readCell() {
    if (m_kind == "inlineStr") return Cell::of(m_inline.take());
    // An empty text is a result; an empty number is one that was never worked out.
    const bool hasResult = m_value && (m_kind == "str" || !withoutBlanksAround(*m_value).empty());
    if (m_hasFormula && !hasResult) return refuse(sheet_texts::formulaWithoutResult);
    if (!m_value) return {};
    if (m_kind.empty() || m_kind == "n") return readNumber(*m_value);
    if (m_kind == "str") return Cell::of(unescapedFromXlsx(*m_value));
    if (m_kind == "e" || m_kind == "d") return Cell::of(*m_value);
    if (m_kind == "b") return Cell::of(std::string(*m_value == "1" ? "TRUE" : "FALSE"));
    if (m_kind != "s") return refuse(sheet_texts::unreadableCell);
    const auto number = numberOf<std::size_t>(*m_value);
    const std::string* const text = number ? m_shared.strings.find(*number) : nullptr;
    return text != nullptr ? Cell::of(*text) : refuse(sheet_texts::unreadableCell);
}

Cell XlsxCellsHandler::readNumber(std::string_view value) {
    constexpr std::size_t longestShown = 40;
    const std::string_view digits = withoutBlanksAround(value);
    if (digits.empty()) return {};
    const auto number = numberOf<double>(digits);
    if (!number || !std::isfinite(*number))
        return refuse(
            fmt::format(sheet_texts::unreadableNumber, firstCharacters(digits, longestShown)));
    return shownNumber(*number, m_shared.formats.look(m_style), m_shared.countsFrom1904);
}

Cell XlsxCellsHandler::refuse(std::string reason) {
    fail({.reason = std::move(reason), .row = m_row, .column = m_column});
    return {};
}

}  // namespace chengheng
