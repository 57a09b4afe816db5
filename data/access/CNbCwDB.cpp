#include "data/access/CNbCwDB.h"

#include "data/access/CNbCwDB_impl.h"
#include "data/engines/open_engine.h"
#include "data/layout/layout.h"

using chengheng::Database;
using chengheng::Engine;
using chengheng::Failure;
using chengheng::LockMode;
using chengheng::Status;
using chengheng::TextResult;

namespace {

std::string textOrEmpty(const char* text) { return text == nullptr ? std::string() : text; }

Status openBooks(const std::string& location, int flag, std::unique_ptr<Engine>& engine) {
    using chengheng::OpenMode;
    const bool isNew = flag == 0;
    Status status =
        chengheng::openEngine(location, isNew ? OpenMode::create : OpenMode::existing, engine);
    if (!status) return status;
    return isNew ? chengheng::createLayout(*engine) : chengheng::checkLayout(*engine);
}

LockMode lockMode(int mode) { return mode == 2 ? LockMode::exclusive : LockMode::shared; }

}  // namespace

CNbCwDB::CNbCwDB() : m_impl(std::make_unique<Impl>()) {}
CNbCwDB::~CNbCwDB() = default;

int CNbCwDB::DBOpen(NbCwDBInfo& info, const char* location, const char* name, int flag) {
    const std::string place = textOrEmpty(location);
    if (m_impl->databases.contains(textOrEmpty(name))) {
        m_impl->settle(Status::of(Failure::refused, "a database of that name is open"));
        return 0;
    }
    std::unique_ptr<Engine> engine;
    if (!m_impl->settle(openBooks(place, flag, engine))) return 0;
    info.location = chengheng::shownLocation(place);
    info.name = textOrEmpty(name);
    info.isServer = chengheng::isServerAddress(place);
    adopt(std::move(engine), info.location.c_str(), name);
    return 1;
}

void CNbCwDB::adopt(std::unique_ptr<Engine> engine, const char* location, const char* name) {
    engine->locks().setWaiter(m_impl->waiter);
    engine->locks().setIdentity(m_impl->identity);
    const std::string key = textOrEmpty(name);
    const bool isSelected = key == m_impl->selectedName;
    auto& database = m_impl->databases[key];
    database = std::make_unique<Database>(std::move(engine), textOrEmpty(location));
    if (isSelected) m_impl->selected = database.get();
}

int CNbCwDB::DBClose(const char* name) {
    const auto found = m_impl->databases.find(textOrEmpty(name));
    if (found == m_impl->databases.end()) {
        m_impl->settle(Status::of(Failure::notOpen, textOrEmpty(name)));
        return 0;
    }
    if (found->second.get() == m_impl->selected) {
        m_impl->selected = nullptr;
        m_impl->selectedName.clear();
    }
    m_impl->databases.erase(found);
    m_impl->settle(Status::done());
    return 1;
}

int CNbCwDB::DBSelect(const char* name) {
    const auto found = m_impl->databases.find(textOrEmpty(name));
    if (found == m_impl->databases.end()) {
        m_impl->settle(Status::of(Failure::notOpen, textOrEmpty(name)));
        return 0;
    }
    if (!m_impl->settle(found->second->ensureConnected())) return 0;
    m_impl->selected = found->second.get();
    m_impl->selectedName = found->first;
    return 1;
}

int CNbCwDB::QRYExecuteSQL(std::string_view statements) {
    if (!m_impl->hasSelected()) return 0;
    return m_impl->settle(m_impl->selected->executeBatch(statements)) ? 1 : 0;
}

int CNbCwDB::QRYGetData(std::string_view select, char**& cells, int& columnCount, int& rowCount) {
    cells = nullptr;
    columnCount = rowCount = 0;
    if (!m_impl->hasSelected()) return -1;
    auto result = std::make_unique<TextResult>();
    const auto read = [&result](chengheng::Cursor& cursor) { return result->read(cursor); };
    if (!m_impl->settle(m_impl->selected->select(select, read))) return -1;
    columnCount = result->columns();
    rowCount = result->rows();
    cells = result->cells();
    if (cells != nullptr) m_impl->results.emplace(cells, std::move(result));
    return 0;
}

void CNbCwDB::QRYReleaseBuffer(char** cells, int, int) { m_impl->results.erase(cells); }

int CNbCwDB::editRows(const char* table, const char* condition, const std::string& assignment) {
    if (!m_impl->hasSelected()) return -1;
    std::string text = "UPDATE " + textOrEmpty(table) + " SET " + assignment;
    if (condition != nullptr) text.append(" WHERE ").append(condition);
    return m_impl->settle(m_impl->selected->executeBatch(text)) ? 0 : -1;
}

int CNbCwDB::QRYDelete(const char* table, const char* condition) {
    if (!m_impl->hasSelected()) return -1;
    std::string text = "DELETE FROM " + textOrEmpty(table);
    if (condition != nullptr) text.append(" WHERE ").append(condition);
    return m_impl->settle(m_impl->selected->executeBatch(text)) ? 0 : -1;
}

int CNbCwDB::SQLLock(const char* tables, int mode, int wait) {
    if (!m_impl->hasSelected()) return 0;
    auto& locks = m_impl->selected->engine().locks();
    return m_impl->settle(locks.lock(textOrEmpty(tables), lockMode(mode), wait != 0)) ? 1 : 0;
}

void CNbCwDB::SQLUnLock(const char* tables, int mode) {
    if (m_impl->selected != nullptr)
        m_impl->selected->engine().locks().unlock(textOrEmpty(tables), lockMode(mode));
}

const Status& CNbCwDB::lastStatus() const { return m_impl->status; }

const std::string& CNbCwDB::selectedName() const { return m_impl->selectedName; }

Status CNbCwDB::beginUnit() {
    if (m_impl->hasSelected()) m_impl->settle(m_impl->selected->beginUnit());
    return m_impl->status;
}

Status CNbCwDB::commitUnit(const std::string& name) {
    Database* database = m_impl->find(name);
    m_impl->settle(database == nullptr ? Status::of(Failure::notOpen, name)
                                       : database->commitUnit());
    return m_impl->status;
}

void CNbCwDB::rollbackUnit(const std::string& name) {
    if (Database* database = m_impl->find(name)) database->rollbackUnit();
}

chengheng::LockService* CNbCwDB::lockService() {
    return m_impl->selected == nullptr ? nullptr : &m_impl->selected->engine().locks();
}

chengheng::LockService* CNbCwDB::lockService(const std::string& name) {
    Database* database = m_impl->find(name);
    return database == nullptr ? nullptr : &database->engine().locks();
}

void CNbCwDB::setLockWaiter(chengheng::LockWaiter* waiter) {
    m_impl->waiter = waiter;
    for (auto& [name, database] : m_impl->databases) database->engine().locks().setWaiter(waiter);
}

void CNbCwDB::setLossObserver(std::function<void(const Status&)> observer) {
    m_impl->lossObserver = std::move(observer);
}

void CNbCwDB::setLockIdentity(const chengheng::LockIdentity& identity) {
    m_impl->identity = identity;
    for (auto& [name, database] : m_impl->databases)
        database->engine().locks().setIdentity(identity);
}

Database* CNbCwDB::selectedDatabase() { return m_impl->selected; }

int CNbCwDB::lastId(const char* idRow) {
    int id = 0;
    if (m_impl->hasSelected()) m_impl->settle(m_impl->selected->lastId(idRow, id));
    return id;
}
