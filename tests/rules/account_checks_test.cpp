#include "accounts/rules/account_checks.h"

#include <gtest/gtest.h>

#include <functional>

#include "accounts/rules/account_record.h"
#include "data/tables/accounts.h"
#include "tests/support/fake_chart.h"

using namespace chengheng;

namespace {

const std::vector<_zCodeClassInfo> classes{{1, 1, "资产", 1}, {2, 2, "负债", 0}};
const CodeLevels levels("4222");

/// A chart of 1001 with 100101 below it, 1002 and 2202; one currency, number 1.
class Entries : public testing::Test {
  protected:
    Entries() {
        m_chart.add("1001");
        m_chart.add("100101", "XJ");
        m_chart.add("1002", "YHCK");
        m_chart.add("2202");
        m_chart.account("1001").bEnd = 0;
        m_chart.addCurrency(1);
    }

    static AccountEntry entry(const std::string& code, const std::string& name = "新科目") {
        return {.code = code, .name = name, .className = "资产"};
    }
    AccountFacts newFacts(AccountEntry given) {
        return {tidied(std::move(given)), nullptr, levels, classes, m_chart};
    }
    /// The account of that code with what `change` makes of its entry.
    AccountFacts changedFacts(const std::string& code,
                              const std::function<void(AccountEntry&)>& change) {
        m_before = m_chart.account(code);
        AccountEntry given = entryOf(m_before);
        change(given);
        return {tidied(std::move(given)), &m_before, levels, classes, m_chart};
    }
    Refusal additionRefusal(AccountEntry given) {
        return firstRefusal(additionChecks(), newFacts(std::move(given))).value_or(Refusal{});
    }
    Refusal modificationRefusal(const std::string& code,
                                const std::function<void(AccountEntry&)>& change) {
        return firstRefusal(modificationChecks(), changedFacts(code, change)).value_or(Refusal{});
    }

    FakeChart m_chart;
    _CodeInfo m_before;
};

using Additions = Entries;
using Modifications = Entries;

template <class Check>
std::vector<std::string> namesOf(std::span<const Check> checks) {
    std::vector<std::string> names;
    for (const Check& check : checks) names.emplace_back(check.name);
    return names;
}

/// What each place is called in the messages.
const std::vector<std::pair<UsePlace, std::string>> titles{
    {UsePlace::unposted, "未记帐凭证"}, {UsePlace::posted, "已记帐凭证"},
    {UsePlace::sums, "总帐"},           {UsePlace::frequentVouchers, "常用凭证"},
    {UsePlace::digests, "常用摘要"},    {UsePlace::transfers, "转帐定义"},
    {UsePlace::projects, "项目档案"}};

}  // namespace

TEST_F(Additions, AreCheckedInTheirOrder) {
    EXPECT_EQ(namesOf(additionChecks()),
              (std::vector<std::string>{"code", "name", "mnemonic", "currency is chosen",
                                        "currency is there", "unit", "parent is not used"}));
}

TEST_F(Additions, TellTheFirstOfManyFaultsAndThenTheNext) {
    m_chart.use(UsePlace::posted, "1002");
    AccountEntry given{.code = " ", .mnemonic = "XJ", .keepsForeign = true, .keepsQuantity = true};
    const auto expectRefusal = [&](const std::string& text, const char* field) {
        const Refusal refusal = additionRefusal(given);
        EXPECT_EQ(refusal.notice.text, text);
        EXPECT_EQ(refusal.notice.focusField, field) << text;
        EXPECT_EQ(refusal.notice.icon, MessageIcon::information) << text;
        EXPECT_TRUE(refusal.notice.beep) << text;
    };
    expectRefusal("必须输入科目编码", "sCode");
    given.code = "1 02";
    expectRefusal("科目编码不能包含空格!", "sCode");
    given.code = "1002";
    expectRefusal("科目编码不唯一", "sCode");
    given.code = "10020";
    expectRefusal("不符合科目编码规则", "sCode");
    given.code = "100301";
    expectRefusal("必须先定义上级科目编码", "sCode");
    given.code = "100201 ";
    expectRefusal("必须输入科目名称", "sName");
    given.name = "工行";
    expectRefusal("助记码必须唯一", "sHelp");
    given.mnemonic = "GH";
    expectRefusal("请选择币种.", "byExchId");
    given.currencyId = 2;
    expectRefusal("该货币类型已经被修改或删除!", "byExchId");
    given.currencyId = 1;
    expectRefusal("请输入计量单位.", "sUnit");
    given.unit = "吨";
    expectRefusal("科目 1002 在[已记帐凭证]中已使用,不能增加下级科目!", "sCode");
    given.code = "1003";
    EXPECT_EQ(firstRefusal(additionChecks(), newFacts(given)), std::nullopt);
}

