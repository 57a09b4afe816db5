#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <optional>
#include <string>
#include <vector>

#include "opening/window/CNbCwBegleftDlg.h"
#include "session/host_messages.h"
#include "tests/support/opening_books.h"
#include "tests/window/grid_window.h"
#include "tests/window/next_modal.h"

namespace chengheng {

/// An opening balance window whose inside a test can reach.
class OpenOpenings : public GridWindow<CNbCwBegleftDlg> {
  public:
    using GridWindow::GridWindow;

    std::string mode() const { return findChild<QLineEdit*>("mode")->text().toStdString(); }
    std::string label(const char* name) const {
        return findChild<QLabel*>(QString::fromUtf8(name))->text().toStdString();
    }
    QColor colour(int row, int column, int role = Qt::BackgroundRole) const {
        return grid().model()->index(row, column).data(role).value<QColor>();
    }
    void stand(int row, int column) {
        grid().setCurrentIndex(grid().model()->index(row, column));
        grid().setFocus();
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
    /// Into every column of figures of 1001.
    void typeLargeFigures(std::string_view figure) {
        books->work().refresh();
        for (const auto field :
             {OpeningField::yearStart, OpeningField::debit, OpeningField::credit})
            ASSERT_TRUE(books->type("1001", figure, Measure::money, field));
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

/// Typing into a small chart, with the keyboard on the first opening balance.
class FilledOpeningTest : public OpeningWindowTest {
  protected:
    void SetUp() override {
        make();
        addSomeAccounts();
    }
};

}  // namespace chengheng
