#include "data/access/table_locks.h"

namespace chengheng {
namespace {

constexpr int sharedMode = 1;
constexpr int exclusiveMode = 2;
constexpr int waiting = 1;

}  // namespace

TableLocks::TableLocks(CNbCwDB& database, std::string referringTables, std::string ownTables,
                       ReleaseOrder order)
    : m_database(database),
      m_name(database.selectedName()),
      m_referringTables(std::move(referringTables)),
      m_ownTables(std::move(ownTables)),
      m_order(order) {
    if (!take(m_referringTables, sharedMode)) return;
    if (!take(m_ownTables, exclusiveMode) && !m_referringTables.empty())
        m_database.SQLUnLock(m_referringTables.c_str(), sharedMode);
}

bool TableLocks::take(const std::string& tables, int mode) {
    if (!tables.empty() && m_database.SQLLock(tables.c_str(), mode, waiting) == 0)
        m_status = m_database.lastStatus();
    return m_status.isDone();
}

TableLocks::~TableLocks() {
    LockService* locks = m_database.lockService(m_name);
    if (!areGranted() || locks == nullptr) return;
    const bool isReversed = m_order == ReleaseOrder::reversed;
    const auto release = [locks](const std::string& tables, LockMode mode) {
        if (!tables.empty()) locks->unlock(tables, mode);
    };
    if (isReversed) release(m_ownTables, LockMode::exclusive);
    release(m_referringTables, LockMode::shared);
    if (!isReversed) release(m_ownTables, LockMode::exclusive);
}

}  // namespace chengheng
