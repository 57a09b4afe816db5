#include "accounts/screen/account_form.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "data/tables/accounts.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"

using namespace chengheng;

namespace {

using Step = AccountForm::Step;

/// The dialog over a chart of 1001, 1002 with 100201 below it, and 2202 of the class 负债.
class AccountForms : public testing::TestWithParam<EngineCase> {
  protected:
    AccountForms() {
        for (const char* code : {"1001", "1002", "100201", "2202"}) m_books.add(code);
        _CodeInfo liability = m_books.account("2202");
        liability.sType = "负债";
        m_books.edit(liability);
        EXPECT_TRUE(m_screen.load("全部"));
    }
    /// Where the arrows lead: to the first, the previous, the next and the last account.
    std::vector<std::string> arrows() const {
        std::vector<std::string> codes;
        for (const Step step : {Step::first, Step::previous, Step::next, Step::last})
            codes.push_back(m_form.neighbour(step));
        return codes;
    }
    AccountEntry proposed(const std::string& code) const {
        AccountEntry entry{.name = "name", .className = "before", .page = "before"};
        EXPECT_TRUE(m_form.proposeFor(code, entry));
        EXPECT_EQ(entry.name, "name");
        return entry;
    }
    std::string proposedClass(const std::string& code) const { return proposed(code).className; }
    void change(const std::string& code, const std::function<void(_CodeInfo&)>& how) {
        _CodeInfo account = m_books.account(code);
        how(account);
        m_books.edit(account);
    }

    AccountBooks m_books{freshLocation(GetParam())};
    ChartScreen m_screen;
    AccountForm m_form{m_books.messages(), CodeLevels("4222"), m_screen};
};

using Codes = std::vector<std::string>;

}  // namespace

TEST_P(AccountForms, DoNotBeginWhateverReadingFails) {
    const std::pair<const char*, std::function<Status()>> beginnings[] = {
        {"below", [this] { return m_form.beginNew("1002", "全部"); }},
        {"beside", [this] { return m_form.beginNew("100201", "全部"); }},
        {"copy", [this] { return m_form.beginCopy("1002"); }},
        {"modification", [this] { return m_form.beginModification("1002"); }},
    };
    for (const auto& [name, begin] : beginnings) {
        ASSERT_TRUE(m_form.beginModification("2202"));
        int call = 1;
        for (;; ++call) {
            m_books.engine().failCall(call, Failure::refused);
            const Status status = begin();
            const bool hasFailed = m_books.engine().hasFailed();
            m_books.engine().failCall(0);
            EXPECT_NE(status.isDone(), hasFailed) << name << " call " << call;
            if (!hasFailed) break;
            EXPECT_EQ(m_form.entry().code, "2202") << name << " call " << call;
        }
        EXPECT_GT(call, 1) << name;
    }
}

TEST_P(AccountForms, BeginANewAccountBelowAnotherAndGoOnFromThere) {
    ASSERT_TRUE(m_form.beginNew("1002", "全部"));
    EXPECT_TRUE(m_form.isAdding());
    EXPECT_EQ(m_form.entry().code, "100202");
    EXPECT_EQ(m_form.entry().className, "资产");
    EXPECT_EQ(arrows(), (Codes{"1001", "1001", "100201", "2202"}));
    ASSERT_TRUE(m_form.beginNew("", "全部"));
    EXPECT_EQ(m_form.entry().code, "");
    EXPECT_EQ(m_form.entry().className, "资产") << "the first there is";
    EXPECT_EQ(arrows(), (Codes{"1001", "", "1001", "2202"}));
}

TEST_P(AccountForms, LeadToWhereTheirAccountWouldStandInAListWithoutIt) {
    ASSERT_TRUE(m_form.beginModification("1001"));
    ASSERT_TRUE(m_screen.load("负债"));
    EXPECT_EQ(arrows(), (Codes{"2202", "", "2202", "2202"}));
    ASSERT_TRUE(m_screen.load("没有"));
    EXPECT_EQ(arrows(), (Codes{"", "", "", ""}));
}