TEST_F(Additions, RefuseAParentThatIsUsedInOneOfSixPlaces) {
    for (const auto& [place, title] : titles) {
        FakeChart chart;
        chart.add("1002");
        chart.use(place, "1002");
        const AccountFacts facts{entry("100201"), nullptr, levels, classes, chart};
        const auto refusal = firstRefusal(additionChecks(), facts);
        if (place == UsePlace::projects) {
            EXPECT_EQ(refusal, std::nullopt);
            continue;
        }
        ASSERT_TRUE(refusal) << title;
        EXPECT_EQ(refusal->notice.text, "科目 1002 在[" + title + "]中已使用,不能增加下级科目!");
        EXPECT_EQ(refusal->obstacle, "1002");
    }
}

TEST_F(Additions, NameTheFirstPlaceThatUsesTheParent) {
    m_chart.use(UsePlace::transfers, "1002");
    m_chart.use(UsePlace::sums, "1002");
    EXPECT_EQ(additionRefusal(entry("100201")).notice.text,
              "科目 1002 在[总帐]中已使用,不能增加下级科目!");
    EXPECT_EQ(m_chart.askedPlaces(),
              (std::vector{UsePlace::unposted, UsePlace::posted, UsePlace::sums}));
}

TEST_F(Additions, AcceptAChildOfAnAccountWhoseSumsHaveNoOpeningBalance) {
    m_chart.addEmptySums("1002");
    EXPECT_EQ(additionRefusal(entry("100201")).notice.text, "");
}

TEST_F(Additions, PassBelowMereTotalsWhenTheOperatorInsistsAndNothingElseIsInTheWay) {
    const auto isRefused = [this](ParentSums parentSums) {
        AccountFacts facts = newFacts(entry("100102"));
        facts.parentSums = parentSums;
        return firstRefusal(additionChecks(), facts).has_value();
    };
    m_chart.addTotals("1001");
    EXPECT_TRUE(isRefused(ParentSums::keepOut));
    EXPECT_FALSE(isRefused(ParentSums::mayBeTotals));
    EXPECT_TRUE(passesWithTotals(newFacts(entry("100102"))));
    EXPECT_FALSE(passesWithTotals(newFacts(entry("100102", ""))));
    m_chart.use(UsePlace::transfers, "1001");
    EXPECT_TRUE(isRefused(ParentSums::mayBeTotals));
    EXPECT_FALSE(passesWithTotals(newFacts(entry("100102"))));
    m_chart.use(UsePlace::sums, "1002");
    EXPECT_FALSE(passesWithTotals(newFacts(entry("100201")))) << "a balance of its own";
}

TEST_F(Additions, AskNothingAboutUseAtTheTop) {
    EXPECT_EQ(additionRefusal(entry("1003")).notice.text, "");
    EXPECT_TRUE(m_chart.askedPlaces().empty());
}

TEST_F(Additions, ReadTheirOwnCodeAndTheirParentOnce) {
    const AccountFacts facts = newFacts(entry("100201"));
    EXPECT_EQ(firstRefusal(additionChecks(), facts), std::nullopt);
    EXPECT_TRUE(additionQuestions(facts).empty());
    EXPECT_EQ(newAccount(facts).bDirect, 1);
    EXPECT_EQ(m_chart.askedCodes(), (std::vector<std::string>{"1002", "100201"}));
}

TEST_F(Additions, ReadNoParentAtTheTop) {
    EXPECT_EQ(firstRefusal(additionChecks(), newFacts(entry("1003"))), std::nullopt);
    EXPECT_EQ(m_chart.askedCodes(), std::vector<std::string>{"1003"});
}

