#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "base/values/date.h"
#include "base/values/utf8.h"
#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_texts.h"
#include "data/tables/schema.h"
#include "data/transfer/stored_tables.h"
#include "directories/directory.h"

namespace chengheng {
namespace {

// May be in clear where something is wrong with it.
constexpr std::string_view passwordColumn = "sPassword";

struct WholeNumbers {
    std::int64_t least;
    std::int64_t most;
};

WholeNumbers rangeOf(const ColumnInfo& column) {
    if (column.name == "byKind") return {0, static_cast<std::int64_t>(UnitKind::supplier)};
    const ColumnType type = column.type;
    if (type == ColumnType::byte) return {0, std::numeric_limits<std::uint8_t>::max()};
    if (type == ColumnType::flag)
        return {std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()};
    return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
}

bool isControl(char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r') || byte == 0x7F;
}

/// As it may be shown: without what would not be seen or would break the line.
std::string shownCell(std::string_view text) {
    constexpr std::size_t mostBytes = 40;
    const char* const end = firstBeyondUtf8(text.substr(0, mostBytes));
    std::string shown(text.data(), end);
    for (char& letter : shown)
        if (isControl(letter) || letter == '\t' || letter == '\n' || letter == '\r') letter = '?';
    return shown.size() == text.size() ? shown : shown + "…";
}

std::string wholeNumberFault(const ColumnInfo& info, const Cursor& row, int column) {
    if (row.kind(column) != ValueKind::integer)
        return integrity_texts::notWhole(shownCell(row.text(column)));
    const WholeNumbers range = rangeOf(info);
    const std::int64_t number = row.integer(column);
    return number < range.least || number > range.most
               ? integrity_texts::outOfRange(number, range.least, range.most)
               : std::string();
}

std::string numberFault(ColumnType type, const Cursor& row, int column) {
    if (row.kind(column) == ValueKind::text)
        return integrity_texts::notNumber(shownCell(row.text(column)));
    const double number = row.real(column);
    const bool isFinite = type == ColumnType::single ? std::isfinite(static_cast<float>(number))
                                                     : std::isfinite(number);
    return isFinite ? std::string() : integrity_texts::notFinite;
}

std::string textFault(std::string_view text) {
    const auto isPlain = [](char letter) { return letter >= ' ' && letter <= '~'; };
    if (std::ranges::all_of(text, isPlain)) return {};
    if (!isUtf8(text)) return integrity_texts::notUtf8;
    for (const char letter : text)
        if (isControl(letter)) return integrity_texts::controlCharacter(shownCell(text));
    return {};
}

/// What is wrong with a value of a column; empty when nothing is.
std::string cellFault(const ColumnInfo& info, const Cursor& row, int column) {
    if (row.kind(column) == ValueKind::null) return {};
    switch (info.type) {
        case ColumnType::integer:
        case ColumnType::nullableInteger:
        case ColumnType::byte:
        case ColumnType::flag:
            return wholeNumberFault(info, row, column);
        case ColumnType::real:
        case ColumnType::single:
            return numberFault(info.type, row, column);
        case ColumnType::text:
            return textFault(row.text(column));
        case ColumnType::date:
            break;
    }
    const std::string_view date = row.text(column);
    return date.empty() || parseDate(date) ? std::string()
                                           : integrity_texts::notDate(shownCell(date));
}

Status checkTable(Engine& engine, const TableInfo& table, FaultList& faults) {
    const std::string sql = "SELECT " + columnNames(table) + " FROM " + table.name;
    return forEachRow(engine, sql, {}, [&](const Cursor& row) {
        int column = 0;
        for (const ColumnInfo& info : table.columns) {
            std::string fault = cellFault(info, row, column++);
            if (fault.empty()) continue;
            if (info.name == passwordColumn) fault = integrity_texts::passwordWrong;
            faults.add(
                integrity_texts::cellWrong(table.name, shownCell(row.text(0)), info.name, fault));
        }
        return Status::done();
    });
}

}  // namespace

Status checkCells(CheckedBooks& books, FaultList& faults) {
    std::vector<TableInfo> tables;
    Status status = storedTables(books.engine(), tables);
    for (const TableInfo& table : tables)
        if (status) status = checkTable(books.engine(), table, faults);
    return status;
}

}  // namespace chengheng
