#include "tests/data/role_books.h"

#include <libpq-fe.h>

#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "base/values/percent_coding.h"
#include "data/engines/postgres/postgres_address.h"
#include "data/sql/sql_format.h"
#include "session/rights/passwords.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/made_books.h"
#include "tests/support/operator_books.h"
#include "tests/support/private_postgres.h"

namespace chengheng {
namespace {

PostgresAddress partsOf(const std::string& location) {
    PostgresAddress parts;
    if (!readPostgresAddress(location, parts)) throw std::invalid_argument(location);
    return parts;
}

}  // namespace

ForeignProgram::ForeignProgram(const std::string& address, const std::string& schema)
    : m_connection(PQconnectdb(partsOf(address).serverAddress.c_str()), PQfinish) {
    const std::string path = "SET search_path TO " + quotedIdentifier(schema);
    if (PQstatus(m_connection.get()) != CONNECTION_OK || !tell(path).state.empty())
        throw std::runtime_error(PQerrorMessage(m_connection.get()));
    PQclear(PQexec(m_connection.get(), path.c_str()));
}

ForeignProgram::Told ForeignProgram::tell(const std::string& sql) {
    using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;
    const auto run = [this](const std::string& text) {
        return Result(PQexec(m_connection.get(), text.c_str()), PQclear);
    };
    run("BEGIN");
    const Result result = run(sql);
    run("ROLLBACK");
    switch (PQresultStatus(result.get())) {
        case PGRES_TUPLES_OK:
            return {"", PQntuples(result.get()) == 0 ? "" : PQgetvalue(result.get(), 0, 0)};
        case PGRES_COMMAND_OK:
            return {"", PQcmdTuples(result.get())};
        default:
            return {PQresultErrorField(result.get(), PG_DIAG_SQLSTATE), ""};
    }
}

std::string ForeignProgram::rowsOf(const std::string& sql) {
    const Told told = tell(sql);
    return told.state.empty() ? told.rows : "refused " + told.state;
}

RoleBooks::RoleBooks() : m_location(makeBooks(freshSchema())) {
    m_schema = partsOf(m_location).schema;
}

RoleBooks::~RoleBooks() {
    try {
        const ToolRun ended = run({"--drop"});
        if (ended.code != toolDone) std::fprintf(stderr, "%s", ended.err.c_str());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "roles of tests stay behind: %s\n", error.what());
    }
}

int RoleBooks::add(const std::string& name, const OperatorRights& rights,
                   const std::string& password) {
    OperatorBooks books(m_location, false);
    books.insert(name);
    const int id = books.database.Users_GetLastId();
    books.run(
        formatSql("UPDATE Users SET sPassword = '%s' WHERE lUserId = %d\r\n"
                  "UPDATE UserAuth SET sAuthId = '%s' WHERE lUserId = %d",
                  hashPassword(password, PasswordCost::least), id, rights.text(), id));
    if (!password.empty()) m_passwords.append(name).append("\t").append(password).append("\n");
    return id;
}

int RoleBooks::add(const std::string& name, std::initializer_list<int> functions,
                   const std::string& password) {
    return add(name, OperatorRights(rightsText(functions)), password);
}

void RoleBooks::setRights(int userId, std::initializer_list<int> functions) {
    OperatorBooks(m_location, false)
        .run(formatSql("UPDATE UserAuth SET sAuthId = '%s' WHERE lUserId = %d",
                       rightsText(functions), userId));
}

std::string RoleBooks::passwordFile(const std::string& lines) {
    std::string path = freshFolder() + "/passwords";
    std::ofstream(path, std::ios::binary) << lines;
    return path;
}

ToolRun RoleBooks::run(std::vector<std::string> options) const {
    options.insert(options.begin(), {"server-roles", m_location});
    return runInProcess(options);
}

void RoleBooks::bringIntoLine() {
    const ToolRun done = run({"--passwords", passwordFile(m_passwords)});
    if (done.code != toolDone) throw std::runtime_error(done.err);
}

std::vector<std::string> RoleBooks::roles() const {
    const auto engine = openForTest(m_location, OpenMode::existing);
    std::vector<std::string> names;
    for (const auto& row : readSql(*engine,
                                   "SELECT CAST(rolname AS text) FROM pg_roles WHERE "
                                   "shobj_description(oid, 'pg_authid') LIKE '%of schema \"" +
                                       m_schema + "\" in%' ORDER BY 1"))
        names.push_back(row.front());
    return names;
}

std::string RoleBooks::addressFor(const std::string& name, const std::string& password) const {
    const std::size_t start = m_location.find("://") + 3;
    return m_location.substr(0, start) + percentEncoded(roleOf(name)) + ":" +
           percentEncoded(password) + m_location.substr(m_location.find('@', start));
}

ForeignProgram RoleBooks::programOf(const std::string& name) const {
    return {addressFor(name), m_schema};
}

std::string RoleBooks::stateOf(const std::string& name, const std::string& sql) const {
    return programOf(name).stateOf(sql);
}

std::string RoleBooks::rowsOf(const std::string& name, const std::string& sql) const {
    return programOf(name).rowsOf(sql);
}

std::string RoleBooks::ask(const std::string& sql) const {
    return askServer(m_location, "SET search_path TO " + quotedIdentifier(m_schema) + "; " + sql);
}

}  // namespace chengheng