TEST_P(AccountForms, ProposeAClassUnlessTheTabIsOne) {
    ASSERT_TRUE(m_form.beginNew("", "全部"));
    EXPECT_EQ(proposedClass("1009"), "资产");
    EXPECT_EQ(proposedClass("2009"), "负债");
    EXPECT_EQ(proposedClass("220201"), "负债");
    ASSERT_TRUE(m_form.beginNew("", "负债"));
    EXPECT_EQ(m_form.entry().className, "负债");
    EXPECT_EQ(proposedClass("1009"), "before");
}

TEST_P(AccountForms, ProposeTheAccountingOfTheAccountAboveTheCode) {
    change("1002", [](_CodeInfo& bank) {
        bank.bBank = 1;
        bank.sAssBook = "RE";
    });
    change("2202", [](_CodeInfo& payable) {
        payable.sPage = "外币数量式";
        payable.byExchId = 1;
        payable.bAmount = 1;
        payable.sUnit = "吨";
        payable.sAssBook = "BC";
    });
    ASSERT_TRUE(m_form.beginNew("1002", "全部"));
    EXPECT_EQ(m_form.entry().page, "金额式") << "the account above has none";
    EXPECT_EQ(lettersOf(m_form.entry().books), "RE");
    const AccountEntry below = proposed("220201");
    EXPECT_TRUE(below.keepsForeign && below.keepsQuantity);
    EXPECT_EQ(below.currencyId, 1);
    EXPECT_EQ(below.page + below.unit + lettersOf(below.books), "外币数量式吨BC");
    AccountEntry top{.page = "before", .keepsForeign = true, .currencyId = 1, .books = {true}};
    ASSERT_TRUE(m_form.proposeFor("1009", top));
    EXPECT_EQ(top, (AccountEntry{.className = "资产", .page = "金额式"}));
    for (const char* unfinished : {"", "10", "22020", "300101"})
        EXPECT_EQ(proposed(unfinished).page, "before") << unfinished;
}

TEST_P(AccountForms, ExplainAnotherClassOfAnAccountThatIsUsed) {
    const auto explained = [this](const char* className) {
        std::string text = "before";
        EXPECT_TRUE(m_form.explainClass(className, text));
        return text;
    };
    ASSERT_TRUE(m_form.beginModification("2202"));
    EXPECT_EQ(explained("资产"), "") << "nothing holds it";
    for (const UsePlace place : usePlaces) {
        const std::string code = std::to_string(1101 + static_cast<int>(place));
        m_books.add(code);
        m_books.use(place, code);
        ASSERT_TRUE(m_form.beginModification(code));
        EXPECT_EQ(explained("资产"), "") << "its own";
        EXPECT_EQ(explained("负债"), "科目 " + code +
                                         " 已经使用。改为“负债”后,已有的余额和发生额都归入这一类,"
                                         "试算平衡随之变化;余额方向“借”不变。");
    }
    ASSERT_TRUE(m_form.beginNew("1001", "全部"));
    EXPECT_EQ(explained("负债"), "") << "nothing holds a new account";
    m_books.use(UsePlace::sums, "1002");
    ASSERT_TRUE(m_form.beginModification("1002"));
    EXPECT_EQ(
        explained("负债"),
        "科目 1002 已经使用。改为“负债”不改变下级科目的类型,试算平衡仍按下级科目的类型计算。");
    m_books.engine().failCall(1, Failure::full);
    std::string text;
    EXPECT_EQ(m_form.explainClass("负债", text).failure, Failure::full);
    m_books.engine().failCall(0);
}

