#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "currency/rate_calendar.h"
#include "data/tables/currency.h"
#include "sheets/headed_columns.h"
#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// A column of a sheet of rates that holds those of one currency.
struct QuotedColumn {
    std::size_t place = 0;  ///< from 1
    std::string heading;
    int currency = 0;
    double units = 1;  ///< of the currency, for which it is quoted: 100日元
};

/// Rates as they stand in a sheet: a day or a month in each row, and either a column for each
/// currency, or one of bookkeeping rates, with one of adjustment rates, the currency and the units
/// where there are such columns.
class QuotedSheet {
  public:
    /// Finds the headings below any titles; the failure says what is missing or stands twice. The
    /// currencies are only read.
    std::optional<SheetFailure> read(Sheet sheet, std::span<const _CyrencyInfo> currencies);

    /// Of months or of days.
    RateKind kind() const { return m_kind; }
    /// A column for each currency; none where there is one of bookkeeping rates.
    const std::vector<QuotedColumn>& currencies() const { return m_currencies; }

    enum class Field : std::uint8_t { time, symbol, name, rate, adjustRate, units };
    /// Where a column stands, from 1; 0: it is not there.
    std::size_t columnOf(Field field) const;
    std::string headingOf(Field field) const;
    bool hasCurrencyColumn() const;
    /// The rows below the headings, but for blank ones, counted from 1.
    const std::vector<std::size_t>& rows() const { return m_rows; }
    /// What stands in a cell, counted from 1, without blanks around it; empty in column 0.
    std::string text(std::size_t row, std::size_t column) const;
    /// The day or month of a row. A number with decimals is none: 2026.1 may have been typed as
    /// the tenth month.
    std::optional<Date> time(std::size_t row, int year) const;
    const std::vector<std::string>& ignoredHeadings() const { return m_ignored; }

  private:
    std::optional<SheetFailure> readCurrencies(std::span<const _CyrencyInfo> currencies);

    Sheet m_sheet;
    RateKind m_kind = RateKind::floating;
    HeadedColumns m_columns;
    std::vector<QuotedColumn> m_currencies;
    std::vector<std::string> m_ignored;
    std::vector<std::size_t> m_rows;
};

/// The currency of a symbol, in any case of letters, or of a name; null where there is none.
const _CyrencyInfo* currencyCalled(std::span<const _CyrencyInfo> currencies, std::string_view text);

/// A day, or the first of a month, as spreadsheets write it: 2026-03-04, 2026年3月4日; of months
/// also 2026.03, 2026年3月, and 3 or 3月 in a year. Nothing where it is none.
std::optional<Date> readRateTime(RateKind kind, std::string_view text, int year);

}  // namespace chengheng
