#include "data/access/CNbCwDB.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "data/access/open_databases.h"
#include "data/access/record_table.h"
#include "data/access/unit_of_work.h"
#include "data/connection/id_counters.h"
#include "data/engines/open_engine.h"
#include "data/layout/layout.h"

using chengheng::Database;
using chengheng::Engine;
using chengheng::Failure;
using chengheng::LockMode;
using chengheng::RecordType;
using chengheng::Status;
using chengheng::TextResult;

namespace {

constexpr int failed = -1;

std::string textOrEmpty(const char* text) { return text == nullptr ? std::string() : text; }

Status openBooks(const std::string& location, int flag, std::unique_ptr<Engine>& engine,
                 int& layout) {
    using chengheng::OpenMode;
    layout = chengheng::booksFormatVersion;
    const bool isNew = flag == 0;
    Status status =
        chengheng::openEngine(location, isNew ? OpenMode::create : OpenMode::readable, engine);
    if (!status) return status;
    return isNew ? chengheng::createLayout(*engine) : chengheng::checkReadable(*engine, &layout);
}

/// The last word counts, which is that of the outermost unit.
void sayInLog(Database& database, const chengheng::UnitWords& words) {
    if (database.log() == nullptr || !words.text) return;
    database.log()->say({.function = words.function, .text = chengheng::keptWords(words.text())});
}

LockMode lockMode(int mode) { return mode == 2 ? LockMode::exclusive : LockMode::shared; }

}  // namespace

/// What CNbCwDB keeps: the open databases, a table of each record type in use, the results of
/// free selects that were not yet released, and what came of the last operation.
struct CNbCwDB::Impl {
    chengheng::RecordTable& table(const RecordType& type) {
        return tables.try_emplace(&type, type).first->second;
    }
    /// Remembers the outcome; true when it is done.
    bool settle(Status outcome) {
        status = std::move(outcome);
        constexpr std::array losses{Failure::lost, Failure::unreachable, Failure::unconfirmed};
        const bool isLoss = std::ranges::find(losses, status.failure) != losses.end();
        if (isLoss && lossObserver) lossObserver(status);
        return status.isDone();
    }
    /// The selected database; null when none is, and that is remembered.
    Database* selected() {
        if (databases.selected() == nullptr) settle(Status::of(Failure::notOpen, "no database"));
        return databases.selected();
    }
    /// Runs something on the selected database and remembers what came of it.
    template <class Operation>
    bool run(Operation operation) {
        Database* const database = selected();
        return database != nullptr && settle(operation(*database));
    }

    chengheng::OpenDatabases databases;
    std::map<const RecordType*, chengheng::RecordTable> tables;
    std::map<char**, std::unique_ptr<TextResult>> results;
    Status status;
    std::function<void(const Status&)> lossObserver;
};

CNbCwDB::CNbCwDB() : m_impl(std::make_unique<Impl>()) {}
CNbCwDB::~CNbCwDB() = default;

int CNbCwDB::DBOpen(NbCwDBInfo& info, const char* location, const char* name, int flag) {
    const std::string place = textOrEmpty(location);
    if (m_impl->databases.find(textOrEmpty(name)) != nullptr) {
        m_impl->settle(Status::of(Failure::refused, "a database of that name is open"));
        return 0;
    }
    std::unique_ptr<Engine> engine;
    if (!m_impl->settle(openBooks(place, flag, engine, info.layout))) return 0;
    info.location = chengheng::shownLocation(place);
    info.name = textOrEmpty(name);
    info.isServer = chengheng::isServerAddress(place);
    adopt(std::move(engine), info.location.c_str(), name, info.layout);
    return 1;
}

void CNbCwDB::adopt(std::unique_ptr<Engine> engine, const char* location, const char* name,
                    int layout) {
    m_impl->databases.add(std::move(engine), textOrEmpty(location), textOrEmpty(name), layout);
}

int CNbCwDB::DBClose(const char* name) {
    return m_impl->settle(m_impl->databases.close(textOrEmpty(name))) ? 1 : 0;
}

int CNbCwDB::DBSelect(const char* name) {
    return m_impl->settle(m_impl->databases.select(textOrEmpty(name))) ? 1 : 0;
}

int CNbCwDB::readRecords(const RecordType& type, void*& pointers, int& count,
                         const char* condition) {
    pointers = nullptr;
    count = 0;
    chengheng::RecordTable& table = m_impl->table(type);
    table.records().clear();
    const auto read = [&](Database& database) { return table.read(database, condition); };
    if (!m_impl->run(read)) return failed;
    pointers = table.records().pointers();
    count = static_cast<int>(table.records().count());
    return 0;
}

int chengheng::RecordOperations::readRecord(const RecordType& type, void*& pointers, int id) {
    int count = 0;
    return readRecords(type, pointers, count, chengheng::formatSql("lId = %d", id).c_str());
}

int CNbCwDB::readTexts(const RecordType& type, TextRow*& rows, int& count, const char* condition) {
    rows = nullptr;
    count = 0;
    chengheng::RecordTable& table = m_impl->table(type);
    const auto read = [&](Database& database) { return table.readTexts(database, condition); };
    if (!m_impl->run(read)) return failed;
    rows = table.texts().textRows();
    count = table.texts().rows();
    return 0;
}

void CNbCwDB::releaseRecords(const RecordType& type) { m_impl->table(type).release(); }

