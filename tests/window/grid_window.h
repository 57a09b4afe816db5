#pragma once

#include <QAction>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>
#include <string>
#include <vector>

#include "screen/grid/CVCF1.h"
#include "tests/window/typing.h"

namespace chengheng {

/// A function window with a menu bar, a grid and a search, whose inside a test can reach, and
/// the hands of its operator. Columns and rows of the grid count from 0.
template <class Window>
class GridWindow : public Window {
  public:
    using Window::Window;

    CVCF1& grid() const { return *this->template findChild<CVCF1*>(); }
    QLineEdit& searchField() const { return *this->template findChild<QLineEdit*>("search"); }

    std::string cell(int row, int column) const {
        return grid().model()->index(row, column).data().toString().toStdString();
    }
    std::vector<std::string> column(int column) const {
        std::vector<std::string> texts;
        for (int row = 0; row < grid().model()->rowCount(); ++row)
            texts.push_back(cell(row, column));
        return texts;
    }
    QAction* action(const QString& text) const {
        for (QAction* menu : this->template findChild<QMenuBar*>()->actions())
            for (QAction* item : menu->menu()->actions())
                if (item->text() == text) return item;
        return nullptr;
    }
    bool isEnabled(const QString& text) const { return action(text)->isEnabled(); }
    /// Chooses a command of the menu and lets it run to its end.
    void choose(const QString& text) {
        action(text)->trigger();
        letEventsTurn();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        // A closed dialog gives the keyboard back only when the event loop turns.
        if (!this->isActiveWindow()) showActive(*this);
        QTest::keyClick(this->focusWidget() ? this->focusWidget() : this, key, modifiers);
        letEventsTurn();
    }
    /// What is posted while events are handled waits for the next turn.
    static void letEventsTurn() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
};

}  // namespace chengheng
