#include "accounts/window/chart_files.h"

#include <fmt/format.h>

#include <QDialog>

#include "accounts/chart/account_texts.h"
#include "accounts/transfer/chart_import.h"
#include "accounts/transfer/import_texts.h"
#include "screen/chosen_file.h"
#include "screen/grid/row_plan_window.h"

namespace chengheng {

Outcome importFromChosenFile(IMessages& messages, QWidget* window) {
    namespace texts = import_texts;
    const std::string file = chooseSheetToRead(window, texts::openTitle);
    if (file.empty()) return Outcome::refused;
    ChartImport import(messages);
    const auto plan = import.plan(file);
    if (!plan) return Outcome::failed;
    RowPlanWindow preview(
        {.title = texts::title,
         .code = account_texts::codeColumn,
         .name = account_texts::nameColumn,
         .working = texts::working,
         .done =
             fmt::format(texts::done, plan->count(RowFate::added), plan->count(RowFate::changed))},
        *plan, file, [&](const ImportProgress& progress) { return import.apply(*plan, progress); },
        window);
    return preview.DoModal() == QDialog::Accepted ? Outcome::done : Outcome::refused;
}

void exportToChosenFile(IMessages& messages, QWidget* window) {
    const std::string file =
        chooseSheetToWrite(window, import_texts::saveTitle, import_texts::defaultFile);
    if (file.empty() || exportChart(messages, file, Overwrite::replace) != Outcome::done) return;
    messages.tell({.text = fmt::format(import_texts::exported, file)});
}

}  // namespace chengheng
