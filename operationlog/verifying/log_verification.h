#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/engine/engine.h"
#include "operationlog/verifying/chain_check.h"
#include "operationlog/verifying/log_seal.h"
#include "operationlog/verifying/row_check.h"

namespace chengheng {

/// What the look through a log and the books that it tells of came to.
struct LogVerification {
    ChainFindings chain;
    std::int64_t strayParts = 0;
    RowFindings rows;
    std::optional<bool> isSealWhole;  ///< whether all that was sealed is as it was, when asked

    bool isSound() const {
        return !chain.fault && strayParts == 0 && rows.count == 0 && isSealWhole.value_or(true);
    }
};

/// Looks through one state of the books, which are only read.
Status verifyLog(Engine& engine, const std::optional<LogSeal>& seal, LogVerification& result);

/// A fault of the log in words.
std::string textOf(const LogFault& fault);
std::string textOf(const RowFault& fault);
/// What became of what was sealed.
std::string textOf(const LogSeal& seal, bool isWhole);

/// Everything that was found, each in a line of its own.
std::vector<std::string> faultTexts(const LogVerification& result);

}  // namespace chengheng