TEST_P(AccountForms, BeginTheNextAccountWithTheAccountingOfTheAccountAbove) {
    change("2202", [](_CodeInfo& payable) { payable.sAssBook = "B"; });
    ASSERT_TRUE(m_form.beginCopy("2202"));
    AccountEntry entry = m_form.entry();
    entry.page = "外币数量式";
    entry.keepsForeign = entry.keepsQuantity = true;
    entry.currencyId = 1;
    entry.unit = "吨";
    ASSERT_EQ(m_form.save(entry).outcome, Outcome::done);
    AccountEntry next{.code = "2204", .className = "负债", .page = "金额式"};
    EXPECT_EQ(m_form.entry(), next);
    EXPECT_EQ(lettersOf(proposed("220201").books), "B") << "it is a copy no more";
    entry.code = "220201";
    entry.books = {};
    ASSERT_EQ(m_form.save(entry).outcome, Outcome::done);
    next.code = "220202";
    next.books.byUnit = true;
    EXPECT_EQ(m_form.entry(), next);
}

TEST_P(AccountForms, LeaveACopyTheAccountingOfItsAccount) {
    change("1002", [](_CodeInfo& bank) { bank.sAssBook = "RE"; });
    change("2202", [](_CodeInfo& payable) { payable.sAssBook = "B"; });
    ASSERT_TRUE(m_form.beginCopy("2202"));
    EXPECT_EQ(proposed("100202").page, "before");
    ASSERT_TRUE(m_form.beginNew("1002", "全部"));
    EXPECT_EQ(lettersOf(proposed("100202").books), "RE");
}

TEST_P(AccountForms, BeginAModificationWithWhatIsStored) {
    ASSERT_TRUE(m_form.beginModification("2202"));
    EXPECT_FALSE(m_form.isAdding());
    EXPECT_EQ(m_form.entry(), entryOf(m_books.account("2202")));
    EXPECT_FALSE(m_form.isChanged(entryOf(m_books.account("2202"))));
    EXPECT_EQ(arrows(), (Codes{"1001", "100201", "", "2202"}));
    ASSERT_TRUE(m_form.goTo("100201"));
    EXPECT_EQ(m_form.entry(), entryOf(m_books.account("100201")));
}

TEST_P(AccountForms, BeginACopyBesideItsAccount) {
    ASSERT_TRUE(m_form.beginCopy("100201"));
    EXPECT_TRUE(m_form.isAdding());
    EXPECT_EQ(m_form.entry().code, "100202");
    EXPECT_EQ(m_form.entry().className, "资产");
    EXPECT_EQ(arrows(), (Codes{"1001", "1002", "2202", "2202"}));
}

TEST_P(AccountForms, StayAsTheyAreWhicheverReadingOfABeginningFails) {
    const std::function<Status()> beginnings[] = {
        [this] { return m_form.beginNew("1002", "全部"); },
        [this] { return m_form.beginCopy("100201"); },
        [this] { return m_form.beginModification("1001"); },
    };
    for (const auto& begin : beginnings) {
        ASSERT_TRUE(m_form.beginModification("2202"));
        const AccountEntry before = m_form.entry();
        int call = 1;
        for (bool hasFailed = true; hasFailed; ++call) {
            m_books.engine().failCall(call, Failure::full);
            const Status status = begin();
            hasFailed = m_books.engine().hasFailed();
            m_books.engine().failCall(0);
            ASSERT_EQ(status.failure, hasFailed ? Failure::full : Failure::none) << call;
            if (!hasFailed) break;
            EXPECT_EQ(m_form.entry(), before) << call;
            EXPECT_FALSE(m_form.isAdding()) << call;
            EXPECT_EQ(arrows(), (Codes{"1001", "100201", "", "2202"})) << call;
        }
        EXPECT_GT(call, 1);
    }
}

