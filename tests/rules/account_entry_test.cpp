#include "accounts/chart/account_entry.h"
#include "data/tables/accounts.h"

#include <gtest/gtest.h>

#include <utility>

using namespace chengheng;

TEST(AuxiliaryLetters, NameTheAccountingByTheirBeginning) {
    const std::pair<const char*, const char*> cases[] = {{"A", "个人往来"},
                                                         {"AR", "个人往来"},
                                                         {"BC", "部门往来"},
                                                         {"BD", "项目往来"},
                                                         {"CD", "部门项目"},
                                                         {"B", "单位往来"},
                                                         {"C", "部门核算"},
                                                         {"D", "项目核算"},
                                                         {"BCD", "部门往来"},
                                                         {"BRE", "单位往来"},
                                                         {"R", ""},
                                                         {"RE", ""},
                                                         {"", ""}};
    for (const auto& [letters, name] : cases) EXPECT_EQ(auxiliaryName(letters), name) << letters;
}

TEST(AuxiliaryLetters, AreWrittenInOneOrderAndReadInAny) {
    const AuxiliaryBooks all{true, true, true, true, true, true};
    EXPECT_EQ(lettersOf(all), "ABCDRE");
    EXPECT_EQ(booksOfLetters("ERDCBA"), all);
    EXPECT_EQ(lettersOf(booksOfLetters("RE")), "RE");
    EXPECT_EQ(lettersOf({}), "");
}

TEST(AuxiliaryLetters, ComeBackFromEveryCombination) {
    for (int bits = 0; bits < 64; ++bits) {
        const AuxiliaryBooks books{(bits & 1) != 0, (bits & 2) != 0,  (bits & 4) != 0,
                                   (bits & 8) != 0, (bits & 16) != 0, (bits & 32) != 0};
        EXPECT_EQ(booksOfLetters(lettersOf(books)), books) << bits;
    }
}

TEST(Entries, ComeBackFromTheRecordTheyFill) {
    const AccountEntry entry{.code = "1002",
                             .name = "银行存款",
                             .className = "资产",
                             .page = "金额式",
                             .mnemonic = "YHCK",
                             .keepsForeign = true,
                             .currencyId = 3,
                             .keepsQuantity = true,
                             .unit = "张",
                             .books = {.byUnit = true, .isBank = true},
                             .direction = std::int16_t{0}};
    _CodeInfo account;
    fillRecord(entry, account);
    EXPECT_EQ(entryOf(account), entry);
}

TEST(Entries, LeaveLettersAsTheyStandWhenTheyMeanTheSame) {
    _CodeInfo account;
    account.sAssBook = "ER";
    AccountEntry entry = entryOf(account);
    fillRecord(entry, account);
    EXPECT_EQ(account.sAssBook, "ER");
    entry.books.byUnit = true;
    fillRecord(entry, account);
    EXPECT_EQ(account.sAssBook, "BRE");
}

TEST(Entries, KeepNoCurrencyAndNoUnitWithoutTheirCheckBox) {
    AccountEntry entry{.code = "1001", .currencyId = 2, .unit = "吨"};
    _CodeInfo account;
    fillRecord(entry, account);
    EXPECT_EQ(account.byExchId, 0);
    EXPECT_EQ(account.sUnit, "");
}

TEST(Entries, CopiedFromAnAccountLeaveItItsCodeAndMnemonic) {
    _CodeInfo account;
    account.sCode = "1002";
    account.sName = "银行存款";
    account.sHelp = "YHCK";
    account.sAssBook = "RE";
    const AccountEntry copy = copyOf(account);
    EXPECT_EQ(copy.code, "");
    EXPECT_EQ(copy.mnemonic, "");
    EXPECT_EQ(copy.name, "银行存款");
    EXPECT_TRUE(copy.books.isBank);
}

TEST(TypedEntries, KeepWhatWasTypedAndFollowWhatIsStoredElsewhere) {
    const AccountEntry shown{.code = "1002", .name = "银行", .mnemonic = "YH", .unit = "吨"};
    AccountEntry typed = shown;
    typed.name = "银行存款";
    typed.books.isBank = true;
    AccountEntry stored = shown;
    stored.code = "1009";
    stored.name = "银行户";
    stored.keepsForeign = true;
    stored.currencyId = 3;
    const AccountEntry kept = typedOver(shown, typed, stored);
    EXPECT_EQ(kept.code, "1009");
    EXPECT_EQ(kept.name, "银行存款");
    EXPECT_EQ(kept.mnemonic, "YH");
    EXPECT_TRUE(kept.keepsForeign);
    EXPECT_EQ(kept.currencyId, 3);
    EXPECT_TRUE(kept.books.isBank);
    EXPECT_EQ(
        foreignChanges(shown, typed, stored),
        "\n科目编码:现在是“1009”\n科目名称:现在是“银行户”,您输入的是“银行存款”\n外币核算:已改变");
    EXPECT_EQ(typedOver(shown, shown, stored), stored);
    EXPECT_EQ(foreignChanges(shown, typed, shown), "");
    stored.name = typed.name;
    EXPECT_EQ(foreignChanges(shown, typed, stored),
              "\n科目编码:现在是“1009”\n科目名称:现在是“银行存款”\n外币核算:已改变");
}

TEST(TypedEntries, KeepEveryKindOfField) {
    const AccountEntry shown{};
    const AccountEntry other{.code = "1",
                             .name = "2",
                             .className = "3",
                             .page = "4",
                             .mnemonic = "5",
                             .keepsForeign = true,
                             .currencyId = 6,
                             .keepsQuantity = true,
                             .unit = "7",
                             .books = {.byUnit = true},
                             .direction = std::int16_t{1}};
    EXPECT_EQ(typedOver(shown, other, shown), other);
    EXPECT_EQ(typedOver(shown, shown, other), other);
    EXPECT_EQ(foreignChanges(shown, shown, other),
              "\n科目编码:现在是“1”\n科目名称:现在是“2”\n科目类别:现在是“3”\n帐页格式:现在是“4”"
              "\n助记码:现在是“5”\n计量单位:现在是“7”\n外币核算:已改变\n数量核算:已改变"
              "\n辅助核算:已改变\n余额方向:已改变");
}
