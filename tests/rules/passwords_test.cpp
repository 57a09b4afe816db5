#include "session/rights/passwords.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "books/logon/wrong_tries.h"

namespace chengheng {
namespace {

TEST(Passwords, AreStoredAsArgon2idHashes) {
    EXPECT_TRUE(hashPassword("密码123").starts_with("$argon2id$"));
}

TEST(Passwords, SamePasswordGetsAnotherHashEachTime) {
    EXPECT_NE(hashPassword("a", PasswordCost::least), hashPassword("a", PasswordCost::least));
}

TEST(Passwords, OnlyTheRightPasswordMeetsItsHash) {
    const std::string hash = hashPassword("密码 O'Brien", PasswordCost::least);
    EXPECT_TRUE(isPasswordOf(hash, "密码 O'Brien"));
    EXPECT_FALSE(isPasswordOf(hash, "密码 O'brien"));
    EXPECT_FALSE(isPasswordOf(hash, ""));
}

TEST(Passwords, TextThatIsNoHashMeetsNoPassword) {
    EXPECT_FALSE(isPasswordOf("", ""));
    EXPECT_FALSE(isPasswordOf("secret", "secret"));
    EXPECT_FALSE(isPasswordOf(std::string(5000, '$'), "secret"));
}

TEST(WrongTries, EachWrongTryDoublesTheWaitUpToAMinute) {
    EXPECT_EQ(WrongTries::delayAfter(-1), 0);
    int wrong = 0;
    for (const double delay : {0, 1, 2, 4, 8, 16, 32, 60, 60})
        EXPECT_EQ(WrongTries::delayAfter(wrong++), delay);
    EXPECT_EQ(WrongTries::delayAfter(std::numeric_limits<int>::max()), 60);
}

TEST(WrongTries, NamesThatNobodyHasShareAFewRows) {
    std::set<std::int32_t> rows;
    for (int number = 0; number < 10'000; ++number) {
        const std::int32_t row = TriedOperator{"books", "nobody" + std::to_string(number)}.row();
        EXPECT_LT(row, 0);
        rows.insert(row);
    }
    EXPECT_EQ(rows.size(), 64u);
    EXPECT_EQ((TriedOperator{"books", "王芳", 7}.row()), 7);
}

}  // namespace
}  // namespace chengheng
