#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/engine/engine.h"
#include "data/engines/postgres/watched_statement.h"

namespace chengheng {

/// Names of statements that nobody uses any more but the server still keeps.
struct RetiredStatements {
    int generation = 0;  ///< of the connection that prepared them
    std::vector<std::string> names;
};

/// A statement under its name on the server, where it is prepared with its first run on a
/// connection.
class PostgresStatement : public PreparedStatement {
  public:
    PostgresStatement(std::string name, WatchedStatement text, int parameters,
                      std::shared_ptr<RetiredStatements> retired)
        : m_name(std::move(name)),
          m_text(std::move(text)),
          m_parameters(parameters),
          m_retired(std::move(retired)) {}
    ~PostgresStatement() override {
        if (isPreparedOn(m_retired->generation)) m_retired->names.push_back(m_name);
    }
    PostgresStatement(const PostgresStatement&) = delete;
    PostgresStatement& operator=(const PostgresStatement&) = delete;

    const std::string& name() const { return m_name; }
    const std::string& sql() const { return m_text.sql; }
    /// What its answer tells of rows; names no table when that is nothing.
    const WatchedStatement& text() const { return m_text; }
    int parameters() const { return m_parameters; }

    bool isPreparedOn(int generation) const { return m_generation == generation; }
    void setPreparedOn(int generation) { m_generation = generation; }
    void setNotPrepared() { m_generation = notPrepared; }

  private:
    static constexpr int notPrepared = -1;

    std::string m_name;
    WatchedStatement m_text;
    int m_parameters;
    int m_generation = notPrepared;
    std::shared_ptr<RetiredStatements> m_retired;
};

}  // namespace chengheng
