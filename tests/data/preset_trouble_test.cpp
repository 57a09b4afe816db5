#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/layout/layout.h"
#include "setting/hub_functions.h"
#include "tests/data/preset_case.h"
#include "tests/support/engine_cases.h"
#include "tests/support/killed_process.h"
#include "tests/support/made_layout.h"
#include "tests/support/other_goes_on.h"
#include "tests/support/other_workstation.h"
#include "tests/support/small_books.h"
#include "tests/support/told_failures.h"
#include "vouchertype/preset/preset_service.h"

namespace {

using namespace chengheng;

using testing::EndsWith;
using Texts = std::vector<std::string>;

class PresetTrouble : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        auto faulty = std::make_unique<FaultyEngine>(openForTest(freshLocation(GetParam())));
        makeLayout(*faulty);
        m_engine = faulty.get();
        m_books = std::make_unique<VoucherTypeBooks>(std::move(faulty));
        addDesignatedAccounts(*m_books);
    }

    FaultyEngine* m_engine = nullptr;
    std::unique_ptr<VoucherTypeBooks> m_books;
};

TEST_P(PresetTrouble, AFailedCallLeavesAllTypesOfASetOrNone) {
    for (const Failure failure : {Failure::full, Failure::lost}) {
        int number = 1;
        for (bool hasFailed = true; hasFailed && number < 100; ++number) {
            PresetService service(m_books->messages);
            m_engine->failCall(number, failure);
            const Outcome outcome = service.finish(PresetSet::receiptsAndPayments);
            hasFailed = m_engine->hasFailed();
            m_engine->failCall(0);
            EXPECT_NE(outcome, Outcome::refused) << "a failed read is not a type that is there";
            EXPECT_FALSE(m_engine->inTransaction()) << "call " << number;
            EXPECT_FALSE(m_books->holdsLocks()) << "call " << number;
            EXPECT_EQ(m_books->messages.notices().size(), hasFailed ? 1u : 0u) << "call " << number;
            for (const Notice& notice : m_books->messages.notices())
                EXPECT_THAT(notice.text, tellsOf(failure)) << "call " << number;
            ASSERT_NE(m_books->database.DBSelect("books"), 0);
            EXPECT_EQ(m_books->stored(), outcome == Outcome::done ? presetReceipts : Texts{})
                << "call " << number;
            EXPECT_TRUE(hasFailed || outcome == Outcome::done);
            removeTypes(*m_books);
            m_books->messages.forget();
        }
        EXPECT_GT(number, 10) << "calls of the command";
    }
}

TEST_P(PresetTrouble, AFailedCallIsTakenNeitherForTypesNorForNone) {
    m_books->insert({"收 收款凭证 0"});
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        PresetService service(m_books->messages);
        m_engine->failCall(number, Failure::lost);
        const Outcome outcome = service.finish(PresetSet::custom);
        hasFailed = m_engine->hasFailed();
        m_engine->failCall(0);
        EXPECT_EQ(outcome, hasFailed ? Outcome::failed : Outcome::refused) << "call " << number;
        EXPECT_EQ(m_books->messages.onlyNotice().text == typesAlreadySet, !hasFailed);
        ASSERT_NE(m_books->database.DBSelect("books"), 0);
        EXPECT_EQ(m_books->stored(), Texts{"1 收 收款凭证 0"});
        m_books->messages.forget();
    }
    EXPECT_GT(number, 2);
}

TEST_P(PresetTrouble, AccountsThatCannotBeReadAreNotAccountsThatAreMissing) {
    PresetService service(m_books->messages);
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        m_engine->failCall(number, Failure::lost);
        const auto accounts = service.accounts();
        hasFailed = m_engine->hasFailed();
        m_engine->failCall(0);
        EXPECT_NE(accounts.has_value(), hasFailed) << "call " << number;
        if (accounts) {
            EXPECT_EQ(accounts->bank, "1002");
        }
    }
    EXPECT_GT(number, 3);
}

TEST_P(PresetTrouble, TheOperatorsOwnTypesNeedNoAccounts) {
    runScript(m_engine->real(), "DROP TABLE Code");
    PresetService service(m_books->messages);
    EXPECT_EQ(service.finish(PresetSet::custom), Outcome::done);
    EXPECT_TRUE(m_books->messages.texts().empty());
    EXPECT_EQ(service.finish(PresetSet::unclassified), Outcome::failed);
}

/// Notes whether anything is opened.
struct NotedWindows final : IHubWindows {
    void show(HubFunction) override { ++opened; }
    int runPresetWizard() override {
        ++opened;
        return 0;
    }
    int opened = 0;
};

