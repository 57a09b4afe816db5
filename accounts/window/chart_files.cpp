#include "accounts/window/chart_files.h"

#include <fmt/format.h>

#include <QDialog>

#include "accounts/transfer/chart_import.h"
#include "accounts/transfer/import_texts.h"
#include "accounts/window/import_window.h"
#include "screen/chosen_file.h"

namespace chengheng {

Outcome importFromChosenFile(IMessages& messages, QWidget* window) {
    const std::string file = chooseSheetToRead(window, import_texts::openTitle);
    if (file.empty()) return Outcome::refused;
    ChartImport import(messages);
    const auto plan = import.plan(file);
    if (!plan) return Outcome::failed;
    ImportWindow preview(import, *plan, file, window);
    return preview.DoModal() == QDialog::Accepted ? Outcome::done : Outcome::refused;
}

void exportToChosenFile(IMessages& messages, QWidget* window) {
    const std::string file =
        chooseSheetToWrite(window, import_texts::saveTitle, import_texts::defaultFile);
    if (file.empty() || exportChart(messages, file, Overwrite::replace) != Outcome::done) return;
    messages.tell({.text = fmt::format(import_texts::exported, file)});
}

}  // namespace chengheng
