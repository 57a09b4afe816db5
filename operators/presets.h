#pragma once

#include <span>
#include <string>
#include <vector>

#include "operators/operator_rights.h"

namespace chengheng {

/// The rights that somebody with a task of a usual office needs.
struct RightsPreset {
    const char* name;
    std::vector<int> functions;

    OperatorRights rights() const;
};

std::span<const RightsPreset> rightsPresets();

/// What an operator would get and lose who has some rights and is given others, in words.
std::string rightsDifference(const OperatorRights& before, const OperatorRights& after);

}  // namespace chengheng
