// Edits, pastes and saves of opening balances whose n-th database call fails, or at whose n-th
// call the process dies, n = 1, 2, ... until the action succeeds: the books hold the old state or
// the new.

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>

#include "sheets/delimited/delimited_text.h"
#include "tests/support/engine_cases.h"
#include "tests/support/killed_process.h"
#include "tests/support/opening_books.h"
#include "tests/support/sound_log.h"
#include "tests/support/told_failures.h"
#include "tests/support/waiting_process.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

struct Action {
    const char* name;
    bool (*run)(OpeningTestBooks& books);
};

bool edit(OpeningTestBooks& books) { return books.type("10020101", "77.77"); }

bool paste(OpeningTestBooks& books) {
    Sheet block;
    if (readClipboardBlock("1\n\n\n12.5\n13\n14", block)) return false;
    const OpeningSheet& sheet = books.work().sheet();
    const std::size_t column = placeOf(OpeningField::opening, sheet.layout());
    return books.work().apply(planPaste(sheet, 0, column, block)) == Outcome::done;
}

/// With work to do: the rows of one parent are gone, those of another too few.
bool undo(OpeningTestBooks& books) { return books.work().undo() == Outcome::done; }

constexpr Action actions[] = {{"Edit", edit}, {"Paste", paste}, {"Save", save}};

/// Lines: 1001, 1002, 100201, 10020101, 10020102, 100202.
void prepare(OpeningTestBooks& books) {
    books.addAccounts({"1001", "1002", "100201", "10020101", "10020102", "100202"});
    ASSERT_EQ(books.work().refresh(), Outcome::done);
    ASSERT_TRUE(books.type("10020102", "5"));
    ASSERT_TRUE(books.type("10020101", "3"));
    books.books().run(formatSql("DELETE FROM AccSum WHERE lCodeId = %d", books.idOf("100201")));
    books.books().run(
        formatSql("DELETE FROM AccSum WHERE lCodeId = %d AND byPeroid = 12", books.idOf("1002")));
}

std::vector<Balances> figuresOf(const OpeningSheet& sheet) {
    std::vector<Balances> figures;
    for (const OpeningAccount& account : sheet.accounts()) figures.push_back(account.balances);
    return figures;
}

class OpeningFaults : public testing::TestWithParam<EngineCase> {
  protected:
    void failEachCall(const Action& action, Failure failure, bool isChangedByOthers = false) {
        OpeningTestBooks books(freshLocation(GetParam()));
        prepare(books);
        if (isChangedByOthers)
            books.books().run(formatSql("UPDATE AccSum SET mBegin = 4 WHERE lCodeId = %d",
                                        books.idOf("10020101")));
        const Texts before = books.rows();
        const auto figures = figuresOf(books.work().sheet());
        bool isDone = false;
        int failures = 0;
        for (int call = 1; !isDone && call < 500; ++call) {
            books.messages().forget();
            books.books().engine().failCall(call, failure);
            isDone = action.run(books);
            const bool hasFailed = books.books().engine().hasFailed();
            books.books().engine().failCall(0);
            ASSERT_NE(isDone, hasFailed) << action.name << " call " << call;
            EXPECT_FALSE(books.books().engine().inTransaction()) << call;
            EXPECT_FALSE(books.books().locks().holds("AccSum", LockMode::exclusive)) << call;
            EXPECT_FALSE(books.books().locks().holds("Code", LockMode::shared)) << call;
            ASSERT_NE(books.database().DBSelect("books"), 0);
            if (isDone) break;
            ++failures;
            ASSERT_EQ(books.rows(), before) << action.name << " call " << call;
            ASSERT_EQ(figuresOf(books.work().sheet()), figures) << call;
            EXPECT_THAT(books.messages().onlyNotice().text, tellsOf(failure)) << call;
        }
        EXPECT_TRUE(isDone) << action.name;
        EXPECT_GT(failures, 5) << action.name;
        EXPECT_EQ(books.whatASaveWouldChange(), Texts{}) << action.name;
        EXPECT_EQ(books.books().faults(), Texts{}) << action.name;
    }
};

TEST_P(OpeningFaults, OnAFullDiskChangeNothingAndAreTold) {
    for (const Action& action : actions) failEachCall(action, Failure::full);
}

TEST_P(OpeningFaults, ByALostConnectionChangeNothingAndAreTold) {
    for (const Action& action : actions) failEachCall(action, Failure::lost);
}

TEST_P(OpeningFaults, LeaveTheSheetAsItWasWhereOthersChangedTheBooks) {
    failEachCall(actions[0], Failure::full, true);
}

TEST_P(OpeningFaults, OfAnUndoLeaveItToBeUndone) {
    OpeningTestBooks books(freshLocation(GetParam()));
    prepare(books);
    books.books().engine().failCall(4);
    EXPECT_FALSE(undo(books));
    books.books().engine().failCall(0);
    EXPECT_TRUE(undo(books));
    EXPECT_EQ(books.shown("10020101"), "0.00");
}

CHENGHENG_ON_ALL_ENGINES(OpeningFaults);

