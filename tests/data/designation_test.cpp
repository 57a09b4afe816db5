#include "accounts/changing/designation.h"

#include <gtest/gtest.h>

#include "data/tables/accounts.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"

using namespace chengheng;

namespace {

constexpr const char* cash = "1001   库存现金";
constexpr const char* bank = "1002   银行存款";
constexpr const char* question = "确定设置(1001)为现金总帐科目, (1002)为银行总帐科目吗?";

/// 1001 with one account below it, 1002 with two levels, 1003, 1122.
class Designations : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.add("1001", "库存现金");
        m_books.add("100101");
        m_books.add("1002", "银行存款");
        m_books.add("100201");
        m_books.add("10020101");
        m_books.add("1003", "存放款项");
        m_books.add("1122");
        setLetters("100201", "BC");
        setLetters("1122", "B");
    }
    void setLetters(const std::string& code, const char* letters) {
        _CodeInfo account = m_books.account(code);
        account.sAssBook = letters;
        m_books.edit(account);
    }
    bool designate(const char* cashText, const char* bankText) {
        return DesignationService(m_books.messages()).designate(cashText, bankText);
    }
    /// "1001 cash R, 1002 bank RE": the accounts that carry a mark or letters.
    std::string marks() {
        std::string text;
        for (const char* code : {"1001", "100101", "1002", "100201", "10020101", "1003", "1122"}) {
            const _CodeInfo account = m_books.account(code);
            if (account.bCash == 0 && account.bBank == 0 && account.sAssBook.empty()) continue;
            text += std::string(text.empty() ? "" : ", ") + code;
            if (account.bCash != 0) text += " cash";
            if (account.bBank != 0) text += " bank";
            text += " " + account.sAssBook;
        }
        return text;
    }

    AccountBooks m_books{freshLocation(GetParam())};
};

}  // namespace

TEST_P(Designations, MarkTheAccountsAndAllBelowThemAndReplaceTheirLetters) {
    m_books.messages().willAnswer(question, Answer::ok);
    EXPECT_TRUE(designate(cash, bank));
    EXPECT_EQ(marks(),
              "1001 cash R, 100101 cash R, 1002 bank RE, 100201 bank RE, 10020101 bank RE, 1122 B");
    EXPECT_EQ(m_books.faults(), std::vector<std::string>{});
}

TEST_P(Designations, AskWithOkAndCancel) {
    m_books.messages().willAnswer(question, Answer::cancel);
    const auto before = m_books.chart();
    EXPECT_TRUE(designate(cash, bank)) << "Cancel closes the dialog";
    EXPECT_EQ(m_books.messages().questions().front().buttons, AnswerButtons::okCancel);
    EXPECT_EQ(m_books.messages().questions().front().preset, Answer::ok);
    EXPECT_EQ(m_books.chart(), before);
    EXPECT_TRUE(m_books.locks().log().empty());
}

TEST_P(Designations, OfAnotherBankAccountLeaveTheLettersOfTheFirst) {
    m_books.messages().willAnswer(Answer::ok);
    m_books.messages().willAnswer(Answer::ok);
    EXPECT_TRUE(designate(cash, bank));
    EXPECT_TRUE(designate(cash, "1003   存放款项"));
    EXPECT_EQ(marks(),
              "1001 cash R, 100101 cash R, 1002 RE, 100201 RE, 10020101 RE, 1003 bank RE, "
              "1122 B");
}

TEST_P(Designations, OfTheSameAccountTwiceAreRefused) {
    const auto before = m_books.chart();
    EXPECT_FALSE(designate(cash, cash));
    EXPECT_EQ(m_books.messages().onlyNotice().text, "银行、现金科目不能重复");
    EXPECT_EQ(m_books.messages().onlyNotice().icon, MessageIcon::information);
    EXPECT_EQ(m_books.chart(), before);
}

