#include "screen/forms/limited_edit.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "tests/window/typing.h"

using namespace chengheng;

namespace {

struct LimitedEditTest : testing::Test {
    LimitedEditTest() {
        QObject::connect(&edit, &LimitedEdit::wasCut, [this] { ++cuts; });
        showActive(edit);
    }
    void paste(const char* text) {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
        QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
        QCoreApplication::processEvents();
    }
    std::string text() const { return edit.text().toStdString(); }

    LimitedEdit edit{4};
    int cuts = 0;
};

}  // namespace

TEST_F(LimitedEditTest, TakesSoManyCharactersOfAnyKind) {
    typeText(&edit, "支1𠮷");
    typeText(&edit, "票");
    EXPECT_EQ(text(), "支1𠮷票");
    QTest::keyClicks(&edit, "x");
    typeText(&edit, "据");
    EXPECT_EQ(text(), "支1𠮷票");
    QCoreApplication::processEvents();
    EXPECT_EQ(cuts, 0);
}

TEST_F(LimitedEditTest, TakesTheKeyOfADeletionThatIsOffAndKeepsItsText) {
    edit.showText("甲乙");
    edit.selectAll();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_D, Qt::ControlModifier);
    QCoreApplication::sendEvent(&edit, &key);
    EXPECT_EQ(text(), "甲乙");
    EXPECT_TRUE(key.isAccepted()) << "nobody else is to take it";
}

TEST_F(LimitedEditTest, CutsWhatIsPastedAndLeavesTheRestWhole) {
    typeText(&edit, "一二");
    edit.setCursorPosition(1);
    paste("甲乙丙");
    EXPECT_EQ(text(), "一甲乙二");
    EXPECT_EQ(edit.cursorPosition(), 3);
    EXPECT_EQ(cuts, 1);
}

TEST_F(LimitedEditTest, CutsWhatIsPastedOverASelection) {
    typeText(&edit, "一二三四");
    edit.setSelection(1, 2);
    paste("甲乙丙");
    EXPECT_EQ(text(), "一甲乙四");
    EXPECT_EQ(cuts, 1);
}

TEST_F(LimitedEditTest, CutsAWholePhraseOfAnInputMethodAndTellsIt) {
    typeText(&edit, "银行承兑汇票");
    QCoreApplication::processEvents();
    EXPECT_EQ(text(), "银行承兑");
    EXPECT_EQ(cuts, 1);
}

TEST_F(LimitedEditTest, NeverCutsACharacterInTwo) {
    paste("𠮷𠮷𠮷𠮷𠮷");
    EXPECT_EQ(text(), "𠮷𠮷𠮷𠮷");
}

TEST_F(LimitedEditTest, TakesPastedLinesAsOne) {
    paste("甲\t乙\r\n");
    EXPECT_EQ(text(), "甲乙");
    EXPECT_EQ(cuts, 0);
}

TEST_F(LimitedEditTest, ShowsAStoredTextWholeAndLetsItOnlyShrink) {
    edit.showText("一二三四五六");
    EXPECT_EQ(text(), "一二三四五六");
    edit.end(false);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QTest::keyClicks(&edit, "xy");
    EXPECT_EQ(text(), "一二三四五");
}
