#include "opening/balance/imbalance_causes.h"

#include <gtest/gtest.h>

#include "data/tables/accounts.h"
#include "tests/support/opening_accounts.h"

using namespace chengheng;
using Texts = std::vector<std::string>;

namespace {

const std::vector<_zCodeClassInfo> classes{{1, 1, "资产", 1}, {2, 2, "负债", 0}};

std::vector<ImbalanceCause> causesOf(const OpeningSheet& sheet) {
    return imbalanceCauses(sheet, TrialBalance(classes, sheet.accounts()));
}

Texts textsOf(const std::vector<AccountDraft>& drafts) {
    Texts texts;
    for (const ImbalanceCause& cause : causesOf(sheetOf(drafts))) texts.push_back(cause.text);
    return texts;
}

}  // namespace

TEST(ImbalanceCauses, AreNoneInBooksThatBalance) {
    EXPECT_EQ(textsOf({{"1001", 5}, creditOf("2001", 5), creditOf("1602", 0, "资产")}), Texts{});
}

TEST(ImbalanceCauses, AreNotLookedForWhereDetailsDifferInBooksThatBalance) {
    const OpeningSheet sheet = sheetOf({AccountDraft{"1001", 5}.keptBy("C"), creditOf("2001", 5)});
    const AuxiliaryOpenings details{{1, 0}};
    EXPECT_TRUE(imbalanceCauses(sheet, TrialBalance(classes, sheet.accounts()), &details).empty());
}

TEST(ImbalanceCauses, NameABalanceOfHalfTheDifferenceFirst) {
    // 300 of 1012 belong to the credit side.
    EXPECT_EQ(textsOf({{"1001", 1000}, {"1012", 300}, creditOf("2001", 700)}).front(),
              "1012 科目1012:余额 300.00 正好是差额的一半,方向可能录反了。");
}

TEST(ImbalanceCauses, NameABalanceEqualToTheDifference) {
    const Texts texts = textsOf({{"1001", 500}, {"1002", 123.45}, creditOf("2001", 500)});
    EXPECT_EQ(texts.front(),
              "1002 科目1002:余额 123.45 正好等于差额,可能重复录入,或者对方科目漏录了。");
}

TEST(ImbalanceCauses, NameABalanceThatIsMissingAgainOnItsSide) {
    const Texts texts = textsOf({{"1001", 500}, creditOf("2001", 400), creditOf("2002", 50)});
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0], "2002 科目2002:余额 50.00 与差额相等而方向相反,同样金额的一笔可能漏录了。");
}

TEST(ImbalanceCauses, ProposeTheAmountWithExchangedDigitsPutRight) {
    const Texts texts = textsOf({{"1001", 5400}, creditOf("2001", 4500)});
    EXPECT_NE(std::ranges::find(
                  texts, "1001 科目1001:余额 5,400.00 的数字位置可能有误,改为 4,500.00 则平衡。"),
              texts.end());
}

TEST(ImbalanceCauses, ProposeTheAmountWithThePointShiftedBack) {
    const Texts texts = textsOf({{"1001", 1234.5}, {"1002", 100}, creditOf("2001", 223.45)});
    EXPECT_NE(std::ranges::find(
                  texts, "1001 科目1001:余额 1,234.50 的数字位置可能有误,改为 123.45 则平衡。"),
              texts.end());
}

TEST(ImbalanceCauses, ProposeTheAmountWithThePointShiftedForth) {
    const Texts texts = textsOf({{"1001", 123.45}, {"1002", 100}, creditOf("2001", 1334.5)});
    EXPECT_NE(std::ranges::find(
                  texts, "1001 科目1001:余额 123.45 的数字位置可能有误,改为 1,234.50 则平衡。"),
              texts.end());
}

