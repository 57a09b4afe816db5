#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "opening/balance/trial_balance.h"
#include "opening/sheet/opening_sheet.h"

namespace chengheng {

/// Why books may fail to balance, the likelier first.
enum class ImbalanceKind : std::uint8_t {
    notCounted,        ///< its class is none of those that take part
    detailsDiffer,     ///< an auxiliary account's balance is not the sum of its details
    wrongSide,         ///< a balance half as large as the difference
    equalsDifference,  ///< entered twice, or its counterpart is missing
    misplacedDigits,   ///< two digits exchanged or the point shifted make up the difference
    missingOnSide,     ///< a balance of that size on the side that lacks it
    figuresDisagree,   ///< its opening balance does not follow from its movements
    divisibleByNine,   ///< exchanged digits somewhere, but no one balance explains it
};

struct ImbalanceCause {
    ImbalanceKind kind;
    std::optional<std::size_t> place;  ///< of the account; nothing when none is meant
    std::string text;
};

/// The sums of the details of auxiliary accounts, by the accounts' ids.
using AuxiliaryOpenings = std::map<std::int32_t, double>;

/// Likely causes of a trial balance that does not balance, ranked; none when it does. They are
/// only suggestions. Of one kind there are at most twenty. Without `details` auxiliary accounts
/// are not compared with theirs.
std::vector<ImbalanceCause> imbalanceCauses(const OpeningSheet& sheet, const TrialBalance& balance,
                                            const AuxiliaryOpenings* details = nullptr);

}  // namespace chengheng
