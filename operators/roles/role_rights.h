#pragma once

#include <compare>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "operators/operator_rules.h"

namespace chengheng {

/// One thing that a role may do. Names are as the server has them, in small letters.
struct Privilege {
    std::string table;   ///< empty: the schema (USAGE) or the database (CONNECT)
    std::string what;    ///< "SELECT", "INSERT", "UPDATE", "DELETE"
    std::string column;  ///< empty: every column; "database" of that

    bool isOfDatabase() const { return table.empty() && !column.empty(); }
    auto operator<=>(const Privilege&) const = default;
};

/// Which rows of a table a role may do it to, where these are not all.
struct RowPolicy {
    std::string table;
    std::string what;
    std::string condition;

    auto operator<=>(const RowPolicy&) const = default;
};

struct RoleRights {
    std::set<Privilege> privileges;
    std::set<RowPolicy> policies;
};

/// What an operator may do with the tables that are there, by the rights list.
RoleRights roleRightsOf(const OperatorRecord& record, std::span<const std::string> tables);

}  // namespace chengheng
