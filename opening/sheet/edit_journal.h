#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "opening/sheet/opening_account.h"
#include "session/record_change.h"

namespace chengheng {

/// One figure of an end account and the value that it gets.
struct CellChange {
    std::int32_t accountId = 0;
    Measure measure = Measure::money;
    BalanceFigure figure = &Balance::opening;
    double before = 0;
    double after = 0;
    bool isWorkedOut = false;  ///< from other figures of its line; else the operator gave it
    /// From the year before: it may be of an account whose figures nobody types. One that changes
    /// nothing is kept, for the sake of what is written beside it.
    bool isCarried = false;

    bool changesNothing() const { return before == after; }
    bool operator==(const CellChange&) const = default;
};

/// What is written, undone and done again as one.
using EditStep = std::vector<CellChange>;

/// What a step changes beside the figures of the sheet, in the same unit of work; or its taking
/// back.
using BesideStep = std::function<UntoldOutcome(bool takesBack)>;

/// The step that takes this one back.
inline EditStep reversed(const EditStep& step) {
    EditStep back(step.rbegin(), step.rend());
    for (CellChange& change : back) std::swap(change.before, change.after);
    return back;
}

/// The steps of a window's life. A new step ends what could have been done again. It knows of the
/// steps in the books who gave a figure: the operator, or the other figures of its line.
class EditJournal {
  public:
    void add(EditStep step, BesideStep beside = {}) {
        if (step.empty()) return;
        m_steps.resize(m_done);
        m_steps.push_back({std::move(step), std::move(beside)});
        redone();
    }

    /// Whether the operator gave the figure.
    bool isTyped(std::int32_t accountId, Measure measure, BalanceFigure figure) const {
        return counts(accountId, measure, figure).typed > 0;
    }
    /// Whether it came from other figures only.
    bool isWorkedOut(std::int32_t accountId, Measure measure, BalanceFigure figure) const {
        const Counts found = counts(accountId, measure, figure);
        return found.workedOut > 0 && found.typed == 0;
    }

    /// The step that is undone or done again next; null when there is none.
    const EditStep* toUndo() const { return m_done == 0 ? nullptr : &m_steps[m_done - 1].cells; }
    const EditStep* toRedo() const {
        return m_done == m_steps.size() ? nullptr : &m_steps[m_done].cells;
    }
    /// What belongs to them, if anything; there is such a step.
    const BesideStep& besideUndo() const { return m_steps[m_done - 1].beside; }
    const BesideStep& besideRedo() const { return m_steps[m_done].beside; }
    /// That this has happened.
    void undone() { count(m_steps[--m_done].cells, -1); }
    void redone() { count(m_steps[m_done++].cells, 1); }
    /// That it never will.
    void forgetUndo() {
        undone();
        forgetRedo();
    }
    void forgetRedo() { m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(m_done)); }

  private:
    struct Step {
        EditStep cells;
        BesideStep beside;
    };
    using FigureKey = std::tuple<std::int32_t, Measure, std::size_t>;
    struct Counts {
        int typed = 0;
        int workedOut = 0;
    };

    static FigureKey keyOf(std::int32_t accountId, Measure measure, BalanceFigure figure) {
        const auto place = std::ranges::find(balanceFigures, figure) - balanceFigures.begin();
        return {accountId, measure, static_cast<std::size_t>(place)};
    }
    Counts counts(std::int32_t accountId, Measure measure, BalanceFigure figure) const {
        const auto found = m_counts.find(keyOf(accountId, measure, figure));
        return found == m_counts.end() ? Counts{} : found->second;
    }
    void count(const EditStep& step, int by) {
        for (const CellChange& change : step) {
            Counts& counted = m_counts[keyOf(change.accountId, change.measure, change.figure)];
            (change.isWorkedOut ? counted.workedOut : counted.typed) += by;
        }
    }

    std::vector<Step> m_steps;
    std::map<FigureKey, Counts> m_counts;  ///< of the steps in the books
    std::size_t m_done = 0;                ///< so many of them, from the first, are in the books
};

}  // namespace chengheng
