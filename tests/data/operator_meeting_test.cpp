#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/layout/layout.h"
#include "operators/screen/division_screen.h"
#include "tests/support/engine_cases.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/operator_books.h"
#include "tests/support/other_goes_on.h"
#include "tests/support/other_workstation.h"

namespace {

using namespace chengheng;

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

constexpr const char* operatorGone = "该操作员已经被删除了,不能修改。\n要重新读入操作员信息吗？";

/// Two supervisors: this one with the window open, and another workstation on the same books.
class OperatorMeeting : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.insert("李明", {41, 43});
        m_books.insert("赵燕", {57});
        m_screen.open();
        m_screen.select({2});
    }
    void TearDown() override { m_books.database.setLockWaiter(nullptr); }

    void otherDoes(const std::string& sql) {
        const Status status = m_other.ask("sql " + sql);
        ASSERT_TRUE(status) << status.detail;
    }
    void otherDeletes(int userId) {
        const std::string id = std::to_string(userId);
        otherDoes("DELETE FROM Users WHERE lUserId = " + id +
                  "; DELETE FROM UserAuth WHERE lUserId = " + id);
    }
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const DivisionItem& item : m_screen.items()) names.push_back(item.name);
        return names;
    }

    std::string m_location = freshLocation(GetParam());
    OperatorBooks m_books{m_location};
    OtherWorkstation m_other{m_location};
    DivisionScreen m_screen{m_books.messages, PasswordCost::least};
};

TEST_P(OperatorMeeting, OneThatIsAtWorkKeepsTheOthersChangeOut) {
    PatientWaiter impatient{std::chrono::milliseconds(0)};
    m_books.database.setLockWaiter(&impatient);
    for (const char* table : {"Users", "UserAuth"}) {
        ASSERT_TRUE(m_other.lock(table, LockMode::exclusive));
        const DivisionBoxes before = m_screen.boxes();
        m_screen.setBox(0, true);
        EXPECT_THAT(m_books.messages.onlyNotice().text, testing::HasSubstr("占用"));
        EXPECT_EQ(m_screen.boxes(), before);
        EXPECT_FALSE(m_books.holdsLocks());
        m_books.messages.forget();
        m_other.unlock(table, LockMode::exclusive);
    }
    m_screen.setBox(0, true);
    EXPECT_EQ(m_books.stored()[1], "2 李明 1 2 3 4 5 6 7 41 43");
}

TEST_P(OperatorMeeting, RightsOfOneWhomTheOtherDeletedAreReadAnewAfterAQuestion) {
    otherDeletes(2);
    m_books.messages.willAnswer(operatorGone, Answer::no);
    m_screen.setBox(0, true);
    EXPECT_THAT(names(), ElementsAre("张三", "李明", "赵燕"));
    EXPECT_EQ(m_screen.boxes()[0].state, GroupState::none);
    m_books.messages.willAnswer(operatorGone, Answer::yes);
    m_screen.setBox(0, true);
    EXPECT_THAT(names(), ElementsAre("张三", "赵燕"));
    EXPECT_EQ(m_screen.selected(), DivisionPlace{1});
    EXPECT_EQ(m_books.rightsOf(2), "") << "nothing is left behind";
}

TEST_P(OperatorMeeting, OneWhomTheOtherDeletesWhileWeWaitIsNotModified) {
    ASSERT_TRUE(m_other.lock("Users UserAuth", LockMode::exclusive));
    OtherGoesOn waiter([this] {
        otherDeletes(2);
        m_other.unlock("Users UserAuth", LockMode::exclusive);
    });
    m_books.database.setLockWaiter(&waiter);
    OperatorForm form = m_screen.formToModify();
    form.input.name = "李小明";
    m_books.messages.willAnswer(operatorGone, Answer::yes);
    EXPECT_TRUE(form.confirm());
    EXPECT_FALSE(form.isDone());
    m_screen.take(form);
    EXPECT_THAT(names(), ElementsAre("张三", "赵燕"));
}

TEST_P(OperatorMeeting, AFormOnOneWhoHasGoneStaysOpenWhenTheOthersAreNotWanted) {
    otherDeletes(2);
    OperatorForm form = m_screen.formToModify();
    form.input.name = "李小明";
    m_books.messages.willAnswer(operatorGone, Answer::no);
    EXPECT_FALSE(form.confirm());
    EXPECT_EQ(form.input.name, "李小明");
}

TEST_P(OperatorMeeting, OfTwoThatAddTheSameNameTheSecondIsRefused) {
    ASSERT_TRUE(m_other.lock("Users", LockMode::exclusive));
    OtherGoesOn waiter([this] {
        otherDoes(
            "INSERT INTO Users (lId, lUserId, sUserName) VALUES (4, 4, '王芳');"
            "INSERT INTO UserAuth (lId, lUserId) VALUES (4, 4)");
        m_other.unlock("Users", LockMode::exclusive);
    });
    m_books.database.setLockWaiter(&waiter);
    OperatorForm form = m_screen.formToAdd();
    form.input = {"王芳", "pw", "pw"};
    EXPECT_FALSE(form.confirm());
    EXPECT_EQ(m_books.messages.onlyNotice().text, "操作员: 王芳 已经存在！");
    EXPECT_EQ(form.input.password, "pw");
}

