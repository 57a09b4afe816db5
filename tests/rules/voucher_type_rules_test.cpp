#include "vouchertype/voucher_type_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace chengheng;

namespace {

/// What is asked of the books while a type is checked.
struct Books {
    bool isUsed = false;
    bool isTaken = false;
    std::vector<std::string> accounts = {"1001", "1002"};
};

const _SignInfo added{0, "收", "收款凭证", stored(RestrictionKind::debitRequired), "1001", "1002"};
const _SignInfo kept{7, "收", "收款凭证", stored(RestrictionKind::debitRequired), "1001", "1002"};

std::optional<Refusal> refusalOf(const _SignInfo& wanted, const _SignInfo& loaded = {},
                                 const Books& books = {}) {
    return firstRefusal(voucherTypeChecks(), {.wanted = wanted,
                                              .loaded = loaded,
                                              .isLoadedUsed = [&] { return books.isUsed; },
                                              .isNumberTaken = [&] { return books.isTaken; },
                                              .isFirstLevelAccount =
                                                  [&](std::string_view code) {
                                                      return std::ranges::find(books.accounts,
                                                                               code) !=
                                                             books.accounts.end();
                                                  }});
}

void expectRefused(const std::optional<Refusal>& refusal, const char* text, const char* field) {
    ASSERT_TRUE(refusal.has_value()) << text;
    EXPECT_EQ(refusal->notice.text, text);
    EXPECT_EQ(refusal->notice.focusField, field) << text;
    EXPECT_EQ(refusal->notice.icon, MessageIcon::information);
    EXPECT_FALSE(refusal->notice.beep);
}

_SignInfo withAccounts(const char* one, const char* two) {
    _SignInfo type = added;
    type.sCode1 = one;
    type.sCode2 = two;
    return type;
}

}  // namespace

TEST(VoucherTypeRules, AreCheckedInTheirOrder) {
    std::vector<std::string> names;
    for (const auto& check : voucherTypeChecks()) names.emplace_back(check.name);
    EXPECT_EQ(names, (std::vector<std::string>{
                         "one in use keeps its number", "no other type has its number",
                         "a restriction names an account", "account one is a first-level account",
                         "account two is a first-level account", "the accounts differ",
                         "the kind of restriction is chosen"}));
}

TEST(VoucherTypeRules, LetAWholeTypePass) {
    EXPECT_EQ(refusalOf(added), std::nullopt);
    EXPECT_EQ(refusalOf(kept, kept), std::nullopt);
    for (const auto kind : {RestrictionKind::creditRequired, RestrictionKind::bothForbidden}) {
        _SignInfo other = added;
        other.byLimit = stored(kind);
        EXPECT_EQ(refusalOf(other), std::nullopt);
    }
}

TEST(VoucherTypeRules, LetAUsedTypeBeRenamedButNotRenumbered) {
    const Books used{.isUsed = true};
    _SignInfo wanted = kept;
    wanted.sSignName = "收入凭证";
    wanted.byLimit = stored(RestrictionKind::creditRequired);
    EXPECT_EQ(refusalOf(wanted, kept, used), std::nullopt);
    wanted.sSign = "入";
    expectRefused(refusalOf(wanted, kept, used), "凭证类别已使用,不能再修改!", "sSign");
    EXPECT_EQ(refusalOf(wanted, kept), std::nullopt);
}

TEST(VoucherTypeRules, AskForUseOfAModifiedTypeAlone) {
    EXPECT_EQ(refusalOf(added, {}, {.isUsed = true}), std::nullopt);
}

TEST(VoucherTypeRules, RefuseANumberThatIsTakenAfterUse) {
    _SignInfo wanted = kept;
    wanted.sSign = "付";
    expectRefused(refusalOf(wanted, kept, {.isUsed = true, .isTaken = true}),
                  "凭证类别已使用,不能再修改!", "sSign");
    expectRefused(refusalOf(wanted, kept, {.isTaken = true}), "类别号重复，\n\n请重新输入。",
                  "sSign");
    expectRefused(refusalOf(withAccounts("", ""), {}, {.isTaken = true}),
                  "类别号重复，\n\n请重新输入。", "sSign");
}

