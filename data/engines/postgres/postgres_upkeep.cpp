#include "data/engines/postgres/postgres_upkeep.h"

#include <charconv>
#include <string_view>

namespace chengheng {
namespace {

std::string tablesOf(const PostgresConnection& connection) {
    return " FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace WHERE n.nspname = " +
           quotedLiteral(connection.address().schema) + " AND c.relkind IN ('r', 'p')";
}

std::string_view cell(const PostgresResult& result, int row, int column) {
    return PQgetvalue(result.get(), row, column);
}

/// A fault of the table; anything else that kept it from being read is the status.
Status readWhole(PostgresTransaction& transaction, std::string_view table,
                 std::vector<std::string>& faults) {
    const std::string text(table);
    Status status = transaction.run("SELECT sum(length(t::text)) FROM " + text + " t");
    if (status.failure != Failure::damaged && status.failure != Failure::refused) return status;
    faults.push_back(text + ": " + status.detail);
    return Status::done();
}

}  // namespace

Status readPostgresFacts(PostgresTransaction& transaction, PostgresConnection& connection,
                         EngineFacts& facts) {
    facts = {"PostgreSQL", {}, 0};
    if (Status status = transaction.mayRun(); !status) return status;
    PostgresResult result;
    const Status status = transaction.run(
        "SELECT current_setting('server_version'), "
        "coalesce(sum(pg_total_relation_size(c.oid)), 0)" +
            tablesOf(connection),
        &result);
    if (!status) return status;
    facts.version = cell(result, 0, 0);
    const std::string_view bytes = cell(result, 0, 1);
    std::from_chars(bytes.data(), bytes.data() + bytes.size(), facts.bytes);
    return status;
}

Status verifyPostgres(PostgresTransaction& transaction, PostgresConnection& connection,
                      std::vector<std::string>& faults) {
    if (Status status = transaction.mayRun(); !status) return status;
    PostgresResult tables;
    Status status =
        transaction.run("SELECT quote_ident(n.nspname) || '.' || quote_ident(c.relname)" +
                            tablesOf(connection) + " ORDER BY 1",
                        &tables);
    for (int row = 0; status && row < PQntuples(tables.get()); ++row) {
        constexpr const char* back = "ROLLBACK TO SAVEPOINT verifying; RELEASE SAVEPOINT verifying";
        if (transaction.isOpen()) status = transaction.run("SAVEPOINT verifying");
        if (status) status = readWhole(transaction, cell(tables, row, 0), faults);
        if (status && transaction.isOpen()) status = transaction.run(back);
    }
    return status;
}

}  // namespace chengheng
