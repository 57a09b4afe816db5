#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/values/date.h"
#include "data/access/CNbCwDB.h"
#include "data/tables/accounts.h"
#include "opening/sheet/opening_sheet.h"

namespace chengheng {

/// What the opening balances of a set of books consist of.
struct OpeningBooks {
    OpeningSheet sheet;
    std::vector<_zCodeClassInfo> classes;  ///< in the order of their numbers
    std::string levelPattern;
    int year = 0;
    Date start;  ///< first day of bookkeeping
    /// Whether there are rows of period sums, of whatever account.
    bool hasSums = false;
};

/// Reads them from the selected database. A sheet that may be edited is rolled up; one with
/// vouchers is for browsing and stands as it is stored.
Status readOpeningBooks(CNbCwDB& database, OpeningBooks& books);

/// Whether vouchers are there, of whatever period: then the sheet is for browsing.
Status readIsBrowsing(CNbCwDB& database, bool& isBrowsing);

/// Whether there are rows of period sums, of whatever account.
Status readHasSums(CNbCwDB& database, bool& hasSums);

/// The opening balances of auxiliary accounts as their details add up, by the accounts' ids.
Status readAuxiliaryOpenings(CNbCwDB& database, OpeningLayout layout,
                             std::map<std::int32_t, double>& sums);

/// The account classes in the order of their numbers.
Status readClasses(CNbCwDB& database, std::vector<_zCodeClassInfo>& classes);

}  // namespace chengheng
