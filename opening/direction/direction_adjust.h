#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "accounts/codes/code_levels.h"
#include "base/messages/refusal.h"
#include "opening/storing/opening_reading.h"
#include "session/record_change.h"

namespace chengheng {

/// Why the direction of the account on a line may not be turned; nothing when it may. Only a
/// top-level account without an opening balance is turned, together with all below it, so that
/// no balance changes its meaning; of the sheet only the opening balance is looked at.
std::optional<Refusal> directionRefusal(const OpeningSheet& sheet, const CodeLevels& levels,
                                        std::size_t line);

/// What is asked before.
Question directionQuestion(const OpeningSheet& sheet, std::size_t line);

/// The places of an account and of all whose code begins with its code.
std::vector<std::size_t> directionSubtree(const OpeningSheet& sheet, std::size_t line);

/// Turns the direction of the account on a line in the sheet and in the open set of books, under
/// the locks and in one unit of work. There the books are read anew: what another workstation
/// typed since is no reason to give it another meaning, and accounts that came since turn too.
/// Unless it is done, the sheet is as before, and the operator knows.
Outcome adjustDirection(OpeningBooks& books, std::size_t line, IMessages& messages);

}  // namespace chengheng
