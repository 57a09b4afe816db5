#include "data/transfer/stored_tables.h"

#include "data/layout/layout.h"
#include "data/layout/layout_steps.h"

namespace chengheng {
namespace {

// Says who is at work just now; it belongs to no copy.
constexpr std::string_view sessionTable = "LoginInfoTbl";

constexpr std::string_view classCodesSql = "SELECT sClsCode FROM ProjClass ORDER BY sClsCode, lId";

Status projectItemTables(Engine& engine, std::vector<TableInfo>& tables) {
    std::vector<TableInfo> named;
    Status status = forEachRow(engine, classCodesSql, {}, [&named](const Cursor& row) {
        TableInfo table = projectItemTable(row.text(0));
        if (!table.name.empty()) named.push_back(std::move(table));
        return Status::done();
    });
    for (TableInfo& table : named) {
        bool isThere = false;
        if (status) status = engine.hasTable(table.name, isThere);
        if (status && isThere) tables.push_back(std::move(table));
    }
    return status;
}

}  // namespace

Status forEachRow(Engine& engine, std::string_view sql, std::span<const Value> values,
                  const std::function<Status(const Cursor&)>& receive) {
    std::unique_ptr<PreparedStatement> statement;
    Status status = engine.prepare(sql, static_cast<int>(values.size()), statement);
    std::unique_ptr<Cursor> cursor;
    if (status) status = engine.open({statement.get(), values}, cursor);
    while (status) {
        const Cursor::Step step = cursor->next();
        if (step == Cursor::Step::end) break;
        status = step == Cursor::Step::failed ? cursor->status() : receive(*cursor);
    }
    return status;
}

std::string allTableNames() {
    std::string names;
    for (const TableInfo& table : allTables()) names += (names.empty() ? "" : " ") + table.name;
    return names;
}

std::string columnNames(const TableInfo& table) {
    std::string names;
    for (const ColumnInfo& column : table.columns)
        names += (names.empty() ? "" : ", ") + column.name;
    return names;
}

Status storedTables(Engine& engine, std::vector<TableInfo>& tables) {
    int number = 0;
    const Status status = readLayoutNumber(engine, number);
    return status ? storedTables(engine, number, tables) : status;
}

Status storedTables(Engine& engine, int layout, std::vector<TableInfo>& tables,
                    const TableChoice& choice) {
    tables.clear();
    for (TableInfo& table : tablesOfLayout(layout))
        if (table.name != sessionTable) tables.push_back(std::move(table));
    const Status status = projectItemTables(engine, tables);
    if (choice)
        std::erase_if(tables, [&choice](const TableInfo& table) { return !choice(table.name); });
    return status;
}

}  // namespace chengheng
