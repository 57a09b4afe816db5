#include "currency/currency_form.h"

#include <gtest/gtest.h>

#include "tests/support/currency_books.h"
#include "tests/support/engine_cases.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;

/// The window of currencies without its screen, in May 2026, with dollars and yen.
class CurrencyForms : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.insert("USD", "美元");
        m_books.insert("JPY", "日元");
        m_form.open();
    }
    CurrencyBooks m_books{freshLocation(GetParam())};
    CurrencyForm m_form{m_books.messages, {2026, 5, 31}};
};

TEST_P(CurrencyForms, BeginWithTheFirstCurrencyItsFixedRatesAndTheMonthOfTheLogOn) {
    EXPECT_EQ(m_form.selectedId(), 1);
    EXPECT_EQ(m_form.year(), 2026);
    EXPECT_EQ(m_form.month(), 5);
    EXPECT_EQ(m_form.kind(), RateKind::fixed);
    EXPECT_EQ(m_form.sheet().rowCount(), 12);
    EXPECT_EQ(m_form.sheet().decimals(), 5);
    EXPECT_EQ(m_form.input, (CurrencyInput{"USD", "美元", RateMode::multiplied, "5", "0"}));
    ASSERT_NE(m_form.currency(), nullptr);
    EXPECT_EQ(m_form.currency()->lId, 1);
    EXPECT_FALSE(m_form.canSave());
    EXPECT_TRUE(m_form.canDelete());
    EXPECT_TRUE(m_form.isFormOpen());
    EXPECT_FALSE(m_form.isMonthOpen());
}

TEST_P(CurrencyForms, CanDeleteWhenACurrencyIsSelectedUsedOrNot) {
    m_books.run("INSERT Code (lId, sCode, byExchId) VALUES(1, '1001', 2)");
    m_form.select(2);
    EXPECT_TRUE(m_form.isUsed());
    EXPECT_TRUE(m_form.canDelete());
    m_form.startAdding();
    EXPECT_FALSE(m_form.canDelete());
    EXPECT_FALSE(m_form.isUsed());
}

TEST_P(CurrencyForms, AddWithoutTheRatesOfTheCurrencyBefore) {
    m_form.showKind(RateKind::floating);
    m_form.startAdding();
    EXPECT_EQ(m_form.currency(), nullptr);
    EXPECT_EQ(m_form.kind(), RateKind::fixed);
    EXPECT_EQ(m_form.input, CurrencyInput{});
    EXPECT_EQ(m_form.sheet().rowCount(), 1);
    m_form.showKind(RateKind::floating);
    m_form.showMonth(2);
    EXPECT_EQ(m_form.sheet().rowCount(), 1);
    EXPECT_TRUE(m_form.isMonthOpen());
    EXPECT_FALSE(m_form.mayEdit({0, RateSheetColumn::rate}));
    EXPECT_EQ(m_form.endEdit({0, RateSheetColumn::rate}, "7"), Outcome::refused);
    EXPECT_EQ(m_books.filledRates("ExchgFix"), Texts{});
    m_form.input = {"GBP", "英镑"};
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_form.kind(), RateKind::fixed);
    EXPECT_EQ(m_form.sheet().rowCount(), 12);
    EXPECT_EQ(m_form.sheet().idIn(0), 25);
}

TEST_P(CurrencyForms, CloseEverythingButTheGridWhileARateIsTyped) {
    m_form.showKind(RateKind::floating);
    m_form.input.name = "美金";
    EXPECT_TRUE(m_form.canSave());
    EXPECT_TRUE(m_form.isMonthOpen());
    m_form.beginEdit();
    EXPECT_TRUE(m_form.isEditing());
    EXPECT_FALSE(m_form.canSave());
    EXPECT_FALSE(m_form.isFormOpen());
    EXPECT_FALSE(m_form.isMonthOpen());
    m_form.cancelEdit();
    EXPECT_TRUE(m_form.canSave());
    EXPECT_TRUE(m_form.isMonthOpen());
}

