#pragma once

#include <QMap>
#include <span>

#include "screen/resources.h"

class QAction;
class QMenu;
class QMenuBar;
class QToolBar;

namespace chengheng {
class DialogFrame;

/// A menu of a window's menu bar. The caption of a command may end in a tab and its shortcut:
/// "增加\tCtrl+N".
struct WindowMenu {
    const char* caption;
    std::span<const MenuItemResource> items;
};

/// A button of a tool bar: a command of the menus, its picture, and what the button says when
/// that is not what the menu says; command 0 is a separator.
struct ToolButton {
    int command;
    const char* picture;
    const char* caption = nullptr;
};

/// The commands of a function window: its menu bar, tool bar and shortcuts, all from tables.
/// Whatever is chosen goes to the window's OnCommand. The window owns what is made here.
class WindowCommands {
  public:
    /// Puts the menu bar on top of the window's layout, which must be there.
    WindowCommands(DialogFrame& window, std::span<const WindowMenu> menus);

    QToolBar* makeToolBar(const QString& name, std::span<const ToolButton> buttons);
    /// A menu of some of the commands at a point of the screen.
    void popUp(std::span<const int> commands, QPoint position) const;

    void setEnabled(int command, bool isEnabled);
    bool isEnabled(int command) const;

  private:
    void addItem(QMenu& menu, const MenuItemResource& item);

    DialogFrame& m_window;
    QMap<int, QAction*> m_actions;
};

}  // namespace chengheng
