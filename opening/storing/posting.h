#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/access/CNbCwDB.h"
#include "data/tables/balances.h"
#include "opening/sheet/opening_account.h"

namespace chengheng {

/// An account with a balance has exactly so many rows, one for each period.
inline constexpr int periodRows = 12;

/// How the figures of an account get into its rows of period sums.
enum class PostingPath : std::uint8_t {
    update,   ///< exactly twelve rows are there and keep their ids
    rebuild,  ///< whatever is there goes; twelve rows with fresh ids come when there are figures
};

/// The rows of an account as they stand.
struct StoredSums {
    std::vector<std::uint8_t> periods;  ///< of each row
    Balances balances{};

    bool hasRows() const { return !periods.empty(); }
    PostingPath path() const {
        return periods.size() == periodRows ? PostingPath::update : PostingPath::rebuild;
    }
};

/// Takes a row's figures over, rows in the order of their periods: period 1 has the opening
/// balances. In books that begin mid-year it has the year-start balances and the movements, and
/// period 2 has the opening balances, which those of period 1 stand in for.
void takeFigures(const _AccSumInfo& row, OpeningLayout layout, bool isDebit, Balances& balances);

/// Whether rows are inserted for an account that has none. An account that has others below it
/// gets rows by its money alone; an end account by any figure, as nothing typed may be lost.
bool deservesRows(const OpeningAccount& account, OpeningLayout layout);

/// The statements that bring the rows of an account to its figures; empty when there is nothing
/// to do. Fresh rows get the ids after `lastId`.
std::string postingBatch(const OpeningAccount& account, const StoredSums& stored,
                         OpeningLayout layout, std::int32_t lastId);

/// To be called first in a unit of work that writes rows by what it reads: whoever does the same
/// at another workstation waits for the end of this unit.
Status holdSums(CNbCwDB& database);

/// The rows of an account in the selected database.
Status readStoredSums(CNbCwDB& database, const OpeningAccount& account, OpeningLayout layout,
                      StoredSums& stored);

/// Brings the rows of an account in the selected database to its figures. To be called in a
/// unit of work.
Status postAccount(CNbCwDB& database, const OpeningAccount& account, OpeningLayout layout);
/// The same over rows that were read before.
Status postOver(CNbCwDB& database, const OpeningAccount& account, OpeningLayout layout,
                const StoredSums& stored);

}  // namespace chengheng
