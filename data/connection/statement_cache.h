#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "data/engine/engine.h"
#include "data/sql/translation.h"

namespace chengheng {

/// A statement shape in an engine's words, prepared.
struct CachedStatement {
    std::string shape;
    TranslatedShape translated;
    std::unique_ptr<PreparedStatement> prepared;
};

/// The prepared statements of one connection: each shape is translated and prepared once.
class StatementCache {
  public:
    explicit StatementCache(Engine& engine) : m_engine(engine) {}

    /// The cached form of a statement just read. Valid until the next call of forgetSurplus()
    /// or, for one not worth keeping, of dropOneOffs().
    Status find(const ReadStatement& statement, CachedStatement*& found);
    /// A statement of the program's own, already in plain SQL.
    Status findPlain(std::string_view sql, int parameters, PreparedStatement*& found);

    void dropOneOffs() { m_oneOffs.clear(); }
    /// Keeps a flood of different shapes from growing without limit. Not to be called while a
    /// found statement is in use.
    void forgetSurplus();
    /// Prepares everything anew.
    void forgetAll();

  private:
    Status make(const ReadStatement& statement, std::unique_ptr<CachedStatement>& made);

    struct TextHash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    Engine& m_engine;
    std::unordered_multimap<std::uint64_t, std::unique_ptr<CachedStatement>> m_shapes;
    CachedStatement* m_latest = nullptr;  ///< of m_shapes, as one shape often follows itself
    std::unordered_map<std::string, std::unique_ptr<PreparedStatement>, TextHash, std::equal_to<>>
        m_plain;
    std::vector<std::unique_ptr<CachedStatement>> m_oneOffs;
};

}  // namespace chengheng
