#include "screen/log/log_models.h"

#include <fmt/format.h>

#include "base/values/text.h"
#include "operationlog/log_names.h"
#include "operationlog/screen/log_screen_texts.h"
#include "screen/colours.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

namespace texts = log_screen_texts;

// A cell shows no more of a long text.
constexpr std::size_t charactersOfCell = 200;

constexpr GridColumn entryColumns[] = {
    {texts::number, 8, CellAlignment::number},
    {texts::time, 19},
    {texts::operatorName, 8},
    {texts::workstation, 8},
    {texts::words, 27},
    {texts::function, 11},
    {texts::rows, 6, CellAlignment::number},
};
enum EntryColumn {
    numberColumn,
    timeColumn,
    operatorColumn,
    stationColumn,
    wordsColumn,
    functionColumn
};

constexpr GridColumn changeColumns[] = {
    {texts::mark, 3, CellAlignment::centre},
    {texts::table, 9},
    {texts::row, 14},
    {texts::column, 11},
    {texts::before, 12},
    {texts::after, 12},
};
enum ChangeColumn { markColumn, tableColumn, rowColumn, nameColumn, beforeColumn, afterColumn };

QString cellText(const std::string& text) {
    return shown(printableLine(firstCharacters(text, charactersOfCell)));
}

QString rowText(const LogChange& change) {
    return change.row.empty() ? shown(fmt::format(texts::unnamedRow, change.id))
                              : cellText(change.row);
}

const char* markOf(ChangeKind kind) {
    switch (kind) {
        case ChangeKind::inserted:
            return texts::insertedMark;
        case ChangeKind::changed:
            return texts::changedMark;
        case ChangeKind::deleted:
            break;
    }
    return texts::deletedMark;
}

}  // namespace

int ReadOnModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows());
}

bool ReadOnModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && hasMore();
}

void ReadOnModel::fetchMore(const QModelIndex& parent) {
    if (parent.isValid()) return;
    readOn();
    emit fetched();
}

void ReadOnModel::append(std::size_t count, const std::function<void()>& add) {
    if (count == 0) return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(count) - 1);
    add();
    endInsertRows();
}

LogEntryModel::LogEntryModel(LogScreen& screen, QObject* parent)
    : ReadOnModel(entryColumns, screen, parent) {}

void LogEntryModel::readOn() {
    std::vector<LogEntry> more = screen().readMore();
    append(more.size(), [&] { screen().add(std::move(more)); });
}

void LogEntryModel::showFound() {
    beginResetModel();
    screen().showFound();
    endResetModel();
}

QString LogEntryModel::text(int row, int column) const {
    const LogEntry& entry = screen().entries()[static_cast<std::size_t>(row)];
    switch (column) {
        case numberColumn:
            return QString::number(entry.number);
        case timeColumn:
            return shown(shownLogTime(entry.time));
        case operatorColumn:
            return cellText(entry.operatorName);
        case stationColumn:
            return cellText(entry.workstation);
        case wordsColumn:
            return cellText(entry.words);
        case functionColumn:
            return shown(shownFunction(entry.function));
        default:
            return QString::number(entry.rows);
    }
}

LogChangeModel::LogChangeModel(LogScreen& screen, QObject* parent)
    : ReadOnModel(changeColumns, screen, parent) {}

void LogChangeModel::readOn() {
    std::vector<LogChange> more = screen().readMoreChanges();
    append(more.size(), [&] { screen().add(std::move(more)); });
}

void LogChangeModel::reset(const std::function<void()>& select) {
    beginResetModel();
    select();
    endResetModel();
}

QString LogChangeModel::text(int row, int column) const {
    const LogChange& change = screen().changes()[static_cast<std::size_t>(row)];
    switch (column) {
        case markColumn:
            return shown(markOf(change.kind));
        case tableColumn:
            return cellText(change.table);
        case rowColumn:
            return rowText(change);
        case nameColumn:
            return cellText(change.column);
        case beforeColumn:
            return cellText(change.before);
        default:
            return cellText(change.after);
    }
}

QColor LogChangeModel::background(int row, int column) const {
    const bool isSide = column == beforeColumn || column == afterColumn;
    const LogChange& change = screen().changes()[static_cast<std::size_t>(row)];
    return isSide && change.kind == ChangeKind::changed ? colours::found : QColor();
}

}  // namespace chengheng
