#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "base/messages/checks.h"
#include "directories/directory.h"

namespace chengheng {

/// The fields that get the focus when an input is refused.
inline constexpr const char* directoryCodeField = "sCode";
inline constexpr const char* directoryNameField = "sName";
inline constexpr const char* directoryGroupField = "lGroup";
inline constexpr const char* directoryKindField = "byKind";

/// The record without the blanks around its texts.
DirectoryRecord tidied(DirectoryRecord record);

/// What the checks of a record look at. Others are asked for only when their turn comes.
struct DirectoryFacts {
    using Bearers = std::function<std::vector<DirectoryRecord>(const std::string& text)>;

    const Directory& directory;
    const DirectoryRecord& wanted;  ///< tidied; its id is 0 when it is to be added
    std::function<bool()> isGroupThere;
    Bearers bearersOfCode;  ///< the stored records with the code; of items those of the class
    Bearers bearersOfName;
    /// Of a project class, whose code names a table: those with the code in any case of letters.
    Bearers bearersOfClassCode;
};

/// In their order; a refusal names the field that gets the focus.
std::span<const Check<DirectoryFacts>> directoryChecks();

/// The record that another comes to share its name with, where that is to be asked about. One that
/// is stored under its name already is not asked about again; `bearers` then holds it, too.
const DirectoryRecord* sharedNameToAsk(const DirectoryFacts& facts,
                                       std::span<const DirectoryRecord> bearers);

}  // namespace chengheng
