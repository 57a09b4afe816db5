#include "opening/window/figure_transfer.h"

#include <fmt/format.h>

#include <QApplication>
#include <QClipboard>

#include "opening/sheet/opening_texts.h"
#include "opening/window/figure_plan_window.h"
#include "screen/chosen_file.h"
#include "sheets/delimited/delimited_text.h"

namespace chengheng {

FigureTransfer::FigureTransfer(OpeningWork& work, IMessages& messages, QWidget& window, Apply apply)
    : m_work(work), m_messages(messages), m_window(window), m_apply(std::move(apply)) {}

void FigureTransfer::paste(const OpeningCell& first) {
    Sheet block;
    const std::string text = QApplication::clipboard()->text().toStdString();
    if (const auto failure = readClipboardBlock(text, block))
        return m_messages.tell({.text = failure->text(), .icon = MessageIcon::warning});
    applyShown(m_work.planPaste(first.line, first.column, block), opening_texts::pasteTitle, {});
}

Outcome FigureTransfer::applyShown(const FigurePlan& plan, const char* title,
                                   const std::string& heading) {
    if (plan.cells.empty()) {
        m_messages.tell({.text = opening_texts::nothingToPaste});
        return Outcome::refused;
    }
    // One figure is seen where it goes.
    const bool isPlain = plan.cells.size() == 1 && plan.count(CellFate::refused) == 0;
    if (!isPlain &&
        FigurePlanWindow(title, heading, plan, &m_window).DoModal() != QDialog::Accepted)
        return Outcome::refused;
    return m_apply(plan);
}

void FigureTransfer::importFile() {
    const std::string file = chooseSheetToRead(&m_window, opening_texts::importTitle);
    if (file.empty()) return;
    const auto plan = m_work.planImport(file);
    if (!plan) return;
    if (applyShown(*plan, opening_texts::importTitle,
                   fmt::format(opening_texts::importedFile, file)) == Outcome::done)
        m_messages.tell(
            {.text = fmt::format(opening_texts::imported, plan->count(CellFate::changed))});
}

void FigureTransfer::exportFile() {
    const std::string file =
        chooseSheetToWrite(&m_window, opening_texts::exportTitle, opening_texts::exportFile);
    if (file.empty()) return;
    if (m_work.exportTo(file) == Outcome::done)
        m_messages.tell({.text = fmt::format(opening_texts::exported, file)});
}

}  // namespace chengheng