TEST_P(OperatorMeeting, OfTwoThatRenameToTheSameNameTheSecondIsRefused) {
    ASSERT_TRUE(m_other.lock("Users", LockMode::exclusive));
    OtherGoesOn waiter([this] {
        otherDoes("UPDATE Users SET sUserName = '王芳' WHERE lUserId = 3");
        m_other.unlock("Users", LockMode::exclusive);
    });
    m_books.database.setLockWaiter(&waiter);
    OperatorForm form = m_screen.formToModify();
    form.input.name = "王芳";
    EXPECT_FALSE(form.confirm());
    EXPECT_EQ(m_books.messages.onlyNotice().text, "该操作员已经存在。");
}

TEST_P(OperatorMeeting, OneWhoLogsOnWhileHisDeletionIsConfirmedStays) {
    m_books.messages.whileShown([this](const std::string& text) {
        if (text.starts_with("是否"))
            otherDoes(
                "INSERT INTO LoginInfoTbl (lId, lAccId, sUser, sStation) VALUES (1, 3, '李明', "
                "'other')");
    });
    m_books.messages.willAnswer("是否删除操作员:李明?", Answer::yes);
    m_screen.remove();
    EXPECT_EQ(m_books.messages.texts().back(), "用户《 李明 》已经登录，不能删除！");
    EXPECT_EQ(m_books.stored().size(), 3u);
    EXPECT_EQ(m_screen.selected(), DivisionPlace{2});
}

TEST_P(OperatorMeeting, OneWhoPostsAVoucherWhileHisDeletionIsConfirmedStays) {
    m_books.messages.whileShown([this](const std::string& text) {
        if (text.starts_with("是否")) otherDoes("INSERT INTO RegMain (lId, lUBook) VALUES (1, 2)");
    });
    m_books.messages.willAnswer(Answer::yes);
    m_screen.remove();
    EXPECT_EQ(m_books.messages.texts().back(), "该用户已经使用,不能删除");
    EXPECT_EQ(m_books.stored().size(), 3u);
}

TEST_P(OperatorMeeting, OneWhomTheOtherRenamedIsFoundLoggedOnByHisNewName) {
    otherDoes("UPDATE Users SET sUserName = '李小明' WHERE lUserId = 2");
    otherDoes(
        "INSERT INTO LoginInfoTbl (lId, lAccId, sUser, sStation) VALUES (1, 3, '李小明', 'x')");
    m_books.messages.willAnswer("是否删除操作员:李明?", Answer::yes);
    m_screen.remove();
    EXPECT_EQ(m_books.messages.texts().back(), "用户《 李小明 》已经登录，不能删除！");
}

TEST_P(OperatorMeeting, OneWhomTheOtherDeletedIsTakenOffTheListWithoutAWord) {
    otherDeletes(2);
    m_books.messages.willAnswer(Answer::yes);
    m_screen.remove();
    EXPECT_THAT(m_books.messages.notices(), IsEmpty());
    EXPECT_THAT(names(), ElementsAre("张三", "赵燕"));
}

TEST_P(OperatorMeeting, BothSupervisorsChangesOfTheSameRightsStay) {
    otherDoes("UPDATE UserAuth SET sAuthId = '" + rightsText({41, 43, 46}) + "' WHERE lUserId = 2");
    m_screen.setBox(17, true);
    EXPECT_EQ(m_books.stored()[1], "2 李明 41 43 46 82");
    EXPECT_EQ(m_screen.boxes()[8].state, GroupState::some) << "and are shown";
}

CHENGHENG_ON_SHARED_ENGINES(OperatorMeeting);

class OperatorsRead : public testing::TestWithParam<EngineCase> {};

TEST_P(OperatorsRead, AreThoseOfOneMomentWhoeverIsAddedMeanwhile) {
    const std::string location = freshLocation(GetParam());
    auto made = std::make_unique<FaultyEngine>(openForTest(location));
    FaultyEngine& engine = *made;
    ASSERT_TRUE(createLayout(engine));
    OperatorBooks books(std::move(made));
    OtherWorkstation other(location);
    OperatorService service(books.messages, PasswordCost::least);
    bool hasCome = true;
    int number = 0;
    while (hasCome && ++number < 50) {
        hasCome = false;
        const std::string id = std::to_string(100 + number);
        engine.beforeCall(number, [&] {
            hasCome = true;
            ASSERT_TRUE(other.ask("sql INSERT INTO Users (lId, lUserId, sUserName) VALUES (" + id +
                                  ", " + id + ", 'o" + id +
                                  "'); INSERT INTO UserAuth (lId, lUserId) VALUES (" + id + ", " +
                                  id + ")"));
        });
        EXPECT_TRUE(service.readAll()) << number;
        engine.beforeCall(0, {});
    }
    EXPECT_GT(number, 3);
    EXPECT_THAT(books.messages.notices(), IsEmpty());
}

CHENGHENG_ON_SHARED_ENGINES(OperatorsRead);

}  // namespace
