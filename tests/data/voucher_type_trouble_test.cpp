#include <gtest/gtest.h>

#include "tests/support/each_call.h"
#include "tests/support/logged_locks.h"
#include "tests/support/voucher_type_books.h"
#include "vouchertype/voucher_type_form.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;

const Texts twoTypes{"收 收款凭证 1 1001 1002", "付 付款凭证 0"};

/// The window of voucher types without its screen.
using TypesAtWork = FormAtWork<VoucherTypeBooks, VoucherTypeForm>;

class VoucherTypeTrouble : public testing::TestWithParam<EngineCase> {
  protected:
    static void failEachCall(const std::function<void(TypesAtWork&, int number)>& prepare,
                             const std::function<bool(TypesAtWork&)>& command) {
        const auto open = [](TypesAtWork& work) {
            work.books.addAccounts();
            work.books.insert(twoTypes);
            work.open();
        };
        chengheng::failEachCall<TypesAtWork>(GetParam(), open, prepare, command);
    }
};

TEST_P(VoucherTypeTrouble, AFailedCallLeavesAnAdditionWholeOrUndone) {
    failEachCall(
        [](TypesAtWork& work, int number) {
            if (!work.form.isAdding()) work.form.startAdding();
            work.form.input = {0, std::to_string(number), "类别", 3, "1001", "1012"};
        },
        [](TypesAtWork& work) {
            const _SignInfo typed = work.form.input;
            const bool isDone = work.form.save();
            EXPECT_EQ(work.form.input.sSign, typed.sSign) << "nothing typed is lost";
            EXPECT_EQ(work.form.input.sCode2, typed.sCode2);
            EXPECT_EQ(work.form.isAdding(), !isDone);
            return isDone;
        });
}

TEST_P(VoucherTypeTrouble, AFailedCallLeavesAModificationWholeOrUndone) {
    failEachCall(
        [](TypesAtWork& work, int number) {
            // A number of its own each time, so that its use is asked for.
            work.form.input.sSign = std::to_string(number);
            work.form.input.byLimit = 2;
            work.form.input.sCode1 = "1012";
        },
        [](TypesAtWork& work) {
            const _SignInfo typed = work.form.input;
            const bool isDone = work.form.save();
            EXPECT_EQ(work.form.input, typed);
            EXPECT_EQ(work.form.canSave(), !isDone);
            return isDone;
        });
}

TEST_P(VoucherTypeTrouble, AFailedCallLeavesADeletionWholeOrUndone) {
    failEachCall(
        [](TypesAtWork& work, int) {
            if (work.form.leaves().all().size() < 2) {
                work.books.insert({"付 付款凭证 0"});
                work.form.open();
            }
            if (work.form.isAdding()) work.form.open();
        },
        [](TypesAtWork& work) {
            const std::size_t before = work.form.leaves().all().size();
            // A call that fails before the question keeps it from being asked.
            work.books.messages.willAnswer(Answer::yes);
            work.form.remove(work.form.selectedId());
            if (work.books.messages.questions().empty())
                static_cast<void>(work.books.messages.ask({}));
            return work.form.leaves().all().size() < before;
        });
}

TEST_P(VoucherTypeTrouble, AFailedCallKeepsTheSelectionWhereItWas) {
    TypesAtWork work(emptyFaultyBooks(GetParam()));
    work.books.insert(twoTypes);
    work.open();
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        work.books.messages.forget();
        work.engine.failCall(number, Failure::lost);
        const bool isSelected = work.form.select(2);
        hasFailed = work.engine.hasFailed();
        work.engine.failCall(0);
        EXPECT_NE(isSelected, hasFailed);
        EXPECT_EQ(work.form.selectedId(), isSelected ? 2 : 1);
        EXPECT_EQ(work.form.input.sSign, isSelected ? "付" : "收");
        EXPECT_EQ(work.books.messages.notices().size(), hasFailed ? 1u : 0u);
    }
    EXPECT_GT(number, 4);
}

TEST_P(VoucherTypeTrouble, AFailedCallOpensTheWindowForAnAddition) {
    TypesAtWork work(emptyFaultyBooks(GetParam()));
    work.books.insert(twoTypes);
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        work.books.messages.forget();
        work.engine.failCall(number, Failure::lost);
        work.form.open();
        hasFailed = work.engine.hasFailed();
        work.engine.failCall(0);
        EXPECT_EQ(work.form.isAdding(), hasFailed);
        EXPECT_FALSE(work.form.canDelete() && hasFailed);
        EXPECT_EQ(work.books.messages.notices().empty(), !hasFailed);
    }
    EXPECT_GT(number, 4);
}

