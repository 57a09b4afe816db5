#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "opening/balance/trial_balance.h"
#include "opening/sheet/opening_sheet.h"

namespace chengheng {

/// Why books may fail to balance, the likelier first.
enum class ImbalanceKind : std::uint8_t {
    wrongSide,         ///< a balance half as large as the difference
    equalsDifference,  ///< entered twice, or its counterpart is missing
    misplacedDigits,   ///< two digits exchanged or the point shifted make up the difference
    missingOnSide,     ///< a balance of that size on the side that lacks it
    figuresDisagree,   ///< its opening balance does not follow from its movements
    divisibleByNine,   ///< exchanged digits somewhere, but no one balance explains it
    departsFromClass,  ///< a contra account, which may be meant or not
};

struct ImbalanceCause {
    ImbalanceKind kind;
    std::optional<std::size_t> place;  ///< of the account; nothing when none is meant
    std::string text;
};

/// Likely causes of a trial balance that does not balance, ranked; none when it does. They are
/// only suggestions. Of one kind there are at most twenty.
std::vector<ImbalanceCause> imbalanceCauses(const OpeningSheet& sheet, const TrialBalance& balance);

}  // namespace chengheng
