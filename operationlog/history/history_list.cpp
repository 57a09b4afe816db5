#include "operationlog/history/history_list.h"

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/connection/database.h"
#include "operationlog/log_names.h"
#include "operationlog/log_reading.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

constexpr std::size_t changesAtOnce = 100;

/// "2026-11-23 18:04:05" of "2026-11-23T18:04:05.123+08:00".
std::string shownTime(const std::string& time) {
    constexpr std::size_t dayLength = 10;
    constexpr std::size_t secondsEnd = 19;
    std::string text = time.substr(0, secondsEnd);
    if (text.size() > dayLength) text[dayLength] = ' ';
    return text;
}

bool isFilled(const LoggedCell& cell) {
    return cell != LoggedCell() && cell != LoggedCell(std::int64_t{0}) && cell != LoggedCell(0.0) &&
           cell != LoggedCell(std::string());
}

bool isShown(const LoggedColumn& column, const LoggedRow& row, const HistorySubject& subject) {
    if (!subject.column.empty()) return column.name == subject.column;
    if (row.kind == ChangeKind::changed) return true;
    return column.name != "lId" && (isFilled(column.before) || isFilled(column.after));
}

}  // namespace

std::vector<HistoryLine> historyLines(const RowEvent& event, const HistorySubject& subject) {
    const LoggedRow& row = event.row;
    const auto textOf = [&](const LoggedColumn& column, const LoggedCell& cell, bool isThere) {
        return isThere ? shownLogCell(subject.table, column.name, cell) : std::string();
    };
    std::vector<HistoryLine> lines;
    for (const LoggedColumn& column : row.columns) {
        if (!isShown(column, row, subject)) continue;
        lines.push_back({.time = shownTime(event.entry.time),
                         .who = event.entry.operatorName,
                         .where = event.entry.workstation,
                         .words = event.entry.words,
                         .kind = shownKind(row.kind),
                         .item = shownColumn(subject.table, column.name),
                         .before = textOf(column, column.before, row.kind != ChangeKind::inserted),
                         .after = textOf(column, column.after, row.kind != ChangeKind::deleted)});
    }
    return lines;
}

Status HistoryList::begin(Engine& engine) {
    const Status status = findLog(engine, m_hasLog);
    if (status && m_hasLog) m_history.emplace(engine, m_subject);
    return status;
}

Status HistoryList::readMore() {
    if (Status selected = selectOpenBooks(); !selected) return selected;
    return g_pDB->onSelected([this](Database& database) {
        Status status = m_history ? Status::done() : begin(database.engine());
        if (!status || !m_history) return status;
        std::vector<RowEvent> events;
        status = m_history->read(changesAtOnce, events);
        for (const RowEvent& event : events)
            for (HistoryLine& line : historyLines(event, m_subject))
                m_lines.push_back(std::move(line));
        return status;
    });
}

}  // namespace chengheng
