#include "data/connection/operation_log.h"

#include <fmt/format.h>

#include "data/connection/database.h"
#include "data/log/log_time.h"

namespace chengheng {
namespace {

constexpr const char* counter = "OperationLog";
constexpr std::string_view insertEntry =
    "INSERT INTO OperationLog (lId, sTime, lUserId, sUser, sStation, lProcess, sProgram, "
    "lFunction, sWords, sUnit, lParts, lRows, sPartsHash, sHash) VALUES ($1, $2, $3, $4, $5, $6, "
    "$7, $8, $9, $10, $11, $12, $13, $14)";
constexpr std::string_view insertPart =
    "INSERT INTO OperationLogPart (sUnit, lPart, sTable, lLowest, lHighest, lRows, sPacked) "
    "VALUES ($1, $2, $3, $4, $5, $6, $7)";
constexpr std::string_view readHash = "SELECT sHash FROM OperationLog WHERE lId = $1";

Value whole(std::int64_t number) { return Value::of(number); }
Value text(std::string_view words) { return Value::of(words); }

}  // namespace

const TableInfo& operationLogTable() {
    static const TableInfo table{"OperationLog",
                                 counter,
                                 {{"lId", ColumnType::integer},
                                  {"sTime", ColumnType::text},
                                  {"lUserId", ColumnType::integer},
                                  {"sUser", ColumnType::text},
                                  {"sStation", ColumnType::text},
                                  {"lProcess", ColumnType::integer},
                                  {"sProgram", ColumnType::text},
                                  {"lFunction", ColumnType::integer},
                                  {"sWords", ColumnType::text},
                                  {"sUnit", ColumnType::text},
                                  {"lParts", ColumnType::integer},
                                  {"lRows", ColumnType::integer},
                                  {"sPartsHash", ColumnType::text},
                                  {"sHash", ColumnType::text}},
                                 {"sTime", "lUserId", "lFunction"}};
    return table;
}

const TableInfo& operationLogPartTable() {
    static const TableInfo table{"OperationLogPart",
                                 "",
                                 {{"sUnit", ColumnType::text},
                                  {"lPart", ColumnType::integer},
                                  {"sTable", ColumnType::text},
                                  {"lLowest", ColumnType::integer},
                                  {"lHighest", ColumnType::integer},
                                  {"lRows", ColumnType::integer},
                                  {"sPacked", ColumnType::text}},
                                 {"sUnit, lPart", "sTable, lLowest"}};
    return table;
}

void OperationLog::clear() {
    m_changes.clear();
    m_words = {};
    m_unit.clear();
}

Status OperationLog::writeParts(Database& database, bool isEnd) {
    const std::vector<LogPart> parts = m_changes.takeParts(isEnd);
    if (!m_changes.isWhole()) return Status::of(Failure::full, "a changed row cannot be logged");
    if (!parts.empty() && m_unit.empty()) m_unit = newUnitName();
    Status status = Status::done();
    for (const LogPart& part : parts) {
        const Value values[] = {text(m_unit),         whole(part.number),    text(part.table),
                                whole(part.lowestId), whole(part.highestId), whole(part.rows),
                                text(part.packed)};
        if (status) status = database.executePlain(insertPart, values);
    }
    // What was taken out and is not stored would be missing from the entry.
    if (!status) m_changes.missed();
    return status;
}

Status OperationLog::readHead(Database& database, std::int64_t& number, std::string& hash) const {
    int last = 0;
    hash = noHashBefore;
    if (Status status = database.lastId(counter, last); !status) return status;
    number = std::int64_t{last} + 1;
    if (last == 0) return Status::done();
    const auto read = [&hash](Cursor& cursor) {
        const Cursor::Step step = cursor.next();
        if (step == Cursor::Step::failed) return cursor.status();
        // Behind a hole the chain begins anew, which a look at the whole of it tells.
        if (step == Cursor::Step::row) hash = cursor.text(0);
        return Status::done();
    };
    const Value values[] = {whole(last)};
    return database.selectPlain(readHash, values, read);
}

std::string OperationLog::wordsOfTables() const {
    std::string words;
    for (const auto& [table, rows] : m_changes.tables())
        words += fmt::format("{}{} {}", words.empty() ? "" : ", ", table, rows);
    return words;
}

Status OperationLog::writeEntry(Database& database) {
    if (m_changes.isEmpty() && m_changes.isWhole()) return Status::done();
    if (Status status = writeParts(database, true); !status) return status;
    LogEntry entry{.number = 0,
                   .time = logTime(std::chrono::system_clock::now()),
                   .operatorId = m_author.operatorId,
                   .operatorName = m_author.operatorName,
                   .workstation = m_author.workstation,
                   .process = m_author.process,
                   .program = m_author.program,
                   .function = m_words.function,
                   .words = m_words.text.empty() ? wordsOfTables() : m_words.text,
                   .unit = m_unit,
                   .parts = m_changes.parts(),
                   .rows = m_changes.rows(),
                   .partsHash = m_changes.partsHash(),
                   .hash = {}};
    std::string hashBefore;
    if (Status status = readHead(database, entry.number, hashBefore); !status) return status;
    entry.hash = entryHash(hashBefore, entry);
    const Value values[] = {
        whole(entry.number),      text(entry.time),        whole(entry.operatorId),
        text(entry.operatorName), text(entry.workstation), whole(entry.process),
        text(entry.program),      whole(entry.function),   text(entry.words),
        text(entry.unit),         whole(entry.parts),      whole(entry.rows),
        text(entry.partsHash),    text(entry.hash)};
    if (Status status = database.executePlain(insertEntry, values); !status) return status;
    return database.setLastId(counter, static_cast<int>(entry.number));
}

}  // namespace chengheng
