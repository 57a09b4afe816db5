#pragma once

#include <string>

#include "base/values/status.h"
#include "data/connection/log_store.h"
#include "data/log/change_gatherer.h"

namespace chengheng {

/// The log of one open database: gathers what a unit of work changes and writes it into the same
/// transaction.
class OperationLog {
  public:
    OperationLog(Engine& engine, LogAuthor author) : m_store(engine), m_author(std::move(author)) {}

    ChangeGatherer& changes() { return m_changes; }
    /// Of the unit that is open, or of the next one.
    void say(LogWords words) { m_words = std::move(words); }
    /// The unit that is open, or the next one, is an entry even when it changes no row.
    void note(LogWords words);
    void changeAuthor(LogAuthor author) { m_author = std::move(author); }

    /// Forgets everything of a unit.
    void clear();
    /// Writes the parts that are full.
    Status writeParts() { return writeParts(false); }
    /// Writes the entry of a unit that is about to end; none when nothing was changed. The end
    /// of the log is kept from others from here on.
    Status writeEntry();

  private:
    Status writeParts(bool isEnd);
    std::string wordsOfTables() const;

    LogStore m_store;
    LogAuthor m_author;
    LogWords m_words;
    ChangeGatherer m_changes;
    bool m_isNote = false;  ///< an entry is to be written whatever was changed
    std::string m_unit;     ///< names the parts of this unit; empty until there are any
};

}  // namespace chengheng
