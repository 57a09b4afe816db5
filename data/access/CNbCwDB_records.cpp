// The record-wise operations, made for every record type from its table's declaration.

#include "data/access/CNbCwDB_impl.h"
#include "data/access/unit_of_work.h"
#include "data/connection/row_io.h"

namespace chengheng {
namespace {

constexpr int failed = -1;

bool startsWithOrderBy(std::string_view condition) {
    constexpr std::string_view order = "ORDER BY";
    const auto start = condition.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos || condition.size() - start < order.size()) return false;
    for (std::size_t at = 0; at < order.size(); ++at) {
        char letter = condition[start + at];
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
        if (letter != order[at]) return false;
    }
    return true;
}

template <class Record>
std::string selectText(const char* condition) {
    std::string text = "SELECT " + columnList<Record>() + " FROM " + TableOf<Record>::name;
    if (condition != nullptr && condition[0] != '\0')
        text.append(startsWithOrderBy(condition) ? " " : " WHERE ").append(condition);
    return text;
}

/// "INSERT INTO Code VALUES ($1, $2, ...)"
template <class Record>
const std::string& insertSql() {
    static const std::string sql = [] {
        std::string text = std::string("INSERT INTO ") + TableOf<Record>::name + " VALUES (";
        for (int at = 1; at <= columnCount<Record>(); ++at)
            text += (at > 1 ? ", $" : "$") + std::to_string(at);
        return text + ")";
    }();
    return sql;
}

/// "UPDATE Code SET lId = $1, sCode = $2, ... WHERE lId = $1"
template <class Record>
const std::string& updateSql() {
    static const std::string sql = [] {
        std::string text = std::string("UPDATE ") + TableOf<Record>::name + " SET ";
        int at = 1;
        std::apply(
            [&](const auto&... columns) {
                ((text +=
                  (at > 1 ? ", " : "") + std::string(columns.name) + " = $" + std::to_string(at),
                  ++at),
                 ...);
            },
            TableOf<Record>::columns);
        return text + " WHERE lId = $1";
    }();
    return sql;
}

/// Posted and unposted vouchers share one sequence of ids: the other counter of a pair.
const char* partnerRow(std::string_view idRow) {
    if (idRow == "RegMain") return "UnRegMain";
    if (idRow == "RegSub") return "UnRegSub";
    if (idRow == "UnRegMain") return "RegMain";
    if (idRow == "UnRegSub") return "RegSub";
    return nullptr;
}

Status takeNextId(Database& database, const char* idRow, int& id) {
    if (Status status = database.lastId(idRow, id); !status) return status;
    const char* partner = partnerRow(idRow);
    if (partner != nullptr) {
        int partnerId = 0;
        if (Status status = database.lastId(partner, partnerId); !status) return status;
        id = std::max(id, partnerId);
    }
    ++id;
    Status status = database.setLastId(idRow, id);
    return status && partner != nullptr ? database.setLastId(partner, id) : status;
}

}  // namespace
}  // namespace chengheng

using chengheng::Cursor;
using chengheng::Failure;
using chengheng::Status;
using chengheng::TableOf;
using chengheng::Value;

template <class Record>
int CNbCwDB::readList(Record**& rows, int& count, const char* condition) {
    rows = nullptr;
    count = 0;
    auto& buffer = m_impl->table<Record>().records;
    buffer.clear();
    if (!m_impl->hasSelected()) return chengheng::failed;
    const auto read = [&buffer](Cursor& cursor) {
        while (true) {
            const Cursor::Step step = cursor.next();
            if (step == Cursor::Step::failed) return cursor.status();
            if (step == Cursor::Step::end) return Status::done();
            chengheng::readRecord(cursor, buffer.append());
        }
    };
    Status status = m_impl->selected->select(chengheng::selectText<Record>(condition), read);
    if (status && buffer.count() == 0) status = Status::of(Failure::missing, "no rows");
    if (!m_impl->settle(std::move(status))) {
        buffer.clear();
        return chengheng::failed;
    }
    rows = buffer.pointers();
    count = static_cast<int>(buffer.count());
    return 0;
}