TEST_P(CurrencyForms, NeverEnableOkByAFinishedEditAlone) {
    m_form.beginEdit();
    EXPECT_EQ(m_form.endEdit({0, RateSheetColumn::rate}, "7.125"), Outcome::done);
    EXPECT_FALSE(m_form.canSave());
    EXPECT_EQ(m_form.sheet().text({0, RateSheetColumn::rate}), "7.12500");
    EXPECT_EQ(m_books.filledRates("ExchgFix"), Texts{"1 1 2026-01-01 1 7.125 0"});
    EXPECT_EQ(m_books.stored()[0], "1 1 USD 美元 1 5 1e-05");
}

TEST_P(CurrencyForms, WriteTheRateOfADayOfTheMonthThatIsShown) {
    m_form.showKind(RateKind::floating);
    m_form.showMonth(2);
    EXPECT_EQ(m_form.endEdit({27, RateSheetColumn::rate}, "7.5"), Outcome::done);
    EXPECT_EQ(m_form.endEdit({26, RateSheetColumn::adjustRate}, "7.5"), Outcome::refused);
    EXPECT_EQ(m_books.filledRates("ExchgFlt"), Texts{"59 1 2026-02-28 2 7.5 0"});
}

TEST_P(CurrencyForms, LeaveARateAsItIsForWhatIsNone) {
    m_books.run("UPDATE ExchgFix SET dRate = 7.1234567 WHERE lId = 1");
    m_form.select(2);
    m_form.select(1);
    m_form.beginEdit();
    EXPECT_EQ(m_form.endEdit({0, RateSheetColumn::rate}, "."), Outcome::refused);
    EXPECT_FALSE(m_form.isEditing());
    EXPECT_EQ(m_books.filledRates("ExchgFix"), Texts{"1 1 2026-01-01 1 7.1234567 0"});
    EXPECT_EQ(m_books.messages.texts(), Texts{});
}

TEST_P(CurrencyForms, ShowAnotherCurrencyInFixedRatesAndTheMonthThatWasChosen) {
    m_form.showKind(RateKind::floating);
    m_form.showMonth(2);
    m_form.select(2);
    EXPECT_EQ(m_form.kind(), RateKind::fixed);
    EXPECT_EQ(m_form.month(), 2);
}

TEST_P(CurrencyForms, KeepKindMonthAndTextOfTheMaximumErrorWhenTheyAreReadAnew) {
    m_form.showKind(RateKind::floating);
    m_form.showMonth(2);
    m_form.input.maxError = "0.5";
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_form.input.maxError, "0.5") << "as it was typed";
    m_form.refresh();
    EXPECT_EQ(m_form.kind(), RateKind::floating);
    EXPECT_EQ(m_form.month(), 2);
    EXPECT_EQ(m_form.sheet().rowCount(), 28);
    EXPECT_EQ(m_form.input.maxError, "0.5");
    m_books.run("UPDATE Cyrency SET sExchName = '美金' WHERE lId = 1");
    m_form.refresh();
    EXPECT_EQ(m_form.input, (CurrencyInput{"USD", "美金", RateMode::multiplied, "5", "0"}))
        << "but what has changed is shown as it is stored";
}

TEST_P(CurrencyForms, CapitaliseWhatIsSavedAndWhatIsRefused) {
    m_form.input.symbol = "usd ";
    m_form.input.name = " us 美元";
    m_form.input.decimals = "1";
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_form.input.symbol, "USD");
    EXPECT_EQ(m_form.input.name, "US 美元");
    EXPECT_TRUE(m_form.canSave()) << "it can be mended";
    m_form.input.decimals = "2";
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_books.stored()[0], "1 1 USD US 美元 1 2 0");
}

TEST_P(CurrencyForms, FindASecondSymbolInWhicheverCaseItIsTyped) {
    m_form.startAdding();
    m_form.input = {"jpy", "新"};
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_books.messages.texts(), Texts{"币符不唯一!"});
}

TEST_P(CurrencyForms, SelectTheFirstOneLeftAfterADeletion) {
    m_books.insert("GBP", "英镑");
    m_form.open();
    for (const auto& [removed, next] : {std::pair{3, 1}, {1, 2}, {2, 0}}) {
        m_form.select(removed);
        m_books.messages.willAnswer(Answer::yes);
        m_form.remove(removed);
        EXPECT_EQ(m_form.selectedId(), next);
    }
    EXPECT_TRUE(m_form.isAdding());
    EXPECT_EQ(m_form.sheet().rowCount(), 1);
}

CHENGHENG_ON_SHARED_ENGINES(CurrencyForms);

}  // namespace
