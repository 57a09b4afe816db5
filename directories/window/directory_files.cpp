#include "directories/window/directory_files.h"

#include <fmt/format.h>

#include <QDialog>

#include "directories/directory_texts.h"
#include "directories/transfer/directory_import.h"
#include "directories/transfer/directory_transfer_texts.h"
#include "screen/chosen_file.h"
#include "screen/grid/row_plan_window.h"

namespace chengheng {

bool importFromChosenFile(const Directory& directory, IMessages& messages, QWidget* window) {
    namespace texts = directory_transfer_texts;
    const std::string title = fmt::format(texts::importTitle, directory.title);
    const std::string file = chooseSheetToRead(window, title.c_str());
    if (file.empty()) return false;
    DirectoryImport import(messages, directory);
    const auto plan = import.plan(file);
    if (!plan) return false;
    RowPlanWindow preview(
        {.title = title,
         .code = directory_texts::code,
         .name = directory_texts::name,
         .working = texts::working,
         .done = fmt::format(texts::done, plan->count(RowFate::added), directory.noun,
                             plan->count(RowFate::changed))},
        *plan, file, [&](const ImportProgress& progress) { return import.apply(*plan, progress); },
        window);
    return preview.DoModal() == QDialog::Accepted;
}

void exportToChosenFile(const Directory& directory, IMessages& messages, QWidget* window) {
    namespace texts = directory_transfer_texts;
    const std::string title = fmt::format(texts::exportTitle, directory.title);
    const std::string file =
        chooseSheetToWrite(window, title.c_str(), fmt::format(texts::exportFile, directory.title));
    if (file.empty() ||
        exportDirectory(messages, directory, file, Overwrite::replace) != Outcome::done)
        return;
    messages.tell({.text = fmt::format(texts::exported, directory.title, file)});
}

}  // namespace chengheng
