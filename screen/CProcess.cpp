#include "screen/CProcess.h"

#include <QCursor>
#include <QMenu>

#include "screen/current_dialog.h"
#include "screen/dialog_frame.h"
#include "screen/host_events.h"
#include "screen/resources.h"

using chengheng::CommandEvent;

bool CProcess::ProcessWindowProc(const QEvent& event) {
    if (!m_dialog || event.type() != CommandEvent::type()) return false;
    if (static_cast<const CommandEvent&>(event).command != chengheng::helpCommandNumber) {
        return false;
    }
    return m_dialog->OnHelpInfo();
}

bool CProcess::DoPostNcDestroy() {
    if (!m_dialog || m_dialog->isModalLoopRunning()) return false;
    if (g_pDlgWnd == m_dialog) g_pDlgWnd = nullptr;
    return true;
}

void CProcess::addCommands(QMenu& popup, int part, int menu) const {
    for (const auto& item : chengheng::menuResource(menu, part)) {
        if (item.command == 0) {
            popup.addSeparator();
            continue;
        }
        QObject::connect(
            popup.addAction(QString::fromUtf8(item.caption)), &QAction::triggered, m_dialog,
            [dialog = m_dialog, command = item.command] { dialog->PostCommand(command); });
    }
}

void CProcess::PopupAMenu(int part, int menu, bool isAtMenuPosition) {
    if (!m_dialog || chengheng::menuResource(menu, part).empty()) return;
    auto* popup = new QMenu(m_dialog);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    addCommands(*popup, part, menu);
    popup->popup(isAtMenuPosition ? m_menuPosition : QCursor::pos());
}
