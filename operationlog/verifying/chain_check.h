#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/engine/engine.h"
#include "data/log/chain.h"

namespace chengheng {

/// What somebody did to the log.
enum class Tampering {
    takenOut,      ///< entries are not there
    changed,       ///< an entry says something else than when it was written
    exchanged,     ///< an entry is not the one that was behind the one before
    putIn,         ///< an entry was not written by the program
    partsChanged,  ///< what an entry tells of rows is not what was written
    headGone,      ///< the note of the log's end is not there
    headChanged,   ///< it names another end
};

struct LogFault {
    Tampering kind = Tampering::changed;
    std::int64_t first = 0;  ///< number of the entry; of the end nothing
    std::int64_t last = 0;   ///< of the last one in a row

    bool operator==(const LogFault&) const = default;
};

/// Where a log ends; number 0: it is empty.
struct LogEnd {
    std::int64_t number = 0;
    std::string time = {};
    std::string hash = std::string(noHashBefore);

    bool operator==(const LogEnd&) const = default;
};

/// What the look through the chain came to.
struct ChainFindings {
    std::int64_t entries = 0;
    LogEnd end;                     ///< of what was looked through
    std::optional<LogFault> fault;  ///< the first one
    /// The hash of the entry that a seal names, when it is there.
    std::string sealedHash;
    std::string sealedTime;
};

/// Looks through the entries in their order up to the first that is not as it was written.
/// `sealed` is the number of the entry whose hash is wanted.
Status checkChain(Engine& engine, std::int64_t sealed, ChainFindings& findings);

/// How many parts there are that belong to no entry.
Status countStrayParts(Engine& engine, std::int64_t& count);

/// Where the log ends now, as it is noted beside the entries; nothing when nothing is noted.
Status readLogHead(Engine& engine, std::optional<LogEnd>& head);

}  // namespace chengheng
