#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "books/carrying/members.h"
#include "books/carrying/year_end.h"
#include "opening/sheet/opening_sheet.h"

namespace chengheng {

/// What keeps a balance from being carried forward.
enum class ObstacleKind {
    added,          ///< the account is new
    removed,        ///< the account is gone
    recoded,        ///< it has another code
    otherIdentity,  ///< its code is another account's
    turned,         ///< it has another direction
    noEnd,          ///< it has others below it now
    otherCurrency,
    otherDimensions,
    doubled,   ///< its last period is there twice
    cutShort,  ///< its last period is not there though earlier ones are
    tooLarge,  ///< its closing cannot be told to the cent
    memberMissing,
    // Only when it is repeated.
    wasNoEnd,      ///< it had others below it
    notAuxiliary,  ///< it has details and keeps none
    hasEntries,    ///< its details come from opening entries
};

struct CarryObstacle {
    ObstacleKind kind = ObstacleKind::added;
    std::string code;  ///< of the account
    std::string text;  ///< account and reason in words
    std::string name;  ///< of the account

    /// The reason alone.
    std::string reason() const;
};

/// 借 or 贷.
const char* directionText(bool isDebit);

/// Last year's closing of an end account beside this year's opening.
struct CarriedAccount {
    std::size_t place = 0;  ///< of the account in this year's sheet
    EntryFigures closing;
};

/// What a carry-forward would do.
struct CarryPlan {
    /// Neither year has an account that carries a balance.
    bool isEmpty = false;
    /// The two years do not hold the same accounts with the same ids and codes.
    bool hasDifferingCharts = false;
    std::vector<CarryObstacle> obstacles;  ///< in the order of the accounts' codes
    std::vector<CarriedAccount> accounts;  ///< those with figures, in the order of the codes
    std::vector<ClosedDetail> details;     ///< theirs
};

/// What a carry-forward of a year's end into the accounts of this year would do.
CarryPlan planCarry(const YearEnd& end, const OpeningSheet& sheet, const MembersOfYears& members);

/// Puts the planned closings into a sheet without figures as its openings, and the sums of the
/// accounts above with them.
void putCarried(const CarryPlan& plan, OpeningSheet& sheet);

}  // namespace chengheng
