#pragma once

#include <vector>

#include "tests/support/operated_books.h"

namespace chengheng {

/// Books with settlement methods.
struct SettleBooks : OperatedBooks {
    using OperatedBooks::OperatedBooks;

    /// Inserts methods with the ids 1, 2, ... from "number name flag" each.
    void insert(const std::vector<std::string>& methods);
    /// Every stored method in the order of the ids, as "id number name flag".
    std::vector<std::string> stored();
    /// Whether any of the locks of a change is held here.
    bool holdsLocks() { return holdsLocksOf("RecpBank RecpEnter UnregMain UnregSub Settle"); }
};

}  // namespace chengheng
