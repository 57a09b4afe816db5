#include <QApplication>
#include <QClipboard>

#include "tests/window/opening_fixture.h"

using namespace chengheng;

namespace {

/// What counts as an amount when it is typed, and what is said of a text that does not.
class OpeningAmountsTest : public FilledOpeningTest {};

}  // namespace

TEST_F(OpeningAmountsTest, ReckonsSumsAndShowsNegativesInRed) {
    open();
    window->type("=1200+350*2");
    window->press(Qt::Key_Down);
    EXPECT_EQ(window->cell(0, opening), "1,900.00");
    EXPECT_EQ(window->grid().currentRow(), 1);
    window->press(Qt::Key_Up);
    window->type("-3");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(0, opening), "-3.00");
    EXPECT_GT(window->colour(0, opening, Qt::ForegroundRole).red(), 150);
}

TEST_F(OpeningAmountsTest, TakesTheWideDigitsOfAnInputMethod) {
    open();
    typeText(&window->grid(), "１２３４．５");
    ASSERT_TRUE(window->isEditing());
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(0, opening), "1,234.50");
    typeText(&window->grid(), "＝１０＋５");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(2, opening), "15.00");
}

TEST_F(OpeningAmountsTest, TakesACellOfASpreadsheetThatIsPastedIntoAnEdit) {
    open();
    QApplication::clipboard()->setText("1,234.50\n");
    window->press(Qt::Key_F2);
    window->press(Qt::Key_V, Qt::ControlModifier);
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(0, opening), "1,234.50");
}

TEST_F(OpeningAmountsTest, SaysBelowTheGridThatATextThatIsNoNumberWasTakenAsZero) {
    books->addRows("1001", 12, 50);
    open();
    EXPECT_EQ(window->label("remark"), "");
    window->type("12x");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(0, opening), "0.00");
    EXPECT_EQ(window->grid().currentRow(), 2);
    EXPECT_EQ(window->label("remark"), "“12x”不是数字。已按 0 录入,按 Ctrl+Z 恢复原来的金额。");
    const auto* const remark = window->findChild<QLabel*>("remark");
    EXPECT_TRUE(remark->isVisible());
    EXPECT_EQ(remark->palette().color(QPalette::WindowText), QColor(0xc0, 0x10, 0x10));
    EXPECT_TRUE(messages().texts().empty());
    window->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->cell(0, opening), "50.00");
    EXPECT_EQ(window->label("remark"), "");
}

TEST_F(OpeningAmountsTest, SaysNoMoreOfATextThatIsNoNumberOnceTheNextEditBegins) {
    books->addRows("1001", 12, 50);
    open();
    const int height = window->grid().height();
    window->type(std::string(40, 'x'));
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->label("remark").find("“" + std::string(30, 'x') + "…”不是数字。"), 0U);
    EXPECT_EQ(window->grid().height(), height);
    window->type("7");
    EXPECT_EQ(window->label("remark"), "");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->label("remark"), "");
}

TEST_F(OpeningAmountsTest, SaysOfAZeroThatATextThatIsNoNumberLeftItAsItIs) {
    open();
    window->type("abc");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->label("remark"), "“abc”不是数字。按 0 计算,金额没有改变。");
    EXPECT_FALSE(window->isEnabled("撤销"));
}

TEST_F(OpeningAmountsTest, SaysNothingOfAnEmptiedCell) {
    books->addRows("1001", 12, 50);
    open();
    window->press(Qt::Key_F2);
    window->press(Qt::Key_A, Qt::ControlModifier);
    window->press(Qt::Key_Backspace);
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(0, opening), "0.00");
    EXPECT_EQ(window->label("remark"), "");
}

TEST_F(OpeningAmountsTest, DoesNotMakeAnotherNumberOfADecimalComma) {
    books->addRows("1001", 12, 50);
    open();
    window->type("1,5");
    ASSERT_TRUE(window->isEditing());
    EXPECT_EQ(window->editor()->text(), "1,5");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(0, opening), "0.00");
    EXPECT_EQ(window->label("remark"),
              "“1,5”不是数字:小数点应为“.”,不能用“,”。已按 0 录入,按 Ctrl+Z 恢复原来的金额。");
    window->type("1,234,567.5");
    EXPECT_EQ(window->label("remark"), "");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(2, opening), "1,234,567.50");
    window->type("0100");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(3, opening), "100.00");
}

TEST_F(OpeningAmountsTest, KeepsACommaOfTheOperatorWhenAnEditStartsFromWhatIsThere) {
    books->addRows("1001", 12, 1250);
    open();
    window->press(Qt::Key_F2);
    window->press(Qt::Key_End);
    for (int letter = 0; letter < 3; ++letter) window->press(Qt::Key_Backspace);
    EXPECT_EQ(window->editor()->text(), "1,250");
    window->press(Qt::Key_Backspace);
    EXPECT_EQ(window->editor()->text(), "125");
    window->type(",5");
    EXPECT_EQ(window->editor()->text(), "125,5");
    window->press(Qt::Key_Escape);
}
