#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/engine/engine.h"
#include "operationlog/verifying/chain_check.h"

namespace chengheng {

/// Where the log of books ended once: kept elsewhere, it shows later whether all of it up to there
/// is what it was.
struct LogSeal {
    std::string books;  ///< name of the set of books
    LogEnd end;

    bool operator==(const LogSeal&) const = default;
};

/// The end of the log now; number 0 where it has no entry. Not done when it cannot be read.
Status readSeal(Engine& engine, LogSeal& seal);

/// The text that a seal is kept as, four lines and a heading.
std::string sealText(const LogSeal& seal);
/// Nothing when the text is none of a seal, whole.
std::optional<LogSeal> parseSeal(std::string_view text);

}  // namespace chengheng