TEST_F(Additions, AreMarkedAsTheAccountAboveIs) {
    m_chart.account("1001").bCash = 1;
    m_chart.account("1002").bBank = 1;
    const auto marks = [this](const char* code) {
        const _CodeInfo account = newAccount(newFacts(entry(code)));
        return std::pair{account.bCash, account.bBank};
    };
    EXPECT_EQ(marks("100102"), std::pair(std::int16_t{1}, std::int16_t{0}));
    EXPECT_EQ(marks("100201"), std::pair(std::int16_t{0}, std::int16_t{1}));
    EXPECT_EQ(marks("220201"), std::pair(std::int16_t{0}, std::int16_t{0}));
    EXPECT_EQ(marks("1003"), std::pair(std::int16_t{0}, std::int16_t{0}));
}

TEST_F(Additions, RefuseTheMnemonicOfTheFirstAccountToo) {
    m_chart.account("1001").sHelp = "KCXJ";
    AccountEntry given = entry("1003");
    given.mnemonic = "KCXJ";
    EXPECT_EQ(additionRefusal(given).notice.text, "助记码必须唯一");
}

TEST_F(Additions, AtTheTopTakeTheDirectionOfTheirClassAndWithoutOneDebit) {
    const std::vector<_zCodeClassInfo> creditFirst{{1, 1, "负债", 0}, {2, 2, "资产", 1}};
    const auto directionIn = [&](const char* className) {
        AccountEntry given = entry("3001");
        given.className = className;
        return newAccount({given, nullptr, levels, creditFirst, m_chart}).bDirect;
    };
    EXPECT_EQ(directionIn("负债"), 0);
    EXPECT_EQ(directionIn("资产"), 1);
    EXPECT_EQ(directionIn("没有"), 1);
}

TEST_F(Additions, LetTwoEmptyMnemonicsStandSideBySide) {
    AccountEntry given = entry("1003");
    given.mnemonic = "  ";
    EXPECT_EQ(additionRefusal(given).notice.text, "");
}

TEST_F(Additions, TakeTrailingBlanksOffCodeNameMnemonicAndUnit) {
    AccountEntry given = entry("1003  ", "现金　");
    given.mnemonic = "XJ2 ";
    given.unit = "吨 ";
    const AccountEntry tidy = tidied(given);
    EXPECT_EQ(tidy.code, "1003");
    EXPECT_EQ(tidy.name, "现金");
    EXPECT_EQ(tidy.mnemonic, "XJ2");
    EXPECT_EQ(tidy.unit, "吨");
}

TEST_F(Additions, AskAboutATopLevelCodeThatDepartsFromItsCategory) {
    const auto questions = additionQuestions(newFacts(entry("2001")));
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_EQ(questions[0].question.text, "科目编码首位和分类编号不符,接受此编码吗?");
    EXPECT_EQ(questions[0].question.buttons, AnswerButtons::okCancel);
    EXPECT_EQ(questions[0].question.preset, Answer::ok);
    EXPECT_STREQ(questions[0].focusField, "sCode");
}

TEST_F(Additions, AskNothingWhenTheFirstDigitIsTheCategoryOrTheCodeIsLower) {
    EXPECT_TRUE(additionQuestions(newFacts(entry("1009"))).empty());
    EXPECT_TRUE(additionQuestions(newFacts(entry("220201"))).empty());
    AccountEntry liability = entry("2001");
    liability.className = "负债";
    EXPECT_TRUE(additionQuestions(newFacts(liability)).empty());
}

TEST_F(Modifications, AreCheckedInTheirOrder) {
    EXPECT_EQ(
        namesOf(modificationChecks()),
        (std::vector<std::string>{"code is there, without a blank", "code is unique",
                                  "changed code has no children", "changed code is not used",
                                  "code has its place", "name", "mnemonic", "currency is there",
                                  "currency is chosen", "unit", "new parent is not used"}));
}

