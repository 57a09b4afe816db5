#include "vouchertype/restriction/voucher_restriction.h"

#include <gtest/gtest.h>

#include <map>

using namespace chengheng;

namespace {

const CodeLevels pattern4222{"4222"};

std::string nameOf(std::string_view code) {
    static const std::map<std::string_view, const char*> names{
        {"1001", "库存现金"}, {"1002", "银行存款"}, {"100201", "工商银行"}, {"6602", "管理费用"}};
    const auto found = names.find(code);
    return found == names.end() ? "" : found->second;
}

_SignInfo typeOf(int kind, const char* one = "1001", const char* two = "1002") {
    return {.lId = 1,
            .sSign = "收",
            .sSignName = "收款凭证",
            .byLimit = static_cast<std::uint8_t>(kind),
            .sCode1 = one,
            .sCode2 = two};
}

VoucherLine debit(int number, const char* account, double amount = 100) {
    return {number, account, true, amount};
}
VoucherLine credit(int number, const char* account, double amount = 100) {
    return {number, account, false, amount};
}

/// Why the type does not take the lines; empty when it does.
std::string why(const _SignInfo& type, const std::vector<VoucherLine>& lines,
                const CodeLevels& of = pattern4222) {
    const auto breach = restrictionBreach(type, lines, of, nameOf);
    return breach ? breach->text : "";
}

std::vector<int> linesOf(const _SignInfo& type, const std::vector<VoucherLine>& lines) {
    const auto breach = restrictionBreach(type, lines, pattern4222, nameOf);
    return breach ? breach->lines : std::vector<int>();
}

const std::vector<VoucherLine> receiptLines{debit(1, "1001"), credit(2, "5001")};
const std::vector<VoucherLine> paymentLines{debit(1, "6602"), credit(2, "1002")};
const std::vector<VoucherLine> transferLines{debit(1, "6602"), credit(2, "1601")};

}  // namespace

TEST(VoucherRestriction, OfNoKindTakesEveryVoucher) {
    for (const auto& lines : {receiptLines, paymentLines, transferLines, {}})
        EXPECT_EQ(why(typeOf(0), lines), "");
}

TEST(VoucherRestriction, OnTheDebitSideTakesAVoucherThatDebitsOneOfTheAccounts) {
    EXPECT_EQ(why(typeOf(1), receiptLines), "");
    EXPECT_EQ(why(typeOf(1), {debit(1, "1002"), credit(2, "5001")}), "");
    EXPECT_EQ(why(typeOf(1), {debit(1, "6602"), debit(2, "1002"), credit(3, "5001")}), "");
    EXPECT_EQ(why(typeOf(1), {debit(1, "1001"), credit(2, "1002")}), "");
}

TEST(VoucherRestriction, OnTheDebitSideRefusesAVoucherThatOnlyCreditsThem) {
    EXPECT_EQ(why(typeOf(1), paymentLines),
              "借方必有 1001 库存现金 或 1002 银行存款:借方只有第 1 行 6602 管理费用");
    EXPECT_EQ(linesOf(typeOf(1), paymentLines), std::vector<int>());
}

TEST(VoucherRestriction, OnTheCreditSideTakesAVoucherThatCreditsOneOfTheAccounts) {
    EXPECT_EQ(why(typeOf(2), paymentLines), "");
    EXPECT_EQ(why(typeOf(2), {debit(1, "1001"), credit(2, "1002")}), "");
}

TEST(VoucherRestriction, OnTheCreditSideRefusesAVoucherThatOnlyDebitsThem) {
    EXPECT_EQ(why(typeOf(2), receiptLines),
              "贷方必有 1001 库存现金 或 1002 银行存款:贷方只有第 2 行 5001");
}

TEST(VoucherRestriction, OnBothSidesTakesAVoucherWithoutTheAccounts) {
    EXPECT_EQ(why(typeOf(3), transferLines), "");
}

