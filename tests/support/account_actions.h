#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/support/account_books.h"

namespace chengheng {

/// A change of the chart as an operator makes it, on books that prepareActions filled.
struct AccountAction {
    std::string name;
    std::function<Outcome(AccountBooks&)> run;
};

/// 1001 and 1002, each with an account below it, and 2202.
void prepareActions(AccountBooks& books);

/// An addition, a modification with a new code, a deletion, a designation, an import. Each
/// writes in more than one place.
const std::vector<AccountAction>& accountActions();

}  // namespace chengheng
