#include "bench/raw_server.h"

#include "bench/timing.h"

namespace bench {

std::string withSchema(const std::string& address, const std::string& schema) {
    return address + (address.find('?') == std::string::npos ? "?" : "&") + "schema=" + schema;
}

RawServer::RawServer(const std::string& address, const std::string& schema)
    : m_server(PQconnectdb(address.c_str())) {
    require(PQstatus(m_server) == CONNECTION_OK, "connecting the floor");
    run("SET client_min_messages = error");
    run("DROP SCHEMA IF EXISTS " + schema + " CASCADE");
    run("SET search_path = " + schema);
}

void RawServer::run(const std::string& sql) {
    PGresult* result = PQexec(m_server, sql.c_str());
    require(PQresultStatus(result) == PGRES_COMMAND_OK, PQerrorMessage(m_server));
    PQclear(result);
}

void RawServer::prepare(const char* name, const char* sql) {
    PGresult* result = PQprepare(m_server, name, sql, 0, nullptr);
    require(PQresultStatus(result) == PGRES_COMMAND_OK, PQerrorMessage(m_server));
    PQclear(result);
}

void RawServer::execute(const char* name, std::initializer_list<const char*> values) {
    PGresult* result = PQexecPrepared(m_server, name, static_cast<int>(values.size()),
                                      values.begin(), nullptr, nullptr, 0);
    const ExecStatusType status = PQresultStatus(result);
    require(status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK, PQerrorMessage(m_server));
    PQclear(result);
}

void RawServer::pipeline(const std::function<void()>& sending) {
    require(PQenterPipelineMode(m_server) == 1, "pipeline mode");
    sending();
    require(PQpipelineSync(m_server) == 1, "ending the floor's batch");
    takeResults();
    require(PQexitPipelineMode(m_server) == 1, "leaving pipeline mode");
}

void RawServer::send(const char* name, std::initializer_list<const char*> values) {
    require(PQsendQueryPrepared(m_server, name, static_cast<int>(values.size()), values.begin(),
                                nullptr, nullptr, 0) == 1,
            "sending a statement of the floor");
}

void RawServer::query(const char* sql,
                      const std::function<void(const PGresult* rows, int row)>& take) {
    PGresult* rows = PQexec(m_server, sql);
    require(PQresultStatus(rows) == PGRES_TUPLES_OK, PQerrorMessage(m_server));
    for (int row = 0; row < PQntuples(rows); ++row) take(rows, row);
    PQclear(rows);
}

void RawServer::takeResults() {
    while (true) {
        PGresult* result = PQgetResult(m_server);
        if (result == nullptr) continue;
        const ExecStatusType status = PQresultStatus(result);
        PQclear(result);
        if (status == PGRES_PIPELINE_SYNC) return;
        require(status == PGRES_COMMAND_OK, "a statement of the floor");
    }
}

}  // namespace bench
