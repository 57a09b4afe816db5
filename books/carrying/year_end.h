#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "auxiliary/members/entry_dimensions.h"
#include "base/values/status.h"
#include "data/access/CNbCwDB.h"
#include "data/tables/balances.h"

namespace chengheng {

/// Whether accounts of a class take their balance into a new year; those of income and expense
/// do not.
bool carriesBalance(std::string_view type);

/// What a period ends with: its opening and its movements, plus in the direction of the account.
EntryFigures closingOf(const _AccSumInfo& period, bool isDebit);
EntryFigures closingOf(const _AssAccInfo& period, bool isDebit);

/// An account that carries its balance, as a year ends.
struct ClosedAccount {
    std::int32_t id = 0;
    std::string code = {};
    std::string name = {};
    std::string letters = {};  ///< of its auxiliary accounting
    std::uint8_t currency = 0;
    bool isDebit = false;
    bool isEnd = false;
    bool isCutShort = false;  ///< there are earlier periods and not the last one
    bool isDoubled = false;   ///< there is more than one row of the last period, which are summed
    EntryFigures closing = {};
};

/// The closing of one combination of dimensions.
struct ClosedDetail {
    std::int32_t account = 0;
    EntryDimensions of;
    EntryFigures closing = {};
};

/// What a year of books ends with, or begins with.
struct YearEnd {
    std::vector<ClosedAccount> accounts;  ///< in the order of their ids
    /// Of these, one for each combination with figures, in the order of the accounts.
    std::vector<ClosedDetail> details;
};

/// Reads it from the selected database.
Status readYearEnd(CNbCwDB& database, YearEnd& end);
/// The same of what the year begins with, which stands in its first period.
Status readYearStart(CNbCwDB& database, YearEnd& start);

/// The account of an id; null where there is none.
const ClosedAccount* findAccount(const YearEnd& end, std::int32_t id);

}  // namespace chengheng
