#include "accounts/chart/chart_state.h"

#include <charconv>
#include <cstring>

#include "accounts/chart/account_sql.h"
#include "accounts/chart/where_used_sql.h"
#include "data/access/row_lease.h"

namespace chengheng {
namespace {

template <class Record>
bool readAll(CNbCwDB& database, const char* condition, std::vector<Record>& records) {
    const RowLease<Record> lease(database, condition);
    records = lease.copy();
    return lease.isRead();
}

bool readIds(CNbCwDB& database, const std::string& select, std::unordered_set<int>& ids) {
    char** cells = nullptr;
    int columns = 0;
    int rows = 0;
    if (database.QRYGetData(select, cells, columns, rows) != 0) return false;
    for (int row = 0; row < rows; ++row) {
        const char* const cell = cells[row * columns];
        int id = 0;
        if (cell != nullptr) std::from_chars(cell, cell + std::strlen(cell), id);
        ids.insert(id);
    }
    database.QRYReleaseBuffer(cells, columns, rows);
    return true;
}

bool readUses(CNbCwDB& database, ChartState& state) {
    for (std::size_t at = 0; at < usePlaces.size(); ++at)
        if (!readIds(database, where_used_sql::accountsIn(usePlaces[at]), state.usedIn[at]))
            return false;
    return readIds(database, where_used_sql::accountsWithOpening, state.withOpening);
}

}  // namespace

bool readChartState(CNbCwDB& database, ChartState& state) {
    state = {};
    std::vector<_zAccountMInfo> parameters;
    const bool isRead = readAll(database, nullptr, parameters) &&
                        readAll(database, account_sql::allClasses, state.classes) &&
                        readAll(database, account_sql::allCurrencies, state.currencies) &&
                        readAll(database, account_sql::all, state.accounts) &&
                        readUses(database, state);
    if (!parameters.empty()) state.levelPattern = parameters.front().sCodeLen;
    return isRead;
}

}  // namespace chengheng
