#include "operators/presets.h"

#include <fmt/format.h>

#include <array>
#include <initializer_list>

#include "operators/operator_rules.h"
#include "operators/operator_texts.h"

namespace chengheng {
namespace {

namespace texts = operator_texts;

struct Range {
    int first;
    int last;
};

std::vector<int> functionsIn(std::initializer_list<Range> ranges) {
    std::vector<int> functions;
    for (const Range& range : ranges)
        for (int function = range.first; function <= range.last; ++function)
            functions.push_back(function);
    return functions;
}

OperatorRights rightsOf(const std::bitset<functionCount>& functions) {
    OperatorRights rights;
    for (int function = 1; function <= functionCount; ++function)
        if (functions.test(static_cast<std::size_t>(function - 1))) rights.set(function, true);
    return rights;
}

}  // namespace

OperatorRights RightsPreset::rights() const {
    OperatorRights rights;
    for (const int function : functions) rights.set(function, true);
    return rights;
}

std::span<const RightsPreset> rightsPresets() {
    static const std::array presets{
        RightsPreset{texts::headOfAccounting, functionsIn({{1, functionCount}})},
        RightsPreset{texts::ledgerBookkeeper,
                     functionsIn({{1, 34}, {37, 37}, {41, 48}, {50, 57}, {65, 70}, {73, 82}})},
        RightsPreset{texts::voucherMaker,
                     functionsIn({{42, 42}, {44, 44}, {47, 48}, {50, 50}, {53, 56}})},
        RightsPreset{
            texts::auditor,
            functionsIn(
                {{42, 42}, {44, 44}, {47, 47}, {49, 50}, {53, 54}, {65, 65}, {67, 67}, {74, 74}})},
        RightsPreset{
            texts::poster,
            functionsIn({{33, 33}, {42, 42}, {44, 44}, {50, 51}, {53, 54}, {65, 68}, {73, 74}})},
        RightsPreset{texts::cashier,
                     functionsIn({{42, 42}, {47, 47}, {54, 54}, {57, 62}, {71, 73}})},
        RightsPreset{texts::reader, functionsIn({{2, 4},
                                                 {6, 7},
                                                 {9, 12},
                                                 {15, 18},
                                                 {20, 22},
                                                 {33, 33},
                                                 {42, 42},
                                                 {44, 44},
                                                 {47, 47},
                                                 {50, 50},
                                                 {54, 54},
                                                 {65, 65},
                                                 {67, 67},
                                                 {70, 71},
                                                 {73, 74},
                                                 {76, 78},
                                                 {80, 81}})},
    };
    return presets;
}

std::string rightsDifference(const OperatorRights& before, const OperatorRights& after) {
    const RightsChange change = changeBetween(before, after);
    if (change.isEmpty()) return texts::sameRights;
    std::string words;
    if (change.granted.any())
        words += fmt::format(texts::rightsAdded, change.granted.count(),
                             rightsInWords(rightsOf(change.granted)));
    if (change.taken.any())
        words += fmt::format(texts::rightsTaken, change.taken.count(),
                             rightsInWords(rightsOf(change.taken)));
    return words;
}

}  // namespace chengheng
