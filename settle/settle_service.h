#pragma once

#include <optional>
#include <span>
#include <vector>

#include "data/tables/settlement.h"
#include "forms/leaf_list.h"
#include "session/record_change.h"

namespace chengheng {

/// Reads and changes the settlement methods of the open set of books. Whatever does not give
/// `done` has told the operator why. Changes hold their locks across checks and writing.
class SettleService {
  public:
    explicit SettleService(IMessages& messages) : m_messages(messages) {}

    /// Every method in the order in which they were added; nothing when they cannot be read.
    std::optional<std::vector<_SettleInfo>> readAll();
    /// One method, and whether vouchers or bank statements refer to it.
    Outcome read(int id, _SettleInfo& method, bool& isUsed);

    /// Adds a method whose number and name nobody has yet, and gives it its id.
    Outcome add(_SettleInfo& method, std::span<const Leaf> leaves);
    /// Writes a method that was loaded before. Its number changes only while it is not used.
    /// One that another workstation changed since it was loaded is left as it is.
    Outcome modify(const _SettleInfo& loaded, const _SettleInfo& wanted,
                   std::span<const Leaf> leaves);
    /// Asks and deletes the loaded method under a leaf; null: none is selected.
    Outcome remove(const Leaf* leaf, const _SettleInfo& loaded);

  private:
    IMessages& m_messages;
};

}  // namespace chengheng