TEST_P(VoucherTypeTrouble, ChartsThatCannotBeReadAreToldAndAreNotEmptyOnes) {
    TypesAtWork work(emptyFaultyBooks(GetParam()));
    work.books.addAccounts();
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        work.books.messages.forget();
        work.engine.failCall(number, Failure::lost);
        const auto accounts = work.form.firstLevelAccounts();
        hasFailed = work.engine.hasFailed();
        work.engine.failCall(0);
        EXPECT_EQ(accounts.has_value(), !hasFailed);
        EXPECT_EQ(work.books.messages.notices().size(), hasFailed ? 1u : 0u);
    }
    EXPECT_GT(number, 2);
}

TEST_P(VoucherTypeTrouble, TakesAndFreesTheAccountsFirst) {
    auto faulty = emptyFaultyBooks(GetParam());
    LoggedLocks locks(faulty->real().locks());
    faulty->replaceLocks(locks);
    TypesAtWork work(std::move(faulty));
    work.open();
    const Texts change{"lock Code 1", "lock Sign 2", "unlock Code 1", "unlock Sign 2"};
    work.form.input = {0, "记", "记帐凭证"};
    EXPECT_TRUE(work.form.save());
    EXPECT_EQ(locks.log(), change) << "addition";
    locks.forget();
    work.form.input.sSignName = "凭证";
    EXPECT_TRUE(work.form.save());
    EXPECT_EQ(locks.log(), change) << "modification";
    locks.forget();
    work.books.messages.willAnswer(Answer::yes);
    work.form.remove(work.form.selectedId());
    EXPECT_EQ(locks.log(), change) << "deletion";
    locks.forget();
    work.form.input = {0, "收", "收款凭证", 1};
    EXPECT_FALSE(work.form.save());
    EXPECT_EQ(locks.log(), change) << "refusal";
}

CHENGHENG_ON_ALL_ENGINES(VoucherTypeTrouble);

/// What is stored at a place after somebody was killed, once a writer gets through.
Texts storedAfterwards(const std::string& location) {
    VoucherTypeBooks books(location, false);
    EXPECT_NE(books.database.SQLLock("Sign", 2, 1), 0) << "the dead hold no lock";
    books.run("DELETE Sign WHERE lId = 0");
    return books.stored();
}

class VoucherTypeCrashes : public testing::TestWithParam<EngineCase> {
  protected:
    std::string makeBooks() {
        const std::string location = freshLocation(GetParam());
        VoucherTypeBooks books(location);
        books.addAccounts();
        books.insert(twoTypes);
        return location;
    }
    void killAtEachCall(const std::function<void(TypesAtWork&)>& change, const Texts& changed) {
        chengheng::killAtEachCall({
            [this] { return makeBooks(); },
            [&](std::unique_ptr<FaultyEngine> engine, int number) {
                TypesAtWork work(std::move(engine));
                work.form.open();
                work.engine.dieAtCall(number);
                change(work);
            },
            storedAfterwards,
            [&](const Texts& stored) { EXPECT_EQ(stored, changed); },
        });
    }
};

TEST_P(VoucherTypeCrashes, LeaveAnAdditionWholeOrUndone) {
    killAtEachCall(
        [](TypesAtWork& work) {
            work.form.startAdding();
            work.form.input = {0, "转", "转帐凭证", 3, "1001", "1002"};
            work.form.save();
        },
        {"1 收 收款凭证 1 1001 1002", "2 付 付款凭证 0", "3 转 转帐凭证 3 1001 1002"});
}

TEST_P(VoucherTypeCrashes, LeaveAModificationWholeOrUndone) {
    killAtEachCall(
        [](TypesAtWork& work) {
            work.form.input.sSign = "入";
            work.form.input.sCode2 = "1012";
            work.form.save();
        },
        {"1 入 收款凭证 1 1001 1012", "2 付 付款凭证 0"});
}

TEST_P(VoucherTypeCrashes, LeaveADeletionWholeOrUndone) {
    killAtEachCall(
        [](TypesAtWork& work) {
            work.books.messages.willAnswer(Answer::yes);
            work.form.remove(1);
        },
        {"2 付 付款凭证 0"});
}

CHENGHENG_ON_SHARED_ENGINES(VoucherTypeCrashes);

}  // namespace
