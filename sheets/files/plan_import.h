#pragma once

#include <optional>
#include <string>

#include "base/messages/messages.h"
#include "session/record_change.h"
#include "sheets/row_plan.h"
#include "sheets/sheet.h"

namespace chengheng {

// What every import that plans its rows tells and asks.

/// Reads the file that an operator named; what keeps it from being read is told.
std::optional<Sheet> readSheetToImport(IMessages& messages, const std::string& path);

/// Whether a plan may be carried out: no row is refused, and what the rows ask, which is asked
/// once for all, is accepted. The operator has been told.
bool isAccepted(IMessages& messages, const RowPlan& plan);

/// The books have changed so that the plan would be another one.
UntoldOutcome planOutdated();

/// What the operation log says of an import: "导入部门:新增 3 个,修改 1 个".
std::string importInWords(const char* what, std::size_t added, std::size_t changed);

}  // namespace chengheng