TEST_P(PresetTrouble, VoucherTypesThatCannotBeReadLeadNowhereAndAreTold) {
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        NotedWindows windows;
        HubFunctions hub(m_books->messages, windows);
        m_engine->failCall(number, Failure::full);
        hub.open(HubFunction::species);
        hasFailed = m_engine->hasFailed();
        m_engine->failCall(0);
        EXPECT_EQ(windows.opened, hasFailed ? 0 : 1) << "call " << number;
        // A database that cannot be selected, which is the first call, is left without a word.
        EXPECT_EQ(m_books->messages.notices().size(), hasFailed && number > 1 ? 1u : 0u)
            << "call " << number;
        for (const Notice& notice : m_books->messages.notices())
            EXPECT_THAT(notice.text, tellsOf(Failure::full)) << "call " << number;
        m_books->messages.forget();
    }
    EXPECT_GT(number, 3);
}

CHENGHENG_ON_ALL_ENGINES(PresetTrouble);

class PresetMeetings : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { addDesignatedAccounts(m_books); }
    void TearDown() override { m_books.database.setLockWaiter(nullptr); }

    void otherAddsAType() {
        const Status status = m_other.ask(
            "sql INSERT INTO Sign (lId, sSign, sSignName) VALUES (1, '记', '记帐凭证')");
        ASSERT_TRUE(status) << status.detail;
    }

    std::string m_location = freshLocation(GetParam());
    VoucherTypeBooks m_books{m_location};
    OtherWorkstation m_other{m_location};
    PresetService m_service{m_books.messages};
};

TEST_P(PresetMeetings, OfTwoWizardsTheSecondFindsTheTypesOfTheFirst) {
    ASSERT_TRUE(m_other.lock("Sign", LockMode::exclusive));
    OtherGoesOn waiter([this] {
        otherAddsAType();
        m_other.unlock("Sign", LockMode::exclusive);
    });
    m_books.database.setLockWaiter(&waiter);
    EXPECT_EQ(m_service.finish(PresetSet::receiptsAndPayments), Outcome::refused);
    EXPECT_EQ(m_books.messages.onlyNotice().text, typesAlreadySet);
    EXPECT_EQ(m_books.stored(), Texts{"1 记 记帐凭证 0"});
}

TEST_P(PresetMeetings, OneThatIsAtWorkKeepsTheWizardOut) {
    PatientWaiter impatient{std::chrono::milliseconds(0)};
    m_books.database.setLockWaiter(&impatient);
    ASSERT_TRUE(m_other.lock("Code", LockMode::exclusive));
    EXPECT_EQ(m_service.finish(PresetSet::unclassified), Outcome::failed);
    EXPECT_THAT(m_books.messages.onlyNotice().text,
                EndsWith("占用。\n请稍后重试。\n详细信息:Code"));
    EXPECT_FALSE(m_books.holdsLocks());
    m_other.unlock("Code", LockMode::exclusive);
    EXPECT_EQ(m_service.finish(PresetSet::unclassified), Outcome::done);
    EXPECT_EQ(m_books.stored(), Texts{"1 记 记帐凭证 0"});
}

TEST_P(PresetMeetings, AWizardThatAskedForItsLocksAgainLetsOthersInOnceItHasClosed) {
    otherAddsAType();
    {
        PresetService service(m_books.messages);
        EXPECT_EQ(service.finish(PresetSet::unclassified), Outcome::refused);
        m_other.send("lock 2 0 Sign");
        EXPECT_FALSE(m_other.answer().status);
    }
    EXPECT_TRUE(m_other.lock("Code Sign", LockMode::exclusive));
}

CHENGHENG_ON_SHARED_ENGINES(PresetMeetings);

class PresetCrashes : public testing::TestWithParam<EngineCase> {};

TEST_P(PresetCrashes, LeaveAllTypesOfASetOrNone) {
    std::string location = freshLocation(GetParam());
    {
        VoucherTypeBooks books(location);
        addDesignatedAccounts(books);
    }
    int undone = 0;
    bool isKilled = true;
    for (int number = 1; isKilled && number < 100; ++number) {
        isKilled = isKilledAtWork(location, [&](std::unique_ptr<FaultyEngine> engine) {
            FaultyEngine& faulty = *engine;
            VoucherTypeBooks books(std::move(engine));
            faulty.dieAtCall(number);
            PresetService(books.messages).finish(PresetSet::receiptsAndPayments);
        });
        VoucherTypeBooks books(location, false);
        EXPECT_NE(books.database.SQLLock("Sign", 2, 1), 0) << "the dead hold no lock";
        const Texts stored = books.stored();
        EXPECT_TRUE(stored.empty() || stored == presetReceipts) << "call " << number;
        if (stored.empty()) ++undone;
        removeTypes(books);
    }
    EXPECT_FALSE(isKilled);
    EXPECT_GT(undone, 8) << "calls before the change counts";
}

CHENGHENG_ON_SHARED_ENGINES(PresetCrashes);

}  // namespace
