// Copying, pasting, files, and what keeps the books from balancing.

#include <fmt/format.h>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <algorithm>

#include "opening/sheet/opening_texts.h"
#include "opening/window/CNbCwBegleftDlg.h"
#include "opening/window/causes_window.h"
#include "opening/window/figure_plan_window.h"
#include "opening/window/opening_model.h"
#include "screen/grid/CVCF1.h"
#include "screen/shown.h"
#include "sheets/delimited/delimited_text.h"

namespace opening_texts = chengheng::opening_texts;
using chengheng::CellFate;
using chengheng::FigurePlan;
using chengheng::shown;

namespace {

template <class Value>
std::string filled(const char* text, const Value& value) {
    return fmt::format(fmt::runtime(text), value);
}

}  // namespace

void CNbCwBegleftDlg::OnMenuCopy() { m_grid->copySelection(); }

void CNbCwBegleftDlg::OnMenuPaste() {
    if (!hasLine()) return;
    chengheng::Sheet block;
    const std::string text = QApplication::clipboard()->text().toStdString();
    if (const auto failure = chengheng::readClipboardBlock(text, block)) {
        messages().tell({.text = failure->text(), .icon = chengheng::MessageIcon::warning});
        return;
    }
    // The upper left of what is selected, wherever the selecting began.
    int row = m_grid->currentIndex().row();
    int column = m_grid->currentIndex().column();
    for (const QModelIndex& index : m_grid->selectionModel()->selectedIndexes()) {
        row = std::min(row, index.row());
        column = std::min(column, index.column());
    }
    const FigurePlan plan = chengheng::planPaste(sheet(), static_cast<std::size_t>(row),
                                                 static_cast<std::size_t>(column), block);
    applyPlan(plan, opening_texts::pasteTitle, {});
}

bool CNbCwBegleftDlg::applyPlan(const FigurePlan& plan, const char* title,
                                const std::string& heading) {
    if (plan.cells.empty()) {
        messages().tell({.text = opening_texts::nothingToPaste});
        return false;
    }
    // One figure is seen where it goes.
    const bool isPlain = plan.cells.size() == 1 && plan.count(CellFate::refused) == 0;
    if (!isPlain && chengheng::FigurePlanWindow(title, heading, plan, this).DoModal() != Accepted)
        return false;
    return change([&] { return m_work.apply(plan); });
}

void CNbCwBegleftDlg::OnMenuImport() {
    const QString file = QFileDialog::getOpenFileName(this, shown(opening_texts::importTitle), {},
                                                      shown(opening_texts::fileFilter), nullptr,
                                                      QFileDialog::DontUseNativeDialog);
    if (file.isEmpty()) return;
    const auto plan = m_work.planImport(file.toStdString());
    if (!plan) return;
    if (applyPlan(*plan, opening_texts::importTitle,
                  filled(opening_texts::importedFile, file.toStdString())))
        messages().tell({.text = filled(opening_texts::imported, plan->count(CellFate::changed))});
}

void CNbCwBegleftDlg::OnMenuExport() {
    const QString file = QFileDialog::getSaveFileName(
        this, shown(opening_texts::exportTitle), shown(opening_texts::exportFile),
        shown(opening_texts::fileFilter), nullptr, QFileDialog::DontUseNativeDialog);
    if (file.isEmpty()) return;
    if (m_work.exportTo(file.toStdString()))
        messages().tell({.text = filled(opening_texts::exported, file.toStdString())});
}

void CNbCwBegleftDlg::OnMenuCauses() {
    const double difference = m_work.totals().difference();
    chengheng::CausesWindow window(difference, m_work.causes(), this);
    if (window.DoModal() != Accepted) return;
    const auto place = window.chosenPlace();
    if (!place) return;
    m_grid->setCurrentIndex(m_model->index(static_cast<int>(sheet().accounts()[*place].firstLine),
                                           static_cast<int>(openingColumn())));
    m_grid->setFocus();
}
