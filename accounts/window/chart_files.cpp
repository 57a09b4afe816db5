#include "accounts/window/chart_files.h"

#include <fmt/format.h>

#include <QDialog>
#include <QFileDialog>

#include "accounts/transfer/chart_import.h"
#include "accounts/transfer/import_texts.h"
#include "accounts/window/import_window.h"
#include "screen/shown.h"

namespace chengheng {

Outcome importFromChosenFile(IMessages& messages, QWidget* window) {
    const std::string file = QFileDialog::getOpenFileName(window, shown(import_texts::openTitle),
                                                          {}, shown(import_texts::fileFilter),
                                                          nullptr, QFileDialog::DontUseNativeDialog)
                                 .toStdString();
    if (file.empty()) return Outcome::refused;
    ChartImport import(messages);
    const auto plan = import.plan(file);
    if (!plan) return Outcome::failed;
    ImportWindow preview(import, *plan, file, window);
    return preview.DoModal() == QDialog::Accepted ? Outcome::done : Outcome::refused;
}

void exportToChosenFile(IMessages& messages, QWidget* window) {
    const std::string file = QFileDialog::getSaveFileName(window, shown(import_texts::saveTitle),
                                                          shown(import_texts::defaultFile),
                                                          shown(import_texts::fileFilter), nullptr,
                                                          QFileDialog::DontUseNativeDialog)
                                 .toStdString();
    if (file.empty() || exportChart(messages, file, Overwrite::replace) != Outcome::done) return;
    messages.tell({.text = fmt::format(import_texts::exported, file)});
}

}  // namespace chengheng
