#pragma once

#include <memory>
#include <string>

#include "base/messages/refusal.h"
#include "data/engine/engine.h"
#include "session/record_change.h"
#include "tool/tool.h"

namespace CLI {
class App;
}

namespace chengheng {

// The commands of the tool. Each adds its part of the command line and, when it is the one
// that was given, sets the tool's action.

void addNewCommand(CLI::App& app, Tool& tool);
void addDemoCommand(CLI::App& app, Tool& tool);
void addInfoCommand(CLI::App& app, Tool& tool);
void addCheckCommand(CLI::App& app, Tool& tool);
void addBackupCommand(CLI::App& app, Tool& tool);
void addRestoreCommand(CLI::App& app, Tool& tool);
void addCopyCommand(CLI::App& app, Tool& tool);
void addSetCommand(CLI::App& app, Tool& tool);
void addUpgradeCommand(CLI::App& app, Tool& tool);
void addNewYearCommand(CLI::App& app, Tool& tool);
void addCarryCommand(CLI::App& app, Tool& tool);
void addImportChartCommand(CLI::App& app, Tool& tool);
void addExportChartCommand(CLI::App& app, Tool& tool);
void addImportDirectoryCommand(CLI::App& app, Tool& tool);
void addExportDirectoryCommand(CLI::App& app, Tool& tool);
void addImportVoucherTypesCommand(CLI::App& app, Tool& tool);
void addExportVoucherTypesCommand(CLI::App& app, Tool& tool);
void addImportRatesCommand(CLI::App& app, Tool& tool);
void addExportRatesCommand(CLI::App& app, Tool& tool);
void addTrialBalanceCommand(CLI::App& app, Tool& tool);
void addImportOpeningCommand(CLI::App& app, Tool& tool);
void addExportOpeningCommand(CLI::App& app, Tool& tool);
void addImportAuxiliaryCommand(CLI::App& app, Tool& tool);
void addExportAuxiliaryCommand(CLI::App& app, Tool& tool);
void addTestVoucherCommand(CLI::App& app, Tool& tool);
void addServerRolesCommand(CLI::App& app, Tool& tool);
void addPrintCommand(CLI::App& app, Tool& tool);
void addLogCommand(CLI::App& app, Tool& tool);

// What several commands do alike.

/// Where the books that a person names lie; a file left under its temporary name has its own back,
/// which is told.
std::string foundBooks(Tool& tool, const std::string& location);

/// What is to be done with books. Those of an older layout can be read.
enum class BooksUse { reading, changing };

/// Opens the books at a location, or says why not and gives null.
std::unique_ptr<Engine> openBooks(Tool& tool, const std::string& location,
                                  BooksUse use = BooksUse::reading);

/// What an action on the books returns; it has said what there was to say.
ExitCode exitCodeOf(Outcome outcome);
/// Says what failed at a location.
ExitCode tellFailure(Tool& tool, const Status& status, const std::string& location);
/// Says why something was refused.
ExitCode tellRefusal(Tool& tool, const Refusal& refusal);

}  // namespace chengheng
