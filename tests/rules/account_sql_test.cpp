#include "accounts/chart/account_sql.h"

#include <gtest/gtest.h>

using namespace chengheng;

TEST(AccountSql, MatchOneCode) { EXPECT_EQ(account_sql::ofCode("1001"), "sCode = '1001'"); }

TEST(AccountSql, MatchTheDescendantsWithoutTheAccountItself) {
    EXPECT_EQ(account_sql::below("1001"), "sCode Like '1001%' AND sCode <> '1001'");
}

TEST(AccountSql, MatchTheAccountWithItsDescendants) {
    EXPECT_EQ(account_sql::ofCodeAndBelow("1001"), "sCode LIKE '1001%'");
}

TEST(AccountSql, MatchTheTopLevelInCodeOrder) {
    EXPECT_STREQ(account_sql::topLevel, "byGrade = 1 AND lId>0 ORDER BY sCode");
}

TEST(AccountSql, TakeWildcardsAndQuotesInACodeAsTheyStand) {
    EXPECT_EQ(account_sql::ofCode("1%_'"), "sCode = '1%_'''");
    EXPECT_EQ(account_sql::ofCodeAndBelow("1%_'"), "sCode LIKE '1\\%\\_''%'");
    EXPECT_EQ(account_sql::below("1_"), "sCode Like '1\\_%' AND sCode <> '1_'");
}
