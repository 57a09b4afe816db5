#include "data/locks/lock_record.h"

#include <gtest/gtest.h>

namespace chengheng {
namespace {

constexpr std::size_t room = 65536;

HeldLock heldLock(const std::string& name, LockMode mode, std::int64_t since = 0) {
    return {{lockKey(name), name},
            mode,
            "会计科目",
            std::chrono::system_clock::time_point(std::chrono::milliseconds(since))};
}

LockRecord seated(std::int64_t seat, std::vector<HeldLock> held,
                  std::optional<LockWish> wish = {}) {
    return {seat, "张三", "desk", 42, std::move(held), std::move(wish)};
}

LockWish wishFor(const std::string& name, LockMode mode = LockMode::exclusive) {
    return {{lockKey(name), name}, mode};
}

LockRecord waiting(std::int64_t seat, const std::string& holds, const std::string& wants) {
    return seated(seat, {heldLock(holds, LockMode::exclusive)}, wishFor(wants));
}

TEST(LockRecord, ComesBackAsItWasWritten) {
    const LockRecord record =
        seated(0, {heldLock("Code", LockMode::shared, 1'700'000'000'123)}, wishFor("UnRegSug"));
    const auto read = readLockRecord(writeLockRecord(record, room) + "what lay there before");
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->operatorName, "张三");
    EXPECT_EQ(read->station, "desk");
    EXPECT_EQ(read->process, 42);
    ASSERT_EQ(read->held.size(), 1U);
    EXPECT_EQ(read->held[0].name.key, "code");
    EXPECT_EQ(read->held[0].name.spelling, "Code");
    EXPECT_EQ(read->held[0].mode, LockMode::shared);
    EXPECT_EQ(read->held[0].function, "会计科目");
    EXPECT_EQ(read->held[0].since, record.held[0].since);
    ASSERT_TRUE(read->wish.has_value());
    EXPECT_EQ(read->wish->name.key, "unregsug");
    EXPECT_EQ(read->wish->mode, LockMode::exclusive);
}

TEST(LockRecord, TakesLineEndsAndTabsInTextsForBlanks) {
    LockRecord record = seated(0, {heldLock("Code", LockMode::exclusive)});
    record.operatorName = "a\nheld\tX";
    record.held[0].function = "b\tc";
    const auto read = readLockRecord(writeLockRecord(record, room));
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->operatorName, "a held X");
    EXPECT_EQ(read->held.at(0).function, "b c");
    EXPECT_EQ(read->held.size(), 1U);
}

TEST(LockRecord, KeepsToItsRoom) {
    LockRecord record = seated(0, {}, wishFor("Code"));
    for (int number = 0; number < 100; ++number)
        record.held.push_back(heldLock("Table" + std::to_string(number), LockMode::shared));
    const std::string text = writeLockRecord(record, 1000);
    EXPECT_LE(text.size(), 1000U);
    const auto read = readLockRecord(text);
    ASSERT_TRUE(read.has_value());
    EXPECT_TRUE(read->wish.has_value());
    EXPECT_GT(read->held.size(), 5U);
    EXPECT_LT(read->held.size(), 100U);
}

TEST(LockRecord, HalfWrittenOrForeignTextIsNone) {
    const std::string whole =
        writeLockRecord(seated(0, {heldLock("Code", LockMode::shared)}, wishFor("Sign")), room);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(readLockRecord(whole.substr(0, size)).has_value()) << size;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string changed = whole;
        changed[at] = static_cast<char>(changed[at] ^ 0x11);
        EXPECT_FALSE(readLockRecord(changed).has_value()) << at;
    }
    EXPECT_FALSE(readLockRecord(std::string(1000, '\0')).has_value());
}

