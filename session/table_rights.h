#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

// Which right grants which tables. A server that knows each operator is told by it what he may
// write, and a refusal of the server is put into words by it.

namespace chengheng {

/// What may be done to the rows of a table; a set of bits.
enum TableUse : unsigned {
    toRead = 1,
    toAdd = 2,
    toChange = 4,
    toDelete = 8,
    toWrite = toAdd | toChange | toDelete,
};

/// Which rows of a table may be used so.
enum class RowRule {
    any,
    ownOperator,       ///< of the operator who asks
    ownTries,          ///< his tries at logging on, and those at names that nobody has
    ownCounters,       ///< the counters of the tables that he may add rows to
    emptyDetails,      ///< auxiliary sums that are all zero
    openingLines,      ///< lines of opening entries
    openingHeaders,    ///< headers of no period
    noVoucherHeaders,  ///< headers that bear no line of a voucher
    uncheckedHeaders,  ///< unposted vouchers that nobody has checked
    uncheckedLines,    ///< and their lines
    othersThanUsers,   ///< of the log: what does not tell of operators and their rights
};

/// The item tables of all project classes stand here as "ProjItems".
struct TableGrant {
    const char* table;
    unsigned uses;
    RowRule rows = RowRule::any;
    const char* columns = "";  ///< "sName, bFgn": of changes, no others; empty: all
};

/// What one function of the rights list grants. None: it only reads.
struct FunctionGrants {
    int function;
    std::vector<TableGrant> grants;
};

/// One entry for each function, in the order of the rights list.
std::span<const FunctionGrants> functionGrants();

/// What every operator has whatever his rights are: reading, and what logging on writes.
std::span<const TableGrant> everybodysGrants();
/// What keeps everybody but a supervisor from the operators' passwords and rights.
std::span<const TableGrant> plainOperatorsGrants();
/// What a supervisor has beside all functions.
std::span<const TableGrant> supervisorsGrants();

/// The functions that grant a use of a table, "[外币设置]、[主管]"; empty when none does.
std::string grantingRights(std::string_view table, unsigned uses);

/// The table that the words of a server's refusal name; empty when they name none.
std::string tableInWords(std::string_view words);

}  // namespace chengheng
