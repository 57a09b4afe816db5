#pragma once

#include <cstdint>
#include <string>

#include "base/values/status.h"
#include "data/log/change_gatherer.h"
#include "data/tables/schema.h"

namespace chengheng {

class Database;

/// Who changes the books, and from where.
struct LogAuthor {
    std::int32_t operatorId = 0;
    std::string operatorName = {};
    std::string workstation = {};
    std::int64_t process = 0;
    std::string program = {};  ///< with its version
};

/// What is done, in the words of the program.
struct LogWords {
    std::int32_t function = 0;  ///< of the rights list; 0: none
    std::string text = {};      ///< empty: the tables that were changed are named
};

/// The entries of the log, one a unit of work, and their parts.
const TableInfo& operationLogTable();
const TableInfo& operationLogPartTable();

/// The log of one open database: gathers what a unit of work changes and writes it into the same
/// transaction.
class OperationLog {
  public:
    explicit OperationLog(LogAuthor author) : m_author(std::move(author)) {}

    ChangeGatherer& changes() { return m_changes; }
    /// Of the unit that is open, or of the next one.
    void say(LogWords words) { m_words = std::move(words); }
    void changeAuthor(LogAuthor author) { m_author = std::move(author); }

    /// Forgets everything of a unit.
    void clear();
    /// Writes the parts that are full.
    Status writeParts(Database& database) { return writeParts(database, false); }
    /// Writes the entry of a unit that is about to end; none when nothing was changed. The
    /// counter of the log is kept from others from here on.
    Status writeEntry(Database& database);

  private:
    Status writeParts(Database& database, bool isEnd);
    Status readHead(Database& database, std::int64_t& number, std::string& hash) const;
    std::string wordsOfTables() const;

    LogAuthor m_author;
    LogWords m_words;
    ChangeGatherer m_changes;
    std::string m_unit;  ///< names the parts of this unit; empty until there are any
};

}  // namespace chengheng
