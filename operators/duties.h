#pragma once

#include <span>
#include <vector>

#include "operators/operator_rules.h"

namespace chengheng {

/// Two kinds of work that one person is not to do both of: whoever has a function of either.
struct DutyPair {
    std::vector<int> one;
    std::vector<int> other;
    const char* text;  ///< what is wrong with having both
};

/// As the accounting law and the usual rules of internal control have them.
std::span<const DutyPair> incompatibleDuties();

/// What an operator may do that one person is not to do. Nothing of a supervisor, who has all
/// rights by what he is.
std::vector<const char*> incompatibleDutiesOf(const OperatorRecord& record);

}  // namespace chengheng
