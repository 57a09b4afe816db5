#include "data/connection/statement_cache.h"

#include "data/sql/shape_hash.h"

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
    if (m_latest != nullptr && m_latest->shape == statement.shape) {
        found = m_latest;
        return Status::done();
    }
    const std::uint64_t hash = shapeHash(statement.shape);
    const auto [first, last] = m_shapes.equal_range(hash);
    for (auto entry = first; entry != last; ++entry) {
        if (entry->second->shape == statement.shape) {
            found = m_latest = entry->second.get();
            return Status::done();
        }
    }
    if (Status status = make(statement, made); !status) return status;
    found = m_latest = m_shapes.emplace(hash, std::move(made))->second.get();
    return Status::done();
}

Status StatementCache::findPlain(std::string_view sql, int parameters, PreparedStatement*& found) {
    auto entry = m_plain.find(sql);
    if (entry == m_plain.end()) {
        std::unique_ptr<PreparedStatement> prepared;
        if (Status status = m_engine.prepare(sql, parameters, prepared); !status) return status;
        entry = m_plain.emplace(sql, std::move(prepared)).first;
    }
    found = entry->second.get();
    return Status::done();
}

void StatementCache::forgetSurplus() {
    if (m_shapes.size() <= mostShapes) return;
    m_shapes.clear();
    m_latest = nullptr;
}

void StatementCache::forgetAll() {
    m_shapes.clear();
    m_latest = nullptr;
    m_plain.clear();
    m_oneOffs.clear();
}

}  // namespace chengheng
