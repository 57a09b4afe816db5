#include "accounts/screen/account_search.h"

#include <gtest/gtest.h>

using namespace chengheng;

namespace {

bool finds(const char* typed) {
    return AccountSearch(typed).matches("100201", "工商银行USD户", "GSYH");
}

}  // namespace

TEST(AccountSearches, FindTheBeginningOfACodeButNotItsMiddle) {
    EXPECT_TRUE(finds("1002"));
    EXPECT_TRUE(finds("100201"));
    EXPECT_FALSE(finds("0201"));
    EXPECT_FALSE(finds("1002011"));
}

TEST(AccountSearches, FindAnyPartOfAName) {
    EXPECT_TRUE(finds("工商"));
    EXPECT_TRUE(finds("银行"));
    EXPECT_TRUE(finds("usd"));
    EXPECT_FALSE(finds("农业"));
}

TEST(AccountSearches, FindTheBeginningOfAMnemonicInAnyCase) {
    EXPECT_TRUE(finds("gsy"));
    EXPECT_TRUE(finds("GSYH"));
    EXPECT_FALSE(finds("YH"));
}

TEST(AccountSearches, LeaveBlanksAroundAside) { EXPECT_TRUE(finds("  1002　")); }

TEST(AccountSearches, FindEverythingWithNothingTyped) {
    EXPECT_TRUE(AccountSearch("  ").isEmpty());
    EXPECT_TRUE(finds(""));
}

TEST(AccountSearches, TakeWildcardsAsTheyStand) {
    EXPECT_FALSE(finds("%"));
    EXPECT_FALSE(finds("1_"));
    EXPECT_TRUE(AccountSearch("%").matches("%1", "", ""));
}
