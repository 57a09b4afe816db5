#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/layout/layout.h"
#include "operators/screen/division_screen.h"
#include "tests/support/each_call.h"
#include "tests/support/engine_cases.h"
#include "tests/support/logged_locks.h"
#include "tests/support/operator_books.h"
#include "tests/support/told_failures.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;

/// The window of the division of work without its screen, on books whose engine can fail.
struct DividedBooks {
    explicit DividedBooks(std::unique_ptr<FaultyEngine> faulty)
        : engine(*faulty), books(std::move(faulty)) {}

    FaultyEngine& engine;
    OperatorBooks books;
    DivisionScreen screen{books.messages, PasswordCost::least};
};

using DivisionWork = std::function<void(DividedBooks&)>;

void grantCurrencies(DividedBooks& trouble) {
    trouble.screen.select({2});
    trouble.screen.setBox(8, true);
}

void takeAccountsAway(DividedBooks& trouble) {
    trouble.screen.select({2, 6});
    trouble.screen.remove();
}

void addSomebody(DividedBooks& trouble) {
    OperatorForm form = trouble.screen.formToAdd();
    form.input = {"王芳", "pw", "pw"};
    form.confirm();
    EXPECT_EQ(form.input.password, "pw") << "what was typed stays";
    trouble.screen.take(form);
}

void renameSomebody(DividedBooks& trouble) {
    trouble.screen.select({2});
    OperatorForm form = trouble.screen.formToModify();
    form.input.name = "李小明";
    form.confirm();
    trouble.screen.take(form);
}

void removeSomebody(DividedBooks& trouble) {
    trouble.screen.select({2});
    trouble.screen.remove();
}

void promoteSomebody(DividedBooks& trouble) {
    trouble.screen.select({2});
    trouble.screen.setSupervisor(true);
}

struct DivisionCommand {
    const char* name;
    DivisionWork command;
    Texts changed;
    bool asks = false;
};

const std::vector<DivisionCommand>& divisionCommands() {
    static const std::vector<DivisionCommand> all{
        {"grant", grantCurrencies, {"1 张三 主管", "2 李明 41 46 47"}},
        {"take", takeAccountsAway, {"1 张三 主管", "2 李明"}},
        {"add", addSomebody, {"1 张三 主管", "2 李明 41", "3 王芳"}},
        {"rename", renameSomebody, {"1 张三 主管", "2 李小明 41"}},
        {"delete", removeSomebody, {"1 张三 主管"}, true},
        {"promote", promoteSomebody, {"1 张三 主管", "2 李明 主管 41"}, true},
    };
    return all;
}

/// What the window shows of the operators, as the books have them.
Texts shownTree(const DivisionScreen& screen) {
    Texts texts;
    for (const DivisionItem& item : screen.items()) {
        std::string text = item.name;
        for (const DivisionLeaf& leaf : item.leaves) text += ' ' + leaf.text;
        texts.push_back(text);
    }
    return texts;
}

const Texts unchanged{"1 张三 主管", "2 李明 41"};

class OperatorTrouble : public testing::TestWithParam<EngineCase> {
  protected:
    /// Lets each call of a command fail in turn. Nothing is half done, everything is told once,
    /// and the window shows what is stored.
    void failEachCall(const DivisionCommand& work, Failure failure) {
        int number = 1;
        for (bool hasFailed = true; hasFailed && number < 100; ++number) {
            auto engine = openForTest(freshLocation(GetParam()));
            ASSERT_TRUE(createLayout(*engine));
            DividedBooks trouble(std::make_unique<FaultyEngine>(std::move(engine)));
            trouble.books.insert("李明", {41});
            trouble.screen.open();
            const Texts shownBefore = shownTree(trouble.screen);
            Answers answers(trouble.books.messages, work.asks);
            trouble.engine.failCall(number, failure);
            work.command(trouble);
            hasFailed = trouble.engine.hasFailed();
            trouble.engine.failCall(0);
            EXPECT_FALSE(trouble.engine.inTransaction()) << work.name << " call " << number;
            EXPECT_FALSE(trouble.books.holdsLocks()) << work.name << " call " << number;
            EXPECT_EQ(trouble.books.messages.notices().size(), hasFailed ? 1u : 0u)
                << work.name << " call " << number;
            for (const Notice& notice : trouble.books.messages.notices())
                EXPECT_THAT(notice.text, tellsOf(failure)) << work.name << " call " << number;
            ASSERT_NE(trouble.books.database.DBSelect("books"), 0);
            EXPECT_EQ(trouble.books.stored(), hasFailed ? unchanged : work.changed)
                << work.name << " call " << number;
            EXPECT_EQ(shownTree(trouble.screen) == shownBefore, hasFailed)
                << work.name << " call " << number;
        }
        EXPECT_GT(number, 6) << "calls of the command " << work.name;
    }

