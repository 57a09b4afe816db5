#include <QApplication>
#include <QClipboard>
#include <QListView>
#include <QTabWidget>

#include "screen/colours.h"
#include "tests/window/voucher_type_fixture.h"
#include "vouchertype/window/trial_grid.h"

using namespace chengheng;

namespace {

/// The tester in the window of the voucher types, and the hands of its operator.
class TrialPaneTest : public VoucherTypeWindowTest {
  protected:
    void openTrial(const std::vector<std::string>& types = {receipt, "转 转帐凭证 3 1001 1002"}) {
        books.run("UPDATE zAccountM SET sCodeLen = '4222' WHERE lId = 1");
        open(types);
        press(Qt::Key_T, Qt::ControlModifier);
    }
    TrialGrid& grid() const { return control<TrialGrid>("trialLines"); }
    QListView& list() const { return control<QListView>("trialWords"); }
    bool isTrying() const { return list().isVisible(); }
    std::string cell(int row, int column) const {
        return grid().model()->index(row, column).data().toString().toStdString();
    }
    /// What is said, and in which colour: "-" seal, "+" teal, "." quiet.
    Texts words() const {
        Texts texts;
        for (int row = 0; row < list().model()->rowCount(); ++row) {
            const QModelIndex index = list().model()->index(row, 0);
            const QColor colour = index.data(Qt::ForegroundRole).value<QColor>();
            const char* sign = colour == colours::seal ? "-" : colour == colours::teal ? "+" : ".";
            texts.push_back(sign + index.data().toString().toStdString());
        }
        return texts;
    }
    /// Types keys where the keyboard is.
    void keys(const char* text) {
        for (const char* key = text; *key != '\0'; ++key) {
            QTest::keyClick(QApplication::focusWidget(), *key);
            settle();
        }
    }
    void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(code), modifiers);
        settle();
    }
    bool isMarked(int row) const {
        return grid().model()->index(row, 0).data(Qt::ForegroundRole).value<QColor>() ==
               colours::seal;
    }
};

}  // namespace

TEST_F(TrialPaneTest, SaysWhileALineIsFilledInWithoutTheMouse) {
    openTrial();
    EXPECT_TRUE(isTrying());
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(words(), Texts{".没有分录"});
    keys("1001");
    key(Qt::Key_Return);
    EXPECT_EQ(cell(0, 1), "库存现金");
    keys("50");
    key(Qt::Key_Return);
    keys("1012");
    key(Qt::Key_Return);
    key(Qt::Key_Return);
    keys("50");
    key(Qt::Key_Return);
    EXPECT_EQ(cell(0, 2), "50.00");
    EXPECT_EQ(cell(1, 3), "50.00");
    EXPECT_EQ(words(), (Texts{"+可以用 收 收款凭证:借方必有 1001 库存现金 或 1002 银行存款",
                              "-不能用 转 转帐凭证:借贷必无 1001 库存现金 或 1002 "
                              "银行存款:第 1 行借方 1001 库存现金"}));
    EXPECT_EQ(grid().current(), (TrialCell{2, TrialColumn::account}));
    EXPECT_EQ(books.stored().size(), 2u) << "nothing is written";
}

TEST_F(TrialPaneTest, TakesWideDigitsOfAnInputMethod) {
    openTrial();
    typeText(&grid(), "1001");
    key(Qt::Key_Return);
    typeText(&grid(), "１２");
    key(Qt::Key_Return);
    EXPECT_EQ(cell(0, 2), "12.00");
}

TEST_F(TrialPaneTest, PastesLinesWithKeyAndButton) {
    openTrial();
    QApplication::clipboard()->setText("1001\t\t5\n1012\t5\n");
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(cell(0, 3), "5.00");
    EXPECT_EQ(cell(1, 0), "1012");
    EXPECT_EQ(words()[0],
              "-不能用 收 收款凭证:借方必有 1001 库存现金 或 1002 银行存款:借方只有第 2 行 1012 "
              "其他货币资金");
    clickOn(*window, "清空(&C)");
    EXPECT_EQ(cell(0, 0), "");
    EXPECT_TRUE(grid().hasFocus());
    clickOn(*window, "粘贴(&V)");
    EXPECT_EQ(cell(1, 0), "1012");
    EXPECT_TRUE(grid().hasFocus());
    QApplication::clipboard()->setText("");
    clickOn(*window, "粘贴(&V)");
    EXPECT_EQ(said(), "剪贴板中没有分录。");
}

