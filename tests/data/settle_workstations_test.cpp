#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/function_at_work.h"
#include "settle/settle_form.h"
#include "tests/support/engine_cases.h"
#include "tests/support/other_goes_on.h"
#include "tests/support/other_workstation.h"
#include "tests/support/settle_books.h"

namespace {

using namespace chengheng;

using testing::EndsWith;

using Texts = std::vector<std::string>;

constexpr const char* gone = "该结算方式已被其他工作站删除,列表已重新读入。";
constexpr const char* changed = "该结算方式已被其他工作站修改,本次操作没有进行,列表已重新读入。";

/// This workstation with the window open on the first method, and another one on the same books.
class SettleWorkstations : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.insert({"1 现金 0", "2 支票 1"});
        m_form.open();
    }
    void TearDown() override { m_books.database.setLockWaiter(nullptr); }

    void otherDoes(const std::string& sql) {
        const Status status = m_other.ask("sql " + sql);
        ASSERT_TRUE(status) << status.detail;
    }
    Texts leaves() const {
        Texts texts;
        for (const Leaf& leaf : m_form.leaves().all()) texts.push_back(leaf.text);
        return texts;
    }

    std::string m_location = freshLocation(GetParam());
    SettleBooks m_books{m_location};
    OtherWorkstation m_other{m_location};
    SettleForm m_form{m_books.messages};
};

TEST_P(SettleWorkstations, OneThatIsAtWorkKeepsTheOthersChangeOut) {
    PatientWaiter impatient{std::chrono::milliseconds(0)};
    m_books.database.setLockWaiter(&impatient);
    ASSERT_TRUE(m_other.lock("Settle", LockMode::exclusive));
    m_form.input.name = "现款";
    EXPECT_FALSE(m_form.save());
    EXPECT_THAT(m_books.messages.onlyNotice().text,
                EndsWith("占用。\n请稍后重试。\n详细信息:Settle"));
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_EQ(m_form.input.name, "现款");
    m_other.unlock("Settle", LockMode::exclusive);
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_books.stored(), (Texts{"1 1 现款 0", "2 2 支票 1"}));
}

TEST_P(SettleWorkstations, OneThatWaitsReadsWhoIsAtWorkAndWithWhichFunction) {
    const auto functionShown = [this] {
        EXPECT_NE(m_books.database.SQLLock("Settle", 2, 1), 0);
        m_other.send("lock 2 0 Settle");
        const LockHolder holder = m_other.answer().holder;
        m_books.database.SQLUnLock("Settle", 2);
        EXPECT_EQ(holder.operatorName, "王芳");
        return holder.function;
    };
    const FunctionAtWork outer("会计科目");
    {
        const FunctionAtWork inner("结算方式");
        EXPECT_EQ(functionShown(), "结算方式");
    }
    EXPECT_EQ(functionShown(), "会计科目");
}

TEST_P(SettleWorkstations, OneWhoIsNoSupervisorAnyMoreOnceTheLocksAreFreeIsRefused) {
    ASSERT_TRUE(m_other.lock("Settle", LockMode::exclusive));
    OtherGoesOn waiter([this] {
        otherDoes("UPDATE Users SET bManager = 0 WHERE lUserId = 1");
        otherDoes("INSERT INTO UserAuth (lId, lUserId, sAuthId) VALUES (1, 1, 'N')");
        m_other.unlock("Settle", LockMode::exclusive);
    });
    m_books.database.setLockWaiter(&waiter);
    m_form.input.name = "现款";
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_books.messages.onlyNotice().text, "你没有[结算方式设置]权限!");
    EXPECT_EQ(m_books.stored()[0], "1 1 现金 0");
    EXPECT_EQ(m_form.input.name, "现款") << "what was typed stays";
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(SettleWorkstations, AVoucherBeingWrittenKeepsADeletionOut) {
    PatientWaiter impatient{std::chrono::milliseconds(0)};
    m_books.database.setLockWaiter(&impatient);
    ASSERT_TRUE(m_other.lock("UnregMain UnregSub", LockMode::exclusive));
    m_books.messages.willAnswer(Answer::yes);
    m_form.remove(1);
    ASSERT_EQ(m_books.messages.notices().size(), 1u);
    EXPECT_THAT(m_books.messages.notices()[0].text,
                EndsWith("占用。\n请稍后重试。\n详细信息:UnregMain"));
    EXPECT_EQ(m_books.stored(), (Texts{"1 1 现金 0", "2 2 支票 1"}));
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(SettleWorkstations, OfTwoThatModifyTheSameMethodTheSecondLearnsOfTheFirst) {
    ASSERT_TRUE(m_other.lock("Settle", LockMode::exclusive));
    OtherGoesOn waiter([this] {
        otherDoes("UPDATE Settle SET sSettle = '库存' WHERE lId = 1");
        m_other.unlock("Settle", LockMode::exclusive);
    });
    m_books.database.setLockWaiter(&waiter);
    m_form.input.name = "现款";
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_books.messages.onlyNotice().text,
              "该结算方式已被其他工作站修改,本次操作没有进行。\n\n现在的内容:1 库存\n"
              "输入的内容:1 现款\n\n输入已保留,核对后可以再次确定。");
    EXPECT_EQ(m_books.stored()[0], "1 1 库存 0");
    EXPECT_EQ(leaves(), (Texts{"1 库存", "2 支票"}));
    EXPECT_EQ(m_form.input.name, "现款");
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_books.stored()[0], "1 1 现款 0");
}

