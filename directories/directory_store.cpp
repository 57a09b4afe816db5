#include "directories/directory_store.h"

#include "data/access/row_lease.h"
#include "data/connection/database.h"
#include "data/layout/layout.h"
#include "directories/directory_rows.h"
#include "directories/directory_sql.h"
#include "directories/project_items.h"

namespace chengheng {
namespace {

using Records = std::vector<DirectoryRecord>;

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

/// The table of a class's items.
Status makeItemTable(CNbCwDB& database, std::string_view classCode) {
    return database.onSelected([classCode](Database& selected) {
        const TableInfo table = projectItemTable(classCode);
        const EngineDialect& dialect = selected.engine().dialect();
        std::string script = createTableSql(table, dialect);
        // On a server whoever may work with the classes may work with the new table, too.
        if (dialect.shareTable != nullptr) script += dialect.shareTable(table.name, "ProjClass");
        return selected.engine().script(script);
    });
}

Status dropItemTable(CNbCwDB& database, std::string_view classCode) {
    bool isThere = false;
    const Status status = readHasItemTable(database, classCode, isThere);
    if (!status || !isThere) return status;
    return database.onSelected([classCode](Database& selected) {
        return selected.engine().script(directory_sql::dropItemTable(classCode));
    });
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
    if (isItem(kind)) return addItem(database, record);
    Status status = withRowOf(kind, [&](auto row) {
        write(row, record);
        return statusOf(database, database.add(row, record.id));
    });
    if (status && kind == DirectoryKind::projectClass)
        status = makeItemTable(database, record.code);
    return status;
}

Status editRecord(CNbCwDB& database, DirectoryKind kind, const DirectoryRecord& before,
                  const DirectoryRecord& record) {
    if (isItem(kind)) return editItem(database, record);
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
