#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <optional>
#include <string>
#include <vector>

#include "host/screen/CVCF1.h"
#include "host/services/host_messages.h"
#include "opening/window/CNbCwBegleftDlg.h"
#include "tests/support/opening_books.h"
#include "tests/window/next_modal.h"
#include "tests/window/typing.h"

namespace chengheng {

/// An opening balance window whose inside a test can reach.
class OpenOpenings : public CNbCwBegleftDlg {
  public:
    using CNbCwBegleftDlg::CNbCwBegleftDlg;

    CVCF1& grid() const { return *findChild<CVCF1*>("openings"); }
    QLineEdit& searchField() const { return *findChild<QLineEdit*>("search"); }
    std::string mode() const { return findChild<QLineEdit*>("mode")->text().toStdString(); }
    std::string label(const char* name) const {
        return findChild<QLabel*>(QString::fromUtf8(name))->text().toStdString();
    }
    /// The columns and rows of the grid count from 0.
    std::string cell(int row, int column) const {
        return grid().model()->index(row, column).data().toString().toStdString();
    }
    std::vector<std::string> column(int column) const {
        std::vector<std::string> texts;
        for (int row = 0; row < grid().model()->rowCount(); ++row)
            texts.push_back(cell(row, column));
        return texts;
    }
    QColor colour(int row, int column, int role = Qt::BackgroundRole) const {
        return grid().model()->index(row, column).data(role).value<QColor>();
    }
    void stand(int row, int column) {
        grid().setCurrentIndex(grid().model()->index(row, column));
        grid().setFocus();
    }
    QAction* action(const QString& text) const {
        for (QAction* menu : findChild<QMenuBar*>()->actions())
            for (QAction* item : menu->menu()->actions())
                if (item->text() == text) return item;
        return nullptr;
    }
    bool isEnabled(const QString& text) const { return action(text)->isEnabled(); }
    void choose(const QString& text) {
        action(text)->trigger();
        letEventsTurn();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        // A window above it may have gone just now.
        if (!isActiveWindow()) showActive(*this);
        QTest::keyClick(focusWidget() ? focusWidget() : this, key, modifiers);
        letEventsTurn();
    }
    /// What is posted while events are handled waits for the next turn.
    static void letEventsTurn() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    /// Types letter by letter where the keyboard is.
    void type(const std::string& text) {
        for (const char letter : text) QTest::keyClick(focusWidget(), letter);
    }
    /// The one on the screen: editors that have closed linger for a while.
    QLineEdit* editor() const {
        for (auto* field : findChildren<QLineEdit*>("figure"))
            if (field->isVisible()) return field;
        return nullptr;
    }
    bool isEditing() const { return editor() != nullptr; }
};

/// The opening balance window on books of the pattern 4222; a recorded operator answers.
class OpeningWindowTest : public testing::Test {
  protected:
    void make(OpeningLayout layout = OpeningLayout::simple) {
        books.emplace(":memory:", layout);
        installed.emplace(books->messages());
    }
    /// 1001, 1002 with 100201 and 100202, and the credit account 2202.
    void addSomeAccounts() {
        books->addAccounts({"1001", "1002", "100201", "100202"});
        books->addCredit("2202");
    }
    void open() {
        window.emplace();
        showActive(*window);
    }
    RecordingMessages& messages() { return books->messages(); }

    using Texts = std::vector<std::string>;
    static constexpr int opening = 4;  ///< column of the simple layout

    std::optional<OpeningTestBooks> books;
    std::optional<HostMessages> installed;
    std::optional<OpenOpenings> window;
};

}  // namespace chengheng
