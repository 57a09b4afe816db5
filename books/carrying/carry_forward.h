#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/messages/messages.h"
#include "books/carrying/both_years.h"
#include "books/carrying/carry_plan.h"
#include "books/carrying/carry_proof.h"
#include "books/list/books_registry.h"
#include "opening/balance/trial_balance.h"
#include "opening/screen/opening_work.h"

namespace chengheng {

/// Carries last year's closing balances forward into the open set of books, which must hold no
/// balances yet. Last year's books are read and never written. Whatever does not give `done`
/// has changed nothing, nor has what was given up. What the operator is to be told of it is added
/// to `untold`.
CarriedForward carryForward(const BooksRegistry& registry, std::vector<Notice>& untold,
                            const CarryProgress& progress = {});

/// The same out of the books at a place, where it is known which these were made from.
CarriedForward carryForwardFrom(const std::string& lastYear, const BooksRegistry& registry,
                                std::vector<Notice>& untold);

/// What there is to say of a carry-forward that followed the making of this year's books: what
/// was carried, or why nothing was. `untold` is what it left.
std::string carriedIntoNewYear(const CarriedForward& carried, std::span<const Notice> untold);
std::string notCarriedIntoNewYear(const std::string& reason);

/// A carry-forward that is not done, account by account.
struct CarryPreview {
    struct Account {
        std::string code;
        std::string name;
        bool isDebit = false;
        EntryFigures closing;
        double opening = 0;  ///< this year's, in money
    };

    bool isFilled = false;    ///< this year has balances already
    bool isBrowsing = false;  ///< it has vouchers, or may only be looked at
    CarryPlan plan;
    std::vector<Account> accounts;  ///< those of the plan
    /// Of this year's openings as they would be.
    double debitTotal = 0;
    double creditTotal = 0;
    TrialBalanceTexts balance;

    /// Why nothing at all may be carried; null where there may be obstacles and no more.
    const char* refusal() const;
};

/// Looks what a carry-forward would do; changes nothing. What keeps it from being looked at is
/// added to `untold`.
Outcome previewCarry(const BooksRegistry& registry, CarryPreview& preview,
                     std::vector<Notice>& untold, const CarryProgress& progress = {});

/// Holds what this year begins with against what last year ended with.
Outcome verifyCarry(const BooksRegistry& registry, std::vector<CarryDifference>& differences,
                    std::vector<Notice>& untold, const CarryProgress& progress = {});

}  // namespace chengheng
