#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "data/engines/postgres/parameter_texts.h"
#include "data/engines/postgres/postgres_connection.h"
#include "data/engines/postgres/postgres_statement.h"

namespace chengheng {

/// Sends many commands before reading the first answer, so that a save does not pay the way
/// to the server and back for each of its statements. Outside a transaction one call is one
/// transaction: the server ends it at the one synchronisation point behind the last command.
class PostgresPipeline {
  public:
    explicit PostgresPipeline(PostgresConnection& connection) : m_connection(connection) {}

    /// What the server answered.
    struct Received {
        std::int64_t changed = 0;
        PostgresResult last;  ///< of the last command
    };

    /// Tells the watcher of the rows that statements made for it give back; null ends it.
    void tellChanges(ChangeWatcher* watcher) { m_watcher = watcher; }

    /// What the server would not even be sent: text that it cannot hold, too few values.
    static Status check(std::span<const Command> commands);
    /// Runs `controls` (BEGIN, SAVEPOINT ...) and then the commands, which have passed the
    /// check. The first failure ends the run.
    Status run(std::span<const std::string> controls, std::span<const Command> commands,
               Received& received);

  private:
    /// What an answer that is still to come belongs to.
    struct Awaited {
        PostgresStatement* statement;  ///< null for a control
        bool isPreparation;
    };

    Status sendAll(std::span<const std::string> controls, std::span<const Command> commands,
                   Received& received);
    bool sendControl(const std::string& control);
    bool sendCommand(const Command& command);
    /// Has the server answer what it was sent so far, and reads it.
    Status takeAnswers(Received& received);
    Status readAnswers(Received& received);
    void note(const Awaited& awaited, PostgresResult result, Received& received);
    /// Reads up to the synchronisation point, which also ends a failed run.
    Status finish(Status status, Received& received);

    PostgresConnection& m_connection;
    ChangeWatcher* m_watcher = nullptr;
    ParameterTexts m_parameters;
    std::vector<Awaited> m_awaited;
    std::size_t m_bytesSent = 0;
};

}  // namespace chengheng
