// Eight workstations type opening balances of different accounts into the same books on a
// PostgreSQL server at once, with the operation log and without.

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "bench/grouped_books.h"
#include "bench/grouped_server_books.h"
#include "bench/raw_server.h"
#include "bench/silent_messages.h"
#include "bench/timing.h"
#include "opening/screen/opening_work.h"
#include "session/host_globals.h"

namespace {

using bench::require;

constexpr int accounts = 1000;
constexpr int workstations = 8;
constexpr int editsEach = 25;

std::string addressOfServer() {
    const char* address = std::getenv("CHENGHENG_TEST_POSTGRES");
    require(address != nullptr, "finding the address of the private server");
    return address;
}

/// Published by hand, the books keep no log.
class UnloggedSession {
  public:
    explicit UnloggedSession(CNbCwDB& database) {
        g_pDB = &database;
        g_lpszNbZwDBName = "books";
    }
    ~UnloggedSession() {
        g_pDB = nullptr;
        g_lpszNbZwDBName = "";
    }
    UnloggedSession(const UnloggedSession&) = delete;
    UnloggedSession& operator=(const UnloggedSession&) = delete;
};

/// A group of accounts of its own for each workstation.
void typeAt(chengheng::OpeningWork& work, int station, double from) {
    const std::size_t line = static_cast<std::size_t>(station) * bench::accountsInAGroup + 7;
    const std::size_t column =
        chengheng::placeOf(chengheng::OpeningField::opening, chengheng::OpeningLayout::simple);
    for (int edit = 0; edit < editsEach; ++edit)
        require(work.endEdit(line, column, std::to_string(from + edit)) == chengheng::Outcome::done,
                "an edit");
}

/// Books in a schema of their own, and eight processes that have them open and wait.
class Office {
  public:
    Office(std::string schema, bool keepsLog)
        : m_schema(std::move(schema)), m_keepsLog(keepsLog), m_raw(addressOfServer(), m_schema) {
        CNbCwDB database;
        open(database, 0);
        bench::fillGroupedBooks(m_raw, accounts);
    }
    ~Office() { m_raw.run("DROP SCHEMA " + m_schema + " CASCADE"); }
    Office(const Office&) = delete;
    Office& operator=(const Office&) = delete;

    void sitDown() {
        if (!m_stations.empty()) return;
        m_from += editsEach + 1;
        for (int station = 0; station < workstations; ++station) {
            const pid_t child = fork();
            require(child >= 0, "starting a workstation");
            if (child == 0) {
                work(station);
                _exit(0);
            }
            m_stations.push_back(child);
        }
        for (const pid_t station : m_stations) {
            int status = 0;
            require(waitpid(station, &status, WUNTRACED) == station && WIFSTOPPED(status),
                    "a workstation that is ready");
        }
    }
    void type() {
        for (const pid_t station : m_stations) kill(station, SIGCONT);
        for (const pid_t station : m_stations) {
            int status = 1;
            require(waitpid(station, &status, 0) == station && status == 0, "a workstation");
        }
        m_stations.clear();
    }

  private:
    void open(CNbCwDB& database, int flag) const {
        NbCwDBInfo info;
        const std::string address = bench::withSchema(addressOfServer(), m_schema);
        require(database.DBOpen(info, address.c_str(), "books", flag) != 0, "opening the books");
    }
    void work(int station) {
        CNbCwDB database;
        open(database, 1);
        std::optional<chengheng::HostSession> logged;
        std::optional<UnloggedSession> unlogged;
        if (m_keepsLog)
            logged.emplace(chengheng::SessionFacts{.database = &database, .databaseName = "books"});
        else
            unlogged.emplace(database);
        bench::SilentMessages messages;
        chengheng::OpeningWork work(messages);
        require(work.refresh() == chengheng::Outcome::done, "reading the window");
        raise(SIGSTOP);
        typeAt(work, station, m_from);
    }

    std::string m_schema;
    bool m_keepsLog;
    bench::RawServer m_raw;
    std::vector<pid_t> m_stations;
    double m_from = 0;
};

}  // namespace

int main() {
    Office with("bench_typed_log", true);
    Office without("bench_typed", false);
    bench::Pair typing;
    typing.reset = [&] {
        with.sitDown();
        without.sitDown();
    };
    typing.ours = [&] { with.type(); };
    typing.floor = [&] { without.type(); };
    constexpr double leastThroughput = 0.85;
    bench::reportTimes("log kept: eight workstations type opening balances, PostgreSQL", typing,
                       1 / leastThroughput, 5);
}