TEST(VoucherTypeRules, WantAnAccountOfARestriction) {
    expectRefused(refusalOf(withAccounts("", "")), "请输入限制科目", "sCode1");
}

TEST(VoucherTypeRules, LookUpEitherAccountEvenWhenItIsEmpty) {
    expectRefused(refusalOf(withAccounts("1001", "")), "非法科目", "sCode2");
    expectRefused(refusalOf(withAccounts("", "1001")), "非法科目", "sCode1");
    expectRefused(refusalOf(withAccounts("9", "8")), "非法科目", "sCode1");
    expectRefused(refusalOf(withAccounts("1001", "8")), "非法科目", "sCode2");
    expectRefused(refusalOf(withAccounts("9", "9")), "非法科目", "sCode1");
}

TEST(VoucherTypeRules, RefuseEqualAccountsOnceBothAreFound) {
    expectRefused(refusalOf(withAccounts("1001", "1001")), "科目不能重复", "sCode2");
}

TEST(VoucherTypeRules, WantAKnownKindLastOfAll) {
    _SignInfo strange = added;
    strange.byLimit = 4;
    expectRefused(refusalOf(strange), "请选择限制方式", "debitRequired");
    strange.sCode2 = strange.sCode1;
    expectRefused(refusalOf(strange), "科目不能重复", "sCode2");
    strange.byLimit = 255;
    strange.sCode2 = "1002";
    expectRefused(refusalOf(strange), "请选择限制方式", "debitRequired");
}

TEST(VoucherTypeRules, LookAtNoAccountOfATypeWithoutRestriction) {
    _SignInfo free = withAccounts("9", "9");
    free.byLimit = stored(RestrictionKind::none);
    EXPECT_EQ(refusalOf(free), std::nullopt);
}

TEST(VoucherTypeRules, TakeTheFirstKindWhenARestrictionBeginsAndDropTheAccountsWhenItEnds) {
    _SignInfo type = kept;
    type.byLimit = stored(RestrictionKind::bothForbidden);
    setRestricted(type, false);
    EXPECT_EQ(type, (_SignInfo{7, "收", "收款凭证", stored(RestrictionKind::none), "", ""}));
    setRestricted(type, true);
    EXPECT_EQ(type,
              (_SignInfo{7, "收", "收款凭证", stored(RestrictionKind::debitRequired), "", ""}));
}

TEST(VoucherTypeRules, TellTheKindsByTheirNames) {
    EXPECT_STREQ(restrictionKindText(1), "借方必有");
    EXPECT_STREQ(restrictionKindText(2), "贷方必有");
    EXPECT_STREQ(restrictionKindText(3), "借贷必无");
    EXPECT_EQ(restrictionKindText(0), nullptr);
    EXPECT_EQ(restrictionKindText(4), nullptr);
    EXPECT_EQ(restrictionKindText(255), nullptr);
}

TEST(VoucherTypeRules, DropBlanksAroundTexts) {
    EXPECT_EQ(tidied({3, " 1", "收 款　 ", 1, "\t1001 ", "　1002"}),
              (_SignInfo{3, "1", "收 款", 1, "1001", "1002"}));
    EXPECT_EQ(tidied({0, " ", "　", 0}), (_SignInfo{0, "", "", 0}));
}

TEST(VoucherTypeRules, ShowATypeByNumberAndName) {
    EXPECT_EQ(voucherTypeLeafText({1, "01", "现金 收款", 0}), "01 现金 收款");
    EXPECT_EQ(voucherTypeInWords({1, "记", "记帐凭证", 0}), "记 记帐凭证");
    EXPECT_EQ(voucherTypeInWords(added), "收 收款凭证(借方必有 1001、1002)");
    EXPECT_EQ(voucherTypeInWords(withAccounts("1001", "")), "收 收款凭证(借方必有 1001)");
    EXPECT_EQ(voucherTypeInWords({1, "转", "转帐", 9, "", "1002"}), "转 转帐(限制方式不明 1002)");
}
