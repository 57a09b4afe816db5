#include "currency/transfer/quoted_sheet.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/values/text.h"
#include "currency/currency_rules.h"
#include "currency/transfer/rate_transfer_texts.h"

namespace chengheng {
namespace {

namespace texts = rate_transfer_texts;

/// In the order of QuotedSheet::Field.
constexpr std::array wanted{WantedColumn{texts::day, texts::month, true},
                            WantedColumn{texts::symbol},
                            WantedColumn{texts::name},
                            WantedColumn{texts::rate, texts::plainRate},
                            WantedColumn{texts::adjustRate},
                            WantedColumn{texts::units}};

struct Replacement {
    std::string_view from;
    std::string_view to;
};

std::string replaced(std::string_view text, std::span<const Replacement> replacements) {
    std::string made;
    while (!text.empty()) {
        const auto found = std::ranges::find_if(
            replacements, [text](const Replacement& each) { return text.starts_with(each.from); });
        if (found == replacements.end()) {
            made += text.front();
            text.remove_prefix(1);
        } else {
            made += found->to;
            text.remove_prefix(found->from.size());
        }
    }
    return made;
}

/// "日元(100)", "JPY/100", "100日元": without what only separates.
std::string withoutSeparators(std::string_view heading) {
    static constexpr std::array separators{Replacement{"(", ""},      Replacement{")", ""},
                                           Replacement{"\uFF08", ""}, Replacement{"\uFF09", ""},
                                           Replacement{"/", ""},      Replacement{" ", ""},
                                           Replacement{"\u3000", ""}};
    return replaced(heading, separators);
}

/// The number that a text begins or ends with, taken off; 1 without one.
double takeUnits(std::string& text) {
    std::size_t front = 0;
    while (front < text.size() && isDigit(text[front])) ++front;
    std::size_t back = text.size();
    while (back > front && isDigit(text[back - 1])) --back;
    const std::string digits = front > 0 ? text.substr(0, front) : text.substr(back);
    if (digits.empty()) return 1;
    text = front > 0 ? text.substr(front) : text.substr(0, back);
    double units = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), units);
    return units;
}

std::optional<QuotedColumn> columnOf(const std::string& heading,
                                     std::span<const _CyrencyInfo> currencies) {
    // A symbol may hold digits of its own.
    if (const auto* currency = currencyCalled(currencies, heading))
        return QuotedColumn{.heading = heading, .currency = currency->lId, .units = 1};
    std::string called = withoutSeparators(heading);
    const double units = takeUnits(called);
    const auto* currency = currencyCalled(currencies, called);
    if (currency == nullptr || !(units > 0)) return std::nullopt;
    return QuotedColumn{.heading = heading, .currency = currency->lId, .units = units};
}

std::optional<Date> monthOf(std::string_view text, int year) {
    int month = 0;
    const char* const end = text.data() + text.size();
    const auto first = std::from_chars(text.data(), end, month);
    if (first.ec != std::errc{}) return std::nullopt;
    if (first.ptr != end) {
        if (*first.ptr != '.') return std::nullopt;
        year = month;
        const auto second = std::from_chars(first.ptr + 1, end, month);
        if (second.ec != std::errc{} || second.ptr != end || second.ptr - first.ptr > 3)
            return std::nullopt;
    }
    if (month < 1 || month > monthsOfYear || year < 1000 || year > 9999) return std::nullopt;
    return Date{static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month), 1};
}

}  // namespace

const _CyrencyInfo* currencyCalled(std::span<const _CyrencyInfo> currencies,
                                   std::string_view text) {
    const std::string capitals = inCapitals(withoutBlanksAround(text));
    for (auto field : {&_CyrencyInfo::sExchCode, &_CyrencyInfo::sExchName}) {
        const auto found = std::ranges::find_if(currencies, [&](const _CyrencyInfo& currency) {
            return inCapitals(currency.*field) == capitals;
        });
        if (!capitals.empty() && found != currencies.end()) return &*found;
    }
    return nullptr;
}

