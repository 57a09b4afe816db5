#include "sheets/files/plan_import.h"

#include <fmt/format.h>

#include "sheets/files/sheet_export.h"
#include "sheets/files/sheet_files.h"
#include "sheets/plan_texts.h"

namespace chengheng {

std::optional<Sheet> readSheetToImport(IMessages& messages, const std::string& path) {
    Sheet sheet;
    const auto failure = readSheet(path, sheet);
    if (!failure) return sheet;
    messages.tell(sheetWarning(failure->text()));
    return std::nullopt;
}

bool isAccepted(IMessages& messages, const RowPlan& plan) {
    if (const std::size_t refused = plan.count(RowFate::refused); refused > 0) {
        messages.tell(sheetWarning(fmt::format(plan_texts::rowsRefused, refused)));
        return false;
    }
    const std::size_t asked = plan.rowsWithQuestions();
    if (asked == 0) return true;
    return messages.ask({.text = fmt::format(plan_texts::askAcceptance, asked),
                         .buttons = AnswerButtons::okCancel,
                         .icon = MessageIcon::stop}) == Answer::ok;
}

std::string importInWords(const char* what, std::size_t added, std::size_t changed) {
    return fmt::format(plan_texts::logged, what, added, changed);
}

UntoldOutcome planOutdated() { return UntoldOutcome::stale(sheetWarning(plan_texts::outdated)); }

}  // namespace chengheng
