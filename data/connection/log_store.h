#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/values/status.h"
#include "data/engine/engine.h"
#include "data/log/chain.h"
#include "data/log/change_gatherer.h"
#include "data/log/log_author.h"

namespace chengheng {

/// The function of an entry that says that the end of the log did not go with its entries.
inline constexpr std::int32_t brokenEnd = -1;
/// That of a log-on.
inline constexpr std::int32_t logonFunction = -2;

/// The entry of an author, without its number, changes and hash.
LogEntry entryOf(const LogAuthor& author, const LogWords& words);

/// Writes the tables of the operation log, in the transaction that is open on an engine.
class LogStore {
  public:
    explicit LogStore(Engine& engine) : m_engine(engine) {}

    Status addParts(const std::string& unit, const std::vector<LogPart>& parts);
    /// Gives the entry the number and the hash that follow and adds it. The end of the log is
    /// kept from others from here on.
    Status addEntry(LogEntry& entry);

  private:
    /// Where the log ends.
    struct Head {
        std::int64_t last = 0;  ///< number of the last entry; 0: there is none yet
        std::string hash = {};
        bool isBroken = false;  ///< entries and end do not go together
    };

    Status prepare(const char* sql, int parameters, std::unique_ptr<PreparedStatement>& statement);
    Status readHead(Head& head, bool& isFound);
    Status holdHead(Head& head);
    Status append(LogEntry& entry, Head& head);

    Engine& m_engine;
    std::unique_ptr<PreparedStatement> m_readHead;
    std::unique_ptr<PreparedStatement> m_writeHead;
    std::unique_ptr<PreparedStatement> m_insertEntry;
    std::unique_ptr<PreparedStatement> m_insertPart;
};

/// Adds an entry of something that changes no row to the transaction that is open on an engine.
Status noteInLog(Engine& engine, const LogAuthor& author, const LogWords& words);

}  // namespace chengheng
