#include "settle/settle_rules.h"
#include "data/tables/settlement.h"

#include <gtest/gtest.h>

#include <set>

using namespace chengheng;

namespace {

using Texts = std::set<std::string, std::less<>>;

const std::vector<Leaf> leaves{{1, "1 现金"}, {2, "2 支票"}, {3, "3 汇 兑"}};

struct Clash {
    int id;
    const char* number;
    const char* name;
    const char* text;
    const char* field;
};

std::optional<Refusal> clashOf(const _SettleInfo& wanted, const Texts& storedNumbers = {},
                               const Texts& storedNames = {}) {
    return firstRefusal(
        settleClashChecks(),
        {.wanted = wanted,
         .leaves = leaves,
         .hasStoredNumber = [&](auto number) { return storedNumbers.contains(number); },
         .hasStoredName = [&](auto name) { return storedNames.contains(name); }});
}

void expectClashes(std::span<const Clash> clashes, const Texts& numbers = {},
                   const Texts& names = {}) {
    for (const Clash& clash : clashes) {
        const auto refusal = clashOf({clash.id, clash.number, clash.name, 0}, numbers, names);
        ASSERT_TRUE(refusal.has_value()) << clash.text;
        const Notice& notice = refusal->notice;
        EXPECT_EQ(notice.text, clash.text) << clash.number << ' ' << clash.name;
        EXPECT_EQ(notice.focusField, clash.field) << clash.text;
        EXPECT_EQ(notice.icon, MessageIcon::information);
        EXPECT_TRUE(notice.beep);
    }
}

}  // namespace

TEST(SettleRules, CheckTheLeavesBeforeTheStoredNumberAndTheStoredName) {
    std::vector<std::string> names;
    for (const auto& check : settleClashChecks()) names.emplace_back(check.name);
    EXPECT_EQ(names, (std::vector<std::string>{"no leaf has its number or name",
                                               "no stored method has its number",
                                               "no stored method has its name"}));
}

TEST(SettleRules, WordTheClashOfAnAdditionWithTheFirstLeafInItsOwnWay) {
    const Clash clashes[] = {{0, "1", "新", "结算方式号重复,不能添加!", "sStlId"},
                             {0, "9", "现金", "结算方式重复,不能添加!", "sSettle"},
                             {0, "1", "现金", "结算方式号重复,不能添加!", "sStlId"}};
    expectClashes(clashes);
}

TEST(SettleRules, WordTheClashOfAnAdditionWithALaterLeafInAnother) {
    const Clash clashes[] = {{0, "2", "新", "结算方式号重复,不能增加!", "sStlId"},
                             {0, "9", "支票", "结算方式重复,不能增加!", "sSettle"},
                             {0, "9", "汇 兑", "结算方式重复,不能增加!", "sSettle"}};
    expectClashes(clashes);
}

TEST(SettleRules, GoLeafByLeafSoThatTheNameOfTheFirstComesBeforeTheNumberOfTheSecond) {
    const Clash clashes[] = {{0, "2", "现金", "结算方式重复,不能添加!", "sSettle"},
                             {0, "3", "支票", "结算方式重复,不能增加!", "sSettle"}};
    expectClashes(clashes);
}

TEST(SettleRules, FindWhatAnotherWorkstationHasStoredMeanwhile) {
    const Clash clashes[] = {{0, "8", "新", "结算方式号重复,不能增加!", "sStlId"},
                             {0, "9", "承兑", "结算方式重复,不能增加!", "sSettle"},
                             {0, "8", "承兑", "结算方式号重复,不能增加!", "sStlId"},
                             {1, "8", "新", "结算方式号重复,不能修改!", "sStlId"},
                             {1, "1", "承兑", "结算方式重复,不能修改!", "sSettle"}};
    expectClashes(clashes, {"8"}, {"承兑"});
}

TEST(SettleRules, WordEveryClashOfAModificationAlike) {
    const Clash clashes[] = {{2, "1", "支票", "结算方式号重复,不能修改!", "sStlId"},
                             {2, "2", "现金", "结算方式重复,不能修改!", "sSettle"},
                             {1, "2", "现金", "结算方式号重复,不能修改!", "sStlId"},
                             {1, "1", "汇 兑", "结算方式重复,不能修改!", "sSettle"}};
    expectClashes(clashes);
}

TEST(SettleRules, LetAMethodKeepItsOwnNumberAndName) {
    EXPECT_EQ(clashOf({1, "1", "现金", 1}), std::nullopt);
    EXPECT_EQ(clashOf({3, "3", "汇 兑", 0}), std::nullopt);
}

TEST(SettleRules, CompareNumbersAndNamesCharacterByCharacter) {
    EXPECT_EQ(clashOf({0, "01", "现"}), std::nullopt);
    EXPECT_EQ(clashOf({0, "1a", "现金支票"}), std::nullopt);
}

TEST(SettleRules, CutALeafAtItsFirstBlank) {
    EXPECT_EQ(settleLeafText({7, "07", "银行 汇票", 1}), "07 银行 汇票");
    const auto parts = settleLeafParts("07 银行 汇票");
    EXPECT_EQ(parts.number, "07");
    EXPECT_EQ(parts.name, "银行 汇票");
    EXPECT_EQ(settleLeafParts("07").number, "07");
    EXPECT_EQ(settleLeafParts("07").name, "");
    EXPECT_EQ(settleLeafParts(" 7").number, "");
}

TEST(SettleRules, TakeTheChequeRegisterFromTheLowestBitAndKeepTheOthers) {
    EXPECT_TRUE(settleInput({1, "1", "现金", 3}).usesChequeRegister);
    EXPECT_FALSE(settleInput({1, "1", "现金", 2}).usesChequeRegister);
    EXPECT_EQ(settleRecord({"1", "现金", false}, {1, "1", "现金", 3}).bNote, 2);
    EXPECT_EQ(settleRecord({"1", "现金", true}, {1, "1", "现金", 2}).bNote, 3);
}

TEST(SettleRules, MakeTheSameRecordOfUnchangedInput) {
    const _SettleInfo method{4, "04", "汇票", 7};
    EXPECT_EQ(settleRecord(settleInput(method), method), method);
}

TEST(SettleRules, LeaveBlanksAroundNumberAndNameAside) {
    const _SettleInfo method = settleRecord({" 1", "现 金　 ", true}, {});
    EXPECT_EQ(method.sStlId, "1");
    EXPECT_EQ(method.sSettle, "现 金");
}
