#include "session/rights/passwords.h"

#include <gtest/gtest.h>

#include <chrono>

#include "books/logon/wrong_tries.h"

namespace chengheng {
namespace {

using namespace std::chrono_literals;

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

/// Wrong tries by a clock that stands still until it is moved.
struct TriesByHand {
    WrongTries::Time now;
    WrongTries tries{[this] { return now; }};
};

TEST(WrongTries, FirstTryDoesNotWait) {
    EXPECT_EQ(TriesByHand().tries.waitLeft("books", "王芳"), 0ms);
}

TEST(WrongTries, EachWrongTryDoublesTheWaitUpToAMinute) {
    TriesByHand hand;
    for (const auto delay : {1s, 2s, 4s, 8s, 16s, 32s, 60s, 60s}) {
        hand.tries.noteWrong("books", "王芳");
        EXPECT_EQ(hand.tries.waitLeft("books", "王芳"), delay);
        hand.now += delay;
        EXPECT_EQ(hand.tries.waitLeft("books", "王芳"), 0ms);
    }
}

TEST(WrongTries, RightPasswordWipesTheWaitOut) {
    TriesByHand hand;
    hand.tries.noteWrong("books", "王芳");
    hand.tries.noteWrong("books", "王芳");
    hand.tries.noteRight("books", "王芳");
    EXPECT_EQ(hand.tries.waitLeft("books", "王芳"), 0ms);
    hand.tries.noteWrong("books", "王芳");
    EXPECT_EQ(hand.tries.waitLeft("books", "王芳"), 1s);
}

TEST(WrongTries, OtherOperatorsAndOtherBooksDoNotWait) {
    TriesByHand hand;
    hand.tries.noteWrong("books", "王芳");
    EXPECT_EQ(hand.tries.waitLeft("books", "李明"), 0ms);
    EXPECT_EQ(hand.tries.waitLeft("others", "王芳"), 0ms);
}

}  // namespace
}  // namespace chengheng
