#pragma once

#include <string>
#include <string_view>

#include "data/tables/schema.h"

namespace chengheng {

/// The numbers that are none of the infinities, for BETWEEN; what is no number lies beyond them.
inline constexpr const char* finiteReal = "-1.7976931348623157e308 AND 1.7976931348623157e308";
inline constexpr const char* finiteSingle = "-3.4028234663852886e38 AND 3.4028234663852886e38";

/// What a statement must look like on an engine.
struct EngineDialect {
    /// Follows a LIKE pattern, with a blank in front, so that a backslash takes the meaning off
    /// % and _.
    std::string_view likeEscape;
    /// Follows a select of an id counter inside a unit of work, to keep others from it.
    std::string_view rowLock;
    /// The type of a column with its collation and default, as it stands in CREATE TABLE.
    std::string (*columnDeclaration)(ColumnType type);
    /// What must hold for the values of a column, "byPeroid BETWEEN 0 AND 255"; empty where its
    /// type alone keeps everything else out.
    std::string (*columnCheck)(const ColumnInfo& column) = {};
    /// Whether a table that is there can be given columns, and checks for what is written from
    /// then on.
    bool altersTables = false;
    /// Statements that let rows pass as they are, and that check them again.
    std::string_view checksOff = {};
    std::string_view checksOn = {};
    /// Statements that have the database refuse changing and taking out rows of a table.
    std::string (*guard)(const std::string& table) = {};
    /// Statements that let them pass, and that refuse them again; null where that is so already.
    std::string (*guardOff)(const std::string& table) = {};
    std::string (*guardOn)(const std::string& table) = {};
    /// Selects what lies in the database beside tables and their guards: "trigger", "view" or
    /// "index", and its name, by kind and name.
    std::string_view otherObjects = {};
    /// The time by the clock of the database, in seconds since 1970.
    std::string_view now = {};
    /// Statements that give a new table to those who may use another one.
    std::string (*shareTable)(const std::string& table, const std::string& model) = {};
};

}  // namespace chengheng
