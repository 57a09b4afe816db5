#pragma once

#include <vector>

#include "directories/directory.h"
#include "directories/transfer/directory_sheet.h"
#include "sheets/row_plan.h"

namespace chengheng {

/// What the rows of a sheet are held against.
struct DirectoryState {
    std::vector<DirectoryRecord> records;  ///< of the directory
    std::vector<DirectoryRecord> groups;   ///< what they are grouped by

    bool operator==(const DirectoryState&) const = default;
};

/// The import of a directory as it is shown before it is done.
struct DirectoryPlan : RowPlan {
    std::vector<DirectoryRecord> added;    ///< in the order of the sheet, without ids
    std::vector<DirectoryRecord> changed;  ///< as they shall be

    bool operator==(const DirectoryPlan&) const = default;
};

/// Decides on every row under the checks of the window: records of a code that is there are
/// modified, of items those of their class, all others added. What a column that is not there or
/// an empty cell of a group or kind would say stays as it is.
DirectoryPlan planDirectory(const Directory& directory, const DirectorySheet& sheet,
                            const DirectoryState& state);

}  // namespace chengheng
