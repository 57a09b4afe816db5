#include "opening/window/print_choice_window.h"

#include <fmt/format.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include "opening/sheet/opening_texts.h"
#include "screen/shown.h"

namespace chengheng {

PrintChoiceWindow::PrintChoiceWindow(std::size_t lines, std::size_t withoutFigures, bool leavesOut,
                                     QWidget* parent)
    : CNxMiddleDialog(parent) {
    setWindowTitle(shown(opening_texts::printTitle));
    m_leavesOut = new QCheckBox(shown(opening_texts::leavesOutZeros), this);
    m_leavesOut->setChecked(leavesOut);
    auto* count = new QLabel(
        shown(fmt::format(opening_texts::linesWithoutFigures, lines, withoutFigures)), this);
    auto* buttons = makeConfirmation();
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(count);
    rows->addWidget(m_leavesOut);
    rows->addWidget(buttons);
    m_leavesOut->setFocus();
}

bool PrintChoiceWindow::leavesOut() const { return m_leavesOut->isChecked(); }

}  // namespace chengheng
