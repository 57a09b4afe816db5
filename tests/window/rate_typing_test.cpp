#include <QClipboard>

#include "data/engine/lock_service.h"
#include "tests/window/currency_fixture.h"

using namespace chengheng;

namespace {

/// The grid of two currencies with the keyboard on the first bookkeeping rate.
class RateTypingTest : public CurrencyWindowTest {
  protected:
    void SetUp() override {
        CurrencyWindowTest::SetUp();
        books.insert("USD", "美元");
        books.insert("JPY", "日元");
        books.run("UPDATE ExchgFix SET dRate = 7.123456 WHERE lId = 2");
        open();
        stand(0, 1);
    }
    Texts fixed() { return books.filledRates("ExchgFix"); }
    bool isRestOpen() const {
        const bool isOpen = tree().isEnabled();
        EXPECT_EQ(symbol().isEnabled(), isOpen);
        EXPECT_EQ(name().isEnabled(), isOpen);
        EXPECT_EQ(decimals().isEnabled(), isOpen);
        EXPECT_EQ(maxError().isEnabled(), isOpen);
        EXPECT_EQ(divided().isEnabled(), isOpen);
        EXPECT_EQ(fixedRate().isEnabled(), isOpen);
        EXPECT_EQ(floatingRate().isEnabled(), isOpen);
        return isOpen;
    }
};

}  // namespace

TEST_F(RateTypingTest, WritesARateAndGoesDown) {
    keys("7.1234567");
    EXPECT_EQ(typed(), "7.1234567");
    press(Qt::Key_Return);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(cell(0, 1), "7.12346");
    EXPECT_EQ(place(), "1 1");
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(fixed().front(), "1 1 2026-01-01 1 7.12346 0") << "rounded as it is shown";
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(RateTypingTest, DisablesAllButTheGridWhileARateIsTyped) {
    EXPECT_TRUE(isRestOpen());
    keys("7");
    EXPECT_FALSE(isRestOpen());
    EXPECT_FALSE(month().isEnabled());
    press(Qt::Key_Return);
    EXPECT_TRUE(isRestOpen());
    EXPECT_FALSE(ok().isEnabled()) << "an edit alone never enables it";
    floatingRate().click();
    stand(0, 1);
    keys("7");
    EXPECT_FALSE(month().isEnabled());
    press(Qt::Key_Escape);
    EXPECT_TRUE(month().isEnabled());
    EXPECT_TRUE(isRestOpen());
}

TEST_F(RateTypingTest, KeepsOkOffWhileARateIsTypedAndOnAfterwards) {
    type(name(), "美金");
    ASSERT_TRUE(ok().isEnabled());
    stand(0, 1);
    keys("7");
    EXPECT_FALSE(ok().isEnabled());
    press(Qt::Key_Return);
    EXPECT_TRUE(ok().isEnabled());
    EXPECT_EQ(books.stored()[0], "1 1 USD 美元 1 5 1e-05") << "Enter in the grid saves no currency";
    EXPECT_EQ(name().text(), "美金");
    books.messages.willAnswer(Answer::yes);
    window->close();
}

TEST_F(RateTypingTest, BeginsWithDigitsPointsAndF2Alone) {
    for (const int key : {Qt::Key_A, Qt::Key_Minus, Qt::Key_Delete, Qt::Key_Space,
                          Qt::Key_Backspace, Qt::Key_Comma, Qt::Key_Plus, Qt::Key_Insert}) {
        press(key);
        EXPECT_EQ(editor(), nullptr) << key;
    }
    for (const auto& [key, text] :
         {std::pair{Qt::Key_0, "0"}, {Qt::Key_9, "9"}, {Qt::Key_Period, "."}}) {
        for (const Qt::KeyboardModifiers pad : {Qt::NoModifier, Qt::KeypadModifier}) {
            press(key, pad);
            EXPECT_EQ(typed(), text);
            press(Qt::Key_Escape);
            EXPECT_EQ(editor(), nullptr);
        }
    }
    press(Qt::Key_7, Qt::ControlModifier);
    EXPECT_EQ(editor(), nullptr);
    press(Qt::Key_F2);
    EXPECT_EQ(typed(), "") << "zero is emptied first";
    press(Qt::Key_Escape);
    EXPECT_EQ(fixed(), (Texts{"2 1 2026-02-01 2 7.123456 0"}));
}

TEST_F(RateTypingTest, ReplacesByADigitAndKeepsByF2) {
    stand(1, 1);
    keys("8");
    EXPECT_EQ(typed(), "8");
    press(Qt::Key_Escape);
    EXPECT_EQ(cell(1, 1), "7.12346");
    press(Qt::Key_F2);
    EXPECT_EQ(typed(), "7.12346");
    press(Qt::Key_Return);
    EXPECT_EQ(fixed(), (Texts{"2 1 2026-02-01 2 7.123456 0"})) << "looking at it rounds nothing";
    stand(1, 1);
    press(Qt::Key_F2);
    keys("9");
    press(Qt::Key_Return);
    EXPECT_EQ(fixed(), (Texts{"2 1 2026-02-01 2 7.12347 0"}));
}

TEST_F(RateTypingTest, BeginsWithADoubleClickAsWithF2) {
    const QPoint place = grid().visualRect(grid().model()->index(1, 1)).center();
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, Qt::NoModifier, place);
    settle();
    EXPECT_EQ(typed(), "7.12346");
    press(Qt::Key_Escape);
}

