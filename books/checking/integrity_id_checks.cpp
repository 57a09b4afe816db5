#include <array>
#include <map>
#include <string>
#include <vector>

#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_sql.h"
#include "books/checking/integrity_texts.h"
#include "data/tables/schema.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {
namespace {

/// Tables that draw their ids from one sequence, kept in the counters of both.
struct SharedIds {
    const char* tables[2];
    const char* counters[2];
};

constexpr std::array<SharedIds, 2> sharedIds{{
    {{"RegMain", "UnregMain"}, {"RegMain", "UnRegMain"}},
    {{"RegSub", "UnregSub"}, {"RegSub", "UnRegSub"}},
}};

using CountersByRow = std::map<std::string, std::vector<std::int64_t>>;

Status readCounters(Engine& engine, CountersByRow& counters) {
    return forEachRow(engine, integrity_sql::idCounters, {}, [&counters](const Cursor& row) {
        counters[std::string(row.text(0))].push_back(row.integer(1));
        return Status::done();
    });
}

Status readHighestId(Engine& engine, const std::string& table, std::int64_t& highest) {
    return forEachRow(engine, integrity_sql::highestId(table), {}, [&highest](const Cursor& row) {
        highest = row.integer(0);
        return Status::done();
    });
}

/// The tables whose ids a counter covers.
std::vector<std::string> tablesOf(const std::string& counter) {
    for (const SharedIds& shared : sharedIds)
        if (counter == shared.counters[0] || counter == shared.counters[1])
            return {shared.tables[0], shared.tables[1]};
    std::vector<std::string> tables;
    for (const TableInfo& table : allTables())
        if (table.idRow == counter) tables.push_back(table.name);
    return tables;
}

Status checkCounter(Engine& engine, FaultList& faults, const std::string& counter,
                    std::int64_t value) {
    Status status = Status::done();
    for (const std::string& table : tablesOf(counter)) {
        std::int64_t highest = 0;
        if (status) status = readHighestId(engine, table, highest);
        if (status && highest > value)
            faults.add(integrity_texts::counterBehind(counter, value, table, highest));
    }
    return status;
}

}  // namespace

Status checkIdCounters(CheckedBooks& books, FaultList& faults) {
    CountersByRow counters;
    Status status = readCounters(books.engine(), counters);
    for (const TableInfo& table : books.tables()) {
        if (!status) break;
        if (table.idRow.empty()) continue;
        const std::vector<std::int64_t>& values = counters[table.idRow];
        if (values.empty()) faults.add(integrity_texts::counterMissing(table.idRow));
        if (values.size() > 1)
            faults.add(integrity_texts::counterTwice(table.idRow, static_cast<int>(values.size())));
        if (values.size() == 1)
            status = checkCounter(books.engine(), faults, table.idRow, values.front());
    }
    return status;
}

Status checkSharedIds(CheckedBooks& books, FaultList& faults) {
    Status status = Status::done();
    for (const SharedIds& shared : sharedIds) {
        const auto& [one, other] = shared.tables;
        if (!status) break;
        status = forEachRow(books.engine(), integrity_sql::commonIds(one, other), {},
                            [&](const Cursor& row) {
                                faults.add(integrity_texts::idInBoth(one, other, row.integer(0)));
                                return Status::done();
                            });
    }
    return status;
}

}  // namespace chengheng
