// Random charts and edits: after each, the rows of all accounts above others are what a save
// would write, the sheet shows what a fresh reading gives, and the integrity check finds nothing.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "opening/direction/direction_adjust.h"
#include "opening/sheet/opening_texts.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/engine_cases.h"
#include "tests/support/opening_books.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

class RandomEdits : public testing::TestWithParam<EngineCase> {
  protected:
    std::size_t below(std::size_t count) { return m_random() % count; }

    void makeChart(OpeningTestBooks& books) {
        for (const char* top : {"1001", "1002", "2001"}) {
            books.addAccounts({top});
            if (below(4) == 0) continue;
            for (std::size_t child = 0; child <= below(4); ++child) {
                const std::string code = top + std::to_string(10 + child);
                books.addAccounts({code});
                if (below(2) == 0) books.addAccounts({code + "01", code + "02"});
            }
        }
        books.books().run("UPDATE Code SET byExchId = 1 WHERE lId > 4 AND lId < 9");
        books.books().run("UPDATE Code SET bAmount = 1, sUnit = '件' WHERE lId > 6");
        books.books().run("UPDATE Code SET bDirect = 0, sType = '负债' WHERE sCode LIKE '2%'");
        books.books().run("UPDATE Code SET sAssBook = 'C' WHERE lId = 3 OR lId = 8");
        books.books().run("INSERT INTO Dept (lId, sDeptName) VALUES (1, '财务部')");
        books.books().run("UPDATE ABIdTable SET lLastId = 1000 WHERE sTable = 'AssAcc'");
    }
    std::string amount() {
        const int cents = static_cast<int>(below(400)) - 200;
        return below(3) == 0 ? "0" : "=" + std::to_string(cents) + "/100";
    }
    void type(OpeningTestBooks& books) {
        const OpeningSheet& sheet = books.work().sheet();
        const std::size_t line = below(sheet.lineCount());
        const std::size_t first = placeOf(OpeningField::unit, sheet.layout()) + 1;
        const std::size_t column = first + below(sheet.figures().size());
        EXPECT_EQ(books.work().endEdit(line, column, amount()) == Outcome::done,
                  sheet.isEditable(line, column));
    }
    void paste(OpeningTestBooks& books) {
        std::string text;
        for (std::size_t row = 0; row <= below(8); ++row) text += amount() + "\n";
        Sheet block;
        ASSERT_FALSE(readClipboardBlock(text, block));
        const OpeningSheet& sheet = books.work().sheet();
        const FigurePlan plan = planPaste(sheet, below(sheet.lineCount()),
                                          placeOf(OpeningField::opening, sheet.layout()), block);
        EXPECT_EQ(books.work().apply(plan) == Outcome::done, plan.count(CellFate::refused) == 0);
    }
    /// Another workstation types into an account while this window shows the old figures.
    void typeElsewhere(OpeningTestBooks& books) {
        OpeningWork other(books.messages());
        ASSERT_EQ(other.refresh(), Outcome::done);
        const std::size_t line = below(other.sheet().lineCount());
        const std::size_t column = placeOf(OpeningField::opening, other.sheet().layout());
        EXPECT_EQ(other.endEdit(line, column, amount()) == Outcome::done,
                  other.sheet().isEditable(line, column));
        m_isOutdated = true;
    }
    /// As an auxiliary window gives an account its sums: all of one department.
    void giveAuxiliarySums(OpeningTestBooks& books, const OpeningAccount& account) {
        const double sum = static_cast<double>(below(400)) / 100;
        if (books.rowsOf(account.code).empty()) books.addRows(account.code, 12);
        books.books().run(
            formatSql("UPDATE AccSum SET mBegin = %lf WHERE lCodeId = %d\r\n"
                      "DELETE FROM AssAcc WHERE lCodeId = %d",
                      sum, account.id, account.id));
        for (int period = 1; period <= 12; ++period)
            books.books().run(
                formatSql("INSERT INTO AssAcc (lId, lCodeId, byPeroid, lDeptId, "
                          "mBegin) VALUES (%d, %d, %d, 1, %lf)",
                          account.id * 12 + period, account.id, period, sum));
    }
    void writeAuxiliary(OpeningTestBooks& books) {
        for (const OpeningAccount& account : books.work().sheet().accounts())
            if (account.isAuxiliary() && below(2) == 0) giveAuxiliarySums(books, account);
        EXPECT_EQ(books.work().afterAuxiliary(), Outcome::done);
        m_isOutdated = false;
    }
    void turnDirection(OpeningTestBooks& books) {
        const OpeningSheet& sheet = books.work().sheet();
        const std::size_t line = below(sheet.lineCount());
        if (directionRefusal(sheet, CodeLevels("4222"), line)) return;
        const bool wasDebit = sheet.accountOfLine(line).isDebit;
        books.messages().willAnswer(Answer::yes);
        EXPECT_EQ(books.work().adjustDirection(line), Outcome::done);
        EXPECT_NE(sheet.accountOfLine(line).isDebit, wasDebit);
        books.messages().forget();
    }
    /// Refused only where another workstation has typed over what the step left there.
    void goBackOrOn(OpeningTestBooks& books, const EditStep* step, Outcome (OpeningWork::*go)()) {
        if (step == nullptr) return;
        const EditStep asMade = *step;
        const Outcome outcome = (books.work().*go)();
        if (outcome == Outcome::done) return;
        EXPECT_EQ(outcome, Outcome::stale);
        EXPECT_EQ(books.messages().texts(), Texts{opening_texts::chartMeanwhile});
        books.messages().forget();
        const bool isUndo = go == &OpeningWork::undo;
        EXPECT_TRUE(std::ranges::any_of(asMade, [&](const CellChange& change) {
            const OpeningSheet& sheet = books.work().sheet();
            const auto place = sheet.placeOfId(change.accountId);
            return sheet.accounts()[*place].balance(change.measure).*change.figure !=
                   (isUndo ? change.after : change.before);
        }));
    }
    void act(OpeningTestBooks& books) {
        OpeningWork& work = books.work();
        const std::size_t choice = below(14);
        if (choice < 5)
            type(books);
        else if (choice < 7)
            paste(books);
        else if (choice == 7)
            goBackOrOn(books, work.stepToUndo(), &OpeningWork::undo);
        else if (choice == 8)
            goBackOrOn(books, work.stepToRedo(), &OpeningWork::redo);
        else if (choice == 9)
            EXPECT_EQ(work.save(), Outcome::done);
        else if (choice == 10)
            refresh(books);
        else if (choice == 11)
            typeElsewhere(books);
        else if (choice == 12)
            writeAuxiliary(books);
        else
            turnDirection(books);
    }
    void refresh(OpeningTestBooks& books) {
        EXPECT_EQ(books.work().refresh(), Outcome::done);
        m_isOutdated = false;
    }
    void check(OpeningTestBooks& books) {
        ASSERT_EQ(books.whatASaveWouldChange(), Texts{});
        ASSERT_EQ(books.books().faults(), Texts{});
        ASSERT_EQ(books.messages().texts(), Texts{});
        if (!m_isOutdated) checkSheet(books);
    }
    void checkSheet(OpeningTestBooks& books) {
        OpeningBooks stored;
        ASSERT_TRUE(readOpeningBooks(books.database(), stored));
        const auto shown = books.work().sheet().accounts();
        ASSERT_EQ(shown.size(), stored.sheet.accounts().size());
        for (std::size_t place = 0; place < shown.size(); ++place) {
            const OpeningAccount& account = stored.sheet.accounts()[place];
            ASSERT_EQ(shown[place].balances, account.balances) << account.code;
            ASSERT_EQ(shown[place].isDebit, account.isDebit) << account.code;
        }
    }
    void runEdits(OpeningLayout layout, unsigned seed) {
        m_random.seed(seed);
        OpeningTestBooks books(freshLocation(GetParam()), layout);
        makeChart(books);
        refresh(books);
        for (int step = 0; step < 25 && !HasFatalFailure(); ++step) {
            act(books);
            check(books);
        }
        refresh(books);
        checkSheet(books);
    }

    std::mt19937 m_random;
    /// Another workstation has typed since the window read the books.
    bool m_isOutdated = false;
};

TEST_P(RandomEdits, LeaveTheBooksAsASaveWould) {
    for (const unsigned seed : {1u, 2u, 3u}) {
        runEdits(OpeningLayout::simple, seed);
        ASSERT_FALSE(HasFatalFailure()) << "seed " << seed;
    }
}

TEST_P(RandomEdits, LeaveBooksThatBeginMidYearAsASaveWould) {
    for (const unsigned seed : {4u, 5u, 6u}) {
        runEdits(OpeningLayout::midYear, seed);
        ASSERT_FALSE(HasFatalFailure()) << "seed " << seed;
    }
}

CHENGHENG_ON_ALL_ENGINES(RandomEdits);

}  // namespace
