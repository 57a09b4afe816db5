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

/// Gaps to be filled, as they are shown before.
struct GapFilling {
    std::vector<RateChange> changes;
    RowPlan plan;
    std::string source;  ///< what they are filled with, and how many stay
};

/// What stands around the grid of the rates that a form shows: the year as a picture, its gaps and
/// strange rates, what was written and can be taken back. The form outlives it.
class RateOverview {
  public:
    RateOverview(CurrencyForm& form, IMessages& messages, const RateSpan& wanted)
        : m_form(form), m_messages(messages), m_service(messages), m_wanted(wanted) {}

    /// Brings the year to what the form shows, reading it where that is of another currency or
    /// kind or was read anew. What was said of the last change goes with it. A year that cannot be
    /// read, which is told, is said to be so in line and picture.
    void follow();

    bool isYearRead() const { return m_isYearRead; }
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
    /// Shows the month where the next gap behind a row begins, all around the year; the row.
    std::optional<int> goToNextGap(int row);
    /// Shows the month of a day; its row.
    std::optional<int> goToDay(const Date& day);
    /// What filling the gaps of the year, as it is stored now, would write.
    GapFilling filling();
    Outcome fill(const GapFilling& filling, const ImportProgress& progress);

    /// The rate of a cell was typed: its row as it was stored before and is now.
    void noteTyped(const RateEdit& edit);
    /// Rates were written together; the row of the first of them.
    std::optional<int> noteWritten(const std::vector<RateChange>& changes);
    /// Others have changed the rates that are shown.
    void readAnew();
    /// A currency was written over; what its rates are told by.
    void noteModified(const _CyrencyInfo& before, const _CyrencyInfo& after);

    // Not while a currency is added. What concerns another currency asks first whether what was
    // typed may be given up.
    bool canUndo() const { return m_form.currency() != nullptr && m_journal.canUndo(); }
    bool canRedo() const { return m_form.currency() != nullptr && m_journal.canRedo(); }
    /// Shows what it concerns; the row of the first of it. Nothing when nothing was written.
    std::optional<int> undo();
    std::optional<int> redo();

  private:
    struct Place {
        int currency = 0;
        RateKind kind = RateKind::fixed;

        bool operator==(const Place&) const = default;
    };
    Place placeNow() const;
    bool takeShownRows();
    void workOut();
    void findShownGaps();
    std::optional<int> step(const std::vector<RateChange>& changes,
                            Outcome (RateJournal::*write)(IMessages&));
    std::optional<int> show(const std::vector<RateChange>& changes);
    const RateRow* rowAt(int row) const;

    CurrencyForm& m_form;
    IMessages& m_messages;
    CurrencyService m_service;
    const RateSpan m_wanted;
    std::optional<unsigned> m_reading;  ///< of the form, that the year belongs to
    Place m_place;
    bool m_isYearRead = false;
    bool m_isOutdated = false;  ///< rates beside those that the form shows may be others now
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
