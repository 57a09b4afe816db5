#pragma once

#include <optional>
#include <vector>

#include "data/tables/accounts.h"
#include "data/tables/settlement.h"
#include "session/record_change.h"

namespace chengheng {

/// What writes voucher types locks: they name accounts.
inline constexpr LockLists voucherTypeLocks{WriteRight::voucherTypes, "Code", "Sign"};

/// Reads and changes the voucher types of the open set of books. Whatever does not give `done` has
/// told the operator why. Changes hold their locks across checks and writing.
class VoucherTypeService {
  public:
    explicit VoucherTypeService(IMessages& messages) : m_messages(messages) {}

    /// Every type in the order in which they were added; nothing when they cannot be read.
    std::optional<std::vector<_SignInfo>> readAll();
    /// One type, and whether vouchers carry it.
    Outcome read(int id, _SignInfo& type, bool& isUsed);
    /// The accounts that a restriction may name, by their codes; nothing when they cannot be read.
    std::optional<std::vector<_CodeInfo>> firstLevelAccounts();

    /// Adds a type and gives it its id.
    Outcome add(_SignInfo& type);
    /// Writes a type that was loaded before. Its number changes only while it is not used. One
    /// that another workstation changed or deleted since is left as it is.
    Outcome modify(const _SignInfo& loaded, const _SignInfo& wanted);
    /// Asks and deletes a type, in the words in which it is stored; 0: none is selected.
    Outcome remove(int id);

  private:
    IMessages& m_messages;
};

}  // namespace chengheng
