#pragma once

#include <vector>

#include "data/engine/engine.h"
#include "data/engines/postgres/postgres_connection.h"

namespace chengheng {

/// The rows of a select, already fetched: the connection is free for other statements while
/// they are read.
class PostgresCursor : public Cursor {
  public:
    explicit PostgresCursor(PostgresResult result);

    Step next() override;
    Status status() const override { return Status::done(); }
    int columns() const override { return static_cast<int>(m_kinds.size()); }
    ValueKind kind(int column) const override;
    std::int64_t integer(int column) const override;
    double real(int column) const override;
    std::string_view text(int column) const override;

  private:
    PostgresResult m_result;
    std::vector<ValueKind> m_kinds;  ///< of the columns
    int m_rows;
    int m_row = -1;
};

}  // namespace chengheng
