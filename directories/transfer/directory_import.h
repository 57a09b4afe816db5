#pragma once

#include <optional>
#include <string>

#include "base/system/output_target.h"
#include "directories/transfer/directory_plan.h"
#include "session/record_change.h"

namespace chengheng {

/// Brings a directory from a spreadsheet into the open set of books (g_pDB): first a plan that
/// changes nothing, then exactly that plan, whole or not at all. Nothing is deleted. Whatever does
/// not give a plan or `done` has told the operator why.
class DirectoryImport {
  public:
    DirectoryImport(IMessages& messages, const Directory& directory)
        : m_messages(messages), m_directory(directory) {}

    /// Reads a CSV or XLSX file and decides on its rows.
    std::optional<DirectoryPlan> plan(const std::string& path);
    /// The same of a sheet that was read already.
    std::optional<DirectoryPlan> plan(Sheet sheet, const std::string& name);

    /// Does what the last plan says, under the locks of a change. What the rows ask is asked once
    /// for all. Stale when the books have changed so that the plan would be another one.
    Outcome apply(const DirectoryPlan& plan, const ImportProgress& progress = {});

  private:
    UntoldOutcome applyUnderLocks(const DirectoryPlan& plan, const ImportProgress& progress);

    IMessages& m_messages;
    const Directory& m_directory;
    DirectorySheet m_sheet;
    DirectoryState m_state;  ///< of the last plan
};

/// Writes the records of the open set of books as a file, CSV or XLSX by the end of its name, in
/// the order of the list; it reads back unchanged.
Outcome exportDirectory(IMessages& messages, const Directory& directory, const std::string& path,
                        Overwrite overwrite);

}  // namespace chengheng
