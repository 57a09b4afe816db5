#include "forms/leaf_list.h"

#include <gtest/gtest.h>

using namespace chengheng;

namespace {

/// Leaves "1 a", "2 a", ... with their numbers as ids.
LeafList listOf(int count) {
    std::vector<Leaf> leaves;
    for (int id = 1; id <= count; ++id) leaves.push_back({id, std::to_string(id) + " a"});
    LeafList list;
    list.assign(std::move(leaves));
    return list;
}

std::vector<int> shownIds(const LeafList& list) {
    std::vector<int> ids;
    for (int row = 0; row < list.rowCount(); ++row) ids.push_back(list.atRow(row).id);
    return ids;
}

}  // namespace

TEST(LeafList, OffersAFilterFromTwentyLeavesOn) {
    EXPECT_FALSE(listOf(19).offersFilter());
    EXPECT_TRUE(listOf(20).offersFilter());
}

TEST(LeafList, ShowsTheLeavesThatHoldTheTextInAnyCase) {
    LeafList list = listOf(20);
    list.put({21, "VS Visa卡"});
    list.setFilter("vISA");
    EXPECT_EQ(shownIds(list), std::vector{21});
    list.setFilter(" 1 A　");
    EXPECT_EQ(shownIds(list), (std::vector{1, 11}));
    list.setFilter("没有");
    EXPECT_EQ(shownIds(list), std::vector<int>{});
    EXPECT_EQ(list.all().size(), 21u);
}

TEST(LeafList, ShowsAllAgainWhenTooFewAreLeftForAFilter) {
    LeafList list = listOf(20);
    list.setFilter("20");
    list.remove(20);
    EXPECT_EQ(list.rowCount(), 19);
    EXPECT_EQ(list.filter(), "");
}

TEST(LeafList, IgnoresAFilterThatIsNotOffered) {
    LeafList list = listOf(3);
    list.setFilter("2");
    EXPECT_EQ(list.rowCount(), 3);
}

TEST(LeafList, PutsANewLeafAtTheEndAndAKnownOneInItsPlace) {
    LeafList list = listOf(2);
    list.put({7, "7 b"});
    list.put({1, "1 c"});
    EXPECT_EQ(shownIds(list), (std::vector{1, 2, 7}));
    EXPECT_EQ(list.find(1)->text, "1 c");
    EXPECT_EQ(list.find(8), nullptr);
}

TEST(LeafList, KnowsWhichLeafIsNextToOneThatGoes) {
    LeafList list = listOf(3);
    EXPECT_EQ(list.neighbourOf(1), 2);
    EXPECT_EQ(list.neighbourOf(3), 2);
    EXPECT_EQ(list.neighbourOf(9), 1);
    EXPECT_EQ(listOf(1).neighbourOf(1), 0);
    EXPECT_EQ(LeafList().firstShown(), 0);
}

TEST(LeafList, TellsEachChangeByItsRevision) {
    LeafList list = listOf(2);
    const unsigned before = list.revision();
    list.put({1, "1 c"});
    EXPECT_NE(list.revision(), before);
}

TEST(LeafList, PutsALeafWhereItsOrderSaysAndMovesItWhenThatChanges) {
    LeafList list;
    list.assign({{1, "b", "b"}, {2, "d", "d"}});
    list.put({3, "c", "c"});
    list.put({4, "a", "a"});
    list.put({5, "e", "e"});
    EXPECT_EQ(shownIds(list), (std::vector{4, 1, 3, 2, 5}));
    list.put({1, "f", "f"});
    EXPECT_EQ(shownIds(list), (std::vector{4, 3, 2, 5, 1}));
    list.put({3, "renamed", "c"});
    EXPECT_EQ(shownIds(list), (std::vector{4, 3, 2, 5, 1}));
    EXPECT_EQ(list.atRow(1).text, "renamed");
}

TEST(LeafList, FindsByInitialsWherePlainLettersAreLookedFor) {
    LeafList list = listOf(20);
    int asked = 0;
    list.findBy([&asked](const Leaf& leaf) {
        ++asked;
        return leaf.id == 7 ? std::string("KCXJ") : std::string();
    });
    list.setFilter("7 a");
    EXPECT_EQ(asked, 0);
    list.setFilter("cx");
    EXPECT_EQ(shownIds(list), std::vector{7});
    EXPECT_EQ(asked, 20);
    list.setFilter("kc");
    EXPECT_EQ(asked, 20);
    list.put({21, "VS"});
    list.setFilter("xj");
    EXPECT_EQ(shownIds(list), std::vector{7});
}
