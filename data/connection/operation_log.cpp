#include "data/connection/operation_log.h"

#include <fmt/format.h>

namespace chengheng {

void OperationLog::note(LogWords words) {
    m_words = std::move(words);
    m_isNote = true;
}

void OperationLog::clear() {
    m_changes.clear();
    m_words = {};
    m_isNote = false;
    m_unit.clear();
}

Status OperationLog::writeParts(bool isEnd) {
    const std::vector<LogPart> parts = m_changes.takeParts(isEnd);
    if (!m_changes.isWhole()) return Status::of(Failure::full, "a changed row cannot be logged");
    if (parts.empty()) return Status::done();
    if (m_unit.empty()) m_unit = newUnitName();
    const Status status = m_store.addParts(m_unit, parts);
    // What was taken out and is not stored would be missing from the entry.
    if (!status) m_changes.missed();
    return status;
}

std::string OperationLog::wordsOfTables() const {
    std::string words;
    for (const auto& [table, rows] : m_changes.tables())
        words += fmt::format("{}{} {}", words.empty() ? "" : ", ", table, rows);
    return words;
}

Status OperationLog::writeEntry() {
    if (m_changes.isEmpty() && m_changes.isWhole() && !m_isNote) return Status::done();
    if (Status status = writeParts(true); !status) return status;
    LogEntry entry = entryOf(m_author, m_words);
    if (entry.words.empty()) entry.words = wordsOfTables();
    entry.unit = m_unit;
    entry.parts = m_changes.parts();
    entry.rows = m_changes.rows();
    entry.partsHash = m_changes.partsHash();
    return m_store.addEntry(entry);
}

}  // namespace chengheng
