#include "tests/window/opening_fixture.h"

using namespace chengheng;

namespace {

/// The way through the figures by keys and clicks, and what an edit leaves behind.
class OpeningTypingTest : public FilledOpeningTest {};

std::string numbered(int number) { return std::to_string(1000 + number); }

}  // namespace

TEST_F(OpeningTypingTest, BeginsAnEditByTypingAndGoesOnWithEnter) {
    open();
    window->type("1234567.5");
    ASSERT_TRUE(window->isEditing());
    EXPECT_EQ(window->editor()->text(), "1,234,567.5");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(0, opening), "1,234,567.50");
    EXPECT_EQ(window->grid().currentRow(), 2);
    EXPECT_EQ(books->openings("1001").substr(0, 11), "1=1234567.5");
    window->type("100");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(1, opening), "100.00");
    EXPECT_EQ(window->grid().currentRow(), 3);
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->grid().currentRow(), 4);
}

TEST_F(OpeningTypingTest, GoesBackWithShiftAndEnterWhetherItEditsOrNot) {
    open();
    window->stand(4, opening);
    window->press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(window->grid().currentRow(), 3);
    window->type("5");
    window->press(Qt::Key_Enter, Qt::ShiftModifier | Qt::KeypadModifier);
    EXPECT_EQ(window->cell(3, opening), "5.00");
    EXPECT_EQ(window->grid().currentRow(), 2);
    window->press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(window->grid().currentRow(), 0);
    window->press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(window->grid().currentRow(), 0);
}

TEST_F(OpeningTypingTest, GoesToTheEdgesOfTheSheetWithHomeAndEnd) {
    open();
    window->stand(2, opening);
    window->press(Qt::Key_Home);
    EXPECT_EQ(window->grid().currentIndex().column(), 0);
    EXPECT_EQ(window->grid().currentRow(), 2);
    window->press(Qt::Key_End);
    EXPECT_EQ(window->grid().currentIndex().column(), opening);
    window->press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(window->grid().currentRow(), 4);
    EXPECT_EQ(window->grid().currentIndex().column(), opening);
    window->press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(window->grid().currentRow(), 0);
    EXPECT_EQ(window->grid().currentIndex().column(), 0);
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->grid().currentRow(), 2);
    EXPECT_EQ(window->grid().currentIndex().column(), opening);
}

TEST_F(OpeningTypingTest, GoesFromFigureToFigureWithTabAndLeavesTheGridBehindTheLast) {
    open();
    for (const int row : {2, 3, 4}) {
        window->press(Qt::Key_Tab);
        EXPECT_EQ(window->grid().currentRow(), row);
        EXPECT_TRUE(window->grid().hasFocus());
    }
    window->press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window->grid().currentRow(), 3);
    window->press(Qt::Key_Tab);
    window->press(Qt::Key_Tab);
    EXPECT_TRUE(window->searchField().hasFocus());
    window->press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(window->grid().hasFocus());
    EXPECT_EQ(window->grid().currentRow(), 4);
}

TEST_F(OpeningTypingTest, ComesBackIntoTheGridByTabFromTheSearch) {
    open();
    window->stand(4, opening);
    window->press(Qt::Key_Tab);
    ASSERT_TRUE(window->searchField().hasFocus());
    window->press(Qt::Key_Tab);
    EXPECT_TRUE(window->grid().hasFocus());
}

TEST_F(OpeningTypingTest, ComesByTheStateToo) {
    books->addVoucher();
    open();
    window->press(Qt::Key_Tab);
    window->press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "状态");
    window->press(Qt::Key_Tab);
    EXPECT_TRUE(window->grid().hasFocus());
}

TEST_F(OpeningTypingTest, RestoresWithEscapeWhatWasThere) {
    books->addRows("1001", 12, 50);
    open();
    window->type("99");
    window->press(Qt::Key_Escape);
    EXPECT_FALSE(window->isEditing());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->cell(0, opening), "50.00");
    EXPECT_FALSE(window->isEnabled("撤销"));
}

TEST_F(OpeningTypingTest, EditsWithF2WhatIsThere) {
    books->addRows("1001", 12, 1250);
    open();
    window->press(Qt::Key_F2);
    ASSERT_TRUE(window->isEditing());
    EXPECT_EQ(window->editor()->text(), "1,250.00");
    window->press(Qt::Key_Return);
    EXPECT_FALSE(window->isEnabled("撤销"));
}

TEST_F(OpeningTypingTest, GoesOnFromAnEditWithThePageKeys) {
    open();
    window->type("5");
    window->press(Qt::Key_PageDown);
    EXPECT_FALSE(window->isEditing());
    EXPECT_EQ(window->cell(0, opening), "5.00");
    EXPECT_EQ(window->grid().currentRow(), 4);
}

