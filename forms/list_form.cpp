#include "forms/list_form.h"

#include <utility>

#include "forms/discard_input.h"
#include "forms/form_texts.h"

namespace chengheng {

void ListForm::open() {
    m_leaves.assign(readLeaves().value_or(std::vector<Leaf>()));
    showOrAdd(m_leaves.firstShown());
}

bool ListForm::select(int id) {
    if (id == m_selectedId) return true;
    if (!mayLeaveInput()) return false;
    const Outcome outcome = show(id);
    if (outcome == Outcome::stale) readAgain();
    return outcome == Outcome::done;
}

bool ListForm::startAdding() {
    if (!mayLeaveInput()) return false;
    beginAddition();
    return true;
}

std::string ListForm::usedWords() const { return form_texts::used; }

SaveMode ListForm::saveMode() const {
    if (m_isAdding) return SaveMode::addition;
    return isComplete() && isChanged() ? SaveMode::modification : SaveMode::nothing;
}

bool ListForm::save() {
    if (!canSave()) return false;
    Leaf saved{.id = m_selectedId, .text = {}};
    const Outcome outcome = write(saveMode(), saved);
    if (outcome == Outcome::stale) readAgainBelowTyped();
    if (outcome != Outcome::done) return false;
    m_leaves.put(saved);
    if (m_leaves.rowOf(saved.id) < 0) m_leaves.setFilter({});
    m_selectedId = saved.id;
    m_isAdding = false;
    show(saved.id);
    return true;
}

void ListForm::remove(int id) {
    const Outcome outcome = erase(m_leaves.find(id));
    if (outcome == Outcome::stale) readAgain();
    if (outcome != Outcome::done) return;
    int next = leafAfter(id);
    m_leaves.remove(id);
    if (next == 0) {
        m_leaves.setFilter({});
        next = m_leaves.firstShown();
    }
    showOrAdd(next);
}

bool ListForm::mayLeaveInput() { return !isChanged() || mayDiscardInput(m_messages); }

void ListForm::beginAddition() {
    clear();
    m_selectedId = 0;
    m_isAdding = true;
    m_isUsed = false;
}

Outcome ListForm::show(int id) {
    bool isUsed = false;
    const Outcome outcome = load(id, isUsed);
    if (outcome != Outcome::done) return outcome;
    m_selectedId = id;
    m_isAdding = false;
    m_isUsed = isUsed;
    return outcome;
}

void ListForm::showOrAdd(int id) {
    if (id == 0 || show(id) != Outcome::done) beginAddition();
}

void ListForm::readAgainBelowTyped() {
    auto leaves = readLeaves();
    if (!leaves) return;
    m_leaves.assign(std::move(*leaves));
    holdTyped();
    const bool isThere = m_leaves.find(m_selectedId) != nullptr;
    if (!isThere || show(m_selectedId) != Outcome::done) beginAddition();
    takeTypedBack();
}

void ListForm::refresh() {
    auto leaves = readLeaves();
    if (!leaves) return;
    const bool goesOnAdding = m_isAdding && !m_leaves.all().empty();
    m_leaves.assign(std::move(*leaves));
    if (goesOnAdding)
        beginAddition();
    else
        showSelected();
}

void ListForm::readAgain() {
    auto leaves = readLeaves();
    if (!leaves) return;
    m_leaves.assign(std::move(*leaves));
    showSelected();
}

/// Of a list that was read anew: the same leaf, or the first where that is gone.
void ListForm::showSelected() {
    showOrAdd(m_leaves.find(m_selectedId) != nullptr ? m_selectedId : m_leaves.firstShown());
}

}  // namespace chengheng
