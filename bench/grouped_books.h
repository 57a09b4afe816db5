#pragma once

#include <string>
#include <vector>

#include "bench/raw_sums.h"
#include "bench/sample_books.h"

namespace bench {

/// So many accounts stand in a group, the first of them above the others.
inline constexpr int accountsInAGroup = 20;

inline bool isAboveOthers(int accountId) { return (accountId - 1) % accountsInAGroup == 0; }

/// Sample books of 2026 for typing opening balances, whose accounts stand in groups.
class GroupedBooks : public SampleBooks {
  public:
    explicit GroupedBooks(int accounts);

    /// Reads the opening balances and rolls them up, on the floor's connection.
    std::vector<RawAccount> readRaw();
};

}  // namespace bench
