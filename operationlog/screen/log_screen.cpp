#include "operationlog/screen/log_screen.h"

#include <fmt/format.h>

#include <iterator>
#include <utility>

#include "base/messages/refusal.h"
#include "base/values/text.h"
#include "data/access/CNbCwDB.h"
#include "data/connection/database.h"
#include "operationlog/log_names.h"
#include "operationlog/log_rows.h"
#include "operationlog/row_names.h"
#include "operationlog/screen/log_screen_texts.h"
#include "session/host_globals.h"
#include "session/last_failure.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

// More than a screen shows.
constexpr int entriesAtOnce = 200;
constexpr std::size_t shownWords = 400;

Status onBooks(const std::function<Status(Engine&)>& work) {
    if (Status status = selectOpenBooks(); !status) return status;
    return g_pDB->onSelected([&work](Database& books) { return work(books.engine()); });
}

std::string cutShort(const std::string& text) {
    const std::string_view first = firstCharacters(text, shownWords);
    return first.size() == text.size() ? text : fmt::format(log_screen_texts::cutShort, first);
}

void addChanges(const std::string& table, const LoggedRow& row, const std::string& name,
                std::vector<LogChange>& changes) {
    for (const LoggedColumn& column : row.columns) {
        LogChange change{.kind = row.kind,
                         .table = shownTable(table),
                         .id = row.id,
                         .row = cutShort(name),
                         .column = shownColumn(table, column.name),
                         .before = {},
                         .after = {}};
        if (row.kind != ChangeKind::inserted)
            change.before = cutShort(shownLogCell(table, column.name, column.before));
        if (row.kind != ChangeKind::deleted)
            change.after = cutShort(shownLogCell(table, column.name, column.after));
        changes.push_back(std::move(change));
    }
}

}  // namespace

bool LogScreen::open() {
    const Status status = onBooks([this](Engine& engine) {
        Status read = readLogOperators(engine, m_operators);
        return read ? readLogFunctions(engine, m_functions) : read;
    });
    if (status) return look(m_filter);
    tellLastFailure(m_messages);
    return false;
}

bool LogScreen::readMoment(std::string& moment, const char* field) {
    if (withoutBlanksAround(moment).empty()) {
        moment.clear();
        return true;
    }
    const auto read = logMoment(moment);
    if (!read)
        m_messages.tell(
            inputRefusal(fmt::format(log_screen_texts::wrongMoment, moment), field).notice);
    else
        moment = *read;
    return read.has_value();
}

bool LogScreen::look(LogFilter typed) {
    if (!readMoment(typed.from, log_field::from) || !readMoment(typed.to, log_field::to))
        return false;
    typed.account = withoutBlanksAround(typed.account);
    Found found;
    const Status status = onBooks([&](Engine& engine) {
        found.pages = std::make_unique<LogPages>(engine, typed);
        return found.pages->read(entriesAtOnce, found.entries);
    });
    if (!status) {
        tellLastFailure(m_messages);
        return false;
    }
    found.filter = std::move(typed);
    m_found = std::move(found);
    return true;
}

void LogScreen::showFound() {
    m_hasFailed = false;
    m_filter = std::move(m_found.filter);
    m_pages = std::move(m_found.pages);
    m_entries = std::move(m_found.entries);
    m_found = {};
}

std::vector<LogEntry> LogScreen::readMore() {
    std::vector<LogEntry> entries;
    if (!hasMore()) return entries;
    const Status status = onBooks([&](Engine&) { return m_pages->read(entriesAtOnce, entries); });
    if (status) return entries;
    m_hasFailed = true;
    m_failure = lastFailureNotice();
    return {};
}

void LogScreen::add(std::vector<LogEntry> entries) {
    m_entries.insert(m_entries.end(), std::make_move_iterator(entries.begin()),
                     std::make_move_iterator(entries.end()));
}

std::string LogScreen::countText() const {
    if (m_entries.empty()) return log_screen_texts::nothingFound;
    return hasMore() ? fmt::format(log_screen_texts::moreBelow, m_entries.size())
                     : fmt::format(log_screen_texts::allShown, m_entries.size());
}

void LogScreen::select(std::size_t row) {
    m_selected.reset();
    if (row < m_entries.size()) m_selected = m_entries[row];
    m_part = 0;
    m_isSelectedRead = false;
    m_changes = readMoreChanges();
}

std::string LogScreen::heading() const {
    if (!m_selected) return {};
    const LogEntry& entry = *m_selected;
    std::string text = fmt::format(
        log_screen_texts::heading, entry.number, entry.time, printableLine(entry.operatorName),
        entry.operatorId, printableLine(entry.workstation), entry.process,
        printableLine(entry.program), cutShort(printableLine(entry.words)));
    if (entry.rows == 0) text.append("\n").append(log_screen_texts::noRows);
    return text;
}

Status LogScreen::readPart(std::vector<LogChange>& changes) {
    return onBooks([&](Engine& engine) {
        LogRows rows;
        Status status = readPartBehind(engine, m_selected->unit, m_part, rows);
        m_isSelectedRead = rows.part == 0;
        m_part = rows.part;
        std::vector<std::string> names;
        if (status) status = LogRowNames(engine).find(rows.table, rows.rows, names);
        for (std::size_t at = 0; status && at < rows.rows.size(); ++at)
            addChanges(rows.table, rows.rows[at], names[at], changes);
        return status;
    });
}

std::vector<LogChange> LogScreen::readMoreChanges() {
    std::vector<LogChange> changes;
    if (!hasMoreChanges()) return changes;
    if (readPart(changes)) return changes;
    m_isSelectedRead = true;
    m_failure = lastFailureNotice();
    return {};
}

void LogScreen::add(std::vector<LogChange> changes) {
    m_changes.insert(m_changes.end(), std::make_move_iterator(changes.begin()),
                     std::make_move_iterator(changes.end()));
}

void LogScreen::tellFailure() {
    if (const auto failure = std::exchange(m_failure, std::nullopt)) m_messages.tell(*failure);
}

}  // namespace chengheng