TEST_F(OpeningTypingTest, DoesNotEditAccountsAboveOthers) {
    open();
    window->stand(1, opening);
    window->type("5");
    EXPECT_FALSE(window->isEditing());
    EXPECT_EQ(window->focusWidget(), &window->grid());
}

TEST_F(OpeningTypingTest, KeepsTheRunningTotals) {
    open();
    window->type("300");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->label("debits"), "借方合计:300.00");
    EXPECT_EQ(window->label("credits"), "贷方合计:0.00");
    EXPECT_EQ(window->label("difference"), "差额:300.00");
    const auto redness = [this] {
        return window->findChild<QLabel*>("difference")->palette().windowText().color().red();
    };
    EXPECT_GT(redness(), 150);
    window->stand(4, opening);
    window->type("300");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->label("credits"), "贷方合计:300.00");
    EXPECT_EQ(window->label("difference"), "差额:0.00");
    EXPECT_LT(redness(), 100);
}

TEST_F(OpeningTypingTest, WritesAnEditThatAClickElsewhereEnds) {
    open();
    window->type("7");
    const auto cell = window->grid().visualRect(window->grid().model()->index(3, opening));
    QTest::mouseClick(window->grid().viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_FALSE(window->isEditing());
    EXPECT_EQ(window->cell(0, opening), "7.00");
}

TEST_F(OpeningTypingTest, WritesAnEditBeforeACommandRuns) {
    open();
    window->type("7");
    window->press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(window->cell(0, opening), "7.00");
    EXPECT_EQ(window->focusWidget(), &window->searchField());
}

TEST_F(OpeningTypingTest, KeepsWhatWasTypedForAFigureThatWasNotWritten) {
    open();
    window->type("99999999999999");
    window->press(Qt::Key_Return);
    EXPECT_EQ(messages().texts().size(), 1);
    EXPECT_EQ(window->grid().currentRow(), 0);
    ASSERT_TRUE(window->isEditing());
    EXPECT_EQ(window->editor()->text(), "99,999,999,999,999");
    window->press(Qt::Key_Backspace);
    window->press(Qt::Key_Backspace);
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(0, opening), "999,999,999,999.00");
    EXPECT_EQ(window->grid().currentRow(), 2);
}

TEST_F(OpeningTypingTest, ReturnsToAFigureThatWasNotWrittenWhenAClickLeftIt) {
    open();
    window->type("99999999999999");
    const auto cell = window->grid().visualRect(window->grid().model()->index(3, opening));
    QTest::mouseClick(window->grid().viewport(), Qt::LeftButton, {}, cell.center());
    OpenOpenings::letEventsTurn();
    EXPECT_EQ(window->grid().currentRow(), 0);
    ASSERT_TRUE(window->isEditing());
    EXPECT_EQ(window->editor()->text(), "99,999,999,999,999");
    window->press(Qt::Key_Escape);
    EXPECT_FALSE(window->isEditing());
    EXPECT_EQ(window->cell(0, opening), "0.00");
}

TEST_F(OpeningTypingTest, RunsNoCommandAndStaysOpenWhileAFigureIsNotWritten) {
    open();
    window->type("99999999999999");
    window->choose("退出");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(messages().texts().size(), 1);
    ASSERT_TRUE(window->isEditing());
    window->choose("试算平衡");
    EXPECT_EQ(messages().texts().size(), 2);
    EXPECT_TRUE(window->isEditing());
    window->press(Qt::Key_Escape);
    window->choose("退出");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(OpeningTypingTest, ClearsTheSelectedFiguresAsOneStep) {
    books->addRows("100201", 12, 5);
    books->addRows("100202", 12, 6);
    open();
    window->stand(2, opening);
    window->press(Qt::Key_Down, Qt::ShiftModifier);
    window->press(Qt::Key_Delete);
    EXPECT_EQ(window->column(opening), (Texts{"0.00", "0.00", "0.00", "0.00", "0.00"}));
    window->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->column(opening), (Texts{"0.00", "11.00", "5.00", "6.00", "0.00"}));
}