TEST(VoucherRestriction, OnBothSidesNamesEveryLineThatMayNotBeThere) {
    EXPECT_EQ(why(typeOf(3), {debit(1, "6602"), debit(2, "1002"), credit(4, "1001")}),
              "借贷必无 1001 库存现金 或 1002 银行存款:"
              "第 2 行借方 1002 银行存款、第 4 行贷方 1001 库存现金");
    EXPECT_EQ(linesOf(typeOf(3), {debit(1, "6602"), debit(2, "1002"), credit(4, "1001")}),
              (std::vector<int>{2, 4}));
}

TEST(VoucherRestriction, CountsAnAccountAsTheFirstLevelAccountAboveIt) {
    EXPECT_EQ(firstLevelOf(pattern4222, "10020103"), "1002");
    EXPECT_EQ(firstLevelOf(pattern4222, "1002"), "1002");
    EXPECT_EQ(why(typeOf(1), {debit(1, "10020101"), credit(2, "5001")}), "");
    EXPECT_EQ(why(typeOf(3), {debit(1, "100201"), credit(2, "5001")}),
              "借贷必无 1001 库存现金 或 1002 银行存款:第 1 行借方 100201 工商银行");
}

TEST(VoucherRestriction, CutsCodesWhereTheBooksDo) {
    const CodeLevels threes("332");
    const _SignInfo type = typeOf(1, "101", "102");
    EXPECT_EQ(why(type, {debit(1, "102001"), credit(2, "501")}, threes), "");
    EXPECT_NE(why(type, {debit(1, "1020"), credit(2, "501")}, threes), "");
}

TEST(VoucherRestriction, TakesACodeThatStandsNowhereInTheLevelsAsItIs) {
    EXPECT_EQ(firstLevelOf(pattern4222, "10011"), "10011");
    EXPECT_EQ(firstLevelOf(CodeLevels(""), "1001"), "1001");
    EXPECT_EQ(why(typeOf(1), receiptLines, CodeLevels("")), "");
    EXPECT_NE(why(typeOf(1), {debit(1, "10011"), credit(2, "5001")}), "");
}

TEST(VoucherRestriction, DoesNotTakeALongerFirstLevelAccountForOneThatItBeginsWith) {
    const CodeLevels fives("52");
    EXPECT_NE(why(typeOf(1, "1001", ""), {debit(1, "10011")}, fives), "");
}

TEST(VoucherRestriction, HoldsForTheOneAccountThatATypeNames) {
    for (const _SignInfo& type :
         {typeOf(1, "1001", ""), typeOf(1, "", "1001"), typeOf(1, "1001", "1001")}) {
        EXPECT_EQ(why(type, receiptLines), "");
        EXPECT_EQ(why(type, {debit(1, "1002"), credit(2, "5001")}),
                  "借方必有 1001 库存现金:借方只有第 1 行 1002 银行存款");
    }
    EXPECT_EQ(why(typeOf(3, "1002", ""), receiptLines), "");
}

TEST(VoucherRestriction, ThatRequiresNoAccountAdmitsNoVoucherAndSaysWhy) {
    EXPECT_EQ(why(typeOf(1, "", ""), receiptLines), "借方必有的科目没有设置,请在“凭证类别”中补上");
    EXPECT_EQ(why(typeOf(2, "", ""), receiptLines), "贷方必有的科目没有设置,请在“凭证类别”中补上");
}

TEST(VoucherRestriction, ThatForbidsNoAccountTakesEveryVoucher) {
    EXPECT_EQ(why(typeOf(3, "", ""), receiptLines), "");
    // The account of a line that is not in the chart is not the one that a type leaves out.
    EXPECT_EQ(why(typeOf(3, "1001", ""), {debit(1, "")}), "");
}

TEST(VoucherRestriction, OfAKindThatNobodyKnowsAdmitsNoVoucher) {
    EXPECT_EQ(why(typeOf(4), receiptLines), "限制方式 4 无法识别,请在“凭证类别”中重新选择");
    EXPECT_EQ(why(typeOf(255), transferLines), "限制方式 255 无法识别,请在“凭证类别”中重新选择");
}

