#include "currency/rates/rate_journal.h"

#include <utility>

namespace chengheng {

void RateJournal::note(std::vector<RateChange> step) {
    m_steps.resize(m_done);
    m_steps.push_back(std::move(step));
    ++m_done;
}

std::vector<RateChange> RateJournal::undo(IMessages& messages) {
    if (!canUndo()) return {};
    std::vector<RateChange> back = takenBack(m_steps[m_done - 1]);
    const Outcome outcome = writeRates(messages, back);
    if (outcome == Outcome::done) {
        --m_done;
        return back;
    }
    if (outcome == Outcome::stale) drop(--m_done);
    return {};
}

std::vector<RateChange> RateJournal::redo(IMessages& messages) {
    if (!canRedo()) return {};
    const std::vector<RateChange>& step = m_steps[m_done];
    const Outcome outcome = writeRates(messages, step);
    if (outcome == Outcome::done) {
        ++m_done;
        return step;
    }
    if (outcome == Outcome::stale) drop(m_done);
    return {};
}

void RateJournal::drop(std::size_t step) {
    m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(step));
}

}  // namespace chengheng
