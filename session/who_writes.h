#pragma once

#include <cstdint>
#include <string>

#include "base/values/status.h"
#include "data/log/log_author.h"

namespace chengheng {

/// In whose name the open set of books is written to: an operator who is logged on, or whoever
/// may write the file or schema and works without logging on.
struct WhoWrites {
    std::int32_t userId = 0;  ///< 0: no operator
    std::string name = {};    ///< of the operator, else of the user of the operating system

    bool isAdministrator() const { return userId == 0; }
};

WhoWrites whoWrites();

/// The same for the operation log, with the workstation, process and program that run.
LogAuthor logAuthorOf(const WhoWrites& writer);
inline LogAuthor logAuthor() { return logAuthorOf(whoWrites()); }

/// Notes with a change, in its unit of work, that it was made without an operator. An operator's
/// log-on is noted already.
Status noteWriter();

}  // namespace chengheng
