#pragma once

#include <vector>

namespace bench {

/// The sums of one account as a program that knows nothing but the engine would keep them.
struct RawAccount {
    char code[20];
    bool isEnd;
    double money, foreign, quantity;
};

/// Linear in code order: each end account is added to every account above it.
void rollUpRaw(std::vector<RawAccount>& accounts);

}  // namespace bench
