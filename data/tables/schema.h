#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace chengheng {

/// How a column is stored; follows from the type of the record's field.
enum class ColumnType {
    integer,          ///< l: 32-bit signed
    nullableInteger,  ///< l that may be unknown (NULL)
    byte,             ///< by: 0 to 255
    flag,             ///< b: 16-bit, 0 = no
    real,             ///< m and d: double
    single,           ///< f: single-precision
    text,             ///< s
    date,             ///< dt
};

struct ColumnInfo {
    std::string name;
    ColumnType type{};
};

/// A table of the set of books as plain data; declared in this folder, one beside each record.
struct TableInfo {
    std::string name;
    std::string idRow;                 ///< its counter in ABIdTable; empty: it has none
    std::vector<ColumnInfo> columns;   ///< in the order of positional inserts
    std::vector<std::string> indexes;  ///< each a list of columns, of some rows when WHERE follows
    bool isAddedToOnly = false;        ///< its rows are neither changed nor taken out
};

/// The number of the layout that this program writes. With another layout it rises by one, and
/// data/layout/layout_steps.cpp tells what leads there.
inline constexpr int booksFormatVersion = 7;

/// Every table of a set of books, in the order in which they are created.
const std::vector<TableInfo>& allTables();

/// The table of that name, in any case of letters; null when there is none.
const TableInfo* findTable(std::string_view name);

/// The item table of a project class: ProjItems and the class code; empty name when the
/// code holds anything but letters and digits.
TableInfo projectItemTable(std::string_view classCode);

}  // namespace chengheng
