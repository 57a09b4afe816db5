#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/values/status.h"
#include "data/engine/lock_service.h"
#include "data/engine/row_change.h"
#include "data/sql/engine_dialect.h"
#include "data/sql/value.h"

namespace chengheng {

/// A statement that the engine has prepared. Valid as long as its engine's connection; an
/// engine that reconnects prepares it again by itself.
class PreparedStatement {
  public:
    virtual ~PreparedStatement() = default;
};

/// A prepared statement with the parameters of one run.
struct Command {
    PreparedStatement* statement = nullptr;
    std::span<const Value> values;
};

/// The rows of a running select, read forward once. Text stays valid until the next step.
class Cursor {
  public:
    enum class Step { row, end, failed };

    virtual ~Cursor() = default;
    virtual Step next() = 0;
    /// Why the last step failed.
    virtual Status status() const = 0;
    virtual int columns() const = 0;
    virtual ValueKind kind(int column) const = 0;
    virtual std::int64_t integer(int column) const = 0;  ///< NULL reads as 0
    virtual double real(int column) const = 0;           ///< NULL reads as 0
    virtual std::string_view text(
        int column) const = 0;  ///< NULL reads as ""; dates as "2026-01-05"
    /// Kind and content in one look.
    virtual Value value(int column) const {
        switch (kind(column)) {
            case ValueKind::integer:
                return Value::of(integer(column));
            case ValueKind::real:
                return Value::of(real(column));
            case ValueKind::text:
                return Value::of(text(column));
            case ValueKind::null:
                break;
        }
        return Value::ofNull();
    }
};

enum class OpenMode {
    existing,  ///< the database must be there, to be written
    readable,  ///< the same; where it cannot be written, it is opened for reading alone
    create,    ///< a new, empty one is made; fails when it is there already
};

/// What an engine tells about itself and the database it holds.
struct EngineFacts {
    std::string name;     ///< "SQLite", "PostgreSQL"
    std::string version;  ///< of the engine or the server
    std::int64_t bytes = 0;
};

/// One connection to one database. Statement texts are plain SQL with parameters $1, $2, ...
/// in the order of their first use, one statement a text.
class Engine {
  public:
    virtual ~Engine() = default;

    virtual const EngineDialect& dialect() const = 0;

    virtual Status prepare(std::string_view sql, int parameters,
                           std::unique_ptr<PreparedStatement>& statement) = 0;
    /// Runs the commands in order; the first failure ends the run. Outside a transaction the
    /// commands are one transaction of their own. `changed`, when given, counts changed rows.
    virtual Status execute(std::span<const Command> commands, std::int64_t* changed = nullptr) = 0;
    /// Starts a select. At most one cursor of a statement is open at a time.
    virtual Status open(const Command& command, std::unique_ptr<Cursor>& cursor) = 0;
    /// Runs statements that take no parameters and are not worth keeping prepared
    /// (CREATE TABLE ...), separated by semicolons.
    virtual Status script(std::string_view sql) = 0;

    virtual Status begin() = 0;
    /// Begins a transaction during which nobody else gets to work with the database, and does not
    /// wait for that: busy when a connection is in the way that the engine knows of. What
    /// only has the database open is known in a file and not known on a server.
    virtual Status beginAlone() = 0;
    virtual Status commit() = 0;
    virtual Status rollback() = 0;
    virtual Status savepoint(int depth) = 0;
    virtual Status releaseSavepoint(int depth) = 0;
    virtual Status rollbackToSavepoint(int depth) = 0;
    virtual bool inTransaction() const = 0;

    /// Done when the database answers; tries to connect again after a loss. Locks held and
    /// transactions open at the loss are gone.
    virtual Status ensureConnected() = 0;
    /// Every write is refused as readOnly: the medium or the server takes none.
    virtual bool isReadOnly() const = 0;
    /// Whether a table of that name exists.
    virtual Status hasTable(std::string_view name, bool& found) = 0;

    virtual LockService& locks() = 0;
    /// Has the watcher told of all rows that statements change, scripts on a server left out. Of
    /// those that are prepared from now on; null ends it. Not owned, outlives its use.
    virtual void watchChanges(ChangeWatcher* watcher) = 0;

    /// Of a server, its password included; empty of a file. For opening what lies beside it.
    virtual std::string secretAddress() const { return {}; }
    /// A role's password as its server keeps it, so that the server never sees the password.
    /// Refused where there are no roles.
    virtual Status passwordVerifier(const std::string& role, const std::string& password,
                                    std::string& verifier);
    virtual Status facts(EngineFacts& facts) = 0;
    /// Begins a transaction that sees one state of the database from its first select to its
    /// end, whatever others write, and writes nothing itself. rollback() ends it. notPermitted
    /// where the server keeps rows from whoever is connected: what is read would not be all.
    virtual Status beginReading() = 0;
    /// Looks through the whole database for corruption and adds what it finds, in the
    /// engine's words.
    virtual Status verify(std::vector<std::string>& faults) = 0;
    /// Copies the database as it stands, or as the open transaction sees it, into the file of
    /// a new one that openEngine reads; nothing when the engine has no way of its own. Not in a
    /// transaction that has changed something.
    virtual std::optional<Status> copyToFile(const std::string& path) = 0;
};

inline Status Engine::passwordVerifier(const std::string&, const std::string&, std::string&) {
    return Status::of(Failure::refused, "no roles");
}

}  // namespace chengheng
