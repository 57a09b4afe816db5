#pragma once

#include <string>
#include <string_view>

namespace chengheng {

/// A changing statement in the form that gives back what it does to rows.
struct WatchedStatement {
    std::string sql;
    std::string table;  ///< as the statement writes it; empty of a statement that changes no rows
    /// Each row given back is the one before and the one after, side by side.
    bool isUpdate = false;
};

/// The table that an INSERT, UPDATE or DELETE names; empty of every other statement.
std::string changedTable(std::string_view sql);

/// The form of a changing statement that gives back its rows. In place of "UPDATE t SET ... WHERE
/// ..." the rows are first read and kept as they are, because an UPDATE gives back only what it
/// leaves.
WatchedStatement watchedStatement(std::string_view sql);

}  // namespace chengheng
