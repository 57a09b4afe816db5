#include "operationlog/log_names.h"

#include <fmt/format.h>

#include "base/values/numbers.h"
#include "data/connection/log_store.h"
#include "data/tables/schema.h"
#include "operationlog/log_name_texts.h"
#include "session/rights_list.h"

namespace chengheng {
namespace {

constexpr std::string_view itemTables = "ProjItems";

/// The item tables of all project classes are alike.
std::string_view kindOf(std::string_view table) {
    return table.starts_with(itemTables) ? itemTables : table;
}

bool isFlag(std::string_view table, std::string_view column) {
    const TableInfo* const known = findTable(table);
    if (known == nullptr) return false;
    for (const ColumnInfo& each : known->columns)
        if (each.name == column) return each.type == ColumnType::flag;
    return false;
}

/// The name in a table of names where an entry of the table at hand goes before one of all tables.
template <class Names, class Fits>
const char* nameIn(Names names, std::string_view table, Fits fits) {
    const char* common = nullptr;
    for (const auto& each : names) {
        if (!fits(each)) continue;
        if (each.table == table) return each.name;
        if (*each.table == '\0') common = each.name;
    }
    return common;
}

std::string shownNumber(std::string_view table, std::string_view column, std::int64_t number) {
    const char* const word =
        nameIn(log_name_texts::values(), table, [&](const log_name_texts::ValueName& each) {
            return each.column == column && each.value == number;
        });
    if (word != nullptr) return word;
    if (isFlag(table, column)) return number != 0 ? log_name_texts::yes : log_name_texts::no;
    return std::to_string(number);
}

bool isSecret(std::string_view table, std::string_view column) {
    return table == "Users" && column == "sPassword";
}

}  // namespace

std::string shownTable(std::string_view table) {
    for (const auto& each : log_name_texts::tables())
        if (each.table == table) return each.name;
    if (!table.starts_with(itemTables)) return std::string(table);
    return fmt::format(log_name_texts::projectItems, table.substr(itemTables.size()));
}

std::string shownColumn(std::string_view table, std::string_view column) {
    const char* const name =
        nameIn(log_name_texts::columns(), kindOf(table),
               [column](const log_name_texts::ColumnName& each) { return each.column == column; });
    return name != nullptr ? name : std::string(column);
}

std::string shownLogCell(std::string_view table, std::string_view column, const LoggedCell& cell) {
    if (const auto* const number = std::get_if<std::int64_t>(&cell))
        return shownNumber(table, column, *number);
    if (const auto* const number = std::get_if<double>(&cell)) return ftoa(*number);
    const auto* const text = std::get_if<std::string>(&cell);
    if (text == nullptr) return log_name_texts::nothing;
    if (!isSecret(table, column)) return *text;
    return *text == "**" ? log_name_texts::hiddenOther : log_name_texts::hidden;
}

const char* shownKind(ChangeKind kind) {
    switch (kind) {
        case ChangeKind::inserted:
            return log_name_texts::inserted;
        case ChangeKind::changed:
            return log_name_texts::changed;
        case ChangeKind::deleted:
            break;
    }
    return log_name_texts::deleted;
}

std::string shownFunction(std::int32_t function) {
    if (function == 0) return {};
    if (function == brokenEnd) return log_name_texts::brokenEnd;
    if (function == logonFunction) return log_name_texts::logon;
    const char* const name = functionName(function);
    return name != nullptr ? name : fmt::format(log_name_texts::unknownFunction, function);
}

}  // namespace chengheng
