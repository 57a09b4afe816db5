#include "session/host_globals.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace chengheng {
namespace {

TEST(HostGlobals, SupervisorFlagIsTheFourth32BitFieldOfTheOperator) {
    EXPECT_EQ(offsetof(CDivideWInfo, lManager), 3 * sizeof(std::int32_t));
}

TEST(HostGlobals, AreSetWhileASessionLives) {
    HostSession session({.databaseName = "books2026",
                         .setName = "示例帐套",
                         .accountId = 7,
                         .launchArgument = "-ERPSINGLE",
                         .logonUser = {3, 3, 3, 1, "王芳"},
                         .logonTime = {{2026, 5, 31}, 9, 30, 0}});
    EXPECT_STREQ(g_lpszNbZwDBName, "books2026");
    EXPECT_STREQ(g_lpszNbZwSetName, "示例帐套");
    EXPECT_EQ(g_lAccountId, 7);
    EXPECT_STREQ(g_lpArgument, "-ERPSINGLE");
    ASSERT_NE(g_lpLogonUserInfo, nullptr);
    EXPECT_EQ(g_lpLogonUserInfo->sUserName, "王芳");
    EXPECT_EQ(g_tmLogonTime.day, (Date{2026, 5, 31}));
}

TEST(HostGlobals, TakeAnotherNameOfTheOpenBooksWhereASessionLives) {
    HostSession::renameBooks("无人");
    EXPECT_STREQ(g_lpszNbZwSetName, "");
    {
        HostSession session({.databaseName = "books", .setName = "示例帐套"});
        HostSession::renameBooks("新名帐套");
        EXPECT_STREQ(g_lpszNbZwSetName, "新名帐套");
        EXPECT_EQ(session.facts().setName, "新名帐套");
    }
    EXPECT_STREQ(g_lpszNbZwSetName, "");
}

TEST(HostGlobals, AreEmptyAgainAfterASession) {
    { HostSession session({.databaseName = "books", .logonUser = {1, 1, 1, 1, "主管"}}); }
    EXPECT_EQ(g_pDB, nullptr);
    EXPECT_STREQ(g_lpszNbZwDBName, "");
    EXPECT_STREQ(g_lpArgument, "");
    EXPECT_EQ(g_lpLogonUserInfo, nullptr);
    EXPECT_FALSE(g_tmLogonTime.day.isSet());
}

}  // namespace
}  // namespace chengheng