class OpeningCrashes : public testing::TestWithParam<EngineCase> {
  protected:
    /// Runs the action in a process that dies at the n-th call; false when it came to its end.
    static bool diesAtCall(const std::string& location, const Action& action, int call) {
        return isKilledAtWork([&] {
            OpeningTestBooks books(location, OpeningLayout::simple, false);
            const bool isReady = books.work().refresh() == Outcome::done;
            books.books().engine().dieAtCall(call);
            if (!isReady || !action.run(books)) throw std::runtime_error(action.name);
        });
    }
    void dieAtEachCall(const Action& action) {
        const std::string location = freshLocation(GetParam());
        {
            OpeningTestBooks books(location);
            prepare(books);
        }
        const Texts before = rowsAt(location);
        int deaths = 0;
        for (int call = 1; diesAtCall(location, action, call); ++call) {
            ++deaths;
            ASSERT_EQ(rowsAt(location), before) << action.name << " call " << call;
            if (deaths % 6 == 0) expectSoundLogAt(location);
            ASSERT_LT(deaths, 500);
        }
        EXPECT_GT(deaths, 5) << action.name;
        EXPECT_NE(rowsAt(location), before) << action.name;
        expectSoundLogAt(location);
        OpeningTestBooks books(location, OpeningLayout::simple, false);
        EXPECT_EQ(books.whatASaveWouldChange(), Texts{}) << action.name;
        EXPECT_EQ(books.books().faults(), Texts{}) << action.name;
    }
    static Texts rowsAt(const std::string& location) {
        return OpeningTestBooks(location, OpeningLayout::simple, false).rows();
    }
};

TEST_P(OpeningCrashes, InAnEditLeaveTheOldStateOrTheNew) { dieAtEachCall(actions[0]); }
TEST_P(OpeningCrashes, InAPasteLeaveTheOldStateOrTheNew) { dieAtEachCall(actions[1]); }
TEST_P(OpeningCrashes, InASaveLeaveTheOldStateOrTheNew) { dieAtEachCall(actions[2]); }

TEST_P(OpeningCrashes, AfterAnEditLoseNothing) {
    const std::string location = freshLocation(GetParam());
    {
        OpeningTestBooks books(location);
        prepare(books);
    }
    const Action editAndDie{"edit and die", [](OpeningTestBooks& books) {
                                const bool isDone = edit(books);
                                if (isDone) raise(SIGKILL);
                                return isDone;
                            }};
    EXPECT_TRUE(diesAtCall(location, editAndDie, 100'000));
    OpeningTestBooks books(location, OpeningLayout::simple, false);
    EXPECT_EQ(books.work().refresh(), Outcome::done);
    EXPECT_EQ(books.shown("10020101"), "77.77");
    EXPECT_EQ(books.shown("1002"), "82.77");
    EXPECT_EQ(books.whatASaveWouldChange(), Texts{});
}

CHENGHENG_ON_SHARED_ENGINES(OpeningCrashes);

class TypingWorkstations : public testing::TestWithParam<EngineCase> {
  protected:
    static constexpr int edits = 15;

    static std::string amount(int at) { return std::to_string(at) + ".11"; }
    /// Types into every second account below 1002, from the first or the second on.
    static bool typeEverySecond(OpeningTestBooks& books, int first) {
        bool isDone = books.work().refresh() == Outcome::done;
        for (int at = first; isDone && at < 2 * edits; at += 2)
            isDone = books.type("1002" + std::to_string(10 + at), amount(at + 1));
        return isDone;
    }
};

TEST_P(TypingWorkstations, AtDifferentAccountsAtOnceLoseNothing) {
    const std::string location = freshLocation(GetParam());
    {
        OpeningTestBooks books(location);
        books.addAccounts({"1002"});
        for (int at = 0; at < 2 * edits; ++at)
            books.addAccounts({"1002" + std::to_string(10 + at)});
    }
    WaitingProcess other([&] {
        OpeningTestBooks books(location, OpeningLayout::simple, false);
        return typeEverySecond(books, 1);
    });
    OpeningTestBooks books(location, OpeningLayout::simple, false);
    other.start(std::chrono::milliseconds(0));
    EXPECT_TRUE(typeEverySecond(books, 0));
    EXPECT_TRUE(books.messages().texts().empty());
    EXPECT_TRUE(other.hasSucceeded());
    EXPECT_EQ(books.whatASaveWouldChange(), Texts{});
    EXPECT_EQ(books.work().refresh(), Outcome::done);
    for (int at = 0; at < 2 * edits; ++at)
        EXPECT_EQ(books.shown("1002" + std::to_string(10 + at)), amount(at + 1));
    EXPECT_EQ(books.shown("1002"), "468.30");
    EXPECT_EQ(books.books().faults(), Texts{});
}

TEST_P(TypingWorkstations, AtDifferentFiguresOfOneAccountLoseNeither) {
    const std::string location = freshLocation(GetParam());
    OpeningTestBooks books(location);
    books.addAccounts({"1002", "100201"});
    books.change("100201", "byExchId = 1");
    EXPECT_EQ(books.work().refresh(), Outcome::done);
    EXPECT_TRUE(books.type("100201", "5"));
    books.books().run("UPDATE AccSum SET mFgnBegin = 3");
    const auto readings = books.work().readings();
    EXPECT_TRUE(books.type("100201", "6"));
    EXPECT_GT(books.work().readings(), readings);
    EXPECT_EQ(books.shown("100201", Measure::foreign), "3.00");
    EXPECT_EQ(books.rowsOf("1002").front(), "13: 1002 1 begin 6 foreign 3");
}

TEST_P(TypingWorkstations, AtForeignCurrencyWithoutMoneyLoseNothing) {
    OpeningTestBooks books(freshLocation(GetParam()));
    books.addAccounts({"1002", "100201", "100202"});
    books.change("100202", "byExchId = 1");
    EXPECT_EQ(books.work().refresh(), Outcome::done);
    OpeningWork other(books.messages());
    EXPECT_EQ(other.refresh(), Outcome::done);
    EXPECT_EQ(other.endEdit(books.lineOf("100202", Measure::foreign), 4, "3"), Outcome::done);
    EXPECT_TRUE(books.type("100201", "6"));
    EXPECT_EQ(books.rowsOf("1002").front(), "25: 1002 1 begin 6 foreign 3");
}

CHENGHENG_ON_SHARED_ENGINES(TypingWorkstations);

}  // namespace