TEST_F(RateTypingTest, LetsNothingIntoTheCellButDigitsAndOnePoint) {
    keys("7.1a-2.3e, 4");
    EXPECT_EQ(typed(), "7.1234");
    typeText(editor(), "5x");
    EXPECT_EQ(typed(), "7.1234");
    QApplication::clipboard()->setText(" 5\n");
    editor()->selectAll();
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(typed(), "5");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(0, 1), "5.00000");
}

TEST_F(RateTypingTest, TakesWhatAnInputMethodGives) {
    typeText(&grid(), "七");
    EXPECT_EQ(editor(), nullptr);
    typeText(&grid(), "７");
    EXPECT_EQ(typed(), "7");
    typeText(editor(), "。");
    typeText(editor(), "2５");
    EXPECT_EQ(typed(), "7.25");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(0, 1), "7.25000");
    EXPECT_TRUE(isRestOpen());
}

TEST_F(RateTypingTest, TakesARateAwayByNothingAndLeavesItByAPointAlone) {
    stand(1, 1);
    keys(".");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(1, 1), "7.12346");
    EXPECT_TRUE(isRestOpen());
    stand(1, 1);
    press(Qt::Key_F2);
    editor()->selectAll();
    press(Qt::Key_Delete);
    press(Qt::Key_Return);
    EXPECT_EQ(cell(1, 1), "");
    EXPECT_EQ(fixed(), Texts{});
}

TEST_F(RateTypingTest, FillsAYearByEnterAlone) {
    for (int month = 1; month <= 12; ++month) {
        keys("7.");
        keys(std::to_string(month).c_str());
        press(Qt::Key_Return);
    }
    EXPECT_EQ(place(), "0 2") << "from the twelfth to the first adjustment rate";
    for (int month = 1; month <= 12; ++month) {
        keys("8");
        press(month % 2 == 0 ? Qt::Key_Return : Qt::Key_Enter);
    }
    EXPECT_EQ(place(), "11 2") << "the last one stays";
    const Texts rates = fixed();
    ASSERT_EQ(rates.size(), 12u);
    EXPECT_EQ(rates[9], "10 1 2026-10-01 10 7.1 8");
    EXPECT_EQ(rates[11], "12 1 2026-12-01 12 7.12 8");
}

TEST_F(RateTypingTest, MovesByEnterWithoutTypingToo) {
    for (int row = 0; row < 11; ++row) press(Qt::Key_Return);
    EXPECT_EQ(place(), "11 1");
    press(Qt::Key_Return);
    EXPECT_EQ(place(), "0 2");
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(place(), "0 2");
    stand(11, 0);
    press(Qt::Key_Return);
    EXPECT_EQ(place(), "11 0");
}

TEST_F(RateTypingTest, JumpsAtTheTwelfthDayAsAtTheTwelfthMonthAndStaysBelow) {
    floatingRate().click();
    stand(10, 1);
    keys("7.5");
    press(Qt::Key_Return);
    EXPECT_EQ(place(), "11 1");
    keys("7.6");
    press(Qt::Key_Return);
    EXPECT_EQ(place(), "0 2");
    keys("7");
    EXPECT_EQ(editor(), nullptr) << "days have no adjustment rate of their own";
    press(Qt::Key_F2);
    EXPECT_EQ(editor(), nullptr);
    stand(12, 1);
    keys("7.7");
    press(Qt::Key_Return);
    EXPECT_EQ(place(), "12 1");
    EXPECT_EQ(books.filledRates("ExchgFlt"),
              (Texts{"131 1 2026-05-11 5 7.5 0", "132 1 2026-05-12 5 7.6 0",
                     "133 1 2026-05-13 5 7.7 0"}));
}