TEST_F(Modifications, TellTheFirstOfManyFaultsAndThenTheNext) {
    m_chart.account("1001").bEnd = 0;
    m_chart.use(UsePlace::posted, "1001");
    m_chart.use(UsePlace::projects, "1002");
    AccountEntry given{
        .code = "", .mnemonic = "XJ", .keepsForeign = true, .currencyId = 9, .keepsQuantity = true};
    const auto textOf = [&] {
        return modificationRefusal("1001", [&](AccountEntry& entry) { entry = given; }).notice.text;
    };
    EXPECT_EQ(textOf(), "必须输入科目编码");
    given.code = "1 2";
    EXPECT_EQ(textOf(), "科目编码不能包含空格!");
    given.code = "1002";
    EXPECT_EQ(textOf(), "科目编码不唯一");
    given.code = "10";
    EXPECT_EQ(textOf(), "科目 1001 有下级科目,不能修改科目编码!");
    m_chart.account("1001").bEnd = 1;
    EXPECT_EQ(textOf(), "科目 1001 在[已记帐凭证]中已使用!");
    given.code = "1001";
    EXPECT_EQ(textOf(), "必须输入科目名称") << "a code that stays is no matter of use";
    given.name = "现金";
    EXPECT_EQ(textOf(), "助记码必须唯一");
    given.mnemonic = "";
    EXPECT_EQ(textOf(), "该货币类型已经被修改或删除!");
    given.currencyId = 0;
    EXPECT_EQ(textOf(), "请选择币种.");
    given.currencyId = 1;
    EXPECT_EQ(textOf(), "请输入计量单位.");
    given.unit = "吨";
    EXPECT_EQ(textOf(), "");
}

TEST_F(Modifications, RefuseANewCodeThatHasNoPlace) {
    const auto textOf = [&](const char* code) {
        return modificationRefusal("2202", [&](AccountEntry& entry) { entry.code = code; })
            .notice.text;
    };
    EXPECT_EQ(textOf("22020"), "不符合科目编码规则");
    EXPECT_EQ(textOf("100301"), "必须先定义上级科目编码");
    EXPECT_EQ(textOf("220201"), "必须先定义上级科目编码") << "an account is not its own parent";
}

TEST_F(Modifications, RefuseANewCodeOfAnAccountUsedInOneOfSevenPlaces) {
    for (const auto& [place, title] : titles) {
        FakeChart chart;
        chart.add("2202");
        chart.use(place, "2202");
        const _CodeInfo before = chart.account("2202");
        AccountEntry given = entryOf(before);
        given.code = "2203";
        const AccountFacts facts{given, &before, levels, classes, chart};
        const auto refusal = firstRefusal(modificationChecks(), facts);
        ASSERT_TRUE(refusal) << title;
        EXPECT_EQ(refusal->notice.text, "科目 2202 在[" + title + "]中已使用!");
        EXPECT_EQ(refusal->notice.focusField, "sCode");
        EXPECT_EQ(refusal->obstacle, "2202");
    }
}

TEST_F(Modifications, CountEverySumsRowAsUseOfTheAccountItself) {
    m_chart.addEmptySums("2202");
    const auto change = [](AccountEntry& entry) { entry.code = "2203"; };
    EXPECT_EQ(modificationRefusal("2202", change).notice.text, "科目 2202 在[总帐]中已使用!");
}

TEST_F(Modifications, RefuseANewParentUsedInOneOfSevenPlaces) {
    for (const auto& [place, title] : titles) {
        FakeChart chart;
        chart.add("1002");
        chart.add("2202");
        chart.use(place, "1002");
        const _CodeInfo before = chart.account("2202");
        AccountEntry given = entryOf(before);
        given.code = "100201";
        const AccountFacts facts{given, &before, levels, classes, chart};
        const auto refusal = firstRefusal(modificationChecks(), facts);
        ASSERT_TRUE(refusal) << title;
        EXPECT_EQ(refusal->notice.text, "科目 1002 在[" + title + "]中已使用,不能增加下级科目!");
        EXPECT_EQ(refusal->obstacle, "1002");
    }
}

TEST_F(Modifications, LeaveTheParentOfAnUnchangedCodeAlone) {
    m_chart.use(UsePlace::posted, "1001");
    const auto rename = [](AccountEntry& entry) { entry.name = "人民币"; };
    EXPECT_EQ(modificationRefusal("100101", rename).notice.text, "");
}

