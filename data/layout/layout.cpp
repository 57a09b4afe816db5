#include "data/layout/layout.h"

#include <algorithm>
#include <limits>
#include <set>
#include <vector>

#include "data/layout/layout_steps.h"

namespace chengheng {
namespace {

/// "CONSTRAINT AccSum_byPeroid CHECK (byPeroid BETWEEN 0 AND 255)", or nothing.
std::string checkOf(const std::string& table, const ColumnInfo& column,
                    const EngineDialect& dialect) {
    const std::string condition = dialect.columnCheck ? dialect.columnCheck(column) : "";
    if (condition.empty()) return {};
    return "CONSTRAINT " + table + "_" + column.name + " CHECK (" + condition + ")";
}

std::string columnLine(const std::string& table, const ColumnInfo& column,
                       const EngineDialect& dialect, ColumnChecks checks) {
    std::string line = column.name + " " + dialect.columnDeclaration(column.type);
    if (column.name == "lId") line += " PRIMARY KEY";
    if (checks == ColumnChecks::none) return line;
    const std::string check = checkOf(table, column, dialect);
    return check.empty() ? line : line + " " + check;
}

/// "AccSum_lCodeId_byPeroid" for the index "lCodeId, byPeroid" of AccSum; as much of a longer name
/// as every engine keeps.
std::string indexName(const std::string& table, const std::string& index) {
    constexpr std::size_t longest = 63;
    constexpr std::string_view separators = ", =.";
    std::string name = table;
    bool isInWord = false;
    for (const char letter : index) {
        const bool isOfWord = separators.find(letter) == std::string_view::npos;
        if (isOfWord && !isInWord) name += '_';
        if (isOfWord) name += letter;
        isInWord = isOfWord;
    }
    return name.substr(0, longest);
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

/// Makes a table of an older layout anew as it is now, with the rows that it has.
std::string remakeTableSql(const TableInfo& older, const TableInfo& table,
                           const EngineDialect& dialect) {
    const std::string kept = table.name + "_kept";
    const std::string columns = columnNames(older);
    return "CREATE TABLE " + kept + " AS SELECT " + columns + " FROM " + table.name +
           ";\nDROP TABLE " + table.name + ";\n" + createTableSql(table, dialect) + "INSERT INTO " +
           table.name + " (" + columns + ") SELECT " + columns + " FROM " + kept +
           ";\nDROP TABLE " + kept + ";\n";
}

/// The indexes that a table of an older layout lacks.
std::string addIndexesSql(const TableInfo& older, const TableInfo& table) {
    std::string script;
    for (const std::string& index : table.indexes)
        if (std::ranges::find(older.indexes, index) == older.indexes.end())
            script += createIndexSql(table.name, index);
    return script;
}

/// Gives a table of an older layout the checks, columns and indexes that it lacks; its rows stay,
/// whatever they hold. Where an engine cannot do that to a table that is there, it is made anew.
std::string alterTableSql(const TableInfo& older, int from, const EngineDialect& dialect) {
    const TableInfo& table = *findTable(older.name);
    const bool lacksChecks = from < firstCheckedLayout;
    if (!dialect.altersTables) {
        const bool isOlder = lacksChecks || older.columns.size() < table.columns.size();
        return isOlder ? remakeTableSql(older, table, dialect) : addIndexesSql(older, table);
    }
    std::string script;
    for (const ColumnInfo& column : older.columns)
        if (const std::string check = checkOf(table.name, column, dialect);
            lacksChecks && !check.empty())
            script += "ALTER TABLE " + table.name + " ADD " + check + " NOT VALID;\n";
    for (std::size_t place = older.columns.size(); place < table.columns.size(); ++place)
        script += "ALTER TABLE " + table.name + " ADD COLUMN " +
                  columnLine(table.name, table.columns[place], dialect, ColumnChecks::all) + ";\n";
    return script + addIndexesSql(older, table);
}

std::string addCounterSql(const std::string& row) {
    return "INSERT INTO ABIdTable (sTable, lLastId) VALUES ('" + row + "', 0);\n";
}

enum class NewTables { missing, present };

std::string raisingScript(const EngineDialect& dialect, int from, NewTables newTables) {
    std::string script;
    for (const LayoutStep& step : layoutSteps()) {
        if (step.from < from) continue;
        for (const TableInfo& table : step.newTables) {
            // With the columns that later steps give it.
            if (newTables == NewTables::missing)
                script += createTableSql(*findTable(table.name), dialect);
            if (newTables == NewTables::missing && dialect.shareTable != nullptr)
                script += dialect.shareTable(table.name, "LoginInfoTbl");
            if (!table.idRow.empty()) script += addCounterSql(table.idRow);
        }
    }
    if (newTables == NewTables::missing) {
        script += dialect.checksOff;
        for (const TableInfo& table : tablesOfLayout(from))
            script += alterTableSql(table, from, dialect);
        script += dialect.checksOn;
    }
    return script + "UPDATE BooksFormat SET lVersion = " + std::to_string(booksFormatVersion);
}

/// Whether the table is there with every column this program works with.
Status checkTable(Engine& engine, const TableInfo& table, bool& isFit) {
    std::unique_ptr<PreparedStatement> statement;
    const Status status =
        engine.prepare("SELECT " + columnNames(table) + " FROM " + table.name, 0, statement);
    isFit = status.isDone();
    return status.failure == Failure::refused ? Status::done() : status;
}

Status checkTables(Engine& engine, int number) {
    std::string unfit;
    for (const TableInfo& table : tablesOfLayout(number)) {
        bool isFit = false;
        if (Status status = checkTable(engine, table, isFit); !status) return status;
        if (!isFit) unfit += (unfit.empty() ? "" : " ") + table.name;
    }
    return unfit.empty() ? Status::done() : Status::of(Failure::damaged, unfit);
}

}  // namespace

std::string createTableSql(const TableInfo& table, const EngineDialect& dialect,
                           ColumnChecks checks) {
    std::string columns;
    for (const ColumnInfo& column : table.columns)
        columns += (columns.empty() ? "" : ", ") + columnLine(table.name, column, dialect, checks);
    std::string sql = "CREATE TABLE " + table.name + " (" + columns + ");\n";
    for (const std::string& index : table.indexes) sql += createIndexSql(table.name, index);
    if (table.isAddedToOnly && dialect.guard != nullptr) sql += dialect.guard(table.name);
    return sql;
}

std::vector<std::string> indexNames(const TableInfo& table) {
    std::vector<std::string> names;
    for (const std::string& index : table.indexes) names.push_back(indexName(table.name, index));
    return names;
}

std::string layoutScript(const EngineDialect& dialect, int number) {
    const ColumnChecks checks =
        number < firstCheckedLayout ? ColumnChecks::none : ColumnChecks::all;
    std::string script;
    std::set<std::string> idRows;
    for (const TableInfo& table : tablesOfLayout(number)) {
        script += createTableSql(table, dialect, checks);
        if (!table.idRow.empty()) idRows.insert(table.idRow);
    }
    for (const std::string& row : idRows) script += addCounterSql(row);
    return script + "INSERT INTO BooksFormat (lVersion) VALUES (" + std::to_string(number) + ");\n";
}

Status createTables(Engine& engine, int number) {
    return engine.script(layoutScript(engine.dialect(), number));
}

Status createLayout(Engine& engine) {
    Status status = engine.begin();
    if (!status) return status;
    status = createTables(engine);
    if (status) return engine.commit();
    if (Status undone = engine.rollback(); !undone) status.detail += "; " + undone.detail;
    return status;
}

Status readLayoutNumber(Engine& engine, int& number) {
    number = 0;
    std::unique_ptr<PreparedStatement> statement;
    Status status = engine.prepare("SELECT max(lVersion) FROM BooksFormat", 0, statement);
    if (!status) return status;
    std::unique_ptr<Cursor> cursor;
    status = engine.open({statement.get(), {}}, cursor);
    if (!status) return status;
    if (cursor->next() == Cursor::Step::failed) return cursor->status();
    constexpr std::int64_t highest = std::numeric_limits<int>::max();
    number = static_cast<int>(std::clamp<std::int64_t>(cursor->integer(0), 0, highest));
    return Status::done();
}

Status checkReadable(Engine& engine, int* number) {
    bool isFound = false;
    Status status = engine.hasTable("BooksFormat", isFound);
    if (!status) return status;
    if (!isFound) return Status::of(Failure::foreign, "BooksFormat");
    int found = 0;
    status = readLayoutNumber(engine, found);
    if (!status) return status;
    if (number != nullptr) *number = found;
    if (found > booksFormatVersion) return Status::of(Failure::newerVersion, std::to_string(found));
    if (found < 1) return Status::of(Failure::damaged, "BooksFormat");
    return checkTables(engine, found);
}

Status checkLayout(Engine& engine) {
    int number = 0;
    Status status = checkReadable(engine, &number);
    if (status && number < booksFormatVersion)
        return Status::of(Failure::olderVersion, std::to_string(number));
    return status;
}

Status raiseLayout(Engine& engine, int from) {
    return engine.script(raisingScript(engine.dialect(), from, NewTables::missing));
}

Status raiseRows(Engine& engine, int from) {
    return engine.script(raisingScript(engine.dialect(), from, NewTables::present));
}

}  // namespace chengheng