  private:
    /// Whether the question comes is up to the call that fails.
    struct Answers {
        Answers(RecordingMessages& messages, bool asks) : m_messages(messages), m_asks(asks) {
            if (m_asks) m_messages.willAnswer(Answer::yes);
        }
        ~Answers() {
            if (m_asks && m_messages.questions().empty()) m_messages.ask({});
        }
        Answers(const Answers&) = delete;
        Answers& operator=(const Answers&) = delete;

        RecordingMessages& m_messages;
        bool m_asks;
    };
};

TEST_P(OperatorTrouble, AFailedCallLeavesEachChangeUndoneAndTold) {
    for (const DivisionCommand& work : divisionCommands()) failEachCall(work, Failure::full);
}

TEST_P(OperatorTrouble, ALostConnectionLeavesEachChangeUndoneAndTold) {
    for (const DivisionCommand& work : divisionCommands()) failEachCall(work, Failure::lost);
}

TEST_P(OperatorTrouble, AFailedReadListsNobodyAndLetsNothingBeChanged) {
    auto engine = openForTest(freshLocation(GetParam()));
    ASSERT_TRUE(createLayout(*engine));
    DividedBooks trouble(std::make_unique<FaultyEngine>(std::move(engine)));
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        trouble.books.messages.forget();
        trouble.engine.failCall(number, Failure::lost);
        trouble.screen.open();
        hasFailed = trouble.engine.hasFailed();
        trouble.engine.failCall(0);
        EXPECT_EQ(trouble.screen.items().empty(), hasFailed) << "call " << number;
        EXPECT_EQ(trouble.screen.canAdd(), !hasFailed);
        EXPECT_EQ(trouble.books.messages.notices().size(), hasFailed ? 1u : 0u);
        for (const Notice& notice : trouble.books.messages.notices()) EXPECT_TRUE(notice.beep);
    }
    EXPECT_GT(number, 4);
}

TEST_P(OperatorTrouble, EveryChangeLocksOperatorsAndRightsAndFreesThem) {
    for (const DivisionCommand& work : divisionCommands()) {
        auto engine = openForTest(freshLocation(GetParam()));
        ASSERT_TRUE(createLayout(*engine));
        LoggedLocks locks(engine->locks());
        auto faulty = std::make_unique<FaultyEngine>(std::move(engine));
        faulty->replaceLocks(locks);
        DividedBooks trouble(std::move(faulty));
        trouble.books.insert("李明", {41});
        trouble.screen.open();
        if (work.asks) trouble.books.messages.willAnswer(Answer::yes);
        work.command(trouble);
        EXPECT_EQ(locks.log(), (Texts{"lock Users UserAuth 2", "unlock Users UserAuth 2"}))
            << work.name;
    }
}

CHENGHENG_ON_ALL_ENGINES(OperatorTrouble);

class OperatorCrashes : public testing::TestWithParam<EngineCase> {
  protected:
    std::string makeBooks() {
        const std::string location = freshLocation(GetParam());
        OperatorBooks(location).insert("李明", {41});
        return location;
    }
};

TEST_P(OperatorCrashes, LeaveEachChangeWholeOrUndone) {
    for (const DivisionCommand& work : divisionCommands()) {
        SCOPED_TRACE(work.name);
        killAtEachCall({
            [this] { return makeBooks(); },
            [&work](std::unique_ptr<FaultyEngine> engine, int number) {
                DividedBooks trouble(std::move(engine));
                trouble.screen.open();
                if (work.asks) trouble.books.messages.willAnswer(Answer::yes);
                trouble.engine.dieAtCall(number);
                work.command(trouble);
            },
            [](const std::string& location) {
                OperatorBooks books(location, false);
                EXPECT_NE(books.database.SQLLock("Users UserAuth", 2, 1), 0)
                    << "the dead hold no lock";
                books.run("DELETE Users WHERE lId = 0");
                return books.stored();
            },
            [&work](const Texts& stored) { EXPECT_EQ(stored, work.changed); },
        });
    }
}

CHENGHENG_ON_SHARED_ENGINES(OperatorCrashes);

}  // namespace