std::optional<Date> readRateTime(RateKind kind, std::string_view text, int year) {
    static constexpr std::array points{
        Replacement{texts::yearSign, "."}, Replacement{texts::monthSign, "."},
        Replacement{texts::daySign, ""}, Replacement{"-", "."}, Replacement{"/", "."}};
    std::string plain = replaced(withoutBlanksAround(text), points);
    if (plain.ends_with('.') && !text.ends_with('.')) plain.pop_back();
    std::optional<Date> day = parseDate(plain);
    if (kind == RateKind::floating) return day;
    if (day) day->day = 1;
    return day ? day : monthOf(plain, year);
}

std::optional<SheetFailure> QuotedSheet::read(Sheet sheet,
                                              std::span<const _CyrencyInfo> currencies) {
    m_sheet = std::move(sheet);
    m_rows.clear();
    m_currencies.clear();
    m_ignored.clear();
    if (auto failure = findHeadings(m_sheet, wanted, texts::headingsMissing, m_columns)) {
        const bool isBoth = std::ranges::any_of(m_sheet.rows, [](const SheetRow& row) {
            return isHeadingRow(row, std::array{WantedColumn{texts::day, nullptr, true},
                                                WantedColumn{texts::month, nullptr, true}});
        });
        if (isBoth) failure->reason = texts::bothTimes;
        return failure;
    }
    m_kind = headingOf(Field::time) == texts::month ? RateKind::fixed : RateKind::floating;
    if (auto failure = readCurrencies(currencies)) return failure;
    for (std::size_t row = m_columns.headingRow; row < m_sheet.rows.size(); ++row)
        if (!isBlankRow(m_sheet.rows[row])) m_rows.push_back(row + 1);
    return std::nullopt;
}

std::optional<SheetFailure> QuotedSheet::readCurrencies(std::span<const _CyrencyInfo> currencies) {
    const bool isLong = columnOf(Field::rate) != 0;
    const std::size_t row = m_columns.headingRow;
    for (std::size_t place = 1; place <= m_sheet.rows[row - 1].size(); ++place) {
        const std::string heading = text(row, place);
        if (std::ranges::find(m_columns.places, place) != m_columns.places.end() || heading.empty())
            continue;
        auto column = chengheng::columnOf(heading, currencies);
        if (!column) {
            m_ignored.push_back(heading);
            continue;
        }
        column->place = place;
        if (isLong) return SheetFailure{fmt::format(texts::bothWays, heading), row, place};
        for (const QuotedColumn& other : m_currencies)
            if (other.currency == column->currency)
                return SheetFailure{fmt::format(texts::headingTwice, heading, other.place), row,
                                    place};
        m_currencies.push_back(std::move(*column));
    }
    if (!isLong && m_currencies.empty()) return SheetFailure{texts::ratesMissing, row, 0};
    return std::nullopt;
}

std::size_t QuotedSheet::columnOf(Field field) const {
    return m_columns.places[static_cast<std::size_t>(field)];
}

std::string QuotedSheet::headingOf(Field field) const {
    return text(m_columns.headingRow, columnOf(field));
}

bool QuotedSheet::hasCurrencyColumn() const {
    return columnOf(Field::symbol) != 0 || columnOf(Field::name) != 0;
}

std::string QuotedSheet::text(std::size_t row, std::size_t column) const {
    if (column == 0) return {};
    const Cell& cell = m_sheet.at(row - 1, column - 1);
    if (cell.isNumber()) return cellText(cell);
    return std::string(withoutBlanksAround(cell.text));
}

std::optional<Date> QuotedSheet::time(std::size_t row, int year) const {
    const std::size_t column = columnOf(Field::time);
    const Cell& cell = m_sheet.at(row - 1, column - 1);
    if (cell.isNumber() && cell.number != std::floor(cell.number)) return std::nullopt;
    return readRateTime(m_kind, text(row, column), year);
}

}  // namespace chengheng