TEST_F(Modifications, GiveAnAccountTheMarksOfItsNewPlace) {
    m_chart.account("1001").bCash = m_chart.account("100101").bCash = 1;
    m_chart.account("1002").bBank = 1;
    const auto marks = [this](const char* code, const char* newCode) {
        const auto move = [newCode](AccountEntry& entry) { entry.code = newCode; };
        const _CodeInfo account = modifiedAccount(changedFacts(code, move));
        return std::string(account.bCash != 0 ? "cash" : "") + (account.bBank != 0 ? "bank" : "");
    };
    EXPECT_EQ(marks("100101", "100102"), "cash");
    EXPECT_EQ(marks("100101", "100201"), "bank");
    EXPECT_EQ(marks("100101", "220201"), "");
    EXPECT_EQ(marks("100101", "1003"), "") << "only the designation marks an account at the top";
    EXPECT_EQ(marks("2202", "100201"), "bank");
    EXPECT_EQ(marks("1001", "1003"), "cash") << "what was designated stays so under its new code";
    EXPECT_EQ(marks("100101", "100101"), "cash");
}

TEST_F(Modifications, LetAnAccountKeepItsOwnMnemonic) {
    const auto rename = [](AccountEntry& entry) { entry.name = "存款"; };
    EXPECT_EQ(modificationRefusal("1002", rename).notice.text, "");
}

TEST_F(Modifications, AskAboutEachPlaceAndWithinItAboutEachKindThatChanged) {
    const std::vector<std::string> kinds{"外币核算", "辅助核算", "数量核算"};
    std::vector<std::string> expected;
    for (const auto& [place, title] : titles) {
        m_chart.use(place, "2202");
        for (const std::string& kind : kinds)
            expected.push_back("科目 2202 在[" + title + "]中已使用,修改" + kind +
                               "可能导致数据错误,是否继续?");
    }
    std::vector<std::string> asked;
    for (const AccountQuestion& question :
         modificationQuestions(changedFacts("2202", [](AccountEntry& entry) {
             entry.keepsForeign = true;
             entry.currencyId = 1;
             entry.books.byUnit = true;
             entry.keepsQuantity = true;
             entry.unit = "吨";
         }))) {
        asked.push_back(question.question.text);
        EXPECT_EQ(question.question.icon, MessageIcon::stop);
        EXPECT_EQ(question.question.buttons, AnswerButtons::okCancel);
        EXPECT_EQ(question.question.preset, std::nullopt) << "Enter alone changes nothing";
    }
    EXPECT_EQ(asked.size(), 21u);
    EXPECT_EQ(asked, expected);
}

TEST_F(Modifications, AskOnlyAboutTheKindThatChanged) {
    m_chart.use(UsePlace::posted, "2202");
    const std::vector<std::pair<std::string, std::function<void(AccountEntry&)>>> changes{
        {"外币核算", [](AccountEntry& entry) { entry.keepsForeign = true, entry.currencyId = 1; }},
        {"辅助核算", [](AccountEntry& entry) { entry.books.byPerson = true; }},
        {"数量核算", [](AccountEntry& entry) { entry.keepsQuantity = true, entry.unit = "吨"; }}};
    for (const auto& [kind, change] : changes) {
        const auto questions = modificationQuestions(changedFacts("2202", change));
        ASSERT_EQ(questions.size(), 1u) << kind;
        EXPECT_EQ(questions[0].question.text,
                  "科目 2202 在[已记帐凭证]中已使用,修改" + kind + "可能导致数据错误,是否继续?");
    }
}

TEST_F(Modifications, LeadToTheFieldOfTheKindThatWasNotToChangeAfterAll) {
    m_chart.use(UsePlace::posted, "2202");
    std::vector<std::string> fields;
    for (const AccountQuestion& question :
         modificationQuestions(changedFacts("2202", [](AccountEntry& entry) {
             entry.keepsForeign = entry.keepsQuantity = entry.books.byUnit = true;
             entry.currencyId = 1;
         }))) {
        ASSERT_NE(question.focusField, nullptr) << question.question.text;
        fields.emplace_back(question.focusField);
    }
    EXPECT_EQ(fields, (std::vector<std::string>{"byExchId", "sAssBook", "bAmount"}));
}

TEST_F(Modifications, AskNothingWhenNoKindOfAccountingChanged) {
    m_chart.use(UsePlace::posted, "2202");
    const auto questions = modificationQuestions(changedFacts("2202", [](AccountEntry& entry) {
        entry.name = "应付款";
        entry.books.isJournal = true;
        entry.unit = "left over while no quantities are kept";
    }));
    EXPECT_TRUE(questions.empty());
    EXPECT_TRUE(m_chart.askedPlaces().empty());
}
