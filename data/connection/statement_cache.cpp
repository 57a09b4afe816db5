#include "data/connection/statement_cache.h"

namespace chengheng {
namespace {

constexpr std::size_t mostShapes = 1000;

}  // namespace

Status StatementCache::make(const ReadStatement& statement,
                            std::unique_ptr<CachedStatement>& made) {
    made = std::make_unique<CachedStatement>();
    made->shape = statement.shape;
    if (Status status =
            translate(statement.kind, statement.shape, m_engine.dialect(), made->translated);
        !status)
        return status;
    // Counters are written by the unit of work itself; their form is never run as it stands.
    if (made->translated.isIdUpdate) return Status::done();
    return m_engine.prepare(made->translated.sql, made->translated.parameters, made->prepared);
}

Status StatementCache::find(const ReadStatement& statement, CachedStatement*& found) {
    std::unique_ptr<CachedStatement> made;
    if (!statement.isWorthKeeping) {
        if (Status status = make(statement, made); !status) return status;
        found = m_oneOffs.emplace_back(std::move(made)).get();
        return Status::done();
    }
    const auto [first, last] = m_shapes.equal_range(statement.hash);
    for (auto entry = first; entry != last; ++entry) {
        if (entry->second->shape == statement.shape) {
            found = entry->second.get();
            return Status::done();
        }
    }
    if (Status status = make(statement, made); !status) return status;
    found = m_shapes.emplace(statement.hash, std::move(made))->second.get();
    return Status::done();
}

Status StatementCache::findPlain(std::string_view sql, int parameters, PreparedStatement*& found) {
    auto& prepared = m_plain[std::string(sql)];
    if (!prepared) {
        if (Status status = m_engine.prepare(sql, parameters, prepared); !status) {
            m_plain.erase(std::string(sql));
            return status;
        }
    }
    found = prepared.get();
    return Status::done();
}

void StatementCache::forgetSurplus() {
    if (m_shapes.size() > mostShapes) m_shapes.clear();
}

void StatementCache::forgetAll() {
    m_shapes.clear();
    m_plain.clear();
    m_oneOffs.clear();
}

}  // namespace chengheng
