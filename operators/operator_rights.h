#pragma once

#include <array>
#include <bitset>
#include <string>
#include <string_view>

#include "session/rights_list.h"

namespace chengheng {

inline constexpr int rightsGroupCount = 18;

enum class GroupState { none = 0, all = 1, some = 2 };

/// How many functions a group has; groups are counted from 0.
int functionsOf(int group);

/// What an operator may do: a state for each group of the rights list and a flag for each of its
/// slots. Slots beyond the last function of a group have flags but stand for nothing.
class OperatorRights {
  public:
    OperatorRights() = default;
    /// Out of a rights string: Y and y grant.
    explicit OperatorRights(std::string_view stored);

    GroupState state(int group) const { return m_groups.at(at(group)).state; }
    bool has(int group, int slot) const { return m_groups.at(at(group)).flags.test(at(slot)); }
    /// Whether the function of a number is granted, as the rights string would say.
    bool grants(int function) const;

    /// Grants a group whole or takes it whole away.
    void setGroup(int group, bool isGranted);
    void setFunction(int group, int slot, bool isGranted);
    /// By the number of the function.
    void set(int function, bool isGranted);

    /// The rights string: Y and N alone. What stands beyond the last function is kept from the
    /// string read, as it may be the right of a function that only a later program knows.
    std::string text() const;

  private:
    struct Group {
        GroupState state = GroupState::none;
        std::bitset<mostFunctionsOfGroup> flags;
    };

    static std::size_t at(int index) { return static_cast<std::size_t>(index); }
    void settleState(int group);

    std::array<Group, rightsGroupCount> m_groups{};
    std::string m_beyond = std::string(rightsLength - functionCount, 'N');
};

/// The functions that a change of rights grants or takes; what it does not name stays.
struct RightsChange {
    std::bitset<functionCount> granted;
    std::bitset<functionCount> taken;

    bool isEmpty() const { return granted.none() && taken.none(); }
    /// The stored rights with the change made.
    OperatorRights appliedTo(OperatorRights rights) const;
};

/// What leads from one to the other.
RightsChange changeBetween(const OperatorRights& before, const OperatorRights& after);

}  // namespace chengheng