namespace {

/// Whether two digits exchanged side by side, or the point shifted by one place, make one number
/// of cents the other.
bool isMisplacedByHand(int given, int right) {
    if (given == 0 || right == 0 || given == right || (given < 0) != (right < 0)) return false;
    given = std::abs(given);
    right = std::abs(right);
    if (given == 10 * right || right == 10 * given) return true;
    std::string from = std::to_string(given);
    std::string to = std::to_string(right);
    while (from.size() < to.size()) from.insert(0, 1, '0');
    while (to.size() < from.size()) to.insert(0, 1, '0');
    for (std::size_t at = 0; at + 1 < from.size(); ++at) {
        std::string exchanged = from;
        std::swap(exchanged[at], exchanged[at + 1]);
        if (exchanged == to) return true;
    }
    return false;
}

}  // namespace

TEST(ImbalanceCauses, FindMisplacedDigitsInEveryPairOfAmounts) {
    const std::vector<int> cents{0,    1,     2,     9,     10,   11,   12,   19,    20,
                                 21,   90,    91,    100,   101,  102,  110,  120,   121,
                                 123,  132,   201,   210,   213,  321,  1000, 1001,  1010,
                                 1100, 1200,  1234,  1243,  1324, 2134, 4321, 10234, 12034,
                                 9999, 99990, 12340, 21000, -1,   -10,  -12,  -21,   -120};
    for (const int debit : cents)
        for (const int credit : cents) {
            if (debit == credit) continue;
            std::vector<bool> found(2);
            for (const ImbalanceCause& cause :
                 causesOf(sheetOf({{"1001", debit / 100.0}, creditOf("2001", credit / 100.0)})))
                if (cause.kind == ImbalanceKind::misplacedDigits) found[*cause.place] = true;
            EXPECT_EQ(found[0], isMisplacedByHand(debit, credit)) << debit << " " << credit;
            EXPECT_EQ(found[1], isMisplacedByHand(credit, debit)) << debit << " " << credit;
        }
}

TEST(ImbalanceCauses, TellOfADivisorNineOnlyWhenNoDigitsAreMisplaced) {
    for (const std::string& text : textsOf({{"1001", 5400}, creditOf("2001", 4500)}))
        EXPECT_EQ(text.find("整除"), std::string::npos) << text;
    EXPECT_EQ(textsOf({{"1001", 11.001}, creditOf("2001", 11)}), Texts{}) << "less than a cent";
    for (const std::string& text : textsOf({{"1001", 1234.5}, creditOf("2001", 1000.4)}))
        EXPECT_EQ(text.find("整除"), std::string::npos) << text;
}

TEST(ImbalanceCauses, AreLookedForInDifferencesThatCentsCanHold) {
    EXPECT_FALSE(textsOf({{"1001", 9e13}}).empty());
    EXPECT_TRUE(textsOf({{"1001", 9.1e13}}).empty());
}

TEST(ImbalanceCauses, NameAnAuxiliaryAccountWithoutDetailsAndOneWithHugeOnes) {
    const OpeningSheet sheet =
        sheetOf({AccountDraft{"1122", 1}.keptBy("B"), AccountDraft{"1123", 2}.keptBy("B")});
    const AuxiliaryOpenings details{{2, 1e30}};
    const auto causes = imbalanceCauses(sheet, TrialBalance(classes, sheet.accounts()), &details);
    ASSERT_GE(causes.size(), 2u);
    EXPECT_EQ(causes[0].text, "1122 科目1122:余额 1.00 与辅助明细的合计 0.00 不符。");
    EXPECT_EQ(causes[1].kind, ImbalanceKind::detailsDiffer);
    EXPECT_EQ(causes[1].place, 1u);
}

TEST(ImbalanceCauses, TrustDetailsAsFarAsCentsCanHoldThem) {
    const OpeningSheet sheet =
        sheetOf({AccountDraft{"1122", 9e13}.keptBy("B"), AccountDraft{"1123", 1}.keptBy("B"),
                 creditOf("2001", 9e13)});
    const AuxiliaryOpenings details{{1, 9e13}, {2, 1}};
    const auto causes = imbalanceCauses(sheet, TrialBalance(classes, sheet.accounts()), &details);
    ASSERT_FALSE(causes.empty());
    for (const ImbalanceCause& cause : causes)
        EXPECT_NE(cause.kind, ImbalanceKind::detailsDiffer) << cause.text;
}

