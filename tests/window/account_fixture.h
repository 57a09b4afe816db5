#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QToolButton>
#include <functional>
#include <string>

#include "tests/window/chart_fixture.h"

namespace chengheng {

/// The account dialog as the operator sees it.
class Hands {
  public:
    explicit Hands(QWidget& window) : m_window(window) {}

    QLineEdit& edit(const char* name) const { return *m_window.findChild<QLineEdit*>(name); }
    QComboBox& list(const char* name) const { return *m_window.findChild<QComboBox*>(name); }
    QCheckBox& box(const char* name) const { return *m_window.findChild<QCheckBox*>(name); }
    QToolButton& tool(const char* name) const { return *m_window.findChild<QToolButton*>(name); }
    QLabel& label(const char* name) const { return *m_window.findChild<QLabel*>(name); }
    QPushButton& button(const char* name) const { return *m_window.findChild<QPushButton*>(name); }
    std::string text(const char* name) const { return edit(name).text().toStdString(); }
    void type(const char* name, const QString& text) const {
        edit(name).setFocus();
        edit(name).selectAll();
        if (text.isEmpty()) QTest::keyClick(&edit(name), Qt::Key_Delete);
        typeText(&edit(name), text);
    }
    void choose(const char* name, const QString& entry) const {
        list(name).setCurrentText(entry);
        emit list(name).activated(list(name).currentIndex());
    }
    void tick(const char* name) const { QTest::mouseClick(&box(name), Qt::LeftButton, {}, {8, 8}); }
    void click(const char* name) const {
        QTest::mouseClick(m_window.findChild<QAbstractButton*>(name), Qt::LeftButton);
    }
    void add(const QString& code, const QString& name) const {
        type("sCode", code);
        type("sName", name);
        click("confirm");
    }
    bool isOpen() const { return m_window.isVisible(); }
    /// Asks the dialog, not the application, whose focus comes later than the window.
    void pressWhereTheFocusIs(Qt::Key key) const { QTest::keyClick(m_window.focusWidget(), key); }
    std::string focus() const { return m_window.focusWidget()->objectName().toStdString(); }

  private:
    QWidget& m_window;
};

/// The dialog of one account, over the chart window.
class AccountWindowTest : public ChartTest {
  protected:
    /// Runs a command that brings up a dialog, acts in it and closes it.
    void in(const char* command, std::function<void(const Hands&)> act) {
        const NextModal dialog([&](QWidget& shown) {
            title = shown.windowTitle().toStdString();
            act(Hands(shown));
            if (shown.isVisible())
                QTest::mouseClick(shown.findChild<QPushButton*>("cancel"), Qt::LeftButton);
        });
        window->choose(command);
    }
    void expectRefusal(const char* text) {
        const Notice notice = books.messages().onlyNotice();
        EXPECT_EQ(notice.text, text);
        EXPECT_EQ(notice.icon, MessageIcon::information);
        EXPECT_TRUE(notice.beep);
        books.messages().forget();
    }

    std::string title;
};

}  // namespace chengheng
