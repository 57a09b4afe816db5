#include "vouchertype/preset/preset_table.h"

#include <gtest/gtest.h>

#include "data/tables/settlement.h"
#include "vouchertype/preset/preset_pages.h"

using namespace chengheng;

namespace {

using Types = std::vector<_SignInfo>;
using Texts = std::vector<std::string>;

const PresetAccounts bothAccounts{"1001", "1002"};

/// The types of a set that restrict nothing.
void expectUnrestricted(PresetSet set, const PresetAccounts& accounts) {
    for (const _SignInfo& type : presetTypes(set, accounts)) {
        EXPECT_EQ(type.byLimit, 0) << type.sSign;
        EXPECT_EQ(type.sCode1 + type.sCode2, "") << type.sSign;
    }
}

}  // namespace

TEST(PresetTable, HasOneTypeWithoutClassification) {
    EXPECT_EQ(presetTypes(PresetSet::unclassified, bothAccounts),
              (Types{{0, "记", "记帐凭证", 0, "", ""}}));
}

TEST(PresetTable, PartsReceiptsPaymentsAndTransfers) {
    EXPECT_EQ(presetTypes(PresetSet::receiptsAndPayments, bothAccounts),
              (Types{{0, "收", "收款凭证", 1, "1001", "1002"},
                     {0, "付", "付款凭证", 2, "1001", "1002"},
                     {0, "转", "转帐凭证", 3, "1001", "1002"}}));
}

TEST(PresetTable, PartsCashBankAndTransfers) {
    EXPECT_EQ(presetTypes(PresetSet::cashAndBank, bothAccounts),
              (Types{{0, "现", "现金凭证", 0, "", ""},
                     {0, "银", "银行凭证", 0, "", ""},
                     {0, "转", "转帐凭证", 3, "1001", "1002"}}));
}

TEST(PresetTable, PartsFiveKinds) {
    EXPECT_EQ(presetTypes(PresetSet::fiveKinds, bothAccounts),
              (Types{{0, "01", "现金收款凭证", 1, "1001", ""},
                     {0, "02", "现金付款凭证", 2, "1001", ""},
                     {0, "03", "银行收款凭证", 1, "1002", ""},
                     {0, "04", "银行付款凭证", 2, "1002", ""},
                     {0, "05", "转帐凭证", 3, "1001", "1002"}}));
}

TEST(PresetTable, LeavesTypesOfTheOperatorsOwnToTheOperator) {
    EXPECT_EQ(presetTypes(PresetSet::custom, bothAccounts), Types{});
}

TEST(PresetTable, RestrictsNothingWithoutAccounts) {
    for (const PresetSet set : {PresetSet::unclassified, PresetSet::receiptsAndPayments,
                                PresetSet::cashAndBank, PresetSet::fiveKinds})
        expectUnrestricted(set, {});
}

TEST(PresetTable, RestrictsNoTypeThatNamesTwoAccountsOfWhichOneIsMissing) {
    for (const PresetAccounts& accounts :
         {PresetAccounts{"1001", ""}, PresetAccounts{"", "1002"}}) {
        expectUnrestricted(PresetSet::receiptsAndPayments, accounts);
        expectUnrestricted(PresetSet::cashAndBank, accounts);
    }
    EXPECT_EQ(presetTypes(PresetSet::fiveKinds, {"1001", ""}),
              (Types{{0, "01", "现金收款凭证", 1, "1001", ""},
                     {0, "02", "现金付款凭证", 2, "1001", ""},
                     {0, "03", "银行收款凭证", 0, "", ""},
                     {0, "04", "银行付款凭证", 0, "", ""},
                     {0, "05", "转帐凭证", 0, "", ""}}));
}

TEST(PresetTable, RestrictsNoTypeThatWouldNameOneAccountTwice) {
    const PresetAccounts same{"1001", "1001"};
    expectUnrestricted(PresetSet::receiptsAndPayments, same);
    EXPECT_EQ(presetTypes(PresetSet::fiveKinds, same)[2],
              (_SignInfo{0, "03", "银行收款凭证", 1, "1001", ""}));
    EXPECT_EQ(presetTypes(PresetSet::fiveKinds, same)[4].byLimit, 0);
}

TEST(PresetTable, ShowsWhatItWillMake) {
    EXPECT_EQ(presetPreview(PresetSet::receiptsAndPayments, bothAccounts),
              (Texts{"收 收款凭证  借方必有 1001 或 1002", "付 付款凭证  贷方必有 1001 或 1002",
                     "转 转帐凭证  借贷必无 1001 或 1002"}));
    EXPECT_EQ(presetPreview(PresetSet::custom, bothAccounts),
              Texts{"不建立凭证类别,请在“凭证类别”窗口中自行增加。"});
}

TEST(PresetTable, ShowsWhichAccountsAreMissing) {
    const auto lastLine = [](PresetSet set, const PresetAccounts& accounts) {
        return presetPreview(set, accounts).back();
    };
    EXPECT_EQ(lastLine(PresetSet::receiptsAndPayments, {}),
              "没有指定现金科目和银行科目,涉及的类别不加限制。可以先在“会计科目”中指定科目。");
    EXPECT_EQ(lastLine(PresetSet::fiveKinds, {"", "1002"}),
              "没有指定现金科目,涉及的类别不加限制。可以先在“会计科目”中指定科目。");
    EXPECT_EQ(lastLine(PresetSet::cashAndBank, {"1001", ""}),
              "没有指定银行科目,涉及的类别不加限制。可以先在“会计科目”中指定科目。");
    EXPECT_EQ(lastLine(PresetSet::unclassified, {}), "记 记帐凭证  不限制");
}

TEST(PresetPages, GoFromTheFirstToTheSecondOnlyWithClassification) {
    PresetPages pages;
    EXPECT_EQ(pages.page(), 1);
    EXPECT_TRUE(pages.canGoOn());
    EXPECT_FALSE(pages.canFinish());
    EXPECT_FALSE(pages.canGoBack());
    pages.isClassified = false;
    EXPECT_FALSE(pages.canGoOn());
    EXPECT_TRUE(pages.canFinish());
    pages.goOn();
    EXPECT_EQ(pages.page(), 1);
    EXPECT_EQ(pages.chosen(), PresetSet::unclassified);
}

TEST(PresetPages, FinishOnTheSecondWithWhatIsChosenThere) {
    PresetPages pages;
    pages.goOn();
    EXPECT_EQ(pages.page(), 2);
    EXPECT_FALSE(pages.canGoOn());
    EXPECT_TRUE(pages.canFinish());
    EXPECT_TRUE(pages.canGoBack());
    EXPECT_EQ(pages.chosen(), PresetSet::receiptsAndPayments);
    pages.way = PresetSet::custom;
    EXPECT_EQ(pages.chosen(), PresetSet::custom);
    pages.goBack();
    EXPECT_EQ(pages.page(), 1);
    EXPECT_TRUE(pages.canGoOn());
}