TEST_P(SettleWorkstations, AFieldThatWasNotTypedFollowsWhatTheOtherStored) {
    m_form.input.name = "现款";
    otherDoes("UPDATE Settle SET sStlId = '7', bNote = 1 WHERE lId = 1");
    EXPECT_FALSE(m_form.save());
    EXPECT_THAT(m_books.messages.onlyNotice().text,
                testing::HasSubstr("现在的内容:7 现金(使用支票登记簿)\n输入的内容:1 现款\n"));
    EXPECT_EQ(m_form.input, (SettleInput{"7", "现款", true}));
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_books.stored()[0], "1 7 现款 1");
}

TEST_P(SettleWorkstations, OfTwoThatAddTheSameNumberTheSecondIsRefused) {
    ASSERT_TRUE(m_other.lock("Settle", LockMode::exclusive));
    OtherGoesOn waiter([this] {
        otherDoes("INSERT INTO Settle (lId, sStlId, sSettle) VALUES (3, '3', '汇兑')");
        m_other.unlock("Settle", LockMode::exclusive);
    });
    m_books.database.setLockWaiter(&waiter);
    m_form.startAdding();
    m_form.input = {"3", "承兑", false};
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_books.messages.onlyNotice().text, "结算方式号重复,不能增加!");
    EXPECT_EQ(m_books.stored(), (Texts{"1 1 现金 0", "2 2 支票 1", "3 3 汇兑 0"}));
}

TEST_P(SettleWorkstations, AMethodDeletedElsewhereIsNotModified) {
    otherDoes("DELETE FROM Settle WHERE lId = 1");
    m_form.input.name = "现款";
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_books.messages.onlyNotice().text,
              "该结算方式已被其他工作站删除,列表已重新读入。\n"
              "输入已保留,再次确定将作为新的结算方式增加。");
    EXPECT_EQ(leaves(), Texts{"2 支票"});
    EXPECT_TRUE(m_form.isAdding());
    EXPECT_EQ(m_form.input, (SettleInput{"1", "现款", false}));
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(leaves(), (Texts{"2 支票", "1 现款"}));
}

TEST_P(SettleWorkstations, AMethodDeletedElsewhereIsLeftAloneWithoutAWord) {
    m_books.messages.whileShown(
        [this](const std::string&) { otherDoes("DELETE FROM Settle WHERE lId = 1"); });
    m_books.messages.willAnswer(Answer::yes);
    m_form.remove(1);
    EXPECT_TRUE(m_books.messages.notices().empty());
    EXPECT_EQ(leaves(), Texts{"2 支票"});
}

TEST_P(SettleWorkstations, AMethodPutToUseWhileItsDeletionIsConfirmedStays) {
    m_books.messages.whileShown([this](const std::string& text) {
        if (text.starts_with("是否"))
            otherDoes("INSERT INTO RecpBank (lId, sNoteMethod) VALUES (1, '1')");
    });
    m_books.messages.willAnswer(Answer::yes);
    m_form.remove(1);
    EXPECT_EQ(m_books.messages.texts().back(), "该结算方式已使用, 不能删除!");
    EXPECT_EQ(m_books.stored(), (Texts{"1 1 现金 0", "2 2 支票 1"}));
}

CHENGHENG_ON_SHARED_ENGINES(SettleWorkstations);

}  // namespace
