#include "accounts/codes/proposed_code.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace chengheng;

namespace {

const CodeLevels levels("4222");

std::string child(std::vector<std::string> codes, const char* parent) {
    std::ranges::sort(codes);
    return proposedChild(levels, codes, parent);
}

std::string sibling(std::vector<std::string> codes, const char* code) {
    std::ranges::sort(codes);
    return proposedSibling(levels, codes, code);
}

}  // namespace

TEST(ProposedCodes, OfAChildBeginWithOneAndFollowTheHighest) {
    EXPECT_EQ(child({"1001"}, "1001"), "100101");
    EXPECT_EQ(child({"1001", "100101", "100107", "1002"}, "1001"), "100108");
    EXPECT_EQ(child({"1001", "100101", "10010105"}, "1001"), "100102");
    EXPECT_EQ(child({"1001", "100101", "10010105"}, "100101"), "10010106");
}

TEST(ProposedCodes, OfASiblingFollowTheCodeJustUsed) {
    EXPECT_EQ(sibling({"1001", "1002"}, "1001"), "1003");
    EXPECT_EQ(sibling({"1001", "100101"}, "100101"), "100102");
    EXPECT_EQ(sibling({"1001", "100101", "100102", "100104"}, "100101"), "100103");
}

TEST(ProposedCodes, FillAGapWhenTheEndIsTaken) {
    EXPECT_EQ(child({"1001", "100102", "100199"}, "1001"), "100101");
    EXPECT_EQ(sibling({"9999", "0001"}, "9999"), "0002");
}

TEST(ProposedCodes, AreNoneWhenEveryCodeIsTaken) {
    std::vector<std::string> codes{"1001"};
    for (int number = 1; number <= 99; ++number)
        codes.push_back((number < 10 ? "10010" : "1001") + std::to_string(number));
    EXPECT_EQ(child(codes, "1001"), "");
    EXPECT_EQ(sibling(codes, "100150"), "");
}

TEST(ProposedCodes, AreNoneBelowTheLastLevelAndForCodesOfNoLevel) {
    EXPECT_EQ(child({"1001010101"}, "1001010101"), "");
    EXPECT_EQ(child({"10"}, "10"), "");
    EXPECT_EQ(sibling({"10"}, "10"), "");
    EXPECT_EQ(sibling({}, ""), "");
}

TEST(ProposedCodes, PassOverCodesThatAreNoNumbers) {
    EXPECT_EQ(child({"1001", "1001A1"}, "1001"), "100101");
    EXPECT_EQ(sibling({"1001", "1001A1"}, "1001A1"), "");
    for (const char* code : {"10:0", "10/0", "/000", ":000"})
        EXPECT_EQ(sibling({code}, code), "") << code;
    EXPECT_EQ(sibling({"1090"}, "1090"), "1091");
    EXPECT_EQ(child({"1001", "1001:1", "1001/1", "100190"}, "1001"), "100191");
}