TEST(ImbalanceCauses, TellOfADivisorNineThatNoAccountExplains) {
    EXPECT_EQ(textsOf({{"1001", 1234.5}, creditOf("2001", 1000.5)}),
              Texts{"差额 234.00 能被9整除,可能有相邻的数字颠倒或小数点错位。"});
}

TEST(ImbalanceCauses, SuspectNoContraAccountBecauseItIsOne) {
    const Texts texts =
        textsOf({{"1001", 1000}, creditOf("1602", 77, "资产"), creditOf("2001", 900)});
    for (const std::string& text : texts) EXPECT_FALSE(text.starts_with("1602")) << text;
}

TEST(ImbalanceCauses, NameAnAuxiliaryAccountThatDiffersFromItsDetailsFirst) {
    const OpeningSheet sheet = sheetOf({{"1001", 100},
                                        AccountDraft{"1122", 70}.keptBy("B"),
                                        AccountDraft{"1123", 30}.keptBy("B"),
                                        AccountDraft{"1124"}.keptBy("B"),
                                        creditOf("2001", 130)});
    const TrialBalance balance(classes, sheet.accounts());
    const AuxiliaryOpenings details{{1, 5}, {2, 140.5}, {3, 30.001}, {4, 2}};
    const auto causes = imbalanceCauses(sheet, balance, &details);
    ASSERT_GE(causes.size(), 2u);
    EXPECT_EQ(causes[0].text, "1122 科目1122:余额 70.00 与辅助明细的合计 140.50 不符。");
    EXPECT_EQ(causes[0].place, 1u);
    EXPECT_EQ(causes[1].text, "1124 科目1124:余额 0.00 与辅助明细的合计 2.00 不符。");
    for (std::size_t at = 2; at < causes.size(); ++at)
        EXPECT_NE(causes[at].kind, ImbalanceKind::detailsDiffer);
    for (const ImbalanceCause& cause : imbalanceCauses(sheet, balance))
        EXPECT_NE(cause.kind, ImbalanceKind::detailsDiffer);
}

TEST(ImbalanceCauses, NameLinesWhoseFiguresDisagree) {
    OpeningSheet sheet = sheetOf({{"1001", 10}, creditOf("2001", 3)}, OpeningLayout::midYear);
    sheet.accounts()[1].balance(Measure::money).yearStart = 3;
    const auto causes = causesOf(sheet);
    const auto found =
        std::ranges::find(causes, ImbalanceKind::figuresDisagree, &ImbalanceCause::kind);
    ASSERT_NE(found, causes.end());
    EXPECT_EQ(found->text, "1001 科目1001:期初余额与年初余额和累计发生额不符。");
    EXPECT_EQ(found->place, 0u);
}

TEST(ImbalanceCauses, AreRankedAndNotTooMany) {
    std::vector<AccountDraft> drafts;
    for (int at = 1; at <= 60; ++at) drafts.push_back({std::to_string(1000 + at), 10});
    drafts.push_back(creditOf("2001", 580));
    const auto causes = causesOf(sheetOf(drafts));
    EXPECT_EQ(causes.size(), 20u);
    EXPECT_TRUE(std::ranges::is_sorted(causes, {}, &ImbalanceCause::kind));
}

TEST(ImbalanceCauses, NameAccountsOfNoCountedClassFirst) {
    EXPECT_EQ(textsOf({{"1001", 50}, creditOf("2001", 40.01), {"6001", 9.99, true, "损益"}}),
              (Texts{"6001 科目6001:所属类别“损益”不参加试算,余额 9.99 没有计入。",
                     "差额 9.99 能被9整除,可能有相邻的数字颠倒或小数点错位。"}));
}
