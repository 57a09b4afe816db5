#include "session/CCheckAuth.h"

#include <gtest/gtest.h>

#include <optional>

#include "data/access/CNbCwDB.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "session/rights_list.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_layout.h"
#include "tests/support/recording_messages.h"

namespace {

using namespace chengheng;

/// Books with one operator, number 5, who holds the rights 41 and 43.
class CheckAuth : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        openNewBooks(m_database, freshLocation(GetParam()));
        std::string rights(255, 'N');
        rights[40] = 'Y';
        rights[42] = 'y';
        run(
            formatSql("INSERT INTO Users VALUES(5, 5, '会计', 0, '')\r\n"
                      "INSERT INTO Users VALUES(6, 6, '出纳', 0, '')\r\n"
                      "INSERT INTO UserAuth VALUES(5, 5, '%s')",
                      rights));
        logOn(5, 0);
    }
    void run(const std::string& batch) {
        ASSERT_NE(m_database.QRYExecuteSQL(batch), 0) << m_database.lastStatus().detail;
    }
    void logOn(int userId, int manager) {
        m_session.reset();
        m_session.emplace(SessionFacts{
            .database = &m_database,
            .databaseName = "books",
            .logonUser =
                {.lId = userId, .lUserId = userId, .lManager = manager, .sUserName = "会计"},
        });
    }

    CNbCwDB m_database;
    RecordingMessages m_messages;
    HostMessages m_installed{m_messages};
    std::optional<HostSession> m_session;
};

TEST_P(CheckAuth, GrantsByCapitalAndSmallYWithoutAWord) {
    EXPECT_TRUE(CCheckAuth(41, 1, nullptr));
    EXPECT_TRUE(CCheckAuth(43, 1, nullptr));
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_P(CheckAuth, RefusesByNameWithTheStopPicture) {
    EXPECT_FALSE(CCheckAuth(57, 1, nullptr));
    ASSERT_EQ(m_messages.texts(), std::vector<std::string>{"你没有[结算方式设置]权限!"});
    EXPECT_EQ(m_messages.notices()[0].icon, MessageIcon::stop);
    EXPECT_EQ(m_messages.notices()[0].caption, "澄恒财务软件");
}

TEST_P(CheckAuth, RefusesExactlyTheRightsNotHeld) {
    std::vector<std::string> refusals;
    for (int function = 1; function <= functionCount; ++function) {
        const bool isHeld = function == 41 || function == 43;
        EXPECT_EQ(bool(CCheckAuth(function)), isHeld) << function;
        if (!isHeld) refusals.push_back("你没有[" + std::string(functionName(function)) + "]权限!");
    }
    EXPECT_EQ(m_messages.texts(), refusals);
}

TEST_P(CheckAuth, GivesASupervisorEveryRight) {
    logOn(9, 1);
    for (int function = 1; function <= functionCount; ++function)
        EXPECT_TRUE(CCheckAuth(function, 1, nullptr)) << function;
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_P(CheckAuth, SeesARightTakenAwaySinceTheLogOn) {
    run(formatSql("UPDATE UserAuth SET sAuthId = '%s' WHERE lUserId = 5", std::string(255, 'N')));
    EXPECT_FALSE(CCheckAuth(41));
    EXPECT_EQ(m_messages.texts(), std::vector<std::string>{"你没有[会计科目设置]权限!"});
}

TEST_P(CheckAuth, DeniesWhatAShortRightsStringDoesNotReach) {
    run("UPDATE UserAuth SET sAuthId = 'YYYY' WHERE lUserId = 5");
    EXPECT_TRUE(CCheckAuth(4));
    EXPECT_FALSE(CCheckAuth(5));
    EXPECT_EQ(m_messages.texts(), std::vector<std::string>{"你没有[个人往来勾对]权限!"});
}

TEST_P(CheckAuth, RefusesAnOperatorWithoutARightsRow) {
    logOn(6, 0);
    EXPECT_FALSE(CCheckAuth(41));
    ASSERT_EQ(m_messages.texts().size(), 1u);
    EXPECT_EQ(m_messages.texts()[0],
              "无法读取你的权限,不能使用[会计科目设置]!\n"
              "帐套中没有你的权限记录,请主管在财务分工中重新设置。");
}

TEST_P(CheckAuth, RefusesAnOperatorWhoIsNoneAnyMore) {
    run("DELETE Users WHERE lUserId = 5");
    EXPECT_FALSE(CCheckAuth(41));
    EXPECT_EQ(m_messages.texts(),
              std::vector<std::string>{"无法读取你的权限,不能使用[会计科目设置]!\n"
                                       "帐套中没有你的权限记录,请主管在财务分工中重新设置。"});
}

TEST_P(CheckAuth, GivesEveryRightToWhoWasMadeASupervisorSinceTheLogOn) {
    run("UPDATE Users SET bManager = 1 WHERE lUserId = 5");
    EXPECT_TRUE(CCheckAuth(57));
    EXPECT_EQ(g_lpLogonUserInfo->lManager, 1);
}

TEST_P(CheckAuth, RefusesWhenTheRightsCannotBeRead) {
    ASSERT_NE(m_database.DBClose("books"), 0);
    EXPECT_FALSE(CCheckAuth(41));
    ASSERT_EQ(m_messages.texts().size(), 1u);
    EXPECT_EQ(m_messages.texts()[0],
              "无法读取你的权限,不能使用[会计科目设置]!\n"
              "帐套文件“books”没有打开。\n请先打开帐套。");
    EXPECT_EQ(m_messages.notices()[0].icon, MessageIcon::stop);
}

TEST_P(CheckAuth, RefusesWhenNobodyIsLoggedOn) {
    m_session.reset();
    EXPECT_FALSE(CCheckAuth(41));
    EXPECT_EQ(m_messages.texts(),
              std::vector<std::string>{"没有登录操作员,不能使用[会计科目设置]!"});
}

TEST_P(CheckAuth, RefusesAFunctionThatIsNotInTheList) {
    for (const int function : {-1, 0, 83}) EXPECT_FALSE(CCheckAuth(function)) << function;
    EXPECT_EQ(m_messages.texts(), (std::vector<std::string>{"权限表中没有第-1号功能,不能使用!",
                                                            "权限表中没有第0号功能,不能使用!",
                                                            "权限表中没有第83号功能,不能使用!"}));
}

TEST_P(CheckAuth, ReadsTheOpenBooksEvenWhenOthersAreSelected) {
    NbCwDBInfo info;
    ASSERT_NE(m_database.DBOpen(info, freshLocation(GetParam()).c_str(), "lastYear", 0), 0);
    ASSERT_NE(m_database.DBSelect("lastYear"), 0);
    EXPECT_TRUE(CCheckAuth(41));
}

CHENGHENG_ON_ALL_ENGINES(CheckAuth);

}  // namespace
