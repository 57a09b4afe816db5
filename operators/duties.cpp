#include "operators/duties.h"

#include <algorithm>
#include <array>

#include "operators/operator_texts.h"

namespace chengheng {
namespace {

namespace texts = operator_texts;

bool hasAny(const OperatorRights& rights, std::span<const int> functions) {
    return std::ranges::any_of(functions, [&](int function) { return rights.grants(function); });
}

/// Who keeps money: the journals of cash and bank, the daily report of funds, the cheques.
const std::vector<int>& cashierFunctions() {
    static const std::vector<int> functions{58, 59, 60, 62};
    return functions;
}

}  // namespace

std::span<const DutyPair> incompatibleDuties() {
    static const std::array pairs{
        DutyPair{cashierFunctions(), {49}, texts::cashierAudits},
        DutyPair{cashierFunctions(), {51}, texts::cashierPosts},
        DutyPair{cashierFunctions(), {5, 79}, texts::cashierSettles},
        DutyPair{cashierFunctions(), {37, 38, 39}, texts::cashierKeepsArchives},
        DutyPair{cashierFunctions(), {63}, texts::cashierReconciles},
        DutyPair{{48}, {49}, texts::makerAudits},
    };
    return pairs;
}

std::vector<const char*> incompatibleDutiesOf(const OperatorRecord& record) {
    std::vector<const char*> found;
    if (record.isSupervisor()) return found;
    for (const DutyPair& pair : incompatibleDuties())
        if (hasAny(record.rights, pair.one) && hasAny(record.rights, pair.other))
            found.push_back(pair.text);
    return found;
}

}  // namespace chengheng
