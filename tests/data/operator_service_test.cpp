#include "operators/operator_service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/system/workstation.h"
#include "data/access/row_lease.h"
#include "data/sql/sql_format.h"
#include "tests/support/engine_cases.h"
#include "tests/support/killed_process.h"
#include "tests/support/operator_books.h"

namespace {

using namespace chengheng;

using testing::ElementsAre;
using testing::IsEmpty;

/// Books with three operators. Those known are as they were read at the beginning.
class Operators : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.insert("李明", {41, 43});
        m_books.insert("赵燕", {57});
        m_known = m_service.readAll().value();
    }
    OperatorRecord& known(int userId) { return m_known.at(static_cast<std::size_t>(userId - 1)); }
    Outcome add(const OperatorInput& input) {
        OperatorRecord added;
        return m_service.add(input, added);
    }
    Outcome modify(int userId, const OperatorInput& input) {
        return m_service.modify(input, known(userId));
    }
    Outcome remove(int userId) {
        m_books.messages.willAnswer(Answer::yes);
        return m_service.remove(&known(userId));
    }
    /// Grants and takes functions, from what is known.
    Outcome change(int userId, std::initializer_list<int> granted,
                   std::initializer_list<int> taken = {}) {
        OperatorRights wanted = known(userId).rights;
        for (const int function : granted) wanted.set(function, true);
        for (const int function : taken) wanted.set(function, false);
        return m_service.saveRights(changeBetween(known(userId).rights, wanted), known(userId));
    }
    /// The one thing said, with what must hold when a change did not happen.
    std::string refusal() {
        EXPECT_FALSE(m_books.holdsLocks());
        const Notice notice = m_books.messages.onlyNotice();
        EXPECT_EQ(notice.icon, MessageIcon::information);
        m_books.messages.forget();
        return notice.text;
    }
    std::string sessionsOf() {
        std::string names;
        for (const _LoginInfo& row : readRows<_LoginInfo>(m_books.database, "lId > 0 ORDER BY lId"))
            names += (names.empty() ? "" : " ") + row.sUser;
        return names;
    }

    OperatorBooks m_books{freshLocation(GetParam())};
    OperatorService m_service{m_books.messages, PasswordCost::least};
    std::vector<OperatorRecord> m_known;
};

