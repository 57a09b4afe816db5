#include "directories/directory_store.h"

#include "data/access/row_lease.h"
#include "data/connection/database.h"
#include "directories/directory_rows.h"
#include "directories/directory_sql.h"
#include "directories/project_items.h"
#include "directories/run_batch.h"

namespace chengheng {
namespace {

using Records = std::vector<DirectoryRecord>;
using Span = std::span<const DirectoryRecord>;

constexpr bool isItem(DirectoryKind kind) { return kind == DirectoryKind::projectItem; }

template <class Row>
Status readRowsOf(CNbCwDB& database, const char* condition, Records& records) {
    const RowLease<Row> lease(database, condition);
    if (!lease.isRead()) return database.lastStatus();
    records.reserve(records.size() + lease.rows().size());
    for (const Row* row : lease.rows()) records.push_back(recordOf(*row));
    return Status::done();
}

Status readRows(CNbCwDB& database, DirectoryKind kind, const std::string& condition,
                Records& records) {
    return withRowOf(kind, [&]<class Row>(Row) {
        return readRowsOf<Row>(database, condition.c_str(), records);
    });
}

Status statusOf(CNbCwDB& database, int result) {
    return result == 0 ? Status::done() : database.lastStatus();
}

template <class Row>
Status addRows(CNbCwDB& database, Span records, std::int32_t& lastId) {
    std::vector<Row> rows(records.size());
    for (std::size_t at = 0; at < records.size(); ++at) write(rows[at], records[at]);
    const Status status = statusOf(database, database.addAll<Row>(rows));
    if (status && !rows.empty()) lastId = rows.back().lId;
    return status;
}

}  // namespace

Status readDirectory(CNbCwDB& database, DirectoryKind kind, Records& records) {
    records.clear();
    return isItem(kind) ? readAllItems(database, records)
                        : readRows(database, kind, directory_sql::inOrder(kind), records);
}

Status readRecord(CNbCwDB& database, DirectoryKind kind, std::int32_t id, std::int32_t group,
                  std::optional<DirectoryRecord>& record) {
    record.reset();
    if (isItem(kind)) return readItem(database, group, id, record);
    return withRowOf(kind, [&]<class Row>(Row) {
        Row* row = nullptr;
        if (database.readOne<Row>(row, id) != 0)
            return database.lastStatus().failure == Failure::missing ? Status::done()
                                                                     : database.lastStatus();
        record = recordOf(*row);
        database.release<Row>();
        return Status::done();
    });
}

Status readCoded(CNbCwDB& database, DirectoryKind kind, std::int32_t group, std::string_view code,
                 Records& records) {
    records.clear();
    return isItem(kind) ? readItemsCoded(database, group, code, records)
                        : readRows(database, kind, directory_sql::coded(kind, code), records);
}

Status readNamed(CNbCwDB& database, DirectoryKind kind, std::int32_t group, std::string_view name,
                 Records& records) {
    records.clear();
    return isItem(kind) ? readItemsNamed(database, group, name, records)
                        : readRows(database, kind, directory_sql::named(kind, name), records);
}

Status addRecord(CNbCwDB& database, DirectoryKind kind, DirectoryRecord& record) {
    return addRecords(database, kind, std::span(&record, 1), record.id);
}

Status addRecords(CNbCwDB& database, DirectoryKind kind, Span records, std::int32_t& lastId) {
    if (isItem(kind)) return addItems(database, records, lastId);
    Status status =
        withRowOf(kind, [&]<class Row>(Row) { return addRows<Row>(database, records, lastId); });
    for (const DirectoryRecord& record : records)
        if (status && kind == DirectoryKind::projectClass)
            status = makeItemTable(database, record.code);
    return status;
}

Status editRecords(CNbCwDB& database, DirectoryKind kind, Span records) {
    if (isItem(kind)) return editItems(database, records);
    std::string batch;
    for (const DirectoryRecord& record : records) directory_sql::editRecord(batch, kind, record);
    return runBatch(database, batch);
}

Status editRecord(CNbCwDB& database, DirectoryKind kind, const DirectoryRecord& before,
                  const DirectoryRecord& record) {
    if (isItem(kind)) return editItems(database, std::span(&record, 1));
    Status status = withRowOf(kind, [&](auto row) {
        write(row, record);
        return statusOf(database, database.edit(row));
    });
    if (kind != DirectoryKind::projectClass || before.code == record.code) return status;
    if (status) status = dropItemTable(database, before.code);
    return status ? makeItemTable(database, record.code) : status;
}

Status deleteRecord(CNbCwDB& database, DirectoryKind kind, const DirectoryRecord& record) {
    if (isItem(kind)) return deleteItem(database, record);
    Status status = withRowOf(
        kind, [&]<class Row>(Row) { return statusOf(database, database.remove<Row>(record.id)); });
    if (status && kind == DirectoryKind::projectClass)
        status = dropItemTable(database, record.code);
    return status;
}

}  // namespace chengheng
