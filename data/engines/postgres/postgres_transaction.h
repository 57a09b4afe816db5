#pragma once

#include <string>
#include <vector>

#include "data/engines/postgres/postgres_connection.h"

namespace chengheng {

/// The transaction of one connection. BEGIN, SAVEPOINT and RELEASE are not worth a way to the
/// server: they are held back and go out before the next statement.
class PostgresTransaction {
  public:
    explicit PostgresTransaction(PostgresConnection& connection) : m_connection(connection) {}

    bool isOpen() const { return m_isOpen; }
    /// Why no statement may run now; done when it may. After a loss, statements must not run
    /// on a new connection as if their transaction were still there: somebody has to end it
    /// first.
    Status mayRun() const;

    Status begin(const char* control);
    Status commit();
    Status rollback();
    Status savepoint(int depth);
    Status releaseSavepoint(int depth);
    Status rollbackToSavepoint(int depth);

    /// Keeps the failure of the next statement, a select, from spoiling the transaction: what
    /// cannot be read has changed nothing.
    Status beginPart();
    /// Goes back to where the part began when its statement failed.
    void endPart(const Status& outcome);

    /// What is to be sent before the next statement.
    std::vector<std::string> takeHeldBack();
    /// Runs statements without parameters behind what is held back.
    Status run(const std::string& sql, PostgresResult* result = nullptr);

  private:
    Status mayGoOn() const;
    Status holdBack(std::string control);
    void end();

    PostgresConnection& m_connection;
    bool m_isOpen = false;
    bool m_isSent = false;  ///< something of the transaction has reached the server
    int m_generation = 0;   ///< of the connection it was begun on
    std::vector<std::string> m_heldBack;
};

}  // namespace chengheng
