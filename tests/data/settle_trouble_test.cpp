#include <gtest/gtest.h>

#include "settle/settle_form.h"
#include "tests/support/each_call.h"
#include "tests/support/logged_locks.h"
#include "tests/support/settle_books.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;

/// The settlement-method window without its screen.
using Trouble = FormAtWork<SettleBooks, SettleForm>;

class SettleTrouble : public testing::TestWithParam<EngineCase> {
  protected:
    static void failEachCall(const std::function<void(Trouble&, int number)>& prepare,
                             const std::function<bool(Trouble&)>& command) {
        const auto open = [](Trouble& trouble) {
            trouble.books.insert({"1 现金 0", "2 支票 1"});
            trouble.open();
        };
        chengheng::failEachCall<Trouble>(GetParam(), open, prepare, command);
    }
};

TEST_P(SettleTrouble, AFailedCallLeavesAnAdditionWholeOrUndone) {
    failEachCall(
        [](Trouble& trouble, int number) {
            if (!trouble.form.isAdding()) trouble.form.startAdding();
            trouble.form.input = {"n" + std::to_string(number), "方式" + std::to_string(number),
                                  true};
        },
        [](Trouble& trouble) {
            const SettleInput typed = trouble.form.input;
            const bool isDone = trouble.form.save();
            EXPECT_EQ(trouble.form.input, typed) << "nothing typed is lost";
            EXPECT_EQ(trouble.form.isAdding(), !isDone);
            return isDone;
        });
}

TEST_P(SettleTrouble, AFailedCallLeavesAModificationWholeOrUndone) {
    failEachCall(
        [](Trouble& trouble, int number) {
            trouble.form.input = {"m", "方式" + std::to_string(number), number % 2 == 0};
            // A number of its own each time, so that its use is asked for.
            trouble.form.input.number += static_cast<char>('A' + number);
        },
        [](Trouble& trouble) {
            const SettleInput typed = trouble.form.input;
            const bool isDone = trouble.form.save();
            EXPECT_EQ(trouble.form.input, typed);
            EXPECT_EQ(trouble.form.canSave(), !isDone);
            return isDone;
        });
}

TEST_P(SettleTrouble, AFailedCallLeavesADeletionWholeOrUndone) {
    failEachCall(
        [](Trouble& trouble, int) {
            if (trouble.form.leaves().all().size() < 2) {
                trouble.books.insert({"2 支票 1"});
                trouble.form.open();
            }
            if (trouble.form.isAdding()) trouble.form.open();
        },
        [](Trouble& trouble) {
            const std::size_t before = trouble.form.leaves().all().size();
            trouble.books.messages.willAnswer(Answer::yes);
            trouble.form.remove(trouble.form.selectedId());
            return trouble.form.leaves().all().size() < before;
        });
}

TEST_P(SettleTrouble, AFailedCallKeepsTheSelectionWhereItWas) {
    Trouble trouble(emptyFaultyBooks(GetParam()));
    trouble.books.insert({"1 现金 0", "2 支票 1"});
    trouble.open();
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        trouble.books.messages.forget();
        trouble.engine.failCall(number, Failure::lost);
        const bool isSelected = trouble.form.select(2);
        hasFailed = trouble.engine.hasFailed();
        trouble.engine.failCall(0);
        EXPECT_NE(isSelected, hasFailed);
        EXPECT_EQ(trouble.form.selectedId(), isSelected ? 2 : 1);
        EXPECT_EQ(trouble.form.input.name, isSelected ? "支票" : "现金");
        EXPECT_EQ(trouble.books.messages.notices().size(), hasFailed ? 1u : 0u);
        for (const Notice& notice : trouble.books.messages.notices())
            EXPECT_THAT(notice.text, tellsOf(Failure::lost)) << "call " << number;
    }
    EXPECT_GT(number, 4);
}

