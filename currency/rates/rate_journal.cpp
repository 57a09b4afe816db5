#include "currency/rates/rate_journal.h"

#include <utility>

namespace chengheng {

void RateJournal::note(std::vector<RateChange> step) {
    m_steps.resize(m_done);
    m_steps.push_back(std::move(step));
    ++m_done;
}

std::vector<RateChange> RateJournal::undoing() const {
    return canUndo() ? takenBack(m_steps[m_done - 1]) : std::vector<RateChange>();
}

std::vector<RateChange> RateJournal::redoing() const {
    return canRedo() ? m_steps[m_done] : std::vector<RateChange>();
}

Outcome RateJournal::undo(IMessages& messages) {
    const Outcome outcome = writeRates(messages, undoing());
    if (outcome == Outcome::done && canUndo()) --m_done;
    if (outcome == Outcome::stale) drop(--m_done);
    return outcome;
}

Outcome RateJournal::redo(IMessages& messages) {
    const Outcome outcome = writeRates(messages, redoing());
    if (outcome == Outcome::done && canRedo()) ++m_done;
    if (outcome == Outcome::stale) drop(m_done);
    return outcome;
}

void RateJournal::drop(std::size_t step) {
    m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(step));
}

}  // namespace chengheng
