#include "data/transfer/content_copy.h"

#include <deque>

#include "data/layout/layout.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {
namespace {

constexpr std::size_t rowsAtOnce = 500;

/// Rows on their way into a table, sent many at a time.
class RowWriter {
  public:
    RowWriter(Engine& target, const TableInfo& table, const CopyProgress& progress,
              std::size_t& rows)
        : m_target(target), m_table(table), m_progress(progress), m_rows(rows) {
        m_values.reserve(rowsAtOnce * table.columns.size());
    }

    Status prepare() {
        std::string places;
        for (std::size_t number = 1; number <= m_table.columns.size(); ++number)
            places += (number == 1 ? "$" : ", $") + std::to_string(number);
        return m_target.prepare("INSERT INTO " + m_table.name + " (" + columnNames(m_table) +
                                    ") VALUES (" + places + ")",
                                static_cast<int>(m_table.columns.size()), m_insert);
    }

    Status add(const Cursor& row) {
        int at = 0;
        for (const ColumnInfo& column : m_table.columns)
            m_values.push_back(valueOf(row, at++, column.type));
        const std::size_t rows = m_values.size() / m_table.columns.size();
        return rows < rowsAtOnce ? Status::done() : send();
    }

    Status send() {
        const std::size_t width = m_table.columns.size();
        std::vector<Command> commands;
        for (std::size_t start = 0; start < m_values.size(); start += width)
            commands.push_back({m_insert.get(), std::span(m_values).subspan(start, width)});
        if (commands.empty()) return Status::done();
        const Status status = m_target.execute(commands);
        m_rows += commands.size();
        m_values.clear();
        m_texts.clear();
        if (!status || !m_progress || m_progress(m_rows)) return status;
        return Status::of(Failure::cancelled);
    }

  private:
    Value valueOf(const Cursor& row, int at, ColumnType type) {
        if (row.kind(at) == ValueKind::null) return Value::ofNull();
        switch (type) {
            case ColumnType::real:
            case ColumnType::single:
                return Value::of(row.real(at));
            case ColumnType::text:
            case ColumnType::date:
                return Value::of(std::string_view(m_texts.emplace_back(row.text(at))));
            default:
                return Value::of(row.integer(at));
        }
    }

    Engine& m_target;
    const TableInfo& m_table;
    const CopyProgress& m_progress;
    std::size_t& m_rows;  ///< of all tables
    std::unique_ptr<PreparedStatement> m_insert;
    std::vector<Value> m_values;
    std::deque<std::string> m_texts;
};

Status copyTable(Engine& source, Engine& target, const TableInfo& table,
                 const CopyProgress& progress, std::size_t& rows) {
    RowWriter writer(target, table, progress, rows);
    Status status = writer.prepare();
    if (status)
        status = forEachRow(source, "SELECT " + columnNames(table) + " FROM " + table.name, {},
                            [&writer](const Cursor& row) { return writer.add(row); });
    return status ? writer.send() : status;
}

/// Whether the table is one of those that every set of books has.
bool isFixedTable(const TableInfo& table) { return findTable(table.name) != nullptr; }

std::string emptySql(const TableInfo& table, const EngineDialect& dialect) {
    if (!isFixedTable(table)) return "DROP TABLE " + table.name;
    const bool isGuarded = table.isAddedToOnly && dialect.guardOff != nullptr;
    const std::string empty = "DELETE FROM " + table.name;
    if (!isGuarded) return empty;
    return dialect.guardOff(table.name) + empty + ";\n" + dialect.guardOn(table.name);
}

Status emptyTarget(Engine& target) {
    std::vector<TableInfo> tables;
    Status status = storedTables(target, tables);
    for (const TableInfo& table : tables) {
        if (!status) break;
        status = target.script(emptySql(table, target.dialect()));
    }
    return status;
}

Status takeContent(Engine& source, Engine& target, const CopyScope& scope) {
    Status status = emptyTarget(target);
    int layout = 0;
    std::vector<TableInfo> tables;
    if (status) status = readLayoutNumber(source, layout);
    if (status) status = storedTables(source, layout, tables, scope.choice);
    std::size_t rows = 0;
    for (const TableInfo& table : tables) {
        if (status && !isFixedTable(table))
            status = target.script(createTableSql(table, target.dialect()));
        if (status) status = copyTable(source, target, table, scope.progress, rows);
    }
    return status;
}

}  // namespace

Status replaceContent(Engine& source, Engine& target, const CopyScope& scope) {
    const EngineDialect& dialect = target.dialect();
    // Rows that this program would not write are copied as they are; checking the books names them.
    Status status = dialect.checksOff.empty() ? Status::done() : target.script(dialect.checksOff);
    if (status) status = takeContent(source, target, scope);
    if (dialect.checksOn.empty()) return status;
    const Status minded = target.script(dialect.checksOn);
    return status ? minded : status;
}

}  // namespace chengheng