TEST_F(TrialPaneTest, EmptiesWhatIsSelectedWithDelete) {
    openTrial();
    QApplication::clipboard()->setText("1001\t5\n");
    key(Qt::Key_V, Qt::ControlModifier);
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_Delete);
    EXPECT_EQ(words(), Texts{".没有分录"});
}

TEST_F(TrialPaneTest, EditsACellWithF2AndGivesUpWithEscape) {
    openTrial();
    keys("1001");
    key(Qt::Key_Return, Qt::ShiftModifier);
    key(Qt::Key_F2);
    key(Qt::Key_End);
    keys("9");
    key(Qt::Key_Escape);
    EXPECT_EQ(cell(0, 0), "1001");
    EXPECT_TRUE(window->isVisible());
    key(Qt::Key_F2);
    key(Qt::Key_End);
    keys("9");
    key(Qt::Key_Tab);
    EXPECT_EQ(cell(0, 0), "10019");
    EXPECT_EQ(words(), Texts{"-第 1 行:没有科目“10019”"});
}

TEST_F(TrialPaneTest, MarksTheLinesThatTheChosenTypeBlames) {
    openTrial();
    QApplication::clipboard()->setText("1012\t5\n1001\t\t5\n");
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(isMarked(1));
    list().setCurrentIndex(list().model()->index(1, 0));
    EXPECT_FALSE(isMarked(0));
    EXPECT_TRUE(isMarked(1));
    grid().goTo({1, TrialColumn::account});
    grid().setFocus();
    keys("1012");
    key(Qt::Key_Return);
    EXPECT_FALSE(isMarked(1));
}

TEST_F(TrialPaneTest, FollowsTheTypesAsTheyAreSaved) {
    openTrial();
    keys("1001");
    key(Qt::Key_Return);
    keys("5");
    key(Qt::Key_Return);
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_FALSE(isTrying());
    EXPECT_TRUE(number().hasFocus());
    enter("记");
    enter("记帐凭证");
    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_TRUE(isTrying());
    EXPECT_EQ(words().back(), "+可以用 记 记帐凭证:不限制");
    EXPECT_EQ(cell(0, 0), "1001") << "the voucher stays";
    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_FALSE(isTrying());
    EXPECT_TRUE(number().hasFocus());
}

TEST_F(TrialPaneTest, BringsTheFieldsBackForInputThatIsKept) {
    openTrial();
    press(Qt::Key_T, Qt::ControlModifier);
    typeText(&name(), "2");
    press(Qt::Key_T, Qt::ControlModifier);
    books.messages.willAnswer(Answer::no);
    clickLeaf(1);
    EXPECT_FALSE(isTrying());
    EXPECT_TRUE(name().hasFocus());
    EXPECT_EQ(selectedLeaf(), "收 收款凭证");
}

TEST_F(TrialPaneTest, SavesNoTypeWithEnter) {
    openTrial();
    press(Qt::Key_T, Qt::ControlModifier);
    typeText(&name(), "2");
    press(Qt::Key_T, Qt::ControlModifier);
    list().setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(books.stored()[0], "1 收 收款凭证 1 1001 1002");
    books.messages.willAnswer(Answer::yes);
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(TrialPaneTest, TellsOnceWhereTypesCannotBeReadAndSaysNothingOfThem) {
    openTrial();
    keys("1001");
    key(Qt::Key_Return);
    press(Qt::Key_T, Qt::ControlModifier);
    ASSERT_NE(books.database.DBClose("books"), 0);
    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(words(), Texts{});
    EXPECT_EQ(books.messages.onlyNotice().text, "帐套文件“books”没有打开。\n请先打开帐套。");
    EXPECT_EQ(cell(0, 0), "1001");
}

TEST_F(TrialPaneTest, IsWalkedThroughWithTab) {
    openTrial();
    key(Qt::Key_Tab);
    EXPECT_TRUE(list().hasFocus());
    key(Qt::Key_Tab);
    EXPECT_EQ(qobject_cast<QPushButton*>(QApplication::focusWidget())->text(), "粘贴(&V)");
    key(Qt::Key_Tab);
    EXPECT_EQ(qobject_cast<QPushButton*>(QApplication::focusWidget())->text(), "清空(&C)");
}