template <class Record>
int CNbCwDB::readOne(Record*& row, int id) {
    row = nullptr;
    Record** rows = nullptr;
    int count = 0;
    const std::string condition = chengheng::formatSql("lId = %d", id);
    if (readList<Record>(rows, count, condition.c_str()) != 0) return chengheng::failed;
    row = rows[0];
    return 0;
}

template <class Record>
int CNbCwDB::readText(TextRow*& rows, int& count, const char* condition) {
    rows = nullptr;
    count = 0;
    auto& texts = m_impl->table<Record>().texts;
    texts = std::make_unique<chengheng::TextResult>();
    if (!m_impl->hasSelected()) return chengheng::failed;
    const auto read = [&texts](Cursor& cursor) { return texts->read(cursor); };
    Status status = m_impl->selected->select(chengheng::selectText<Record>(condition), read);
    if (status && texts->rows() == 0) status = Status::of(Failure::missing, "no rows");
    if (!m_impl->settle(std::move(status))) {
        texts.reset();
        return chengheng::failed;
    }
    rows = texts->textRows();
    count = texts->rows();
    return 0;
}

template <class Record>
void CNbCwDB::release() {
    m_impl->table<Record>().records.clear();
    m_impl->table<Record>().texts.reset();
}

template <class Record>
int CNbCwDB::add(const Record& record, int& newId) {
    if (!m_impl->hasSelected()) return chengheng::failed;
    const auto addRow = [&]() -> Status {
        chengheng::UnitOfWork unit(*this);
        if (!unit.isOpen()) return unit.status();
        int id = 0;
        Status status = chengheng::takeNextId(*m_impl->selected, TableOf<Record>::idRow, id);
        if (!status) return status;
        std::deque<std::string> texts;
        std::vector<Value> values = chengheng::recordValues(record, texts);
        values[0] = Value::of(std::int64_t{id});
        status = m_impl->selected->executePlain(chengheng::insertSql<Record>(), values);
        if (!status) return status;
        status = unit.commit();
        if (status) newId = id;
        return status;
    };
    return m_impl->settle(addRow()) ? 0 : chengheng::failed;
}

template <class Record>
int CNbCwDB::edit(const Record& record) {
    if (!m_impl->hasSelected()) return chengheng::failed;
    std::deque<std::string> texts;
    const std::vector<Value> values = chengheng::recordValues(record, texts);
    std::int64_t changed = 0;
    Status status =
        m_impl->selected->executePlain(chengheng::updateSql<Record>(), values, &changed);
    if (status && changed == 0) status = Status::of(Failure::missing, "no row of that id");
    return m_impl->settle(std::move(status)) ? 0 : chengheng::failed;
}

template <class Record>
int CNbCwDB::remove(int id) {
    if (!m_impl->hasSelected()) return chengheng::failed;
    static const std::string sql =
        std::string("DELETE FROM ") + TableOf<Record>::name + " WHERE lId = $1";
    const Value values[] = {Value::of(std::int64_t{id})};
    std::int64_t changed = 0;
    Status status = m_impl->selected->executePlain(sql, values, &changed);
    if (status && changed == 0) status = Status::of(Failure::missing, "no row of that id");
    return m_impl->settle(std::move(status)) ? 0 : chengheng::failed;
}

namespace {

/// Makes the operations of every record type; taking their addresses is enough.
template <class... Records>
[[maybe_unused]] auto everyOperation(chengheng::RecordList<Records...>) {
    return std::tuple{std::tuple{&CNbCwDB::readList<Records>, &CNbCwDB::readOne<Records>,
                                 &CNbCwDB::readText<Records>, &CNbCwDB::release<Records>,
                                 &CNbCwDB::add<Records>, &CNbCwDB::edit<Records>,
                                 &CNbCwDB::remove<Records>}...};
}

[[maybe_unused]] const auto operations = everyOperation(chengheng::AllRecords{});

}  // namespace