TEST_P(Operators, AreReadInTheOrderOfTheirNumbersWithTheirRights) {
    ASSERT_EQ(m_known.size(), 3u);
    EXPECT_EQ(known(1).user.sUserName, "张三");
    EXPECT_TRUE(known(1).isSupervisor());
    EXPECT_EQ(known(2).user.sUserName, "李明");
    EXPECT_EQ(known(2).rights.text(), rightsText({41, 43}));
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(Operators, AreNotReadWhenOneHasNoRights) {
    m_books.run("DELETE UserAuth WHERE lUserId = 2");
    EXPECT_FALSE(m_service.readAll());
    EXPECT_EQ(refusal(), "系统安全出现故障!");
    m_books.run("DELETE UserAuth WHERE lId > 0");
    EXPECT_FALSE(m_service.readAll());
    EXPECT_EQ(refusal(), "系统安全出现故障!");
}

TEST_P(Operators, RowsWithoutAnIdCountForNothing) {
    m_books.run(
        "INSERT Users VALUES( 0, 9, '无', 0, '' )\r\n"
        "INSERT UserAuth VALUES( -1, 9, 'Y' )");
    EXPECT_EQ(m_service.readAll()->size(), 3u);
}

TEST_P(Operators, AreAddedWithoutRightsAndWithAHashOfTheirPassword) {
    OperatorRecord added;
    EXPECT_EQ(m_service.add({" 王芳 ", "芳Fang1", "芳Fang1"}, added), Outcome::done);
    EXPECT_EQ(added.user.lUserId, 4);
    EXPECT_EQ(added.user.lId, 4);
    EXPECT_EQ(added.user.sUserName, "王芳");
    EXPECT_FALSE(added.isSupervisor());
    EXPECT_THAT(m_books.stored(),
                ElementsAre("1 张三 主管", "2 李明 41 43", "3 赵燕 57", "4 王芳"));
    EXPECT_EQ(m_books.rightsOf(4), std::string(255, 'N'));
    EXPECT_TRUE(isPasswordOf(m_books.hashOf(4), "芳Fang1"));
    EXPECT_FALSE(isPasswordOf(m_books.hashOf(4), "芳fang1"));
    EXPECT_EQ(m_books.database.Users_GetLastId(), 4);
    EXPECT_EQ(m_books.database.UserAuth_GetLastId(), 4);
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_THAT(m_books.messages.texts(), IsEmpty());
}

TEST_P(Operators, AreAddedWithoutAPasswordToo) {
    EXPECT_EQ(add({"王芳", "", ""}), Outcome::done);
    EXPECT_TRUE(isPasswordOf(m_books.hashOf(4), ""));
}

TEST_P(Operators, GetAnIdAboveTheHigherOfTheTwoCounters) {
    m_books.run("UPDATE ABIdTable SET lLastId = 20 WHERE sTable = 'UserAuth'");
    EXPECT_EQ(add({"王芳", "", ""}), Outcome::done);
    m_books.run("UPDATE ABIdTable SET lLastId = 30 WHERE sTable = 'Users'");
    EXPECT_EQ(add({"周伟", "", ""}), Outcome::done);
    EXPECT_THAT(m_books.stored(), testing::Contains("21 王芳"));
    EXPECT_THAT(m_books.stored(), testing::Contains("31 周伟"));
    EXPECT_EQ(m_books.database.Users_GetLastId(), 31);
    EXPECT_EQ(m_books.database.UserAuth_GetLastId(), 31);
}

TEST_P(Operators, AreNotAddedWhenNoIdIsLeft) {
    m_books.run("UPDATE ABIdTable SET lLastId = 2147483647 WHERE sTable = 'UserAuth'");
    EXPECT_EQ(add({"王芳", "", ""}), Outcome::failed);
    EXPECT_EQ(m_books.stored().size(), 3u);
    EXPECT_EQ(m_books.messages.notices().size(), 1u);
}

TEST_P(Operators, AreRefusedWhenTheNameOrThePasswordIsWrong) {
    EXPECT_EQ(add({"李明", "a", "b"}), Outcome::refused);
    EXPECT_EQ(refusal(), "操作员口令和确认口令不匹配!");
    EXPECT_EQ(add({"李明 ", "", ""}), Outcome::refused);
    EXPECT_EQ(refusal(), "操作员: 李明 已经存在！");
    EXPECT_EQ(modify(3, {"李明", "a", "A"}), Outcome::refused);
    EXPECT_EQ(refusal(), "操作员口令和确认口令不匹配!");
    EXPECT_EQ(modify(3, {"李明", "", ""}), Outcome::refused);
    EXPECT_EQ(refusal(), "该操作员已经存在。");
    EXPECT_EQ(m_books.stored(),
              (std::vector<std::string>{"1 张三 主管", "2 李明 41 43", "3 赵燕 57"}));
}

TEST_P(Operators, AreModifiedInNameAndPasswordWithoutLosingTheirRights) {
    EXPECT_EQ(modify(2, {"李小明", "neu", "neu"}), Outcome::done);
    EXPECT_EQ(known(2).user.sUserName, "李小明");
    EXPECT_EQ(m_books.stored()[1], "2 李小明 41 43");
    EXPECT_TRUE(isPasswordOf(m_books.hashOf(2), "neu"));
    EXPECT_EQ(known(2).user.sPassword, m_books.hashOf(2));
}

TEST_P(Operators, KeepThePasswordWhenNoneIsTyped) {
    ASSERT_EQ(modify(2, {"李明", "geheim", "geheim"}), Outcome::done);
    EXPECT_EQ(modify(2, {"李小明", "", ""}), Outcome::done);
    EXPECT_TRUE(isPasswordOf(m_books.hashOf(2), "geheim"));
}

TEST_P(Operators, KeepTheNameThatAnotherSupervisorGaveMeanwhile) {
    m_books.run("UPDATE Users SET sUserName = '李大明', bManager = 1 WHERE lUserId = 2");
    EXPECT_EQ(modify(2, {"李明", "neu", "neu"}), Outcome::done);
    EXPECT_EQ(m_books.stored()[1], "2 李大明 主管 41 43");
    EXPECT_EQ(known(2).user.sUserName, "李大明");
    EXPECT_TRUE(known(2).isSupervisor());
}

TEST_P(Operators, AreNotModifiedOnceTheyHaveGone) {
    m_books.run("DELETE Users WHERE lUserId = 2\r\nDELETE UserAuth WHERE lUserId = 2");
    EXPECT_EQ(modify(2, {"李小明", "", ""}), Outcome::stale);
    EXPECT_EQ(change(2, {1}), Outcome::stale);
    EXPECT_THAT(m_books.messages.texts(), IsEmpty()) << "what to do is asked by mayReadAgain";
    EXPECT_FALSE(m_books.holdsLocks());
    m_books.messages.willAnswer("该操作员已经被删除了,不能修改。\n要重新读入操作员信息吗？",
                                Answer::yes);
    EXPECT_TRUE(m_service.mayReadAgain());
    m_books.messages.willAnswer(Answer::no);
    EXPECT_FALSE(m_service.mayReadAgain());
    EXPECT_EQ(m_books.messages.questions().front().icon, MessageIcon::information);
}

TEST_P(Operators, TakeTheirSessionsAlongWhenTheyAreRenamed) {
    m_books.logOn("李明", "elsewhere");
    m_books.logOn("赵燕", "elsewhere");
    m_books.run("INSERT LoginInfoTbl (lId, lAccId, sUser) VALUES(9, 4, '李明')");
    EXPECT_EQ(modify(2, {"李小明", "", ""}), Outcome::done);
    EXPECT_EQ(sessionsOf(), "李小明 赵燕 李明") << "other books are none of ours";
    EXPECT_EQ(m_service.remove(&known(2)), Outcome::refused);
    EXPECT_EQ(refusal(), "用户《 李小明 》已经登录，不能删除！");
}

TEST_P(Operators, AreKnownByTheirNewNameInTheirOwnSession) {
    EXPECT_EQ(modify(1, {"张总", "", ""}), Outcome::done);
    EXPECT_EQ(g_lpLogonUserInfo->sUserName, "张总");
    EXPECT_EQ(modify(2, {"李小明", "", ""}), Outcome::done);
    EXPECT_EQ(g_lpLogonUserInfo->sUserName, "张总");
}

TEST_P(Operators, GetTheRightsThatChangedAndKeepTheOthers) {
    EXPECT_EQ(change(2, {1, 82}, {43}), Outcome::done);
    EXPECT_EQ(m_books.stored()[1], "2 李明 1 41 82");
    EXPECT_EQ(known(2).rights.text(), m_books.rightsOf(2));
    EXPECT_EQ(m_books.rightsOf(2).size(), 255u);
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(Operators, KeepTheRightsThatAnotherSupervisorGaveMeanwhile) {
    m_books.run(
        formatSql("UPDATE UserAuth SET sAuthId = '%s' WHERE lUserId = 2", rightsText({43, 46})));
    EXPECT_EQ(change(2, {1}), Outcome::done);
    EXPECT_EQ(m_books.stored()[1], "2 李明 1 43 46");
    EXPECT_TRUE(known(2).rights.grants(46)) << "what is stored is shown";
    EXPECT_FALSE(known(2).rights.grants(41));
}

TEST_P(Operators, HaveSmallLettersRewrittenWithTheFirstChange) {
    m_books.run("UPDATE UserAuth SET sAuthId = 'yxY' WHERE lUserId = 2");
    m_known = m_service.readAll().value();
    EXPECT_EQ(change(2, {5}), Outcome::done);
    EXPECT_EQ(m_books.rightsOf(2), rightsText({1, 3, 5}));
}

TEST_P(Operators, WhoseRightsHaveNoRowAreToldOf) {
    m_books.run("DELETE UserAuth WHERE lUserId = 2");
    EXPECT_EQ(change(2, {1}), Outcome::refused);
    EXPECT_EQ(refusal(), "系统安全出现故障!");
    EXPECT_FALSE(known(2).rights.grants(1));
}

TEST_P(Operators, AreDeletedWithTheirRightsAfterAQuestion) {
    m_books.messages.willAnswer("是否删除操作员:李明?", Answer::no);
    EXPECT_EQ(m_service.remove(&known(2)), Outcome::refused);
    EXPECT_EQ(m_books.stored().size(), 3u);
    const Question& question = m_books.messages.questions().front();
    EXPECT_EQ(question.buttons, AnswerButtons::yesNo);
    EXPECT_EQ(question.icon, MessageIcon::information);
    EXPECT_EQ(remove(2), Outcome::done);
    EXPECT_THAT(m_books.stored(), ElementsAre("1 张三 主管", "3 赵燕 57"));
    EXPECT_EQ(m_books.rightsOf(2), "");
    EXPECT_THAT(m_books.messages.notices(), IsEmpty());
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(Operators, AreNotDeletedWhenNoneIsSelected) {
    EXPECT_EQ(m_service.remove(nullptr), Outcome::refused);
    EXPECT_EQ(refusal(), "请选择要删除的操作员！");
}

TEST_P(Operators, WhoHaveGoneAlreadyAreDeletedWithoutAWord) {
    m_books.run("DELETE Users WHERE lUserId = 2\r\nDELETE UserAuth WHERE lUserId = 2");
    EXPECT_EQ(remove(2), Outcome::done);
    EXPECT_THAT(m_books.messages.notices(), IsEmpty());
}

TEST_P(Operators, WhoAreLoggedOnStay) {
    m_books.logOn("李明", "elsewhere");
    EXPECT_EQ(m_service.remove(&known(2)), Outcome::refused);
    EXPECT_EQ(refusal(), "用户《 李明 》已经登录，不能删除！");
    EXPECT_EQ(m_service.remove(&known(1)), Outcome::refused) << "without a row, too";
    EXPECT_EQ(refusal(), "用户《 张三 》已经登录，不能删除！");
    EXPECT_EQ(m_books.stored().size(), 3u);
}

TEST_P(Operators, LoggedOnHereAreProtectedByTheirNumberAsWellAsTheirName) {
    m_books.run("UPDATE Users SET sUserName = '张总' WHERE lUserId = 1");
    m_known = m_service.readAll().value();
    EXPECT_EQ(m_service.remove(&known(1)), Outcome::refused);
    EXPECT_EQ(refusal(), "用户《 张总 》已经登录，不能删除！");
}

TEST_P(Operators, LoggedOnElsewhereAreProtectedByTheirNumberUnderWhateverName) {
    m_books.logOn("李明", "elsewhere", 1, 2);
    m_books.run("UPDATE Users SET sUserName = '李大明' WHERE lUserId = 2");
    m_known = m_service.readAll().value();
    EXPECT_EQ(m_service.remove(&known(2)), Outcome::refused);
    EXPECT_EQ(refusal(), "用户《 李大明 》已经登录，不能删除！");
    m_books.run("UPDATE LoginInfoTbl SET lUserId = 3");
    EXPECT_EQ(m_service.remove(&known(3)), Outcome::refused) << "whatever the row is called";
    EXPECT_EQ(refusal(), "用户《 赵燕 》已经登录，不能删除！");
}

TEST_P(Operators, TakeTheSessionsOfTheirNumberAlongAndNoOthers) {
    m_books.logOn("李大明", "elsewhere", 1, 2);
    m_books.logOn("李明", "elsewhere", 1, 3);
    m_books.logOn("李明", "an older program");
    EXPECT_EQ(modify(2, {"李小明", "", ""}), Outcome::done);
    EXPECT_EQ(sessionsOf(), "李小明 李明 李小明");
}

TEST_P(Operators, WhoseProgramHasEndedAreNoLongerLoggedOn) {
    m_books.logOn("李明", stationName(), endedProcess());
    EXPECT_EQ(remove(2), Outcome::done);
    m_books.logOn("赵燕", stationName(), ownProcess());
    EXPECT_EQ(m_service.remove(&known(3)), Outcome::refused) << "this program lives";
}

TEST_P(Operators, LoggedOnToOtherBooksCanBeDeleted) {
    m_books.run("INSERT LoginInfoTbl (lId, lAccId, sUser, sStation) VALUES(9, 4, '李明', 'x')");
    EXPECT_EQ(remove(2), Outcome::done);
}

TEST_P(Operators, OfPostedVouchersStay) {
    for (const char* column : {"lUBill", "lUCheck", "lUBook"}) {
        m_books.run(formatSql("INSERT RegMain (lId, %s) VALUES(1, 2)", SqlFragment{column}));
        EXPECT_EQ(m_service.remove(&known(2)), Outcome::refused) << column;
        EXPECT_EQ(refusal(), "该用户已经使用,不能删除");
        m_books.run("DELETE RegMain WHERE lId = 1");
    }
    m_books.run("INSERT RegMain (lId, lUBill, lUCheck, lUBook) VALUES(1, 1, 3, 12)");
    EXPECT_EQ(remove(2), Outcome::done) << "vouchers of others";
}

TEST_P(Operators, MetOnlyInVouchersThatAreNotPostedCanBeDeleted) {
    m_books.run("INSERT UnregMain (lId, lUBill) VALUES(1, 2)");
    EXPECT_EQ(remove(2), Outcome::done);
}

TEST_P(Operators, AreToldToBeLoggedOnBeforeTheyAreToldToBeUsed) {
    m_books.logOn("李明", "elsewhere");
    m_books.run("INSERT RegMain (lId, lUBill) VALUES(1, 2)");
    EXPECT_EQ(m_service.remove(&known(2)), Outcome::refused);
    EXPECT_EQ(refusal(), "用户《 李明 》已经登录，不能删除！");
}

TEST_P(Operators, BecomeSupervisorsAndOperatorsAgainAfterAQuestion) {
    m_books.messages.willAnswer(
        "是否把操作员“李明”设为主管?\n\n"
        "主管可以使用全部功能,并可以增加、修改、删除操作员和分配权限。",
        Answer::no);
    EXPECT_EQ(m_service.setSupervisor(true, known(2)), Outcome::refused);
    EXPECT_EQ(m_books.messages.questions().front().preset, std::nullopt);
    m_books.messages.willAnswer(Answer::yes);
    EXPECT_EQ(m_service.setSupervisor(true, known(2)), Outcome::done);
    EXPECT_TRUE(known(2).isSupervisor());
    EXPECT_EQ(m_books.stored()[1], "2 李明 主管 41 43");
    m_books.messages.willAnswer(
        "是否取消操作员“李明”的主管资格?\n\n"
        "取消后的权限:会计科目(会计科目设置);期初余额(期初余额录入)",
        Answer::yes);
    EXPECT_EQ(m_service.setSupervisor(false, known(2)), Outcome::done);
    EXPECT_EQ(m_books.stored()[1], "2 李明 41 43");
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(Operators, CannotEndTheirOwnSupervision) {
    m_books.insert("王芳", {}, true);
    EXPECT_EQ(m_service.setSupervisor(false, known(1)), Outcome::refused);
    EXPECT_EQ(refusal(), "不能取消自己的主管资格,请由另一位主管取消。");
}

TEST_P(Operators, WhoAreTheLastSupervisorStay) {
    m_books.run("UPDATE Users SET bManager = 0 WHERE lUserId = 1");
    m_books.run("UPDATE Users SET bManager = 1 WHERE lUserId = 2");
    m_known = m_service.readAll().value();
    EXPECT_EQ(m_service.remove(&known(2)), Outcome::refused);
    EXPECT_EQ(refusal(), "操作员“李明”是最后一位主管,不能删除!\n请先把另一位操作员设为主管。");
    EXPECT_EQ(m_service.setSupervisor(false, known(2)), Outcome::refused);
    EXPECT_EQ(refusal(), "操作员“李明”是最后一位主管,不能取消!\n请先把另一位操作员设为主管。");
    EXPECT_EQ(m_books.stored()[1], "2 李明 主管 41 43");
}

TEST_P(Operators, WhoBecomeTheLastSupervisorWhileItIsAskedStay) {
    m_books.run("UPDATE Users SET bManager = 1 WHERE lUserId = 2");
    m_known = m_service.readAll().value();
    m_books.messages.whileShown([this](const std::string& text) {
        if (text.starts_with("是否"))
            m_books.run("UPDATE Users SET bManager = 0 WHERE lUserId = 1");
    });
    m_books.messages.willAnswer(Answer::yes);
    EXPECT_EQ(m_service.setSupervisor(false, known(2)), Outcome::refused);
    m_books.run("UPDATE Users SET bManager = 1 WHERE lUserId = 1");
    EXPECT_EQ(remove(2), Outcome::refused);
    EXPECT_EQ(m_books.stored()[1], "2 李明 主管 41 43");
    EXPECT_TRUE(known(2).isSupervisor());
}

TEST_P(Operators, WhoHaveGoneDoNotBecomeSupervisors) {
    m_books.run("DELETE Users WHERE lUserId = 2\r\nDELETE UserAuth WHERE lUserId = 2");
    m_books.messages.willAnswer(Answer::yes);
    EXPECT_EQ(m_service.setSupervisor(true, known(2)), Outcome::stale);
    EXPECT_FALSE(known(2).isSupervisor());
}

TEST_P(Operators, NamesWithQuotesAreNothingSpecial) {
    EXPECT_EQ(add({"O'Neil\"%_", "p'w", "p'w"}), Outcome::done);
    EXPECT_EQ(add({"O'Neil\"%_", "", ""}), Outcome::refused);
    EXPECT_TRUE(isPasswordOf(m_books.hashOf(4), "p'w"));
}

CHENGHENG_ON_ALL_ENGINES(Operators);

}  // namespace