TEST(VoucherRestriction, WithoutLinesFindsWhatItRequiresMissingAndNothingForbidden) {
    EXPECT_EQ(why(typeOf(1), {}), "借方必有 1001 库存现金 或 1002 银行存款:借方没有分录");
    EXPECT_EQ(why(typeOf(2), {}), "贷方必有 1001 库存现金 或 1002 银行存款:贷方没有分录");
    EXPECT_EQ(why(typeOf(3), {}), "");
}

TEST(VoucherRestriction, FindsASideEmptyThatHasNoLine) {
    EXPECT_EQ(why(typeOf(1), {credit(1, "1001")}),
              "借方必有 1001 库存现金 或 1002 银行存款:借方没有分录");
}

TEST(VoucherRestriction, CountsALineWithoutAmountOnNeitherSide) {
    EXPECT_EQ(why(typeOf(1), {debit(1, "1001", 0), debit(2, "6602"), credit(3, "5001")}),
              "借方必有 1001 库存现金 或 1002 银行存款:第 1 行 1001 库存现金没有金额,不算");
    EXPECT_EQ(why(typeOf(1), {debit(1, "6602", 0)}),
              "借方必有 1001 库存现金 或 1002 银行存款:借方没有分录");
    EXPECT_EQ(why(typeOf(1), {debit(1, "1001", 0), debit(2, "1001", 0.01)}), "");
    EXPECT_EQ(why(typeOf(3), {debit(1, "1001", 0), debit(2, "6602"), credit(3, "5001")}), "");
}

TEST(VoucherRestriction, LeavesALineInRedInkOnItsSide) {
    EXPECT_EQ(why(typeOf(1), {debit(1, "1001", -100), credit(2, "5001", -100)}), "");
    EXPECT_NE(why(typeOf(2), {debit(1, "1001", -100), credit(2, "5001", -100)}), "");
    EXPECT_NE(why(typeOf(3), {debit(1, "1001", -100)}), "");
}

TEST(VoucherRestriction, SaysSoOfALineWhoseAccountIsNotInTheChart) {
    EXPECT_EQ(why(typeOf(1), {debit(1, ""), credit(2, "5001")}),
              "借方必有 1001 库存现金 或 1002 银行存款:借方只有第 1 行 (没有这个科目)");
}

TEST(VoucherRestriction, TellsTheFirstThreeLinesAndHowManyThereAre) {
    std::vector<VoucherLine> lines;
    for (int number = 1; number <= 4; ++number) lines.push_back(debit(number, "6602"));
    EXPECT_EQ(why(typeOf(1), lines),
              "借方必有 1001 库存现金 或 1002 银行存款:借方只有"
              "第 1 行 6602 管理费用、第 2 行 6602 管理费用、第 3 行 6602 管理费用 等 4 行");
    lines.pop_back();
    EXPECT_EQ(why(typeOf(1), lines),
              "借方必有 1001 库存现金 或 1002 银行存款:借方只有"
              "第 1 行 6602 管理费用、第 2 行 6602 管理费用、第 3 行 6602 管理费用");
}

TEST(VoucherRestriction, ReadsAsTheWindowSaysIt) {
    EXPECT_EQ(restrictionInWords(typeOf(1), nameOf), "借方必有 1001 库存现金 或 1002 银行存款");
    EXPECT_EQ(restrictionInWords(typeOf(2, "1001", "")), "贷方必有 1001");
    EXPECT_EQ(restrictionInWords(typeOf(3, "", "1002"), nameOf), "借贷必无 1002 银行存款");
    EXPECT_EQ(restrictionInWords(typeOf(1, "", ""), nameOf), "借方必有");
    EXPECT_EQ(restrictionInWords(typeOf(0), nameOf), "");
    EXPECT_EQ(restrictionInWords(typeOf(9), nameOf), "");
}