TEST_P(Designations, OfAnAccountDeletedMeanwhileAreRefusedInItsName) {
    m_books.messages().willAnswer(Answer::ok);
    EXPECT_FALSE(designate("1009   没有", "1008   也没有"));
    EXPECT_EQ(m_books.messages().notices().back().text, "科目(1009)已经删除!") << "cash first";
    m_books.messages().willAnswer(Answer::ok);
    EXPECT_FALSE(designate(cash, "1008   没有"));
    EXPECT_EQ(m_books.messages().notices().back().text, "科目(1008)已经删除!");
    EXPECT_EQ(marks(), "100201 BC, 1122 B");
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(Designations, FreeTheGroupBeforeTheChart) {
    m_books.messages().willAnswer(Answer::ok);
    EXPECT_TRUE(designate(cash, bank));
    EXPECT_EQ(m_books.locks().log(),
              (std::vector<std::string>{
                  "lock AssSum AccSum Cyrency UnRegMain UnRegSug 1", "lock Code 2",
                  "unlock AssSum AccSum Cyrency UnRegMain UnRegSug 1", "unlock Code 2"}));
}

TEST_P(Designations, TakeWildcardsInACodeAsTheyStand) {
    m_books.add("1_0%", "奇怪");
    m_books.messages().willAnswer(Answer::ok);
    EXPECT_TRUE(designate("1_0%   奇怪", bank));
    EXPECT_EQ(m_books.account("1_0%").bCash, 1);
    EXPECT_EQ(marks(), "1002 bank RE, 100201 bank RE, 10020101 bank RE, 1122 B");
}

TEST_P(Designations, OfACodeOfOneDigitMarkEveryCodeThatBeginsWithIt) {
    m_books.add("1", "资产");
    m_books.add("2", "银行");
    m_books.messages().willAnswer(Answer::ok);
    EXPECT_TRUE(designate("1   资产", "2   银行"));
    EXPECT_EQ(marks(),
              "1001 cash R, 100101 cash R, 1002 cash R, 100201 cash R, 10020101 cash R, "
              "1003 cash R, 1122 cash R");
    EXPECT_EQ(m_books.account("2").sAssBook, "RE");
}

TEST_P(Designations, OfferNothingWhenTheChartCannotBeReadAndSaySo) {
    bool hasFailed = true;
    int call = 1;
    for (; hasFailed; ++call) {
        m_books.messages().forget();
        m_books.engine().failCall(call, Failure::full);
        const auto choices = DesignationService(m_books.messages()).choices();
        hasFailed = m_books.engine().hasFailed();
        m_books.engine().failCall(0);
        EXPECT_EQ(choices.accounts.empty(), hasFailed) << call;
        EXPECT_EQ(m_books.messages().notices().size(), hasFailed ? 1u : 0u) << call;
    }
    EXPECT_GT(call, 2);
}

TEST_P(Designations, OfferTheTopLevelInCodeOrderAndSelectWhatIsDesignated) {
    DesignationService service(m_books.messages());
    EXPECT_EQ(service.choices().accounts,
              (std::vector<std::string>{cash, bank, "1003   存放款项", "1122   科目"}));
    EXPECT_EQ(service.choices().cash, -1);
    m_books.messages().willAnswer(Answer::ok);
    EXPECT_TRUE(designate("1003   存放款项", bank));
    EXPECT_EQ(service.choices().cash, 2);
    EXPECT_EQ(service.choices().bank, 1);
}

CHENGHENG_ON_ALL_ENGINES(Designations);

namespace {

class EmptyCharts : public testing::TestWithParam<EngineCase> {};

}  // namespace

TEST_P(EmptyCharts, OfferNothingToDesignate) {
    AccountBooks books(freshLocation(GetParam()));
    DesignationService service(books.messages());
    EXPECT_TRUE(service.choices().accounts.empty());
    EXPECT_EQ(service.choices().cash, -1);
    EXPECT_TRUE(books.messages().texts().empty());
    EXPECT_FALSE(service.designate("", "")) << "both lists are empty alike";
    EXPECT_EQ(books.messages().onlyNotice().text, "银行、现金科目不能重复");
}

CHENGHENG_ON_ALL_ENGINES(EmptyCharts);
