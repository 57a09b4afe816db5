#pragma once

#include <vector>

#include "tests/support/operated_books.h"

namespace chengheng {

/// Books with voucher types.
struct VoucherTypeBooks : OperatedBooks {
    using OperatedBooks::OperatedBooks;

    /// Adds the accounts 1001 库存现金, 1002 银行存款, 1012 其他货币资金, and 100201 below the
    /// second.
    void addAccounts();
    /// Inserts types with the ids 1, 2, ... from "number name kind account account" each, the
    /// accounts left out where there are none.
    void insert(const std::vector<std::string>& types);
    /// Every stored type in the order of the ids, as "id number name kind account account".
    std::vector<std::string> stored();
    /// Whether any of the locks of a change is held here.
    bool holdsLocks() { return holdsLocksOf("Code Sign"); }
};

}  // namespace chengheng
