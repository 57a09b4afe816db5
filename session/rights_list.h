#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

// The functions of the package that an operator may or may not use. A function's number is
// its position in this list, counted over all groups from 1; stored rights and callers
// elsewhere rely on it, so a function is only ever added at the end.

namespace chengheng {

inline constexpr int functionCount = 82;
inline constexpr int mostFunctionsOfGroup = 12;
/// Characters of a rights string: there is room for functions to come.
inline constexpr std::size_t rightsLength = 255;

struct RightsGroup {
    const char* name;
    std::vector<const char*> functions;
};

/// The 18 groups in order.
std::span<const RightsGroup> rightsGroups();

/// Number of the first function of a group; groups are counted from 0.
int firstFunctionOf(int group);

/// Name of a function; null when no function has that number.
const char* functionName(int number);

/// Whether a rights string (sAuthId of UserAuth) grants a function: character number - 1 is Y
/// or y. A string that ends before it grants nothing.
bool grants(std::string_view rights, int number);

}  // namespace chengheng
