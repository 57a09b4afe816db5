#include "books/checking/books_summary.h"

#include <utility>

#include "books/checking/summary_sql.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {
namespace {

Status readParameters(Engine& engine, BooksSummary& summary) {
    bool isFirst = true;
    return forEachRow(engine, summary_sql::parameters, {}, [&](const Cursor& row) {
        if (!std::exchange(isFirst, false)) return Status::done();
        summary.name = row.text(0);
        summary.company = row.text(1);
        summary.year = static_cast<std::int32_t>(row.integer(2));
        summary.start = parseDate(row.text(3)).value_or(Date{});
        summary.levelPattern = row.text(4);
        summary.hasForeignCurrency = row.integer(5) != 0;
        return Status::done();
    });
}

Status readNumber(Engine& engine, const std::string& sql, std::int64_t& number) {
    return forEachRow(engine, sql, {}, [&number](const Cursor& row) {
        number = row.integer(0);
        return Status::done();
    });
}

Status readAll(Engine& engine, BooksSummary& summary) {
    Status status = readParameters(engine, summary);
    if (status) status = readNumber(engine, summary_sql::formatVersion, summary.formatVersion);
    // The first layout has no place for it.
    if (status && summary.formatVersion > 1)
        status = forEachRow(engine, summary_sql::uses, {}, [&](const Cursor& row) {
            summary.uses.emplace_back(row.text(0), row.real(1));
            return Status::done();
        });
    std::vector<TableInfo> tables;
    if (status) status = storedTables(engine, tables);
    for (const TableInfo& table : tables) {
        std::int64_t rows = 0;
        if (status) status = readNumber(engine, summary_sql::rowCount(table.name), rows);
        summary.tables.emplace_back(table.name, rows);
    }
    return status;
}

}  // namespace

Status readBooksSummary(Engine& engine, BooksSummary& summary) {
    summary = {};
    Status status = engine.facts(summary.engine);
    if (status) status = engine.beginReading();
    if (!status) return status;
    status = readAll(engine, summary);
    const Status ended = engine.rollback();
    return status ? ended : status;
}

}  // namespace chengheng
