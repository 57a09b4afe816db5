#include "bench/raw_sums.h"

#include <cstring>

namespace bench {
namespace {

bool isBelow(const char* code, const char* above) {
    return std::strncmp(code, above, std::strlen(above)) == 0;
}

}  // namespace

void rollUpRaw(std::vector<RawAccount>& accounts) {
    RawAccount* open[16];
    int depth = 0;
    for (RawAccount& account : accounts) {
        while (depth > 0 && !isBelow(account.code, open[depth - 1]->code)) --depth;
        if (!account.isEnd) {
            account.money = account.foreign = account.quantity = 0;
            open[depth++] = &account;
            continue;
        }
        for (int above = 0; above < depth; ++above) {
            open[above]->money += account.money;
            open[above]->foreign += account.foreign;
            open[above]->quantity += account.quantity;
        }
    }
}

}  // namespace bench
