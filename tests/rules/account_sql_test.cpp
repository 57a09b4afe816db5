#include "accounts/chart/account_sql.h"

#include <gtest/gtest.h>

#include <vector>

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

TEST(AccountSql, MatchTheRowsOfOneAccountAndOfSeveral) {
    const std::vector<int> one{7};
    const std::vector<int> several{7, 8, 9};
    EXPECT_EQ(account_sql::ofAccounts(one), "( lCodeId = 7 )");
    EXPECT_EQ(account_sql::ofAccounts(several), "( lCodeId = 7 OR lCodeId = 8 OR lCodeId = 9 )");
    EXPECT_EQ(account_sql::openingOfAccounts(several),
              "( lCodeId = 7 OR lCodeId = 8 OR lCodeId = 9 ) AND mBegin <> 0");
    EXPECT_EQ(account_sql::ofEndAccountsBelow("10"),
              "lCodeId IN ( SELECT lId FROM Code WHERE sCode Like '10%' AND sCode <> '10' AND bEnd "
              "<> 0 )");
    EXPECT_EQ(account_sql::ofCodeWithChildren("10"), "sCode = '10' AND bEnd = 0");
    EXPECT_EQ(account_sql::ofId(7), "lId = 7");
    EXPECT_EQ(account_sql::ofMnemonic("O'B"), "sHelp = 'O''B'");
}
