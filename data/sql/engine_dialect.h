#pragma once

#include <string>
#include <string_view>

#include "data/tables/schema.h"

namespace chengheng {

/// What a statement must look like on an engine.
struct EngineDialect {
    /// Follows a LIKE pattern, with a blank in front, so that a backslash takes the meaning off
    /// % and _.
    std::string_view likeEscape;
    /// Follows a select of an id counter inside a unit of work, to keep others from it.
    std::string_view rowLock;
    /// The type of a column with its collation and default, as it stands in CREATE TABLE.
    std::string (*columnDeclaration)(ColumnType type);
    /// Selects what lies in the database beside tables: "trigger", "view" or "index", and its
    /// name, by kind and name.
    std::string_view otherObjects = {};
    /// The time by the clock of the database, in seconds since 1970.
    std::string_view now = {};
    /// Statements that give a new table to those who may use another one.
    std::string (*shareTable)(const std::string& table, const std::string& model) = {};
};

}  // namespace chengheng