int CNbCwDB::addRecords(const RecordType& type, std::span<const void* const> records,
                        int& firstId) {
    const auto add = [&](Database& database) {
        chengheng::UnitOfWork unit(*this);
        int id = 0;
        Status status = unit.status();
        if (status) status = m_impl->table(type).add(database, records, id);
        if (status) status = unit.commit();
        if (status) firstId = id;
        return status;
    };
    return m_impl->run(add) ? 0 : failed;
}

int CNbCwDB::editRecord(const RecordType& type, const void* record) {
    const auto edit = [&](Database& database) {
        return m_impl->table(type).edit(database, record);
    };
    return m_impl->run(edit) ? 0 : failed;
}

int CNbCwDB::removeRecord(const RecordType& type, int id) {
    const auto remove = [&](Database& database) {
        return m_impl->table(type).remove(database, id);
    };
    return m_impl->run(remove) ? 0 : failed;
}

int CNbCwDB::readLastId(const RecordType& type) { return lastId(type.table.idRow); }

int CNbCwDB::lastId(std::string_view idRow) {
    int id = 0;
    m_impl->run([&](Database& database) { return database.lastId(idRow, id); });
    return id;
}

Status CNbCwDB::readIdBefore(const RecordType& type, int count, int& last) {
    m_impl->run([&](Database& database) {
        const Status status = database.lastId(type.table.idRow, last);
        return status ? chengheng::checkIdsLeft(last, count) : status;
    });
    return m_impl->status;
}

int CNbCwDB::QRYExecuteSQL(std::string_view statements) {
    const auto execute = [&](Database& database) { return database.executeBatch(statements); };
    return m_impl->run(execute) ? 1 : 0;
}

int CNbCwDB::QRYGetData(std::string_view select, char**& cells, int& columnCount, int& rowCount) {
    cells = nullptr;
    columnCount = rowCount = 0;
    auto result = std::make_unique<TextResult>();
    const auto read = [&result](chengheng::Cursor& cursor) { return result->read(cursor); };
    const auto run = [&](Database& database) { return database.select(select, read); };
    if (!m_impl->run(run)) return failed;
    columnCount = result->columns();
    rowCount = result->rows();
    cells = result->cells();
    if (cells != nullptr) m_impl->results.emplace(cells, std::move(result));
    return 0;
}

void CNbCwDB::QRYReleaseBuffer(char** cells, int, int) { m_impl->results.erase(cells); }

int CNbCwDB::changeRows(std::string statement, const char* condition) {
    if (condition != nullptr) statement.append(" WHERE ").append(condition);
    const auto change = [&](Database& database) { return database.executeBatch(statement); };
    return m_impl->run(change) ? 0 : failed;
}

int CNbCwDB::editRows(const char* table, const char* condition, const std::string& assignment) {
    return changeRows("UPDATE " + textOrEmpty(table) + " SET " + assignment, condition);
}

int CNbCwDB::QRYDelete(const char* table, const char* condition) {
    return changeRows("DELETE FROM " + textOrEmpty(table), condition);
}

int CNbCwDB::SQLLock(const char* tables, int mode, int wait) {
    const auto lock = [&](Database& database) {
        return database.engine().locks().lock(textOrEmpty(tables), lockMode(mode), wait != 0);
    };
    return m_impl->run(lock) ? 1 : 0;
}

void CNbCwDB::SQLUnLock(const char* tables, int mode) {
    if (chengheng::LockService* locks = lockService())
        locks->unlock(textOrEmpty(tables), lockMode(mode));
}

const Status& CNbCwDB::lastStatus() const { return m_impl->status; }

const std::string& CNbCwDB::selectedName() const { return m_impl->databases.selectedName(); }

Status CNbCwDB::onSelected(const std::function<Status(Database&)>& work) {
    m_impl->run(work);
    return m_impl->status;
}

Status CNbCwDB::beginUnit() {
    m_impl->run([](Database& database) { return database.beginUnit(); });
    return m_impl->status;
}

Status CNbCwDB::commitUnit(const std::string& name, const chengheng::UnitWords& words) {
    Database* database = m_impl->databases.find(name);
    if (database != nullptr) sayInLog(*database, words);
    m_impl->settle(database == nullptr ? Status::of(Failure::notOpen, name)
                                       : database->commitUnit());
    return m_impl->status;
}

void CNbCwDB::rollbackUnit(const std::string& name) {
    if (Database* database = m_impl->databases.find(name)) database->rollbackUnit();
}

chengheng::LockService* CNbCwDB::lockService() {
    Database* const database = m_impl->databases.selected();
    return database == nullptr ? nullptr : &database->engine().locks();
}

chengheng::LockService* CNbCwDB::lockService(const std::string& name) {
    Database* const database = m_impl->databases.find(name);
    return database == nullptr ? nullptr : &database->engine().locks();
}

void CNbCwDB::setLockWaiter(chengheng::LockWaiter* waiter) {
    m_impl->databases.setLockWaiter(waiter);
}

void CNbCwDB::setLossObserver(std::function<void(const Status&)> observer) {
    m_impl->lossObserver = std::move(observer);
}

void CNbCwDB::setLockIdentity(const chengheng::LockIdentity& identity) {
    m_impl->databases.setLockIdentity(identity);
}

void CNbCwDB::keepLog(const chengheng::LogAuthor& author) { m_impl->databases.keepLog(author); }

Database* CNbCwDB::selectedDatabase() { return m_impl->databases.selected(); }
