#include "tests/support/private_postgres.h"

#include <libpq-fe.h>
#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

namespace chengheng {
namespace {

using Connection = std::unique_ptr<PGconn, decltype(&PQfinish)>;
using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

std::string testServer() {
    const char* address = getenv("CHENGHENG_TEST_POSTGRES");
    return address == nullptr ? "" : address;
}

std::string withoutSchema(const std::string& address) {
    return address.substr(0, address.find("?schema="));
}

void ignoreNotice(void*, const PGresult*) {}

Connection connectTo(const std::string& address) {
    Connection connection(PQconnectdb(withoutSchema(address).c_str()), PQfinish);
    if (PQstatus(connection.get()) != CONNECTION_OK)
        throw std::runtime_error(PQerrorMessage(connection.get()));
    PQsetNoticeReceiver(connection.get(), ignoreNotice, nullptr);
    return connection;
}

std::string firstCell(const Connection& connection, const std::string& sql) {
    const Result result(PQexec(connection.get(), sql.c_str()), PQclear);
    const ExecStatusType status = PQresultStatus(result.get());
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK)
        throw std::runtime_error(PQerrorMessage(connection.get()));
    return PQntuples(result.get()) == 0 ? "" : PQgetvalue(result.get(), 0, 0);
}

/// The schemas of this test program. A forked child leaves by _exit and so leaves them to
/// its parent. The connection is made at the start: at the end, what it is made with is gone.
class TestSchemas {
  public:
    ~TestSchemas() {
        try {
            for (const std::string& schema : m_schemas)
                firstCell(m_connection, "DROP SCHEMA IF EXISTS " + schema + " CASCADE");
        } catch (const std::exception& error) {
            std::fprintf(stderr, "schemas of tests stay behind: %s\n", error.what());
        }
    }

    std::string next() {
        m_schemas.push_back("test_" + std::to_string(getpid()) + "_" +
                            std::to_string(m_schemas.size() + 1));
        return m_schemas.back();
    }

  private:
    Connection m_connection = connectTo(testServer());
    std::vector<std::string> m_schemas;
};

/// Runs the script that keeps private servers and returns the last line it prints.
std::string runScript(const std::string& action, const std::string& folder) {
    const std::string command =
        CHENGHENG_SOURCE_FOLDER "/tools/private_postgres " + action + " '" + folder + "'";
    FILE* output = popen(command.c_str(), "r");
    if (output == nullptr) throw std::runtime_error(command + " does not start");
    std::string text;
    std::array<char, 512> line{};
    while (std::fgets(line.data(), static_cast<int>(line.size()), output) != nullptr)
        text = line.data();
    if (pclose(output) != 0) throw std::runtime_error(command + " failed");
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

}  // namespace

bool hasTestServer() { return !testServer().empty(); }

std::string freshSchema() {
    if (!hasTestServer()) throw std::runtime_error("no PostgreSQL server for tests");
    static TestSchemas schemas;
    return testServer() + "?schema=" + schemas.next();
}

std::string replaced(std::string address, const std::string& part, const std::string& by) {
    const std::size_t at = address.find(part);
    if (at == std::string::npos) throw std::invalid_argument(part + " is not in the address");
    return address.replace(at, part.size(), by);
}

std::string askServer(const std::string& address, const std::string& sql) {
    return firstCell(connectTo(address), sql);
}

void endSession(const std::string& address, const std::string& session) {
    askServer(address, "SELECT pg_terminate_backend(" + session + ")");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    // Its process is a process here. The server forgets it a moment before its connection closes.
    while (kill(std::stoi(session), 0) == 0 || errno != ESRCH) {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("a session does not end");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

PrivatePostgres::PrivatePostgres() {
    // Not below the folder of the tests: an account of the server's own must get there.
    std::string pattern = "/tmp/chengheng_server.XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for a server");
    m_folder = pattern;
    m_address = runScript("start", m_folder);
}

PrivatePostgres::~PrivatePostgres() {
    try {
        runScript("remove", m_folder);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "a server of tests stays behind: %s\n", error.what());
    }
}

void PrivatePostgres::stop() { runScript("stop", m_folder); }

void PrivatePostgres::startAgain() { m_address = runScript("start", m_folder); }

}  // namespace chengheng
