#pragma once

#include <span>

// What operators call the tables and columns of the books.

namespace chengheng::log_name_texts {

struct TableName {
    const char* table;
    const char* name;
};

std::span<const TableName> tables();

/// The items of a project class; {} is its code.
inline constexpr const char* projectItems = "项目({})";

struct ColumnName {
    const char* table;  ///< empty: of every table that has no other name for it
    const char* column;
    const char* name;
};

std::span<const ColumnName> columns();

/// What a number in a column stands for.
struct ValueName {
    const char* table;  ///< empty: in every table that has no other word for it
    const char* column;
    int value;
    const char* name;
};

std::span<const ValueName> values();

inline constexpr const char* yes = "是";
inline constexpr const char* no = "否";
/// In place of what is unknown.
inline constexpr const char* nothing = "(空)";
/// In place of what the log never holds, and of the same when it is another one than before.
inline constexpr const char* hidden = "(不记录)";
inline constexpr const char* hiddenOther = "(不记录,已更改)";

/// A month of the books; {} is its number.
inline constexpr const char* month = "{}月";

/// What became of a row.
inline constexpr const char* inserted = "增加";
inline constexpr const char* changed = "修改";
inline constexpr const char* deleted = "删除";

/// A function that an entry names and the list of rights does not have. {} is its number.
inline constexpr const char* logon = "登录";
inline constexpr const char* brokenEnd = "日志末尾不符";
inline constexpr const char* unknownFunction = "功能 {}";

}  // namespace chengheng::log_name_texts
