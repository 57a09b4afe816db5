#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "base/values/exact_sum.h"
#include "data/tables/accounts.h"
#include "opening/sheet/opening_account.h"

namespace chengheng {

/// What the result dialog shows, in the order of its fields.
struct TrialBalanceTexts {
    std::string debitClasses;
    std::string creditClasses;
    std::string debitTotal;
    std::string creditTotal;
    std::string result;

    std::array<const std::string*, 5> inOrder() const {
        return {&debitClasses, &creditClasses, &debitTotal, &creditTotal, &result};
    }
};

/// Whether the opening balances agree: the sum over the debit-natured classes of accounts must
/// be that over the credit-natured ones.
///
/// Only end accounts count. One whose own direction departs from its class's counts negatively.
/// Of more than five classes the last takes no part: it carries no opening balance. Without
/// classes the books balance.
class TrialBalance {
  public:
    /// The classes in the order of their numbers.
    TrialBalance(std::span<const _zCodeClassInfo> classes,
                 std::span<const OpeningAccount> accounts);

    struct ClassSum {
        std::string name;
        bool isDebit = false;
        MoneySum sum;
    };

    const std::vector<ClassSum>& classes() const { return m_classes; }
    double debitTotal() const { return m_debits.value(); }
    double creditTotal() const { return m_credits.value(); }
    /// Debits less credits.
    double surplus() const;
    /// Its size: formed before anything is rounded to a double.
    double difference() const;
    bool isBalanced() const;

    TrialBalanceTexts texts() const;
    /// What is asked before a window with books that do not balance is closed.
    std::string closePrompt() const;

  private:
    static void add(const OpeningAccount& account, ClassSum& sum);

    std::vector<ClassSum> m_classes;
    MoneySum m_debits;
    MoneySum m_credits;
};

}  // namespace chengheng
