#include "opening/auxiliary/auxiliary_directories.h"
#include "opening/sheet/opening_texts.h"
#include "session/last_failure.h"
#include "tests/data/opening_case.h"

namespace chengheng {
namespace {

/// Figures that are typed, and what becomes of them in the books.
class Opening : public OpeningCase {};

TEST_P(Opening, PutsATypedBalanceAndTheSumsAboveIntoTheBooksAtOnce) {
    EXPECT_TRUE(m_books.type("10020101", "1,200.505"));
    EXPECT_TRUE(m_books.type("100202", "=100/3"));
    EXPECT_EQ(m_books.openings("10020101"), allPeriods("1200.51"));
    EXPECT_EQ(m_books.openings("100201"), allPeriods("1200.51"));
    EXPECT_EQ(m_books.openings("1002"), allPeriods("1233.84"));
    EXPECT_EQ(m_books.openings("1001"), "");
    EXPECT_EQ(m_books.shown("1002"), "1,233.84");
    EXPECT_EQ(m_books.whatASaveWouldChange(), Texts{});
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(Opening, UpdatesRowsThatAreThereAndKeepsTheirIds) {
    m_books.type("1001", "5");
    const auto before = m_books.rowsOf("1001");
    m_books.type("1001", "6");
    const auto after = m_books.rowsOf("1001");
    ASSERT_EQ(after.size(), 12u);
    EXPECT_EQ(before.front(), "1: 1001 1 begin 5");
    EXPECT_EQ(after.front(), "1: 1001 1 begin 6");
    EXPECT_EQ(after.back(), "12: 1001 12 begin 6");
}

TEST_P(Opening, CountsATextThatIsNoNumberAsZero) {
    m_books.type("1001", "5");
    EXPECT_TRUE(m_books.type("1001", "abc"));
    EXPECT_EQ(m_books.openings("1001"), allPeriods("0"));
}

TEST_P(Opening, LandsForeignCurrencyAndQuantityInTheirColumns) {
    m_books.type("10020102", "700");
    m_books.type("10020102", "100.005", foreign);
    m_books.type("1405", "1.234567", quantity);
    EXPECT_EQ(m_books.rowsOf("10020102").front(), "1: 10020102 1 begin 700 foreign 100.01");
    EXPECT_EQ(m_books.rowsOf("1002").back(), "36: 1002 12 begin 700 foreign 100.01");
    EXPECT_EQ(m_books.rowsOf("1405").front(), "37: 1405 1 quantity 1.23457");
    EXPECT_EQ(m_books.shown("1405", quantity), "1.23457");
}

TEST_P(Opening, RoundsTheSameTextToTwoDecimalsOnAMoneyLine) {
    m_books.type("1405", "1.234567");
    EXPECT_EQ(m_books.openings("1405"), allPeriods("1.23"));
}

TEST_P(Opening, HoldsTheLocksOfValueEntryWhileItWrites) {
    m_books.books().locks().forget();
    m_books.type("1001", "5");
    EXPECT_EQ(m_books.books().locks().log(),
              (Texts{"lock Code 1", "lock AccSum 2", "unlock Code 1", "unlock AccSum 2"}));
}

TEST_P(Opening, WritesNothingWhenTheFigureStaysAsItIs) {
    m_books.type("1001", "5");
    const auto readings = work().readings();
    const Texts before = m_books.rows();
    EXPECT_TRUE(m_books.type("1001", "5.00"));
    EXPECT_EQ(m_books.rows(), before);
    EXPECT_EQ(work().readings(), readings);
    EXPECT_TRUE(work().takeChangedCells().size() == 1);
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_FALSE(work().canUndo());
    EXPECT_TRUE(m_books.type("100202", "0"));
    EXPECT_EQ(m_books.openings("100202"), "");
}

TEST_P(Opening, ComparesAFigureTypedAsItIsShownWithTheBooks) {
    m_books.type("100202", "100");
    OpeningWork other(messages());
    ASSERT_EQ(other.refresh(), Outcome::done);
    const auto column = placeOf(OpeningField::opening, OpeningLayout::simple);
    const auto typeTwoHundred = [&] {
        ASSERT_EQ(other.endEdit(m_books.lineOf("100202"), column, "200"), Outcome::done);
        EXPECT_EQ(m_books.openings("1002"), allPeriods("200"));
    };
    typeTwoHundred();
    EXPECT_TRUE(m_books.type("100202", "100"));
    EXPECT_EQ(m_books.openings("100202"), allPeriods("100"));
    EXPECT_EQ(m_books.openings("1002"), allPeriods("100"));
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(m_books.openings("100202"), allPeriods("200"));
    EXPECT_EQ(work().redo(), Outcome::done);

    typeTwoHundred();
    Sheet block;
    block.rows = {{Cell::of(100.0)}};
    const auto line = m_books.lineOf("100202");
    EXPECT_EQ(work().apply(planPaste(work().sheet(), line, column, block)), Outcome::done);
    EXPECT_EQ(m_books.openings("100202"), allPeriods("100"));

    typeTwoHundred();
    block.rows = {{Cell::of(100.0)}, {Cell::of(3.0)}};
    EXPECT_EQ(work().apply(planPaste(work().sheet(), line, column, block)), Outcome::done);
    EXPECT_EQ(m_books.openings("100202"), allPeriods("100"));
    EXPECT_EQ(m_books.openings("1405"), allPeriods("3"));
    EXPECT_EQ(m_books.whatASaveWouldChange(), Texts{});
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(Opening, TakesOverWhatTheBooksHoldWhenThatIsWhatWasTyped) {
    OpeningWork other(messages());
    ASSERT_EQ(other.refresh(), Outcome::done);
    const auto column = placeOf(OpeningField::opening, OpeningLayout::simple);
    ASSERT_EQ(other.endEdit(m_books.lineOf("100202"), column, "200"), Outcome::done);
    const Texts before = m_books.rows();
    EXPECT_TRUE(m_books.type("100202", "200"));
    EXPECT_EQ(m_books.rows(), before);
    EXPECT_EQ(m_books.shown("1002"), "200.00");
    EXPECT_FALSE(work().canUndo());
}

TEST_P(Opening, LeavesWhatWasReadWhereReadingAnewFails) {
    OpeningBooks books;
    ASSERT_TRUE(readOpeningBooks(m_books.database(), books));
    const std::size_t accounts = books.sheet.accounts().size();
    ASSERT_GT(accounts, 0u);
    int call = 1;
    for (;; ++call) {
        m_books.books().engine().failCall(call, Failure::refused);
        const Status status = readOpeningBooks(m_books.database(), books);
        const bool hasFailed = m_books.books().engine().hasFailed();
        m_books.books().engine().failCall(0);
        EXPECT_NE(status.isDone(), hasFailed) << call;
        EXPECT_EQ(books.sheet.accounts().size(), accounts) << call;
        EXPECT_EQ(books.levelPattern, "4222") << call;
        if (!hasFailed) break;
    }
    EXPECT_GT(call, 3);
}

TEST_P(Opening, TellsWhichReadingOfADirectoryFailed) {
    m_books.books().engine().failCall(1, Failure::lost);
    const auto refusal = directoriesRefusal(AuxiliaryKind::unit);
    m_books.books().engine().failCall(0);
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->kind, RefusalKind::failed);
    EXPECT_EQ(refusal->notice.text, lastFailureText());
}

TEST_P(Opening, MakesAStepOnceUnlessTheSheetIsReadAnew) {
    OpeningBooks books;
    ASSERT_TRUE(readOpeningBooks(m_books.database(), books));
    int timesMade = 0;
    const auto write = [&](double opening) {
        const TypedFigure figure{m_books.idOf("1001"), Measure::money, &Balance::opening, opening};
        EditStep written;
        const auto make = [&](const OpeningSheet& sheet) {
            ++timesMade;
            return typedStep(sheet, std::span(&figure, 1));
        };
        timesMade = 0;
        return StepWriter(books).write(messages(), make, written);
    };
    EXPECT_EQ(write(5), Outcome::done);
    EXPECT_EQ(timesMade, 1);
    m_books.books().run("UPDATE AccSum SET mBegin = 9 WHERE lId > 0");
    EXPECT_EQ(write(6), Outcome::done);
    EXPECT_EQ(timesMade, 2);
    EXPECT_EQ(m_books.openings("1001"), allPeriods("6"));
}

TEST_P(Opening, TellsTheCellsThatAStepChangesOnce) {
    const auto lines = [this] {
        std::vector<std::size_t> changed;
        for (const OpeningCell& cell : work().takeChangedCells()) changed.push_back(cell.line);
        return changed;
    };
    m_books.type("10020101", "5");
    const std::vector<std::size_t> wanted{m_books.lineOf("1002"), m_books.lineOf("100201"),
                                          m_books.lineOf("10020101")};
    EXPECT_EQ(lines(), wanted);
    EXPECT_TRUE(lines().empty());
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(lines(), wanted);
    m_books.type("10020101", "0");
    EXPECT_TRUE(lines().empty());
}

TEST_P(Opening, TakesNothingTypedIntoParentsOrAuxiliaryAccounts) {
    m_books.change("100202", "sAssBook = 'B'");
    work().refresh();
    EXPECT_FALSE(m_books.type("1002", "5"));
    EXPECT_FALSE(m_books.type("100202", "5"));
    EXPECT_EQ(m_books.rows(), Texts{});
}

TEST_P(Opening, RefusesAmountsThatCannotBeHeldExactly) {
    EXPECT_FALSE(m_books.type("1001", "10000000000000"));
    EXPECT_EQ(messages().texts(), Texts{opening_texts::tooLarge});
    EXPECT_TRUE(m_books.type("1001", "9999999999999.99"));
    EXPECT_EQ(m_books.shown("1001"), "9,999,999,999,999.99");
}

TEST_P(Opening, UndoesAndDoesAgainStepByStep) {
    m_books.type("10020101", "5");
    m_books.type("10020101", "6");
    m_books.type("100202", "1");
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("5"));
    EXPECT_EQ(m_books.whatASaveWouldChange(), Texts{});
    EXPECT_EQ(work().redo(), Outcome::done);
    EXPECT_EQ(work().redo(), Outcome::done);
    EXPECT_NE(work().redo(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("7"));
    for (int step = 0; step < 3; ++step) EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_NE(work().undo(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("0"));
}

TEST_P(Opening, WritesAndRollsUpManyFiguresAtOnce) {
    std::vector<TypedFigure> figures;
    for (int number = 10; number < 90; ++number) {
        const std::string code = "1002" + std::to_string(number);
        m_books.addAccounts({code});
        figures.push_back({m_books.idOf(code), Measure::money, &Balance::opening, 0.01});
    }
    ASSERT_EQ(work().refresh(), Outcome::done);
    EXPECT_EQ(work().writeFigures(figures), Outcome::done);
    EXPECT_EQ(m_books.shown("1002"), "0.80");
    EXPECT_EQ(m_books.openings("1002"), allPeriods("0.8"));
    EXPECT_EQ(m_books.whatASaveWouldChange(), Texts{});
}

TEST_P(Opening, IsReadAnewOnlyWhereRowsDoNotTellWhatTheirAccountsHold) {
    m_books.addAccounts({"6001", "600101"});
    ASSERT_EQ(work().refresh(), Outcome::done);
    const auto readings = work().readings();
    EXPECT_TRUE(m_books.type("600101", "5"));
    EXPECT_EQ(work().readings(), readings) << "there is money alone below 6001";
    EXPECT_EQ(m_books.openings("6001"), allPeriods("5"));
    EXPECT_TRUE(m_books.type("10020101", "5"));
    EXPECT_GT(work().readings(), readings) << "foreign currency below 1002 may make up no rows";
}

TEST_P(Opening, IsReadAnewWhereARowOfASumHoldsAnotherCurrencyOrQuantity) {
    EXPECT_TRUE(m_books.type("10020102", "1"));
    for (const char* figure : {"mFgnBegin", "dAmtBegin"}) {
        EXPECT_TRUE(m_books.type("10020102", "6", foreign));
        const auto readings = work().readings();
        EXPECT_TRUE(m_books.type("10020102", "7", foreign));
        EXPECT_EQ(work().readings(), readings);
        m_books.books().run("UPDATE AccSum SET " + std::string(figure) +
                            " = 99 WHERE lCodeId = " + std::to_string(m_books.idOf("1002")));
        EXPECT_TRUE(m_books.type("10020102", "8", foreign));
        EXPECT_GT(work().readings(), readings) << figure;
    }
}

CHENGHENG_ON_ALL_ENGINES(Opening);

}  // namespace
}  // namespace chengheng
