#pragma once

#include <functional>
#include <string>

#include "session/record_change.h"
#include "sheets/row_plan.h"
#include "tool/tool.h"

namespace chengheng {

/// What was said on the command line about an import of rows.
struct RowImport {
    std::string file;
    bool isDryRun = false;
    bool acceptsAll = false;
    bool isJson = false;
};

/// Adds the file and the options that every such import has.
void addImportOptions(CLI::App& command, RowImport& import, const char* fileText);

/// Shows what becomes of each row and, unless only that is wanted, carries it out.
ExitCode showAndApply(Tool& tool, const RowImport& import, const RowPlan& plan,
                      const std::function<Outcome()>& apply);

}  // namespace chengheng
