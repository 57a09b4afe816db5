#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "currency/rate_rows.h"

namespace chengheng {

/// The columns of the grid of rates; the last one is hidden.
enum class RateSheetColumn { time, rate, adjustRate, id };

/// A rate as it is read: with separators and so many decimals, nothing where it is then zero.
std::string rateText(double rate, int decimals);

/// A text as a field of a rate takes it in: wide letters narrow, without the blanks around it.
std::string rateTyping(std::string_view text);
/// Whether a text can be on its way to a rate: digits and a point.
bool isRateBeingTyped(std::string_view text);
/// What a typed text says, rounded to so many decimals; an empty one is zero. Nothing where it is
/// no rate.
std::optional<double> typedRate(std::string_view text, int decimals);

/// A cell of the grid; row and column count from 0.
struct RateCell {
    int row = 0;
    RateSheetColumn column = RateSheetColumn::time;

    bool operator==(const RateCell&) const = default;
};

/// Where Enter goes in a grid of so many rows: down to row 12, from there in the column of the
/// bookkeeping rates to the first adjustment rate. Below it, and where there is no such row, it
/// stays. The 12 holds for days, too.
RateCell cellAfterEnter(const RateCell& cell, int rows);

/// The grid of rates of one currency in one year: a row for each month, or for each day of one
/// month, whether a rate is stored for it or not.
class RateSheet {
  public:
    /// One row without anything in it, as while a currency is added.
    void empty(RateKind kind);
    /// Rows stored for another time are left out; of two for one time the first counts.
    void show(RateKind kind, int year, int month, const std::vector<RateRow>& stored);
    void setDecimals(int decimals) { m_decimals = decimals; }

    RateKind kind() const { return m_kind; }
    int decimals() const { return m_decimals; }
    int rowCount() const { return static_cast<int>(m_lines.size()); }
    std::string text(const RateCell& cell) const;
    /// A stored rate that may be typed over. Those of days have no adjustment rate of their own.
    bool isEditable(const RateCell& cell) const;
    /// What an editor begins with that keeps the content: none in place of zero.
    std::string textToEdit(const RateCell& cell) const;
    /// The id of the stored rate in a row; 0: none is.
    std::int32_t idIn(int row) const { return line(row).id; }
    /// What stands in a row, with its day.
    const RateRow& line(int row) const { return m_lines[static_cast<std::size_t>(row)]; }
    std::span<const RateRow> lines() const { return m_lines; }
    /// Where the stored rate of an id stands now.
    std::optional<int> rowOf(std::int32_t id) const;
    /// Takes over the rates of a row as they are stored now.
    void put(int row, const RateRow& stored);

  private:
    double valueIn(const RateCell& cell) const;

    RateKind m_kind = RateKind::fixed;
    int m_decimals = 2;
    std::vector<RateRow> m_lines{1};
    bool m_isEmpty = true;
};

}  // namespace chengheng
