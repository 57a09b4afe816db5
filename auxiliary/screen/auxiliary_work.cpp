#include "auxiliary/screen/auxiliary_work.h"

#include <algorithm>
#include <ranges>
#include <unordered_map>

#include "auxiliary/entries/entry_reading.h"
#include "auxiliary/members/auxiliary_texts.h"
#include "data/access/host_database.h"
#include "session/last_failure.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

/// Entries that came back, by the lines that they had before.
using NewIds = std::unordered_map<std::int32_t, const AuxiliaryEntry*>;

/// An entry that came back has other ids than the one that went.
void takeNewIds(std::optional<AuxiliaryEntry>& entry, const NewIds& now) {
    if (!entry) return;
    const auto found = now.find(entry->lineId);
    if (found == now.end()) return;
    entry->headerId = found->second->headerId;
    entry->lineId = found->second->lineId;
}

}  // namespace

bool AuxiliaryWork::open(std::string_view accountCode) {
    if (!selectOpenBooks() || !readAuxiliaryAccounts(*g_pDB, m_member, m_accounts)) {
        tellLastFailure(m_messages);
        return false;
    }
    const auto found = std::ranges::find(m_accounts, accountCode, &AuxiliaryAccount::code);
    if (found == m_accounts.end()) {
        m_messages.tell({.text = auxiliary_texts::accountChanged});
        return false;
    }
    m_place = static_cast<std::size_t>(found - m_accounts.begin());
    if (!refresh()) return false;
    if (!m_isBrowsing || !m_member.refusesBrowsingNothing || !m_list.all().empty()) return true;
    m_messages.tell({.text = auxiliary_texts::notBrowsable});
    return false;
}

const char* AuxiliaryWork::modeText() const {
    return m_isBrowsing ? auxiliary_texts::browsing : "";
}

bool AuxiliaryWork::selectAccount(std::size_t place) {
    if (place == m_place) return true;
    const std::size_t before = std::exchange(m_place, place);
    if (!refresh()) {
        m_place = before;
        return false;
    }
    forgetSteps();
    return true;
}

bool AuxiliaryWork::refresh() {
    std::vector<AuxiliaryEntry> entries;
    if (selectOpenBooks() && readEntries(*g_pDB, m_member, account(), entries) && readPosted()) {
        m_list.assign(std::move(entries));
        return true;
    }
    tellLastFailure(m_messages);
    return false;
}

bool AuxiliaryWork::readPosted() {
    EntryFigures posted;
    if (!readPostedFigures(*g_pDB, account(), posted)) return false;
    m_posted = posted;
    return true;
}

bool AuxiliaryWork::carryOut(Step& step) {
    const Outcome outcome = m_service.write(account(), step);
    if (outcome == Outcome::stale) {
        forgetSteps();
        refresh();
    }
    if (outcome != Outcome::done) return false;
    show(step);
    if (!readPosted()) tellLastFailure(m_messages);
    return true;
}

void AuxiliaryWork::show(const Step& step) {
    std::vector<AuxiliaryEntry> come;
    std::vector<std::int32_t> gone;
    for (const EntryChange& change : step) {
        if (change.after) come.push_back(*change.after);
        if (change.before && !change.after) gone.push_back(change.before->lineId);
    }
    m_list.change(come, gone);
}

bool AuxiliaryWork::doAndRemember(Step step) {
    if (!carryOut(step)) return false;
    m_steps.resize(m_position);
    m_steps.push_back(std::move(step));
    ++m_position;
    return true;
}

bool AuxiliaryWork::add(AuxiliaryEntry& entry) {
    if (!doAndRemember({{.before = {}, .after = entry}})) return false;
    const auto& added = m_steps.back().front().after;
    if (added) entry = *added;
    return true;
}

std::optional<std::int32_t> AuxiliaryWork::addAll(std::vector<EntryChange> additions) {
    if (additions.empty() || !doAndRemember(std::move(additions))) return std::nullopt;
    const auto& first = m_steps.back().front().after;
    return first ? std::optional(first->lineId) : std::nullopt;
}

bool AuxiliaryWork::modify(AuxiliaryEntry& before, AuxiliaryEntry after) {
    if (after == before) return true;
    if (doAndRemember({{.before = before, .after = std::move(after)}})) return true;
    const auto now = std::ranges::find(m_list.all(), before.lineId, &AuxiliaryEntry::lineId);
    if (now != m_list.all().end()) before = *now;
    return false;
}

const AuxiliaryEntry* AuxiliaryWork::entryToModify(std::optional<std::size_t> row) {
    if (row && *row < m_list.rowCount()) return &m_list.atRow(*row);
    m_messages.tell({.text = auxiliary_texts::nothingToModify});
    return nullptr;
}

bool AuxiliaryWork::remove(std::optional<std::size_t> row) {
    if (!row || *row >= m_list.rowCount()) {
        m_messages.tell({.text = auxiliary_texts::nothingToDelete});
        return false;
    }
    if (m_messages.ask({.text = auxiliary_texts::deletion}) != Answer::yes) return false;
    return doAndRemember({{.before = m_list.atRow(*row), .after = {}}});
}

/// The ids of what comes back are taken over by every step.
bool AuxiliaryWork::goTo(Step changes) {
    std::vector<std::int32_t> oldLines;
    for (const EntryChange& change : changes)
        oldLines.push_back(change.after ? change.after->lineId : 0);
    if (!carryOut(changes)) return false;
    NewIds newIds;
    for (std::size_t place = 0; place < changes.size(); ++place)
        if (const auto& now = changes[place].after; now && !changes[place].before)
            newIds.emplace(oldLines[place], &*now);
    for (Step& step : m_steps) {
        for (EntryChange& each : step) {
            takeNewIds(each.before, newIds);
            takeNewIds(each.after, newIds);
        }
    }
    return true;
}

bool AuxiliaryWork::undo() {
    if (!canUndo()) return false;
    Step changes;
    for (const EntryChange& change : std::views::reverse(m_steps[m_position - 1]))
        changes.push_back({.before = change.after, .after = change.before});
    if (!goTo(std::move(changes))) return false;
    --m_position;
    return true;
}

bool AuxiliaryWork::redo() {
    if (!canRedo()) return false;
    if (!goTo(m_steps[m_position])) return false;
    ++m_position;
    return true;
}

void AuxiliaryWork::forgetSteps() {
    m_steps.clear();
    m_position = 0;
}

std::optional<std::size_t> AuxiliaryWork::find(const EntrySearch& search, std::size_t after) {
    const std::size_t row = m_list.find(search, after);
    if (row < m_list.rowCount()) return row;
    m_messages.tell({.text = auxiliary_texts::nothingFound});
    return std::nullopt;
}

}  // namespace chengheng