TEST_P(SettleTrouble, AFailedCallOpensTheWindowForAnAddition) {
    Trouble trouble(emptyFaultyBooks(GetParam()));
    trouble.books.insert({"1 现金 0"});
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        trouble.books.messages.forget();
        trouble.engine.failCall(number, Failure::lost);
        trouble.form.open();
        hasFailed = trouble.engine.hasFailed();
        trouble.engine.failCall(0);
        EXPECT_EQ(trouble.form.isAdding(), hasFailed);
        EXPECT_FALSE(trouble.form.canDelete() && hasFailed);
        EXPECT_EQ(trouble.books.messages.notices().empty(), !hasFailed);
        for (const Notice& notice : trouble.books.messages.notices())
            EXPECT_THAT(notice.text, tellsOf(Failure::lost)) << "call " << number;
    }
    EXPECT_GT(number, 4);
}

TEST_P(SettleTrouble, TakesAndFreesTheReferringTablesFirst) {
    auto faulty = emptyFaultyBooks(GetParam());
    LoggedLocks locks(faulty->real().locks());
    faulty->replaceLocks(locks);
    Trouble trouble(std::move(faulty));
    trouble.open();
    const Texts change{"lock RecpBank RecpEnter UnregMain UnregSub 1", "lock Settle 2",
                       "unlock RecpBank RecpEnter UnregMain UnregSub 1", "unlock Settle 2"};
    trouble.form.input = {"1", "现金", false};
    EXPECT_TRUE(trouble.form.save());
    EXPECT_EQ(locks.log(), change) << "addition";
    locks.forget();
    trouble.form.input.name = "现款";
    EXPECT_TRUE(trouble.form.save());
    EXPECT_EQ(locks.log(), change) << "modification";
    locks.forget();
    trouble.books.messages.willAnswer(Answer::yes);
    trouble.form.remove(trouble.form.selectedId());
    EXPECT_EQ(locks.log(), change) << "deletion";
}

CHENGHENG_ON_ALL_ENGINES(SettleTrouble);

/// What is stored at a place after somebody was killed, once a writer gets through.
Texts storedAfterwards(const std::string& location) {
    SettleBooks books(location, false);
    EXPECT_NE(books.database.SQLLock("Settle", 2, 1), 0) << "the dead hold no lock";
    books.run("DELETE Settle WHERE lId = 0");
    return books.stored();
}

class SettleCrashes : public testing::TestWithParam<EngineCase> {
  protected:
    std::string makeBooks() {
        const std::string location = freshLocation(GetParam());
        SettleBooks(location).insert({"1 现金 0", "2 支票 1"});
        return location;
    }
    void killAtEachCall(const std::function<void(Trouble&)>& change, const Texts& changed) {
        chengheng::killAtEachCall({
            [this] { return makeBooks(); },
            [&](std::unique_ptr<FaultyEngine> engine, int number) {
                Trouble trouble(std::move(engine));
                trouble.form.open();
                trouble.engine.dieAtCall(number);
                change(trouble);
            },
            storedAfterwards,
            [&](const Texts& stored) { EXPECT_EQ(stored, changed); },
        });
    }
};

TEST_P(SettleCrashes, LeaveAnAdditionWholeOrUndone) {
    killAtEachCall(
        [](Trouble& trouble) {
            trouble.form.startAdding();
            trouble.form.input = {"3", "汇兑", true};
            trouble.form.save();
        },
        {"1 1 现金 0", "2 2 支票 1", "3 3 汇兑 1"});
}

TEST_P(SettleCrashes, LeaveAModificationWholeOrUndone) {
    killAtEachCall(
        [](Trouble& trouble) {
            trouble.form.input = {"7", "现款", true};
            trouble.form.save();
        },
        {"1 7 现款 1", "2 2 支票 1"});
}

TEST_P(SettleCrashes, LeaveADeletionWholeOrUndone) {
    killAtEachCall(
        [](Trouble& trouble) {
            trouble.books.messages.willAnswer(Answer::yes);
            trouble.form.remove(1);
        },
        {"2 2 支票 1"});
}

CHENGHENG_ON_SHARED_ENGINES(SettleCrashes);

}  // namespace
