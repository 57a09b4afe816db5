#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/sql/sql_format.h"
#include "session/rights_list.h"
#include "settle/settle_service.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_layout.h"
#include "tests/support/operator_books.h"
#include "tests/support/recording_messages.h"

namespace {

using namespace chengheng;

/// Books that somebody works on without a window between him and the services.
class WriteRights : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { openNewBooks(m_database, freshLocation(GetParam()), "books"); }
    void run(const std::string& batch) {
        ASSERT_NE(m_database.QRYExecuteSQL(batch), 0) << m_database.lastStatus().detail;
    }
    void logOn(std::initializer_list<int> functions, int manager = 0, int userId = 5) {
        m_session.reset();
        run(formatSql(
            "DELETE Users WHERE lId > 0\r\nDELETE UserAuth WHERE lId > 0\r\n"
            "INSERT Users VALUES( 5, 5, '李明', %d, '' )\r\nINSERT UserAuth VALUES( 5, 5, '%s' )",
            manager, rightsText(functions)));
        m_session.emplace(SessionFacts{.database = &m_database,
                                       .databaseName = "books",
                                       .logonUser = {userId, userId, userId, manager, "李明"}});
    }
    CNbCwDB m_database;
    RecordingMessages m_messages;
    std::optional<HostSession> m_session;
};

TEST_P(WriteRights, AreThoseOfTheFunctionsOfTheirNumbers) {
    const std::pair<WriteRight, const char*> names[] = {
        {WriteRight::persons, "个人往来目录"},
        {WriteRight::departments, "部门目录"},
        {WriteRight::projectItems, "项目定义及目录"},
        {WriteRight::projectClasses, "项目大类定义"},
        {WriteRight::newYear, "重建帐"},
        {WriteRight::parameters, "帐套参数调整"},
        {WriteRight::accounts, "会计科目设置"},
        {WriteRight::opening, "期初余额录入"},
        {WriteRight::carryForward, "上年结转"},
        {WriteRight::currencies, "外币设置"},
        {WriteRight::voucherTypes, "凭证类别设置"},
        {WriteRight::settlement, "结算方式设置"},
        {WriteRight::units, "单位往来目录"}};
    for (const auto& [right, name] : names) {
        const int function = static_cast<int>(right);
        EXPECT_STREQ(functionName(function), name);
        logOn({});
        EXPECT_TRUE(writeRefusal(right)) << name;
        logOn({function});
        EXPECT_FALSE(writeRefusal(right)) << name;
        for (const auto& [other, otherName] : names) {
            if (other != right) {
                EXPECT_TRUE(writeRefusal(other)) << otherName;
            }
        }
    }
}

TEST_P(WriteRights, AreAskedAnewWithEachChange) {
    logOn({57});
    _SettleInfo method{0, "1", "现金", 0};
    EXPECT_EQ(SettleService(m_messages).add(method, {}), Outcome::done);
    ASSERT_NE(m_database.QRYExecuteSQL("UPDATE UserAuth SET sAuthId = 'N' WHERE lUserId = 5"), 0);
    EXPECT_EQ(SettleService(m_messages).modify(method, {method.lId, "1", "现款", 0}, {}),
              Outcome::refused);
    EXPECT_EQ(m_messages.onlyNotice().text, "你没有[结算方式设置]权限!");
}

TEST_P(WriteRights, OfASupervisorEndWithHisSupervision) {
    logOn({57}, 1);
    EXPECT_FALSE(writeRefusal(WriteRight::accounts));
    EXPECT_FALSE(writeRefusal(WriteRight::supervisor));
    run("UPDATE Users SET bManager = 0 WHERE lUserId = 5");
    EXPECT_EQ(writeRefusal(WriteRight::supervisor)->notice.text, "你没有[主管]权限!");
    EXPECT_EQ(g_lpLogonUserInfo->lManager, 0) << "windows ask for rights from then on";
    EXPECT_EQ(writeRefusal(WriteRight::accounts)->notice.text, "你没有[会计科目设置]权限!");
    EXPECT_FALSE(writeRefusal(WriteRight::settlement)) << "the rights that were behind it";
    run("UPDATE Users SET bManager = 1 WHERE lUserId = 5");
    EXPECT_FALSE(writeRefusal(WriteRight::supervisor));
    EXPECT_EQ(g_lpLogonUserInfo->lManager, 1);
}

TEST_P(WriteRights, OfWhoWasDeletedAreNone) {
    logOn({57}, 1);
    run("DELETE Users WHERE lUserId = 5");
    const std::string noRecord = "\n帐套中没有你的权限记录,请主管在财务分工中重新设置。";
    EXPECT_EQ(writeRefusal(WriteRight::settlement)->notice.text,
              "无法读取你的权限,不能使用[结算方式设置]!" + noRecord);
    EXPECT_EQ(writeRefusal(WriteRight::supervisor)->notice.text, "你没有[主管]权限!");
}

TEST_P(WriteRights, AreAllThoseOfASupervisorAndOfWhoWorksWithoutLoggingOn) {
    for (const auto& [manager, userId] : {std::pair{1, 5}, std::pair{0, 0}}) {
        logOn({}, manager, userId);
        for (const WriteRight right : {WriteRight::supervisor, WriteRight::own,
                                       WriteRight::settlement, WriteRight::accounts})
            EXPECT_FALSE(writeRefusal(right));
    }
    logOn({1, 8, 41});
    EXPECT_TRUE(writeRefusal(WriteRight::supervisor));
    EXPECT_FALSE(writeRefusal(WriteRight::own)) << "everybody's";
}

CHENGHENG_ON_ALL_ENGINES(WriteRights);

}  // namespace
