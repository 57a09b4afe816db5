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
    if (m_database.SQLLock(m_referringTables.c_str(), sharedMode, waiting) == 0) {
        m_status = m_database.lastStatus();
        return;
    }
    if (m_database.SQLLock(m_ownTables.c_str(), exclusiveMode, waiting) == 0) {
        m_status = m_database.lastStatus();
        m_database.SQLUnLock(m_referringTables.c_str(), sharedMode);
    }
}

TableLocks::~TableLocks() {
    LockService* locks = m_database.lockService(m_name);
    if (!areGranted() || locks == nullptr) return;
    const bool isReversed = m_order == ReleaseOrder::reversed;
    if (isReversed) locks->unlock(m_ownTables, LockMode::exclusive);
    locks->unlock(m_referringTables, LockMode::shared);
    if (!isReversed) locks->unlock(m_ownTables, LockMode::exclusive);
}

}  // namespace chengheng
