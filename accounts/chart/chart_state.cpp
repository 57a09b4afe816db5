#include "accounts/chart/chart_state.h"

#include "accounts/chart/account_sql.h"
#include "accounts/chart/where_used_sql.h"
#include "data/access/row_lease.h"
#include "data/access/selected_cells.h"
#include "data/tables/books.h"

namespace chengheng {
namespace {

template <class Record>
Status readAll(CNbCwDB& database, const char* condition, std::vector<Record>& records) {
    const RowLease<Record> lease(database, condition);
    records = lease.copy();
    return lease.isRead() ? Status::done() : database.lastStatus();
}

Status readIds(CNbCwDB& database, const std::string& select, std::unordered_set<int>& ids) {
    const SelectedCells cells(database, select);
    if (!cells.isRead()) return database.lastStatus();
    for (int row = 0; row < cells.rows(); ++row) ids.insert(cells.number<int>(row, 0));
    return Status::done();
}

Status readUses(CNbCwDB& database, ChartState& state) {
    Status status = readIds(database, where_used_sql::accountsWithOpening, state.withOpening);
    for (std::size_t at = 0; status && at < usePlaces.size(); ++at)
        status = readIds(database, where_used_sql::accountsIn(usePlaces[at]), state.usedIn[at]);
    return status;
}

}  // namespace

Status readChartState(CNbCwDB& database, ChartState& state) {
    state = {};
    std::vector<_zAccountMInfo> parameters;
    Status status = readAll(database, nullptr, parameters);
    if (!parameters.empty()) state.levelPattern = parameters.front().sCodeLen;
    if (status) status = readAll(database, account_sql::allClasses, state.classes);
    if (status) status = readAll(database, account_sql::allCurrencies, state.currencies);
    if (status) status = readAll(database, account_sql::all, state.accounts);
    return status ? readUses(database, state) : status;
}

}  // namespace chengheng
