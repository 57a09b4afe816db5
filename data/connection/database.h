#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/connection/id_counters.h"
#include "data/connection/operation_log.h"
#include "data/connection/statement_cache.h"
#include "data/engine/engine.h"
#include "data/tables/schema.h"

namespace chengheng {

/// One open database: the module's statements, units of work and id counters on an engine.
class Database {
  public:
    Database(std::unique_ptr<Engine> engine, std::string location)
        : m_engine(std::move(engine)), m_location(std::move(location)), m_statements(*m_engine) {}
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    Engine& engine() { return *m_engine; }
    bool isReadOnly() const { return m_engine->isReadOnly(); }
    /// The number of its layout, of today until told otherwise.
    int layout() const { return m_layout; }
    void setLayout(int number) { m_layout = number; }
    /// Path or address, without a password.
    const std::string& location() const { return m_location; }

    /// Runs a batch in the module's dialect, all or nothing. `changed`, when given, counts
    /// the changed rows.
    Status executeBatch(std::string_view batch, std::int64_t* changed = nullptr);
    /// Runs one select in the module's dialect and hands its rows to the reader, which
    /// returns what became of the reading.
    Status select(std::string_view text, const std::function<Status(Cursor&)>& reader);
    /// Runs one statement of the program's own, in plain SQL with $1, $2, ...
    Status executePlain(std::string_view sql, std::span<const Value> values,
                        std::int64_t* changed = nullptr);
    /// The same statement with the values of many rows, one after the other.
    Status executeForEach(std::string_view sql, std::size_t valuesOfARow,
                          std::span<const Value> values);
    Status selectPlain(std::string_view sql, std::span<const Value> values,
                       const std::function<Status(Cursor&)>& reader);

    /// From now on each unit of work that changes rows writes an entry of the operation log, whose
    /// tables are there, into its own transaction; what is changed outside of one becomes one.
    /// Books of an older layout and those that take no writes have none. Another author takes the
    /// place of the one before.
    void keepLog(LogAuthor author);
    /// The log that is kept; null when none is.
    OperationLog* log() { return m_log.get(); }
    /// Has an entry written of something that changes no row; of nothing when no log is kept.
    Status noteInLog(LogWords words);

    /// Units nest: an inner one is a savepoint.
    Status beginUnit();
    Status commitUnit();
    void rollbackUnit();
    bool isInUnit() const { return m_depth > 0; }

    /// The last id handed out for a row of ABIdTable; 0 when the row is not there. Inside a
    /// unit of work the row is kept from others until its end.
    /// A counter that no id can have is a wrongValue.
    Status lastId(std::string_view row, int& id);
    /// Sets the row of ABIdTable, at the end of the unit of work when one is open.
    Status setLastId(std::string_view row, int id);

    /// Sees to it that the database answers. A unit of work open at a loss is given up.
    Status ensureConnected();

  private:
    struct Run;

    static Status lostUnit();
    Status readBatch(BatchReader& reader, Run& run);
    Status addStatement(const ReadStatement& statement, Run& run);
    Status addHeldCounters(Run& run);
    Status addSavepoint(Run& run);
    Status runInUnit(Run& run, std::int64_t* changed);
    /// Outside of a unit, changes that are to be logged get one of their own.
    bool needsUnit() const { return m_log != nullptr && !isInUnit(); }
    Status inUnitOfItsOwn(const std::function<Status()>& change);
    Status executeLogged(std::span<const Command> commands, std::int64_t* changed);
    Status writeHeldCounters();
    Status readRows(const Command& command, const std::function<Status(Cursor&)>& reader);

    std::unique_ptr<Engine> m_engine;
    std::string m_location;
    int m_layout = booksFormatVersion;
    std::unique_ptr<OperationLog> m_log;
    StatementCache m_statements;
    IdCounters m_counters;
    std::vector<IdCounters> m_countersBefore;  ///< as they were at the begin of each unit
    int m_depth = 0;
    bool m_isUnitLost = false;  ///< nothing of the open unit can be kept any more
};

}  // namespace chengheng