TEST_F(OpeningTypingTest, TakesForeignCurrencyAndQuantityInLinesOfTheirOwn) {
    books->addAccounts({"1211"});
    books->change("1211", "byExchId = 1, bAmount = 1, sUnit = '吨'");
    open();
    EXPECT_EQ(window->column(0),
              (Texts{"1001", "1002", "100201", "100202", "1211", "", "", "2202"}));
    EXPECT_EQ(window->cell(4, 3), "本位币");
    EXPECT_EQ(window->cell(5, 3), "美元");
    EXPECT_EQ(window->cell(6, 3), "吨");
    window->stand(4, opening);
    for (int line = 0; line < 3; ++line) {
        window->type("1.234567");
        window->press(Qt::Key_Return);
    }
    EXPECT_EQ(window->cell(4, opening), "1.23");
    EXPECT_EQ(window->cell(5, opening), "1.23");
    EXPECT_EQ(window->cell(6, opening), "1.23457");
    EXPECT_EQ(window->grid().currentRow(), 7);
    EXPECT_EQ(books->rowsOf("1211")[0].substr(books->rowsOf("1211")[0].find("1211")),
              "1211 1 begin 1.23 quantity 1.23457 foreign 1.23");
}

TEST_F(OpeningTypingTest, ProposesTheHomeAmountOfATypedForeignOneToBeTypedOver) {
    books->addAccounts({"1211"});
    books->change("1211", "byExchId = 1");
    books->books().run(
        "UPDATE Cyrency SET bMode = 1 WHERE lId = 1\r\n"
        "UPDATE ExchgFix SET dRate = 7.1 WHERE byPeroid = 1");
    open();
    window->stand(4, opening);
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->grid().currentRow(), 5) << "passed over, and so not typed";
    window->type("1000");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(4, opening), "7,100.00");
    EXPECT_EQ(window->cell(5, opening), "1,000.00");
    EXPECT_EQ(window->label("remark"),
              "本位币期初余额按 2026.01 的汇率 7.1 算为 7,100.00,可以改录。");
    window->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->cell(4, opening), "0.00");
    EXPECT_EQ(window->cell(5, opening), "0.00");
    EXPECT_EQ(window->grid().currentRow(), 5) << "undoing leads to what was typed";
    window->press(Qt::Key_Y, Qt::ControlModifier);
    window->stand(4, opening);
    window->type("7099");
    window->press(Qt::Key_Return);
    window->type("2000");
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->cell(4, opening), "7,099.00");
    EXPECT_TRUE(messages().texts().empty());
}

TEST_F(OpeningTypingTest, KeepsItsPlaceWhenARefreshBringsNewAccounts) {
    open();
    window->stand(3, opening);
    books->addAccounts({"1003"});
    books->addRows("100202", 12, 40);
    window->choose("刷新");
    EXPECT_EQ(window->column(0), (Texts{"1001", "1002", "100201", "100202", "1003", "2202"}));
    EXPECT_EQ(window->grid().currentRow(), 3);
    EXPECT_EQ(window->cell(3, opening), "40.00");
    EXPECT_EQ(window->cell(1, opening), "40.00");
}

TEST_F(OpeningTypingTest, TellsThatVouchersCameWhileItWasOpenAndBecomesOneForBrowsing) {
    open();
    books->addVoucher();
    window->type("5");
    window->press(Qt::Key_Return);
    EXPECT_EQ(messages().onlyNotice().text, "帐套中已有凭证,期初余额只能浏览,本次操作没有保存。");
    EXPECT_EQ(window->mode(), "浏览,只读");
    EXPECT_EQ(window->cell(0, opening), "0.00");
    EXPECT_TRUE(books->rows().empty());
}

TEST_F(OpeningTypingTest, FillsTheOpeningBalanceFromTheFiguresOfTheYear) {
    make(OpeningLayout::midYear);
    addSomeAccounts();
    open();
    constexpr int yearStart = 4;
    window->stand(0, yearStart);
    for (const char* figure : {"1000", "300", "50"}) {
        window->type(figure);
        window->press(Qt::Key_Tab);
    }
    EXPECT_EQ(window->cell(0, 7), "1,250.00");
    EXPECT_EQ(window->grid().currentIndex().column(), 7);
    window->press(Qt::Key_Tab);
    window->type("9");
    window->press(Qt::Key_Return);
    window->stand(0, 7);
    window->type("9");
    window->press(Qt::Key_Return);
    EXPECT_NE(window->colour(0, 7), QColor(Qt::white));
    EXPECT_EQ(window->colour(0, yearStart), QColor(Qt::white));
    const auto tipAt = [this](int column) {
        return window->grid().model()->index(0, column).data(Qt::ToolTipRole).toString();
    };
    EXPECT_EQ(tipAt(7), "期初余额与年初余额和累计发生额不符");
    EXPECT_EQ(tipAt(yearStart), "");
}

