// What an operator does in the opening balance window while the n-th database call fails,
// n = 1, 2, ... until it succeeds: it is told, the grid shows what the books hold, and nothing
// that was typed is gone.

#include <QApplication>
#include <QClipboard>

#include "data/access/host_database.h"
#include "tests/window/opening_fixture.h"
#include "tests/window/plan_hands.h"

using namespace chengheng;

namespace {

constexpr int mostCalls = 400;

/// An operator who answers no to everything.
class RefusingOperator final : public IMessages {
  public:
    void tell(const Notice&) override { ++notices; }
    Answer ask(const Question&) override {
        ++questions;
        return Answer::no;
    }
    int notices = 0;
    int questions = 0;
};

class OpeningTroubleTest : public OpeningWindowTest, public testing::WithParamInterface<Failure> {
  protected:
    void SetUp() override {
        make();
        addSomeAccounts();
        books->addRows("100201", 12, 5);
        books->addRows("2202", 12, 5);
        open();
        // The sums above are stored, so that a save changes nothing.
        window->stand(3, opening);
        window->type("6");
        window->press(Qt::Key_Return);
        window->stand(0, opening);
    }
    void fail(int call) { books->books().engine().failCall(call, GetParam()); }
    void recover() {
        fail(0);
        ASSERT_NE(books->database().DBSelect("books"), 0);
    }
    /// The visible cells of the chart as the books hold it.
    Texts storedCells() {
        OpeningBooks stored;
        EXPECT_TRUE(readOpeningBooks(books->database(), stored));
        Texts cells;
        for (std::size_t line = 0; line < stored.sheet.lineCount(); ++line)
            for (const std::size_t column : {0u, 2u, 4u})
                cells.push_back(stored.sheet.text(line, column));
        return cells;
    }
    Texts shownCells() const {
        Texts cells;
        for (int row = 0; row < window->grid().model()->rowCount(); ++row)
            for (const int column : {0, 2, 4}) cells.push_back(window->cell(row, column));
        return cells;
    }
    /// Nothing has happened but that one message was shown.
    void expectAsBefore(const Texts& rows, int call) {
        const bool hasFailed = books->books().engine().hasFailed();
        recover();
        EXPECT_TRUE(hasFailed) << call;
        EXPECT_FALSE(books->books().engine().inTransaction()) << call;
        EXPECT_FALSE(books->books().holdsLocks()) << call;
        EXPECT_EQ(books->rows(), rows) << call;
        EXPECT_EQ(shownCells(), storedCells()) << call;
    }
    /// Repeats an action, each time with a later call that fails, until it has done its work.
    void repeat(const std::function<void()>& action, const std::function<bool()>& isDone) {
        const Texts rows = books->rows();
        int call = 1;
        for (; call < mostCalls; ++call) {
            messages().forget();
            fail(call);
            action();
            if (isDone()) break;
            expectAsBefore(rows, call);
            ASSERT_EQ(messages().notices().size(), 1) << call;
            EXPECT_FALSE(messages().notices()[0].text.empty());
        }
        EXPECT_FALSE(books->books().engine().hasFailed());
        EXPECT_GT(call, 3);
        recover();
        EXPECT_EQ(shownCells(), storedCells());
        EXPECT_EQ(books->whatASaveWouldChange(), Texts{});
    }
};

TEST_P(OpeningTroubleTest, KeepsWhatWasTypedUntilAnEditIsWritten) {
    window->type("1234567");
    repeat(
        [&] {
            EXPECT_TRUE(window->isEditing());
            if (window->isEditing()) {
                EXPECT_EQ(window->editor()->text(), "1,234,567");
            }
            EXPECT_EQ(window->grid().currentRow(), 0);
            window->press(Qt::Key_Return);
        },
        [&] { return !window->isEditing(); });
    EXPECT_EQ(window->cell(0, opening), "1,234,567.00");
    EXPECT_EQ(window->grid().currentRow(), 2);
}

TEST_P(OpeningTroubleTest, WritesNothingOrAllOfAPaste) {
    QApplication::clipboard()->setText("1\n\n2\n3\n4\n");
    repeat(
        [&] {
            const NextModal preview([](QWidget& plan) { pressButton(plan, "写入"); });
            window->press(Qt::Key_V, Qt::ControlModifier);
        },
        [&] { return window->cell(0, opening) == "1.00"; });
    EXPECT_EQ(window->column(opening), (Texts{"1.00", "5.00", "2.00", "3.00", "4.00"}));
}

TEST_P(OpeningTroubleTest, ClearsNothingOrAllThatIsSelected) {
    window->grid().selectAll();
    repeat([&] { window->press(Qt::Key_Delete); },
           [&] { return window->cell(1, opening) == "0.00"; });
    EXPECT_EQ(window->column(opening), Texts(5, "0.00"));
}

TEST_P(OpeningTroubleTest, UndoesAndDoesAgainWhenItCan) {
    repeat([&] { window->press(Qt::Key_Z, Qt::ControlModifier); },
           [&] { return window->cell(3, opening) == "0.00"; });
    repeat([&] { window->press(Qt::Key_Y, Qt::ControlModifier); },
           [&] { return window->cell(3, opening) == "6.00"; });
}

TEST_P(OpeningTroubleTest, StaysAsItIsUntilARefreshReadsTheBooks) {
    const int calls = [&] {
        fail(0);
        window->choose("刷新");
        return books->books().engine().calls();
    }();
    // A few of them: the window that is up meanwhile takes its time.
    for (const int call : {1, 2, calls / 2, calls}) {
        messages().forget();
        fail(call);
        window->choose("刷新");
        recover();
        EXPECT_EQ(messages().texts().size(), 1) << call;
        EXPECT_EQ(shownCells(), storedCells()) << call;
    }
    EXPECT_GT(calls, 3);
    books->addRows("1001", 12, 9);
    fail(calls + 1);
    window->choose("刷新");
    recover();
    EXPECT_EQ(window->cell(0, opening), "9.00");
}

TEST_P(OpeningTroubleTest, TurnsADirectionWholeOrNotAtAll) {
    messages().willAnswer(Answer::yes);
    window->stand(3, opening);
    window->press(Qt::Key_Delete);
    window->stand(2, opening);
    window->press(Qt::Key_Delete);
    messages().forget();
    window->stand(1, opening);
    for (int call = 1; call < mostCalls; ++call) {
        messages().forget();
        fail(call);
        window->choose("调余额方向");
        const bool hasFailed = books->books().engine().hasFailed();
        recover();
        EXPECT_EQ(shownCells(), storedCells()) << call;
        EXPECT_FALSE(books->books().holdsLocks()) << call;
        if (!hasFailed) break;
        EXPECT_EQ(messages().notices().size(), 1) << call;
        messages().willAnswer(Answer::yes);
    }
    EXPECT_EQ(window->cell(1, 2), window->cell(3, 2));
}

TEST_P(OpeningTroubleTest, StaysOpenUntilItsSumsAreSavedUnlessTheOperatorWantsOtherwise) {
    RefusingOperator refusing;
    const HostMessages host(refusing);
    window.reset();
    books->books().run(
        "UPDATE AccSum SET mBegin = 11 WHERE lCodeId = (SELECT lId FROM Code WHERE "
        "sCode = '2202')");
    const auto openAndType = [&] {
        open();
        window->type("0");
        window->press(Qt::Key_Return);
    };
    openAndType();
    const Texts rows = books->rows();
    int call = 1;
    for (; call < mostCalls; ++call) {
        refusing.notices = refusing.questions = 0;
        fail(call);
        window->choose("退出");
        if (!books->books().engine().hasFailed()) break;
        // One box: the question has the failure as its detail.
        const bool isOpen = window->isVisible();
        EXPECT_EQ(refusing.questions, isOpen ? 1 : 0) << call;
        EXPECT_EQ(refusing.notices, isOpen ? 0 : 1) << call;
        expectAsBefore(rows, call);
        if (!isOpen) openAndType();
    }
    EXPECT_FALSE(window->isVisible());
    EXPECT_GT(call, 5);
    EXPECT_EQ(refusing.questions, 0);
    recover();
    EXPECT_EQ(books->whatASaveWouldChange(), Texts{});
}

INSTANTIATE_TEST_SUITE_P(ByFailures, OpeningTroubleTest,
                         testing::Values(Failure::full, Failure::lost),
                         [](const testing::TestParamInfo<Failure>& failure) {
                             return failure.param == Failure::full ? "OnAFullDisk"
                                                                   : "ByALostConnection";
                         });

}  // namespace
