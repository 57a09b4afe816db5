#pragma once

#include <QPoint>

class QEvent;
class QMenu;
namespace chengheng {
class DialogFrame;
}

/// What the host does for a window of a module: commands that every window knows, context
/// menus, and the end of the window's life.
class CProcess {
  public:
    CProcess() = default;

    /// The window served; null at first. The window owns this helper.
    void SetDialog(chengheng::DialogFrame* dialog) { m_dialog = dialog; }

    /// True when the event was one that the host answers for every window (the help command).
    bool ProcessWindowProc(const QEvent& event);
    /// The window has ended and left the screen. True when nothing more is to be done for it:
    /// it runs beside others and is no longer the host's current one.
    bool DoPostNcDestroy();

    /// Where the next menu comes up, on the screen.
    void SetMenuPosition(QPoint position) { m_menuPosition = position; }
    /// Brings up a part of a menu: at the menu position, else at the pointer. The command that
    /// is chosen goes to the window.
    void PopupAMenu(int part, int menu, bool isAtMenuPosition);

  private:
    void addCommands(QMenu& popup, int part, int menu) const;

    chengheng::DialogFrame* m_dialog = nullptr;
    QPoint m_menuPosition;
};
