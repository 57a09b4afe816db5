#pragma once

#include <cstddef>
#include <vector>

#include "currency/rates/rate_writing.h"

namespace chengheng {

/// What was written since the window came up, to be taken back and done again step by step.
class RateJournal {
  public:
    /// A step that has been written. What was taken back before cannot be done again.
    void note(std::vector<RateChange> step);
    bool canUndo() const { return m_done > 0; }
    bool canRedo() const { return m_done < m_steps.size(); }

    /// What would be written next.
    std::vector<RateChange> undoing() const;
    std::vector<RateChange> redoing() const;
    /// Writes it; whatever does not give `done` has been told. A step that no longer fits the books
    /// is dropped.
    Outcome undo(IMessages& messages);
    Outcome redo(IMessages& messages);

  private:
    void drop(std::size_t step);

    std::vector<std::vector<RateChange>> m_steps;
    std::size_t m_done = 0;  ///< of the steps; those behind were taken back
};

}  // namespace chengheng
