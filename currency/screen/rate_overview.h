#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "currency/currency_form.h"
#include "currency/rates/rate_gaps.h"
#include "currency/rates/rate_journal.h"
#include "currency/rates/rate_marks.h"
#include "sheets/row_plan.h"

namespace chengheng {

/// What stands around the grid of the rates that a form shows: the year as a picture, its gaps and
/// strange rates, what was written and can be taken back. The form outlives it.
class RateOverview {
  public:
    /// Days behind `today` are still to come.
    RateOverview(CurrencyForm& form, IMessages& messages, const Date& today)
        : m_form(form), m_messages(messages), m_service(messages), m_today(today) {}

    /// Reads the year that belongs to what the form shows, where it shows another reading than
    /// before. What was said of the last change goes with it. A year that cannot be read, which is
    /// told, leaves no picture.
    void follow();

    const std::vector<RatePoint>& rates() const { return m_rates; }
    const std::vector<RatePoint>& adjustments() const { return m_adjustments; }
    /// The days whose rates are strange, bookkeeping and adjustment rates apart.
    const std::set<Date>& markedRates() const { return m_markedRates; }
    const std::set<Date>& markedAdjustments() const { return m_markedAdjustments; }

    /// The line under the grid: what was strange about the last change, else the gaps of what is
    /// shown; empty when there is nothing to say.
    std::string line() const;
    /// "100.00 美元 × 7.1 = 710.00 本位币(2026.03.04)": an amount of the currency converted as its
    /// fields say now, by the rate of a row of the grid or the last one before it. Empty where
    /// there is no rate or the text is no amount.
    std::string conversion(const std::string& amount, int row) const;

    bool hasGaps() const { return !m_gaps.empty(); }
    /// Shows the month of the next gap behind a row, all around the year; the row to go to.
    std::optional<int> goToNextGap(int row);
    /// Shows the month of a day; its row.
    std::optional<int> goToDay(const Date& day);
    /// What filling the gaps of the year would write.
    std::vector<RateChange> filling() const;
    /// As a plan to be shown.
    static RowPlan shownFilling(const std::vector<RateChange>& filling);
    Outcome fill(const std::vector<RateChange>& filling, const ImportProgress& progress);

    /// A rate was typed: its row before and after.
    void noteTyped(const RateRow& before, const RateRow& after);
    /// Rates were written together.
    void noteWritten(std::vector<RateChange> changes);
    /// A currency was written over; what its rates are told by.
    void noteModified(const _CyrencyInfo& before, const _CyrencyInfo& after);

    bool canUndo() const { return m_journal.canUndo(); }
    bool canRedo() const { return m_journal.canRedo(); }
    /// Shows what it concerns; the row of the first of it. Nothing when nothing was written.
    std::optional<int> undo() { return show(m_journal.undo(m_messages)); }
    std::optional<int> redo() { return show(m_journal.redo(m_messages)); }

  private:
    void readYear();
    std::optional<int> show(const std::vector<RateChange>& changes);
    const RateRow* rowAt(int row) const;

    CurrencyForm& m_form;
    IMessages& m_messages;
    CurrencyService m_service;
    const Date m_today;
    std::optional<unsigned> m_reading;  ///< of the form, that the year was read for
    std::vector<RateRow> m_year;
    std::vector<RateGap> m_gaps;       ///< of the year
    std::vector<RateGap> m_shownGaps;  ///< of the months that are shown
    std::vector<RatePoint> m_rates;
    std::vector<RatePoint> m_adjustments;
    std::set<Date> m_markedRates;
    std::set<Date> m_markedAdjustments;
    std::string m_remark;
    RateJournal m_journal;
};

}  // namespace chengheng
