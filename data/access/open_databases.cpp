#include "data/access/open_databases.h"

#include <utility>

namespace chengheng {

void OpenDatabases::add(std::unique_ptr<Engine> engine, const std::string& location,
                        const std::string& name, int layout) {
    engine->locks().setWaiter(m_waiter);
    engine->locks().setIdentity(m_identity);
    auto& database = m_databases[name];
    const bool isSelected = database != nullptr && database.get() == m_selected;
    database = std::make_unique<Database>(std::move(engine), location);
    if (layout != 0) database->setLayout(layout);
    if (m_author) database->keepLog(*m_author);
    if (isSelected) m_selected = database.get();
}

Status OpenDatabases::close(const std::string& name) {
    const auto found = m_databases.find(name);
    if (found == m_databases.end()) return Status::of(Failure::notOpen, name);
    if (found->second.get() == m_selected) {
        m_selected = nullptr;
        m_selectedName.clear();
    }
    m_databases.erase(found);
    return Status::done();
}

Status OpenDatabases::select(const std::string& name) {
    const auto found = m_databases.find(name);
    if (found == m_databases.end()) return Status::of(Failure::notOpen, name);
    if (Status status = found->second->ensureConnected(); !status) return status;
    m_selected = found->second.get();
    m_selectedName = found->first;
    return Status::done();
}

Database* OpenDatabases::find(const std::string& name) const {
    const auto found = m_databases.find(name);
    return found == m_databases.end() ? nullptr : found->second.get();
}

void OpenDatabases::setLockWaiter(LockWaiter* waiter) {
    m_waiter = waiter;
    for (auto& [name, database] : m_databases) database->engine().locks().setWaiter(waiter);
}

void OpenDatabases::setLockIdentity(const LockIdentity& identity) {
    m_identity = identity;
    for (auto& [name, database] : m_databases) database->engine().locks().setIdentity(identity);
}

void OpenDatabases::keepLog(const LogAuthor& author) {
    m_author = author;
    for (auto& [name, database] : m_databases) database->keepLog(author);
}

}  // namespace chengheng
