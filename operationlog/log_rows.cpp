#include "operationlog/log_rows.h"

#include "data/log/packing.h"
#include "data/transfer/stored_tables.h"
#include "operationlog/log_sql.h"

namespace chengheng {

Status unpackRows(std::string_view packed, std::vector<LoggedRow>& rows) {
    const auto bytes = unpacked(packed);
    if (bytes && readRowBytes(*bytes, rows)) return Status::done();
    return Status::of(Failure::damaged, "OperationLogPart.sPacked");
}

Status readPart(Engine& engine, std::string_view sql, std::span<const Value> values,
                LogRows& rows) {
    rows = {};
    return forEachRow(engine, sql, values, [&rows](const Cursor& row) {
        rows.part = static_cast<std::int32_t>(row.integer(0));
        rows.table = row.text(1);
        return unpackRows(row.text(3), rows.rows);
    });
}

Status readPartBehind(Engine& engine, std::string_view unit, std::int32_t part, LogRows& rows) {
    const Value values[] = {Value::of(unit), Value::of(std::int64_t{part})};
    return readPart(engine, log_sql::partBehind, values, rows);
}

}  // namespace chengheng
