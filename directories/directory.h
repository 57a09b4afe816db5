#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "session/record_change.h"

namespace chengheng {

/// The directories that accounts are split up by, and the classes these are kept in.
enum class DirectoryKind { department, person, unitClass, unit, projectClass, projectItem };

/// What a unit is to the firm; the numbers are those that are stored.
enum class UnitKind : std::uint8_t { both = 0, customer = 1, supplier = 2 };

/// A record of any directory.
struct DirectoryRecord {
    std::int32_t id = 0;     ///< of an item: within its class
    std::int32_t group = 0;  ///< id of a person's department, a unit's or an item's class
    std::string code = {};
    std::string name = {};
    UnitKind unitKind = UnitKind::both;

    bool operator==(const DirectoryRecord&) const = default;
};

/// Whether two records may bear one name.
enum class SharedNames {
    never,
    afterAQuestion,
    afterAQuestionInOtherGroups,  ///< never within their own one
};

/// What one directory has of its own; all else is the same for all of them.
struct Directory {
    DirectoryKind kind;
    const char* key;    ///< how the command line calls it
    const char* title;  ///< of its window
    const char* noun;   ///< what one of its records is
    int right;          ///< the function that its window is
    std::optional<DirectoryKind> groups;
    const char* groupLabel;  ///< null without groups
    bool hasUnitKinds;
    SharedNames sharedNames;
    int printTemplate;
    LockLists writing;   ///< to add and to modify
    LockLists deleting;  ///< to delete, which takes emptied balances along
};

inline constexpr int directoryCodeWidth = 20;  ///< in characters
inline constexpr int directoryNameWidth = 60;

/// All of them; what others are grouped by stands before them.
std::span<const Directory> directories();
const Directory& directoryOf(DirectoryKind kind);
/// The one that the command line calls so; null when none is.
const Directory* findDirectory(std::string_view key);

/// "01 销售部"
std::string directoryLine(const DirectoryRecord& record);

}  // namespace chengheng
