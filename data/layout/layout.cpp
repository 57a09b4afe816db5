#include "data/layout/layout.h"

#include <algorithm>
#include <set>
#include <vector>

namespace chengheng {
namespace {

std::string columnLine(const ColumnInfo& column, const EngineDialect& dialect) {
    const char* key = column.name == "lId" ? " PRIMARY KEY" : "";
    return column.name + " " + dialect.columnDeclaration(column.type) + key;
}

/// "AccSum_lCodeId_byPeroid" for the index "lCodeId, byPeroid" of AccSum.
std::string indexName(const std::string& table, const std::string& index) {
    std::string name = table;
    bool isInWord = false;
    for (const char letter : index) {
        const bool isOfWord = letter != ',' && letter != ' ' && letter != '=';
        if (isOfWord && !isInWord) name += '_';
        if (isOfWord) name += letter;
        isInWord = isOfWord;
    }
    return name;
}

std::string createIndexSql(const std::string& table, const std::string& index) {
    const std::size_t columnsEnd = std::min(index.find(" WHERE "), index.size());
    return "CREATE INDEX " + indexName(table, index) + " ON " + table + " (" +
           index.substr(0, columnsEnd) + ")" + index.substr(columnsEnd) + ";\n";
}

std::string columnNames(const TableInfo& table) {
    std::string names;
    for (const ColumnInfo& column : table.columns)
        names += (names.empty() ? "" : ", ") + column.name;
    return names;
}

std::string layoutScript(const EngineDialect& dialect) {
    std::string script;
    std::set<std::string> idRows;
    for (const TableInfo& table : allTables()) {
        script += createTableSql(table, dialect);
        if (!table.idRow.empty()) idRows.insert(table.idRow);
    }
    for (const std::string& row : idRows)
        script += "INSERT INTO ABIdTable (sTable, lLastId) VALUES ('" + row + "', 0);\n";
    script +=
        "INSERT INTO BooksFormat (lVersion) VALUES (" + std::to_string(booksFormatVersion) + ");\n";
    return script;
}

/// The highest version in the row of BooksFormat; 0 when it has none.
Status readVersion(Engine& engine, std::int64_t& version) {
    std::unique_ptr<PreparedStatement> statement;
    Status status = engine.prepare("SELECT max(lVersion) FROM BooksFormat", 0, statement);
    if (!status) return status;
    std::unique_ptr<Cursor> cursor;
    status = engine.open({statement.get(), {}}, cursor);
    if (!status) return status;
    if (cursor->next() == Cursor::Step::failed) return cursor->status();
    version = cursor->integer(0);
    return Status::done();
}

/// Whether the table is there with every column this program works with.
Status checkTable(Engine& engine, const TableInfo& table, bool& isFit) {
    std::unique_ptr<PreparedStatement> statement;
    const Status status =
        engine.prepare("SELECT " + columnNames(table) + " FROM " + table.name, 0, statement);
    isFit = status.isDone();
    return status.failure == Failure::refused ? Status::done() : status;
}

Status checkTables(Engine& engine) {
    std::string unfit;
    for (const TableInfo& table : allTables()) {
        bool isFit = false;
        if (Status status = checkTable(engine, table, isFit); !status) return status;
        if (!isFit) unfit += (unfit.empty() ? "" : " ") + table.name;
    }
    return unfit.empty() ? Status::done() : Status::of(Failure::damaged, unfit);
}

}  // namespace

std::string createTableSql(const TableInfo& table, const EngineDialect& dialect) {
    std::string columns;
    for (const ColumnInfo& column : table.columns)
        columns += (columns.empty() ? "" : ", ") + columnLine(column, dialect);
    std::string sql = "CREATE TABLE " + table.name + " (" + columns + ");\n";
    for (const std::string& index : table.indexes) sql += createIndexSql(table.name, index);
    return sql;
}

std::vector<std::string> indexNames(const TableInfo& table) {
    std::vector<std::string> names;
    for (const std::string& index : table.indexes) names.push_back(indexName(table.name, index));
    return names;
}

Status createTables(Engine& engine) { return engine.script(layoutScript(engine.dialect())); }

Status createLayout(Engine& engine) {
    Status status = engine.begin();
    if (!status) return status;
    status = createTables(engine);
    if (status) return engine.commit();
    if (Status undone = engine.rollback(); !undone) status.detail += "; " + undone.detail;
    return status;
}

Status checkLayout(Engine& engine) {
    bool isFound = false;
    Status status = engine.hasTable("BooksFormat", isFound);
    if (!status) return status;
    if (!isFound) return Status::of(Failure::foreign, "BooksFormat");
    std::int64_t version = 0;
    status = readVersion(engine, version);
    if (!status) return status;
    if (version > booksFormatVersion)
        return Status::of(Failure::newerVersion, std::to_string(version));
    if (version < 1) return Status::of(Failure::damaged, "BooksFormat");
    return checkTables(engine);
}

}  // namespace chengheng
