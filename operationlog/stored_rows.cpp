#include "operationlog/stored_rows.h"

#include <algorithm>

#include "data/transfer/stored_tables.h"
#include "operationlog/log_sql.h"

namespace chengheng {
namespace {

// Ids that lie further apart are asked for one by one.
constexpr std::int64_t idsForARow = 8;
constexpr std::size_t idsAtOnce = 500;

}  // namespace

LoggedCell cellOf(const Value& value) {
    switch (value.kind) {
        case ValueKind::integer:
            return value.integer;
        case ValueKind::real:
            return value.real;
        case ValueKind::text:
            return std::string(value.text);
        case ValueKind::null:
            break;
    }
    return {};
}

Status forEachStoredRow(Engine& engine, const TableInfo& table, std::vector<std::int64_t> ids,
                        const std::function<Status(const Cursor&)>& receive) {
    std::ranges::sort(ids);
    ids.erase(std::ranges::unique(ids).begin(), ids.end());
    if (ids.empty()) return Status::done();
    if (ids.back() - ids.front() < static_cast<std::int64_t>(ids.size()) * idsForARow) {
        const Value ends[] = {Value::of(ids.front()), Value::of(ids.back())};
        return forEachRow(engine, log_sql::rowsBetween(table), ends, receive);
    }
    Status status = Status::done();
    for (std::size_t at = 0; status && at < ids.size(); at += idsAtOnce) {
        const auto from = ids.begin() + static_cast<std::ptrdiff_t>(at);
        const auto count = static_cast<std::ptrdiff_t>(std::min(idsAtOnce, ids.size() - at));
        const std::vector<std::int64_t> some(from, from + count);
        status = forEachRow(engine, log_sql::rowsOf(table, some), {}, receive);
    }
    return status;
}

}  // namespace chengheng