TEST_P(AccountForms, SaveAgainWhatTheyHaveSavedAndAreOtherwiseUnchanged) {
    ASSERT_TRUE(m_form.beginModification("2202"));
    AccountEntry entry = m_form.entry();
    for (const char* name : {"甲", "乙"}) {
        entry.name = name;
        EXPECT_TRUE(m_form.isChanged(entry));
        ASSERT_EQ(m_form.save(entry).outcome, Outcome::done) << name;
        EXPECT_EQ(m_form.entry(), entry);
        EXPECT_FALSE(m_form.isChanged(entry));
        EXPECT_FALSE(m_form.isAdding());
    }
    entry.code = "1009";
    entry.name += " ";
    m_books.messages().forget();
    ASSERT_EQ(m_form.save(entry).outcome, Outcome::done);
    EXPECT_EQ(m_books.account("1009").sName, "乙");
    ASSERT_TRUE(m_screen.load("全部"));
    EXPECT_EQ(arrows(), (Codes{"1001", "100201", "", "1009"}));
    entry.code = "";
    EXPECT_EQ(m_form.save(entry).outcome, Outcome::refused);
    EXPECT_EQ(m_form.entry().code, "1009");
}

TEST_P(AccountForms, TellWhatTheNextAccountBeginsWithout) {
    int told = 0;
    bool hasFailed = true;
    for (int call = 1; hasFailed && call < 100; ++call) {
        ASSERT_TRUE(m_form.beginCopy("2202"));
        const AccountEntry entry = m_form.entry();
        m_books.messages().forget();
        m_books.engine().failCall(call, Failure::full);
        const Outcome outcome = m_form.save(entry).outcome;
        hasFailed = m_books.engine().hasFailed();
        m_books.engine().failCall(0);
        EXPECT_EQ(m_books.messages().notices().size(), hasFailed ? 1u : 0u) << call;
        if (!hasFailed || outcome != Outcome::done) continue;
        ++told;
        EXPECT_TRUE(m_books.hasAccount(entry.code));
        EXPECT_EQ(m_form.entry().className, "负债") << call;
    }
    EXPECT_FALSE(hasFailed);
    EXPECT_GT(told, 1);
}

TEST_P(AccountForms, ProposeNothingWhicheverReadingFails) {
    ASSERT_TRUE(m_form.beginNew("1002", "全部"));
    const AccountEntry before{.name = "name", .className = "before", .page = "before"};
    AccountEntry entry;
    std::string mnemonic;
    const std::function<Status()> proposals[] = {
        [&] { return m_form.proposeFor("100209", entry = before); },
        [&] { return AccountForm::proposeMnemonic("运费", mnemonic = "before"); },
    };
    for (const auto& propose : proposals) {
        int call = 1;
        for (bool hasFailed = true; hasFailed; ++call) {
            m_books.engine().failCall(call, Failure::full);
            const Status status = propose();
            hasFailed = m_books.engine().hasFailed();
            m_books.engine().failCall(0);
            ASSERT_EQ(status.failure, hasFailed ? Failure::full : Failure::none) << call;
            if (hasFailed) {
                EXPECT_TRUE(entry == before) << call;
                EXPECT_TRUE(mnemonic.empty() || mnemonic == "before") << call;
            }
            if (!hasFailed) entry = before;
        }
        EXPECT_GT(call, 2);
    }
    EXPECT_EQ(mnemonic, "YF");
}

TEST_P(AccountForms, StayAsTheyAreWhenTheAccountToBeginWithIsGone) {
    ASSERT_TRUE(m_form.beginModification("2202"));
    const AccountEntry before = m_form.entry();
    EXPECT_EQ(m_form.beginCopy("1009").failure, Failure::missing);
    EXPECT_EQ(m_form.beginModification("1009").failure, Failure::missing);
    EXPECT_EQ(m_form.entry(), before);
    EXPECT_FALSE(m_form.isAdding());
    EXPECT_EQ(arrows(), (Codes{"1001", "100201", "", "2202"}));
}

CHENGHENG_ON_ALL_ENGINES(AccountForms);
