#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "opening/sheet/opening_account.h"

namespace chengheng {

/// One figure of an end account and the value that it gets.
struct CellChange {
    std::int32_t accountId = 0;
    Measure measure = Measure::money;
    BalanceFigure figure = &Balance::opening;
    double before = 0;
    double after = 0;

    bool changesNothing() const { return before == after; }
    bool operator==(const CellChange&) const = default;
};

/// What is written, undone and done again as one.
using EditStep = std::vector<CellChange>;

/// The step that takes this one back.
inline EditStep reversed(const EditStep& step) {
    EditStep back(step.rbegin(), step.rend());
    for (CellChange& change : back) std::swap(change.before, change.after);
    return back;
}

/// The steps of a window's life. A new step ends what could have been done again.
class EditJournal {
  public:
    void add(EditStep step) {
        if (step.empty()) return;
        m_steps.resize(m_done);
        m_steps.push_back(std::move(step));
        ++m_done;
    }

    /// The step that is undone or done again next; null when there is none.
    const EditStep* toUndo() const { return m_done == 0 ? nullptr : &m_steps[m_done - 1]; }
    const EditStep* toRedo() const { return m_done == m_steps.size() ? nullptr : &m_steps[m_done]; }
    /// That this has happened.
    void undone() { --m_done; }
    void redone() { ++m_done; }
    /// That it never will.
    void forgetUndo() {
        --m_done;
        forgetRedo();
    }
    void forgetRedo() { m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(m_done)); }

  private:
    std::vector<EditStep> m_steps;
    std::size_t m_done = 0;  ///< so many of them, from the first, are in the books
};

}  // namespace chengheng
