#include "data/locks/held_locks.h"

#include <gtest/gtest.h>

namespace chengheng {
namespace {

std::string keysOf(std::string_view list) {
    std::string keys;
    for (const LockName& name : readLockNames(list)) keys += name.key + ";";
    return keys;
}

TEST(LockList, IsReadInOneOrderWhateverTheOrderItIsWrittenIn) {
    EXPECT_EQ(keysOf("Users UserAuth"), "userauth;users;");
    EXPECT_EQ(keysOf("UserAuth Users"), "userauth;users;");
}

TEST(LockList, NamesEachLockOnceInAnyCaseOfLetters) {
    EXPECT_EQ(keysOf("Code AccSum CODE code"), "accsum;code;");
}

TEST(LockList, KeepsTheSpellingThatCameFirst) {
    EXPECT_EQ(readLockNames("UnRegMain UNREGMAIN").at(0).spelling, "UnRegMain");
}

TEST(LockList, TakesAnyNumberOfBlanksBetweenNames) {
    EXPECT_EQ(keysOf("  Sign \t\r\n Code  "), "code;sign;");
    EXPECT_EQ(keysOf(""), "");
    EXPECT_EQ(keysOf(" \n"), "");
}

TEST(LockList, PassesNamesOnThatNoTableBears) {
    EXPECT_EQ(keysOf("AssAcc AccSum RegMain RegSug"), "accsum;assacc;regmain;regsug;");
    EXPECT_EQ(keysOf("AssSum AccSum Cyrency UnRegMain UnRegSug"),
              "accsum;asssum;cyrency;unregmain;unregsug;");
}

TEST(LockNumber, IsTheSameForEver) {
    EXPECT_EQ(lockNumber(""), 0xcbf29ce484222325U);
    EXPECT_EQ(lockNumber("a"), 0xaf63dc4c8601ec8cU);
    EXPECT_EQ(lockNumber("foobar"), 0x85944171f73967e8U);
}

TEST(HeldLocks, KeepsBothModesOfANameApart) {
    HeldLocks held;
    held.add({"code", "Code"}, LockMode::shared, "");
    held.add({"code", "Code"}, LockMode::exclusive, "");
    EXPECT_EQ(held.effectiveMode("code"), LockMode::exclusive);
    held.remove("code", LockMode::exclusive);
    EXPECT_TRUE(held.holds("code", LockMode::shared));
    EXPECT_FALSE(held.holds("code", LockMode::exclusive));
    EXPECT_EQ(held.effectiveMode("code"), LockMode::shared);
    held.remove("code", LockMode::shared);
    EXPECT_EQ(held.effectiveMode("code"), std::nullopt);
}

TEST(HeldLocks, AddedTwiceIsRemovedOnce) {
    HeldLocks held;
    held.add({"code", "Code"}, LockMode::shared, "first");
    held.add({"code", "CODE"}, LockMode::shared, "second");
    ASSERT_EQ(held.all().size(), 1U);
    EXPECT_EQ(held.all()[0].function, "first");
    held.remove("code", LockMode::shared);
    EXPECT_FALSE(held.holds("code", LockMode::shared));
    held.remove("code", LockMode::shared);
    EXPECT_TRUE(held.all().empty());
}

}  // namespace
}  // namespace chengheng