TEST_F(RateTypingTest, MovesOnByTabAndArrows) {
    keys("7");
    press(Qt::Key_Tab);
    EXPECT_EQ(place(), "0 2");
    keys("8");
    press(Qt::Key_Down);
    EXPECT_EQ(place(), "1 2");
    keys("9");
    press(Qt::Key_Up);
    EXPECT_EQ(place(), "0 2");
    EXPECT_EQ(fixed(), (Texts{"1 1 2026-01-01 1 7 8", "2 1 2026-02-01 2 7.123456 9"}));
}

TEST_F(RateTypingTest, WritesWhenAnotherCellIsClicked) {
    keys("7");
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, Qt::NoModifier,
                      grid().visualRect(grid().model()->index(4, 2)).center());
    settle();
    EXPECT_EQ(fixed().front(), "1 1 2026-01-01 1 7 0");
    EXPECT_EQ(place(), "4 2");
    EXPECT_TRUE(isRestOpen());
}

TEST_F(RateTypingTest, WritesWhatIsBeingTypedWhenTheWindowCloses) {
    keys("7.5");
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(fixed().front(), "1 1 2026-01-01 1 7.5 0");
}

TEST_F(RateTypingTest, GivesUpAPointAloneWhenTheWindowCloses) {
    stand(1, 1);
    keys(".");
    choose("退出");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(fixed(), (Texts{"2 1 2026-02-01 2 7.123456 0"}));
}

TEST_F(RateTypingTest, GivesUpWhatIsBeingTypedForAnAddition) {
    keys("7.5");
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_TRUE(symbol().hasFocus());
    EXPECT_TRUE(isRestOpen());
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(fixed(), (Texts{"2 1 2026-02-01 2 7.123456 0"}));
}

TEST_F(RateTypingTest, WritesWhatIsBeingTypedBeforeADeletionIsAskedAbout) {
    keys("7.5");
    books.messages.willAnswer(Answer::no);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(fixed().front(), "1 1 2026-01-01 1 7.5 0");
    EXPECT_TRUE(isRestOpen());
}

TEST_F(RateTypingTest, OffersWhatCouldNotBeWrittenOnceMore) {
    books.run("UPDATE ExchgFix SET dAdjustRate = 3 WHERE lId = 1");
    keys("7.5");
    ASSERT_NE(books.database.DBClose("books"), 0);
    press(Qt::Key_Return);
    EXPECT_EQ(books.messages.notices().size(), 1u);
    EXPECT_EQ(typed(), "7.5");
    EXPECT_FALSE(isRestOpen());
    window->close();
    EXPECT_TRUE(window->isVisible()) << "it would be lost";
    settle();
    EXPECT_EQ(typed(), "7.5");
    press(Qt::Key_Escape);
    EXPECT_TRUE(isRestOpen());
    window->close();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(RateTypingTest, KeepsTheOtherRateOfTheRowAsItIsStoredNow) {
    keys("7.5");
    books.run("UPDATE ExchgFix SET dAdjustRate = 3 WHERE lId = 1");
    press(Qt::Key_Return);
    EXPECT_EQ(fixed().front(), "1 1 2026-01-01 1 7.5 3");
}

TEST_F(RateTypingTest, TellsOfARateThatIsGoneAndReadsThemAnew) {
    keys("7.5");
    books.run("DELETE ExchgFix WHERE lId = 1");
    press(Qt::Key_Return);
    EXPECT_EQ(books.messages.texts(), Texts{"该汇率记录已被删除,汇率表已重新读入。"});
    EXPECT_EQ(cell(0, 1), "");
    EXPECT_EQ(selectedLeaf(), "美元");
    EXPECT_TRUE(isRestOpen());
    stand(0, 1);
    keys("7");
    EXPECT_EQ(editor(), nullptr) << "there is nothing to type over";
}

TEST_F(RateTypingTest, KeepsWhatStandsInTheFormWhenARateIsGone) {
    type(name(), "美金");
    stand(0, 1);
    keys("7.5");
    books.run("DELETE ExchgFix WHERE lId = 1");
    press(Qt::Key_Return);
    EXPECT_EQ(name().text(), "美金");
    EXPECT_TRUE(ok().isEnabled());
    books.messages.willAnswer(Answer::yes);
    window->close();
}

TEST_F(RateTypingTest, CopiesRatesAsASpreadsheetTakesThem) {
    stand(1, 0);
    press(Qt::Key_Right, Qt::ShiftModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "2026.02\t7.12346\n");
}
