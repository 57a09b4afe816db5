#include "operators/operator_rights.h"

namespace chengheng {
namespace {

bool isGrant(char right) { return right == 'Y' || right == 'y'; }

struct FunctionPlace {
    int group;
    int slot;
};

FunctionPlace placeOf(int function) {
    int group = 0;
    while (group + 1 < rightsGroupCount && firstFunctionOf(group + 1) <= function) ++group;
    return {group, function - firstFunctionOf(group)};
}

}  // namespace

int functionsOf(int group) {
    return static_cast<int>(rightsGroups()[static_cast<std::size_t>(group)].functions.size());
}

OperatorRights::OperatorRights(std::string_view stored) {
    for (int function = 1; function <= functionCount; ++function)
        if (chengheng::grants(stored, function)) set(function, true);
    for (std::size_t index = 0; index < m_beyond.size(); ++index) {
        const std::size_t place = functionCount + index;
        if (place < stored.size() && isGrant(stored[place])) m_beyond[index] = 'Y';
    }
}

bool OperatorRights::grants(int function) const {
    const auto [group, slot] = placeOf(function);
    const GroupState state = this->state(group);
    return state == GroupState::all || (state == GroupState::some && has(group, slot));
}

void OperatorRights::setGroup(int group, bool isGranted) {
    Group& changed = m_groups.at(at(group));
    changed.state = isGranted ? GroupState::all : GroupState::none;
    isGranted ? changed.flags.set() : changed.flags.reset();
}

void OperatorRights::setFunction(int group, int slot, bool isGranted) {
    m_groups.at(at(group)).flags.set(at(slot), isGranted);
    settleState(group);
}

void OperatorRights::set(int function, bool isGranted) {
    const auto [group, slot] = placeOf(function);
    setFunction(group, slot, isGranted);
}

void OperatorRights::settleState(int group) {
    Group& changed = m_groups.at(at(group));
    int granted = 0;
    for (int slot = 0; slot < functionsOf(group); ++slot)
        if (changed.flags.test(at(slot))) ++granted;
    changed.state = granted == 0                    ? GroupState::none
                    : granted == functionsOf(group) ? GroupState::all
                                                    : GroupState::some;
}

std::string OperatorRights::text() const {
    std::string text;
    text.reserve(rightsLength);
    for (int group = 0; group < rightsGroupCount; ++group)
        for (int slot = 0; slot < functionsOf(group); ++slot)
            text += grants(firstFunctionOf(group) + slot) ? 'Y' : 'N';
    return text + m_beyond;
}

OperatorRights RightsChange::appliedTo(OperatorRights rights) const {
    for (int function = 1; function <= functionCount; ++function) {
        const auto place = static_cast<std::size_t>(function - 1);
        if (granted.test(place)) rights.set(function, true);
        if (taken.test(place)) rights.set(function, false);
    }
    return rights;
}

RightsChange changeBetween(const OperatorRights& before, const OperatorRights& after) {
    RightsChange change;
    for (int function = 1; function <= functionCount; ++function) {
        const auto place = static_cast<std::size_t>(function - 1);
        const bool had = before.grants(function);
        const bool has = after.grants(function);
        change.granted.set(place, has && !had);
        change.taken.set(place, had && !has);
    }
    return change;
}

}  // namespace chengheng