TEST(LockRecord, WithAFieldNobodyWritesIsNone) {
    for (const std::string body :
         {"owner\ta\tb\tx\n", "held\tCode\t3\t0\tf\n", "held\tCode\t1\t-5\tf\n",
          "held\tCode\t1\t99999999999999999999\tf\n", "wish\tCode\t0\n", "other\n", "\n"}) {
        const std::string text = "chlk1\t" + std::to_string(body.size()) + "\t" +
                                 std::to_string(lockNumber(body)) + "\n" + body;
        EXPECT_FALSE(readLockRecord(text).has_value()) << body;
    }
}

TEST(LockHolder, IsTheOneWhoStandsInTheWayLongest) {
    const std::vector<LockRecord> others{
        seated(0, {heldLock("Sign", LockMode::exclusive, 1)}),
        seated(1, {heldLock("Code", LockMode::shared, 9)}),
        seated(2, {heldLock("code", LockMode::shared, 5)}),
    };
    const LockHolder holder = findLockHolder(others, wishFor("CODE"));
    EXPECT_EQ(holder.lockName, "CODE");
    EXPECT_EQ(holder.operatorName, "张三");
    EXPECT_EQ(holder.function, "会计科目");
    EXPECT_EQ(holder.since, others[2].held[0].since);
}

TEST(LockHolder, IsUnknownWhenNobodyTellsOfTheLock) {
    const std::vector<LockRecord> others{seated(1, {heldLock("Code", LockMode::shared)})};
    const LockHolder holder = findLockHolder(others, wishFor("Code", LockMode::shared));
    EXPECT_EQ(holder.lockName, "Code");
    EXPECT_EQ(holder.operatorName, "");
}

TEST(CrossedWaits, TheHigherSeatOfTwoGivesWay) {
    const LockRecord low = waiting(1, "Code", "Users");
    const LockRecord high = waiting(2, "Users", "Code");
    EXPECT_FALSE(mustGiveWay(std::vector{high}, low));
    EXPECT_TRUE(mustGiveWay(std::vector{low}, high));
}

TEST(CrossedWaits, OfThreeInACircleExactlyOneGivesWay) {
    const std::vector<LockRecord> all{waiting(1, "A", "B"), waiting(2, "B", "C"),
                                      waiting(3, "C", "A")};
    int givingWay = 0;
    for (std::size_t own = 0; own < all.size(); ++own) {
        std::vector<LockRecord> others = all;
        others.erase(others.begin() + static_cast<std::ptrdiff_t>(own));
        givingWay += mustGiveWay(others, all[own]) ? 1 : 0;
    }
    EXPECT_EQ(givingWay, 1);
}

TEST(CrossedWaits, WaitingForSomebodyWhoWaitsElsewhereIsNone) {
    const LockRecord own = waiting(9, "A", "B");
    const std::vector<LockRecord> others{waiting(1, "B", "C"),
                                         seated(2, {heldLock("C", LockMode::exclusive)})};
    EXPECT_FALSE(mustGiveWay(others, own));
}

TEST(CrossedWaits, ACircleOfOthersIsNotOurs) {
    const LockRecord own = waiting(9, "X", "A");
    EXPECT_FALSE(mustGiveWay(std::vector{waiting(1, "A", "B"), waiting(2, "B", "A")}, own));
}

TEST(CrossedWaits, TwoReadersWhoBothWantToWriteAreCrossed) {
    const LockRecord low = seated(1, {heldLock("Code", LockMode::shared)}, wishFor("Code"));
    const LockRecord high = seated(2, {heldLock("Code", LockMode::shared)}, wishFor("Code"));
    EXPECT_FALSE(mustGiveWay(std::vector{high}, low));
    EXPECT_TRUE(mustGiveWay(std::vector{low}, high));
}

TEST(CrossedWaits, SharedWishesForSharedLocksAreNone) {
    const LockRecord low =
        seated(1, {heldLock("Code", LockMode::shared)}, wishFor("Sign", LockMode::shared));
    const LockRecord high =
        seated(2, {heldLock("Sign", LockMode::shared)}, wishFor("Code", LockMode::shared));
    EXPECT_FALSE(mustGiveWay(std::vector{low}, high));
}

}  // namespace
}  // namespace chengheng
