#include "session/rights/password_advice.h"

#include <gtest/gtest.h>

namespace chengheng {
namespace {

TEST(PasswordAdvice, IsGivenForNoneForTheCommonestAndForTheName) {
    EXPECT_STREQ(passwordAdvice("", "李明"), "没有口令:任何人都能用这个姓名登录。");
    for (const char* common : {"123456", "888888", "PassWord", "zxcvbnm", "000000"})
        EXPECT_STREQ(passwordAdvice(common, "李明"), "这是最常见的口令之一,很容易被猜中。")
            << common;
    EXPECT_STREQ(passwordAdvice("liming", "LiMing"), "口令与姓名相同,很容易被猜中。");
    EXPECT_STREQ(passwordAdvice("李明", "李明"), "口令与姓名相同,很容易被猜中。");
}

TEST(PasswordAdvice, IsNotGivenForOthers) {
    for (const char* fine : {"1234567891", "frühstück um 7", "p", " 123456"})
        EXPECT_STREQ(passwordAdvice(fine, "李明"), "") << fine;
    EXPECT_STREQ(passwordAdvice("x", ""), "");
}

}  // namespace
}  // namespace chengheng
