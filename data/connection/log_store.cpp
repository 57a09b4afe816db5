#include "data/connection/log_store.h"

#include <algorithm>
#include <array>
#include <limits>

#include "data/log/log_time.h"

namespace chengheng {
namespace {

constexpr const char* insertEntrySql =
    "INSERT INTO OperationLog (lId, sTime, lUserId, sUser, sStation, lProcess, sProgram, "
    "lFunction, sWords, sUnit, lParts, lRows, sPartsHash, sHash) VALUES ($1, $2, $3, $4, $5, $6, "
    "$7, $8, $9, $10, $11, $12, $13, $14)";
constexpr const char* insertPartSql =
    "INSERT INTO OperationLogPart (sUnit, lPart, sTable, lLowest, lHighest, lLowAccount, "
    "lHighAccount, lRows, sPacked) VALUES ($1, $2, $3, $4, $5, $6, $7, $8, $9)";
// What a select in a select sees may be older than the row that it waited for, never newer, so
// that only entries beyond the end are a sign of anything.
constexpr const char* readHeadSql =
    "SELECT lLastId, sHash, (SELECT max(lId) FROM OperationLog) FROM OperationLogHead "
    "WHERE lId = 1";
constexpr const char* writeHeadSql =
    "UPDATE OperationLogHead SET lLastId = $1, sHash = $2 WHERE lId = 1";
constexpr const char* makeHeadSql =
    "INSERT INTO OperationLogHead (lId, lLastId, sHash) VALUES (1, 0, $1) ON CONFLICT DO NOTHING";

constexpr int entryWidth = 14;
constexpr const char* headTable = "OperationLogHead";

Value whole(std::int64_t number) { return Value::of(number); }
Value text(std::string_view words) { return Value::of(words); }

}  // namespace

LogEntry entryOf(const LogAuthor& author, const LogWords& words) {
    return {.number = 0,
            .time = logTime(std::chrono::system_clock::now()),
            .operatorId = author.operatorId,
            .operatorName = author.operatorName,
            .workstation = author.workstation,
            .process = author.process,
            .program = author.program,
            .function = words.function,
            .words = words.text,
            .unit = {},
            .parts = 0,
            .rows = 0,
            .partsHash = ChainHash().text(),
            .hash = {}};
}

Status LogStore::prepare(const char* sql, int parameters,
                         std::unique_ptr<PreparedStatement>& statement) {
    return statement != nullptr ? Status::done() : m_engine.prepare(sql, parameters, statement);
}

Status LogStore::addParts(const std::string& unit, const std::vector<LogPart>& parts) {
    if (parts.empty()) return Status::done();
    constexpr int width = 9;
    if (Status status = prepare(insertPartSql, width, m_insertPart); !status) return status;
    std::vector<std::array<Value, width>> values;
    values.reserve(parts.size());
    std::vector<Command> commands;
    for (const LogPart& part : parts) {
        values.push_back({text(unit), whole(part.number), text(part.table), whole(part.lowestId),
                          whole(part.highestId), whole(part.lowestAccount),
                          whole(part.highestAccount), whole(part.rows), text(part.packed)});
        commands.push_back({m_insertPart.get(), values.back()});
    }
    return m_engine.execute(commands);
}

Status LogStore::readHead(Head& head, bool& isFound) {
    const std::string sql = std::string(readHeadSql).append(m_engine.dialect().rowLock);
    Status status = prepare(sql.c_str(), 0, m_readHead);
    std::unique_ptr<Cursor> cursor;
    if (status) status = m_engine.open({m_readHead.get(), {}}, cursor);
    if (!status) return status;
    const Cursor::Step step = cursor->next();
    if (step == Cursor::Step::failed) return cursor->status();
    isFound = step == Cursor::Step::row;
    if (!isFound) return Status::done();
    head.last = cursor->integer(0);
    head.hash = cursor->text(1);
    const std::int64_t highest = cursor->integer(2);
    head.isBroken = highest > head.last || head.last < 0;
    // Its number is given away already; what stands in the way of all others is left alone.
    if (head.isBroken && highest < std::numeric_limits<std::int32_t>::max())
        head.last = std::max<std::int64_t>(highest, 0);
    return Status::done();
}

Status LogStore::holdHead(Head& head) {
    bool isFound = false;
    if (Status status = readHead(head, isFound); !status || isFound) return status;
    // Two who begin the log at once: one makes its end, the other waits for it here.
    const std::array first{text(noHashBefore)};
    std::unique_ptr<PreparedStatement> makeHead;
    Status status = prepare(makeHeadSql, 1, makeHead);
    const Command make{makeHead.get(), first};
    if (status) status = m_engine.execute({&make, 1});
    if (status) status = readHead(head, isFound);
    if (status && !isFound) status = Status::of(Failure::damaged, headTable);
    return status;
}

Status LogStore::addEntry(LogEntry& entry) {
    Status status = prepare(insertEntrySql, entryWidth, m_insertEntry);
    if (status) status = prepare(writeHeadSql, 2, m_writeHead);
    Head head;
    if (status) status = holdHead(head);
    if (!status) return status;
    if (head.isBroken) {
        LogEntry broken = entry;
        broken.function = brokenEnd;
        broken.words = headTable;
        broken.unit.clear();
        broken.parts = 0;
        broken.rows = 0;
        broken.partsHash = ChainHash().text();
        status = append(broken, head);
    }
    return status ? append(entry, head) : status;
}

Status LogStore::append(LogEntry& entry, Head& head) {
    entry.number = ++head.last;
    entry.hash = entryHash(head.hash, entry);
    head.hash = entry.hash;
    const std::array<Value, entryWidth> values{
        whole(entry.number),      text(entry.time),        whole(entry.operatorId),
        text(entry.operatorName), text(entry.workstation), whole(entry.process),
        text(entry.program),      whole(entry.function),   text(entry.words),
        text(entry.unit),         whole(entry.parts),      whole(entry.rows),
        text(entry.partsHash),    text(entry.hash)};
    const std::array end{whole(entry.number), text(entry.hash)};
    const std::array commands{Command{m_insertEntry.get(), values},
                              Command{m_writeHead.get(), end}};
    return m_engine.execute(commands);
}

Status noteInLog(Engine& engine, const LogAuthor& author, const LogWords& words) {
    LogEntry entry = entryOf(author, words);
    return LogStore(engine).addEntry(entry);
}

}  // namespace chengheng
