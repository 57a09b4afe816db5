#include "opening/window/print_choice_window.h"

#include <fmt/format.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "opening/sheet/opening_texts.h"
#include "screen/screen_texts.h"
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
    auto* buttons = new QDialogButtonBox(this);
    auto* confirm = buttons->addButton(shown(screen_texts::confirm), QDialogButtonBox::AcceptRole);
    confirm->setDefault(true);
    buttons->addButton(shown(screen_texts::cancel), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { EndDialog(Accepted); });
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { EndDialog(Rejected); });
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(count);
    rows->addWidget(m_leavesOut);
    rows->addWidget(buttons);
    m_leavesOut->setFocus();
}

bool PrintChoiceWindow::leavesOut() const { return m_leavesOut->isChecked(); }

}  // namespace chengheng
