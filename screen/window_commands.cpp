#include "screen/window_commands.h"

#include <QAction>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "screen/dialog_frame.h"

namespace chengheng {
namespace {

constexpr int pictureSize = 22;

}  // namespace

WindowCommands::WindowCommands(DialogFrame& window, std::span<const WindowMenu> menus)
    : m_window(window) {
    auto* bar = new QMenuBar(&window);
    for (const WindowMenu& menu : menus) {
        QMenu* made = bar->addMenu(QString::fromUtf8(menu.caption));
        for (const MenuItemResource& item : menu.items) addItem(*made, item);
    }
    window.layout()->setMenuBar(bar);
}

void WindowCommands::addItem(QMenu& menu, const MenuItemResource& item) {
    if (item.command == 0) {
        menu.addSeparator();
        return;
    }
    const QStringList parts = QString::fromUtf8(item.caption).split(QLatin1Char('\t'));
    QAction* action = menu.addAction(parts[0]);
    if (parts.size() > 1) {
        action->setShortcut(QKeySequence(parts[1]));
        action->setAutoRepeat(false);
    }
    QObject::connect(action, &QAction::triggered, &m_window,
                     [&window = m_window, command = item.command] { window.PostCommand(command); });
    m_actions.insert(item.command, action);
}

QToolBar* WindowCommands::makeToolBar(const QString& name, std::span<const ToolButton> buttons) {
    auto* bar = new QToolBar(name, &m_window);
    bar->setAccessibleName(name);
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar->setIconSize({pictureSize, pictureSize});
    for (const ToolButton& button : buttons) {
        if (QAction* action = m_actions.value(button.command)) {
            action->setIcon(toolIcon(button.picture));
            if (button.caption) action->setIconText(QString::fromUtf8(button.caption));
            bar->addAction(action);
        } else {
            bar->addSeparator();
        }
    }
    return bar;
}

void WindowCommands::popUp(std::span<const int> commands, QPoint position) const {
    QMenu menu(&m_window);
    for (const int command : commands) {
        const QAction* known = m_actions.value(command);
        if (!known) {
            menu.addSeparator();
            continue;
        }
        // An action of its own: a screen reader finds one in one place only.
        QAction* action = menu.addAction(known->icon(), known->text());
        action->setShortcut(known->shortcut());
        action->setShortcutVisibleInContextMenu(true);
        action->setEnabled(known->isEnabled());
        QObject::connect(action, &QAction::triggered, &m_window,
                         [&window = m_window, command] { window.PostCommand(command); });
    }
    menu.exec(position);
}

void WindowCommands::setEnabled(int command, bool isEnabled) {
    if (QAction* action = m_actions.value(command)) action->setEnabled(isEnabled);
}

bool WindowCommands::isEnabled(int command) const {
    const QAction* action = m_actions.value(command);
    return action != nullptr && action->isEnabled();
}

}  // namespace chengheng
