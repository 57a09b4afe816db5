#include "sheets/files/sheet_export.h"

#include <fmt/format.h>

#include "session/log_notes.h"
#include "session/session_texts.h"
#include "sheets/files/sheet_files.h"
#include "sheets/sheet_texts.h"

namespace chengheng {

Notice sheetWarning(std::string text) {
    return {.text = std::move(text), .icon = MessageIcon::warning, .beep = true};
}

Outcome exportSheet(IMessages& messages, const Sheet& sheet, const std::string& path,
                    Overwrite overwrite) {
    if (!isSheetName(path))
        return told(messages, UntoldOutcome::refused(
                                  sheetWarning(fmt::format(sheet_texts::fileKindUnknown, path))));
    const auto failure = writeSheet(sheet, path, overwrite);
    if (!failure) {
        noteOutput(session_texts::exported, sheet.name, path);
        return Outcome::done;
    }
    return told(messages, {Outcome::failed, sheetWarning(failure->text())});
}

}  // namespace chengheng
