#include "operationlog/verifying/row_check.h"

#include <algorithm>
#include <map>
#include <optional>

#include "operationlog/log_rows.h"
#include "operationlog/stored_rows.h"
#include "operationlog/verifying/log_walk.h"
#include "operationlog/verifying/seen_cells.h"

namespace chengheng {
namespace {

constexpr std::size_t faultsKept = 1000;

constexpr std::string_view itemTables = "ProjItems";

std::optional<double> numberIn(const LoggedCell& cell) {
    if (const auto* const whole = std::get_if<std::int64_t>(&cell))
        return static_cast<double>(*whole);
    if (const auto* const real = std::get_if<double>(&cell)) return *real;
    return std::nullopt;
}

/// Engines keep the same number in their own ways; what is single-precision is alike as such.
bool areAlike(const LoggedCell& one, const LoggedCell& other, ColumnType type) {
    const auto number = numberIn(one);
    const auto otherNumber = numberIn(other);
    if (!number || !otherNumber) return one == other;
    if (type == ColumnType::single)
        return static_cast<float>(*number) == static_cast<float>(*otherNumber);
    return *number == *otherNumber;
}

bool isSecret(const std::string& table, const std::string& column) {
    return table == "Users" && column == "sPassword";
}

using StoredRow = std::vector<LoggedCell>;
using StoredRows = std::map<std::int64_t, StoredRow>;

struct ComparedTable {
    TableInfo table;
    bool isThere = false;
    SeenCells seen;
};

/// Is handed the log newest first, so that the first that is said of a cell is what it must hold.
class RowCheck final : public LogReceiver {
  public:
    RowCheck(Engine& engine, RowFindings& findings) : m_engine(engine), m_findings(findings) {}

    Status begin(const LogEntry&) override { return Status::done(); }
    Status end(const LogEntry&) override { return Status::done(); }
    Status take(const LogEntry& entry, const LogPart& part) override {
        ComparedTable* compared = nullptr;
        Status status = findCompared(part.table, compared);
        if (!status || compared->table.name.empty()) return status;
        std::vector<LoggedRow> rows;
        if (!unpackRows(part.packed, rows)) {
            add({.kind = RowFault::Kind::untold, .table = part.table, .entry = entry.number});
            return Status::done();
        }
        StoredRows stored;
        status = readStored(*compared, rows, stored);
        std::ranges::reverse(rows);
        for (const LoggedRow& row : rows)
            if (status) compare(*compared, stored, row, entry.number);
        return status;
    }

  private:
    void add(RowFault fault) {
        ++m_findings.count;
        if (m_findings.faults.size() < faultsKept) m_findings.faults.push_back(std::move(fault));
    }

    Status findCompared(const std::string& name, ComparedTable*& compared) {
        const auto [found, isNew] = m_tables.try_emplace(name);
        compared = &found->second;
        if (!isNew) return Status::done();
        const TableInfo* const known = findTable(name);
        if (known != nullptr)
            compared->table = *known;
        else if (name.starts_with(itemTables))
            compared->table = projectItemTable(name.substr(itemTables.size()));
        if (compared->table.name.empty()) return Status::done();
        const Status status = m_engine.hasTable(name, compared->isThere);
        // The items of a project class go with it.
        if (known == nullptr && !compared->isThere) compared->table = {};
        return status;
    }

    static std::optional<std::size_t> placeOf(const TableInfo& table, const std::string& column) {
        const auto found = std::ranges::find(table.columns, column, &ColumnInfo::name);
        const auto place = static_cast<std::size_t>(found - table.columns.begin());
        if (found == table.columns.end() || place >= SeenCells::mostColumns) return std::nullopt;
        return place;
    }

    static bool isOpen(const ComparedTable& compared, const LoggedRow& row) {
        if (compared.seen.isRowSeen(row.id)) return false;
        if (row.kind != ChangeKind::changed) return true;
        return std::ranges::any_of(row.columns, [&](const LoggedColumn& column) {
            const auto place = placeOf(compared.table, column.name);
            return place && !compared.seen.isSeen(row.id, *place);
        });
    }

    /// The rows of the books that something new is said of.
    Status readStored(const ComparedTable& compared, const std::vector<LoggedRow>& rows,
                      StoredRows& stored) {
        std::vector<std::int64_t> ids;
        for (const LoggedRow& row : rows)
            if (isOpen(compared, row)) ids.push_back(row.id);
        if (!compared.isThere) return Status::done();
        return forEachStoredRow(m_engine, compared.table, std::move(ids), [&](const Cursor& row) {
            StoredRow& cells = stored[row.integer(0)];
            for (int column = 0; column < row.columns(); ++column)
                cells.push_back(cellOf(row.value(column)));
            return Status::done();
        });
    }

    void compare(ComparedTable& compared, const StoredRows& stored, const LoggedRow& row,
                 std::int64_t entry) {
        SeenCells& seen = compared.seen;
        if (!isOpen(compared, row)) return;
        if (!seen.isAnythingSeen(row.id)) ++m_findings.rows;
        const auto found = stored.find(row.id);
        const bool isDeleted = row.kind == ChangeKind::deleted;
        RowFault fault{.table = compared.table.name, .id = row.id, .entry = entry};
        if (isDeleted != (found == stored.end())) {
            // A row that is there was not taken out by what came before it was put in.
            fault.kind = isDeleted ? RowFault::Kind::cameBack : RowFault::Kind::gone;
            add(std::move(fault));
        } else if (!isDeleted) {
            compareCells(compared, found->second, row, std::move(fault));
        }
        if (row.kind != ChangeKind::changed || found == stored.end()) seen.seeRow(row.id);
    }

    void compareCells(ComparedTable& compared, const StoredRow& stored, const LoggedRow& row,
                      RowFault fault) {
        for (const LoggedColumn& column : row.columns) {
            const auto place = placeOf(compared.table, column.name);
            if (!place || compared.seen.isSeen(row.id, *place)) continue;
            compared.seen.see(row.id, *place);
            if (isSecret(compared.table.name, column.name)) continue;
            const ColumnInfo& info = compared.table.columns[*place];
            if (areAlike(column.after, stored[*place], info.type)) continue;
            fault.column = column.name;
            fault.told = column.after;
            fault.found = stored[*place];
            add(fault);
        }
    }

    Engine& m_engine;
    RowFindings& m_findings;
    std::map<std::string, ComparedTable> m_tables;
};

}  // namespace

Status checkRows(Engine& engine, RowFindings& findings) {
    findings = {};
    RowCheck check(engine, findings);
    return walkLog(engine, LogOrder::newestFirst, check);
}

}  // namespace chengheng
