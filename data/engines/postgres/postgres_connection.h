#pragma once

#include <libpq-fe.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "base/values/status.h"
#include "data/engines/postgres/postgres_address.h"

namespace chengheng {

struct ClearResult {
    void operator()(PGresult* result) const { PQclear(result); }
};
using PostgresResult = std::unique_ptr<PGresult, ClearResult>;

/// The connection to the server, made again after a loss. Everything that lives on the
/// server side of one connection (prepared statements, locks) belongs to its generation.
class PostgresConnection {
  public:
    explicit PostgresConnection(PostgresAddress address) : m_address(std::move(address)) {}

    const PostgresAddress& address() const { return m_address; }
    PGconn* handle() const { return m_handle.get(); }
    bool isConnected() const { return m_handle != nullptr; }
    /// The server or its database takes no writes, as a standby does not.
    bool isReadOnly() const { return m_isReadOnly; }
    /// Grows with every connection made; 0 before the first.
    int generation() const { return m_generation; }

    /// Connects and sets up the session. Does not look whether the schema is there.
    Status connect();
    void drop() { m_handle.reset(); }
    /// Gives up transaction and locks and drops the connection. The server's process for it ends
    /// a moment later and would keep them until then.
    void leave();
    /// Notices a connection that the server has closed, without asking the server anything.
    bool isClosedByServer() const;

    /// Runs statements without parameters. The result is that of the last one.
    Status run(const std::string& sql, PostgresResult* result = nullptr);
    /// What a result without success means; drops a connection that is lost.
    Status failureOf(const PGresult* result);
    /// The connection broke: drops it.
    Status lost();

  private:
    struct Finish {
        void operator()(PGconn* connection) const { PQfinish(connection); }
    };

    Status logOn();
    Status setUpSession();
    bool giveUpAll(std::chrono::steady_clock::time_point deadline) const;

    PostgresAddress m_address;
    std::unique_ptr<PGconn, Finish> m_handle;
    int m_generation = 0;
    bool m_isReadOnly = false;
};

}  // namespace chengheng
