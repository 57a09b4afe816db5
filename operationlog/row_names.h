#pragma once

#include <map>
#include <string>
#include <vector>

#include "data/engine/engine.h"
#include "data/log/row_bytes.h"

namespace chengheng {

/// Names the rows that the log tells of, as a person finds them in the books: "1001 库存现金 1月".
class LogRowNames {
  public:
    explicit LogRowNames(Engine& engine) : m_engine(engine) {}

    /// The names of rows of a table, in their order: by what the log says of them, else by what
    /// stands in the books; empty where neither tells.
    Status find(const std::string& table, const std::vector<LoggedRow>& rows,
                std::vector<std::string>& names);

  private:
    using Cells = std::vector<LoggedCell>;

    Status readFromBooks(const std::string& table, const std::vector<std::string>& columns,
                         std::map<std::int64_t, Cells>& keys);
    Status readReferences(const std::vector<std::string>& columns,
                          const std::map<std::int64_t, Cells>& keys);
    std::string nameOf(const std::string& table, const std::vector<std::string>& columns,
                       const Cells& key) const;

    Engine& m_engine;
    std::map<std::string, std::map<std::int64_t, std::string>> m_references;  ///< by column
};

}  // namespace chengheng
