#include "currency/rate_sheet.h"

#include <algorithm>
#include <charconv>

#include "base/values/amount_text.h"
#include "base/values/numbers.h"
#include "base/values/text.h"

namespace chengheng {
namespace {

constexpr int lastRowOfEnter = 11;

bool isOfTime(RateKind kind, const RateRow& row, const Date& day) {
    if (row.day.year != day.year) return false;
    return kind == RateKind::fixed ? row.period == day.month : row.day == day;
}

}  // namespace

std::string rateText(double rate, int decimals) {
    Round(rate, decimals);
    return rate == 0 ? std::string() : ftoaWithSap(rate, decimals);
}

std::string rateTyping(std::string_view text) {
    return std::string(withoutBlanksAround(narrowLetters(text)));
}

bool isRateBeingTyped(std::string_view text) {
    return std::ranges::count(text, '.') <= 1 &&
           std::ranges::all_of(text, [](char sign) { return isDigit(sign) || sign == '.'; });
}

std::optional<double> typedRate(std::string_view text, int decimals) {
    if (text.empty()) return 0;
    if (!isRateBeingTyped(text) || std::ranges::none_of(text, isDigit)) return std::nullopt;
    const std::string digits = '0' + std::string(text) + (text.ends_with('.') ? "0" : "");
    double rate = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), rate,
                                      std::chars_format::fixed);
    if (read.ec != std::errc{}) return std::nullopt;
    Round(rate, decimals);
    return rate;
}

RateCell cellAfterEnter(const RateCell& cell, int rows) {
    RateCell next = cell;
    if (cell.row < lastRowOfEnter) next.row = std::min(cell.row + 1, rows - 1);
    if (cell.row == lastRowOfEnter && cell.column == RateSheetColumn::rate)
        next = {0, RateSheetColumn::adjustRate};
    return next;
}

void RateSheet::empty(RateKind kind) {
    m_kind = kind;
    m_lines.assign(1, {});
    m_isEmpty = true;
}

void RateSheet::show(RateKind kind, int year, int month, const std::vector<RateRow>& stored) {
    m_kind = kind;
    m_isEmpty = false;
    m_lines.clear();
    const std::vector<Date> days = rateDays(kind, year, kind == RateKind::fixed ? 0 : month);
    m_lines.reserve(days.size());
    auto next = stored.begin();
    for (const Date& day : days) {
        // Both are in the order of time, so that the next one is looked for where the last one was.
        const auto found = std::find_if(
            next, stored.end(), [&](const RateRow& row) { return isOfTime(kind, row, day); });
        const bool isStored = found != stored.end();
        m_lines.push_back(isStored ? *found : RateRow{});
        m_lines.back().day = day;
        m_lines.back().period = day.month;
        if (isStored) next = found + 1;
    }
}

std::string RateSheet::text(const RateCell& cell) const {
    if (m_isEmpty) return {};
    switch (cell.column) {
        case RateSheetColumn::time:
            return rateTitle(m_kind, line(cell.row).day);
        case RateSheetColumn::id:
            return std::to_string(idIn(cell.row));
        default:
            return rateText(valueIn(cell), m_decimals);
    }
}

bool RateSheet::isEditable(const RateCell& cell) const {
    if (cell.row < 0 || cell.row >= rowCount() || idIn(cell.row) == 0) return false;
    return cell.column == RateSheetColumn::rate ||
           (cell.column == RateSheetColumn::adjustRate && m_kind == RateKind::fixed);
}

std::string RateSheet::textToEdit(const RateCell& cell) const {
    double rate = valueIn(cell);
    Round(rate, m_decimals);
    return rate == 0 ? std::string() : ftoa(rate, m_decimals);
}

std::optional<int> RateSheet::rowOf(std::int32_t id) const {
    const auto found = std::ranges::find(m_lines, id, &RateRow::id);
    if (id == 0 || found == m_lines.end()) return std::nullopt;
    return static_cast<int>(found - m_lines.begin());
}

void RateSheet::put(int row, const RateRow& stored) {
    RateRow& shown = m_lines[static_cast<std::size_t>(row)];
    shown.rate = stored.rate;
    shown.adjustRate = stored.adjustRate;
}

double RateSheet::valueIn(const RateCell& cell) const {
    const RateRow& row = line(cell.row);
    return cell.column == RateSheetColumn::rate ? row.rate : row.adjustRate;
}

}  // namespace chengheng
