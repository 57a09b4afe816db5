#include "operators/operator_reading.h"

#include "data/access/reading_moment.h"
#include "data/access/row_lease.h"
#include "operators/operator_sql.h"

namespace chengheng {
namespace {

template <class Record>
Status readInOrder(CNbCwDB& database, std::vector<Record>& records) {
    const RowLease<Record> lease(database, operator_sql::inOrder);
    if (!lease.isRead()) return database.lastStatus();
    records = lease.copy();
    return Status::done();
}

}  // namespace

Status readOperators(CNbCwDB& database, std::optional<std::vector<OperatorRecord>>& operators) {
    operators.reset();
    const ReadingMoment moment(database);
    return moment.status() ? readLockedOperators(database, operators) : moment.status();
}

Status readLockedOperators(CNbCwDB& database,
                           std::optional<std::vector<OperatorRecord>>& operators) {
    operators.reset();
    std::vector<_UsersInfo> users;
    std::vector<_UserAuthInfo> rights;
    Status status = readInOrder(database, users);
    if (status) status = readInOrder(database, rights);
    if (status) operators = pairedOperators(users, rights);
    return status;
}

}  // namespace chengheng
