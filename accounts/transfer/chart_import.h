#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "accounts/transfer/import_plan.h"
#include "accounts/transfer/plan_writing.h"
#include "base/system/output_target.h"
#include "session/record_change.h"

namespace chengheng {

/// Brings a chart from a spreadsheet into the open set of books (g_pDB): first a plan that
/// changes nothing, then exactly that plan, whole or not at all. Whatever does not give a plan
/// or `done` has told the operator why.
class ChartImport {
  public:
    explicit ChartImport(IMessages& messages) : m_messages(messages) {}

    /// Reads a CSV or XLSX file and decides on its rows.
    std::optional<ImportPlan> plan(const std::string& path);
    /// The same of a sheet that was read already.
    std::optional<ImportPlan> plan(const Sheet& sheet, const std::string& name);

    /// Does what the last plan says, under the locks of a change. What the rows ask is asked
    /// once for all. Stale when the books have changed so that the plan would be another one.
    Outcome apply(const ImportPlan& plan, const ImportProgress& progress = {});

  private:
    UntoldOutcome applyUnderLocks(const ImportPlan& plan, const ImportProgress& progress);

    IMessages& m_messages;
    ChartSheet m_sheet;
};

/// Writes the chart of the open set of books as a file, CSV or XLSX by the end of its name; it
/// reads back unchanged.
Outcome exportChart(IMessages& messages, const std::string& path, Overwrite overwrite);

}  // namespace chengheng