TEST_F(OpeningTypingTest, AsksBeforeBooksThatDoNotBalanceAreLeft) {
    open();
    window->type("12.5");
    window->press(Qt::Key_Return);
    messages().willAnswer("期初余额试算不平衡,差额为12.50,是否退出?", Answer::no);
    window->close();
    EXPECT_TRUE(window->isVisible());
    messages().willAnswer("期初余额试算不平衡,差额为12.50,是否退出?", Answer::yes);
    window->press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(messages().questions()[0].icon, MessageIcon::information);
    EXPECT_EQ(messages().questions()[0].caption, "澄恒财务软件");
    open();
    EXPECT_EQ(window->cell(0, opening), "12.50");
}

TEST_F(OpeningTypingTest, WritesTheEditThatClosingEndsAndLeavesBalancedBooksUnasked) {
    open();
    window->type("8");
    window->press(Qt::Key_Return);
    window->stand(4, opening);
    window->type("8");
    window->choose("退出");
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(messages().texts().empty());
    EXPECT_EQ(books->openings("2202").substr(0, 3), "1=8");
}

TEST_F(OpeningTypingTest, TypesTwoHundredBalancesAndUndoesAndRedoesFifty) {
    make();
    std::vector<std::string> codes;
    for (int number = 0; number < 200; ++number) codes.push_back(numbered(number));
    books->addAccounts(codes);
    open();
    for (int number = 0; number < 200; ++number) {
        window->type(std::to_string(number + 1));
        window->press(Qt::Key_Return);
    }
    EXPECT_EQ(window->label("debits"), "借方合计:20,100.00");
    const Texts typed = window->column(opening);
    EXPECT_EQ(typed[199], "200.00");
    for (int step = 0; step < 50; ++step) window->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->cell(149, opening), "150.00");
    EXPECT_EQ(window->cell(150, opening), "0.00");
    EXPECT_EQ(window->grid().currentRow(), 150);
    EXPECT_EQ(window->label("debits"), "借方合计:11,325.00");
    for (int step = 0; step < 50; ++step) window->press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(window->column(opening), typed);
    EXPECT_FALSE(window->isEnabled("重做"));
    messages().willAnswer(Answer::no);
    window->close();
    EXPECT_TRUE(window->isVisible());
    messages().willAnswer(Answer::yes);
    window->close();
    EXPECT_FALSE(window->isVisible());
    open();
    EXPECT_EQ(window->column(opening), typed);
}

TEST_F(OpeningTypingTest, LosesNothingThatAnotherWorkstationTypesMeanwhile) {
    open();
    OpeningWork other(messages());
    ASSERT_EQ(other.refresh(), Outcome::done);
    window->stand(2, opening);
    window->type("5");
    EXPECT_EQ(other.endEdit(3, opening, "7"), Outcome::done);
    EXPECT_EQ(other.endEdit(0, opening, "1"), Outcome::done);
    ASSERT_TRUE(window->isEditing());
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->column(opening), (Texts{"1.00", "12.00", "5.00", "7.00", "0.00"}));
    EXPECT_EQ(window->grid().currentRow(), 3);
    EXPECT_EQ(window->focusWidget(), &window->grid());
    EXPECT_EQ(window->label("debits"), "借方合计:13.00");
    EXPECT_EQ(other.refresh(), Outcome::done);
    EXPECT_EQ(other.sheet().text(1, opening), "12.00");
    EXPECT_TRUE(messages().texts().empty());
}

TEST_F(OpeningTypingTest, ShowsWhatASumComesToWhileItIsTyped) {
    open();
    const auto hint = [this] {
        const auto* label = window->grid().findChild<QLabel*>("sumHint");
        return label != nullptr && label->isVisible() ? label->text() : QString();
    };
    window->type("=1000");
    ASSERT_TRUE(window->isEditing());
    EXPECT_EQ(hint(), "= 1,000.00");
    window->type("+");
    EXPECT_EQ(hint(), "= ?");
    window->type("500*2");
    EXPECT_EQ(hint(), "= 2,000.00");
    EXPECT_EQ(window->editor()->accessibleDescription(), "= 2,000.00");
    window->press(Qt::Key_Return);
    EXPECT_EQ(hint(), "");
    EXPECT_EQ(window->cell(0, opening), "2,000.00");
    window->type("7");
    EXPECT_EQ(hint(), "") << "no sum";
    window->press(Qt::Key_Escape);
}

TEST_F(OpeningTypingTest, WritesNothingOfAFigureWhoseWindowIsGoneBeforeItsEnd) {
    open();
    const std::string before = books->openings("1001");
    window->type("7");
    ASSERT_TRUE(window->isEditing());
    window.reset();
    EXPECT_EQ(books->openings("1001"), before);
}
