// Another workstation works on the opening balances at each moment of an edit, a save and a
// refresh: neither loses what the other wrote.

#include <gtest/gtest.h>

#include "tests/support/engine_cases.h"
#include "tests/support/opening_books.h"
#include "tests/support/waiting_process.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

bool typeSeven(OpeningTestBooks& books) { return books.type("100201", "7"); }

bool refresh(OpeningTestBooks& books) { return books.work().refresh() == Outcome::done; }

class MeetingWorkstations : public testing::TestWithParam<EngineCase> {
  protected:
    using Action = bool (*)(OpeningTestBooks& books);

    /// Lets the other act before the n-th database call of the action; false when the action had
    /// fewer calls. The other may have to wait for the end of the action.
    static bool meetAtCall(const std::string& location, Action action, Action other, int call) {
        WaitingProcess otherStation([&] {
            OpeningTestBooks books(location, OpeningLayout::simple, false);
            return books.work().refresh() == Outcome::done && other(books);
        });
        bool haveMet = false;
        OpeningTestBooks books(location, OpeningLayout::simple, false);
        EXPECT_EQ(books.work().refresh(), Outcome::done);
        EXPECT_TRUE(books.type("100202", "3"));
        EXPECT_TRUE(books.type("100201", "5"));
        // Rows without figures, which a sweep takes away.
        EXPECT_TRUE(books.type("100201", "0"));
        books.books().engine().beforeCall(call, [&] {
            haveMet = true;
            otherStation.start();
        });
        EXPECT_TRUE(action(books)) << "call " << call;
        books.books().engine().beforeCall(0, {});
        if (!haveMet) otherStation.start();
        EXPECT_TRUE(otherStation.hasSucceeded()) << "call " << call;
        EXPECT_EQ(books.messages().texts(), Texts{}) << "call " << call;
        check(books, call);
        return haveMet;
    }
    static void check(OpeningTestBooks& books, int call) {
        EXPECT_EQ(books.whatASaveWouldChange(), Texts{}) << "call " << call;
        EXPECT_EQ(books.work().refresh(), Outcome::done);
        EXPECT_EQ(books.shown("100201"), "7.00") << "call " << call;
        EXPECT_EQ(books.shown("1002"), "10.00") << "call " << call;
        EXPECT_EQ(books.books().faults(), Texts{}) << "call " << call;
    }
    void meet(Action action, Action other) {
        const std::string location = freshLocation(GetParam());
        OpeningTestBooks(location).addAccounts({"1002", "100201", "100202"});
        int call = 1;
        while (meetAtCall(location, action, other, call) && !HasFailure() && call < 200) ++call;
        EXPECT_GT(call, 5);
    }
};

TEST_P(MeetingWorkstations, KeepAnEditThatASweepAndASaveMeet) { meet(typeSeven, save); }

TEST_P(MeetingWorkstations, KeepAnEditThatComesInTheMiddleOfASweep) { meet(refresh, typeSeven); }

TEST_P(MeetingWorkstations, KeepAnEditThatComesInTheMiddleOfASave) { meet(save, typeSeven); }

CHENGHENG_ON_SHARED_ENGINES(MeetingWorkstations);

}  // namespace
