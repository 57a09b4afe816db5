#include "vouchertype/preset/preset_service.h"

#include <gtest/gtest.h>

#include <optional>

#include "data/lookups/CGetData.h"
#include "tests/data/preset_case.h"
#include "tests/support/engine_cases.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/logged_locks.h"
#include "tests/support/made_layout.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;

/// Books without voucher types, with cash and bank accounts designated; the wizard at work.
class Presetting : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        auto faulty = std::make_unique<FaultyEngine>(openForTest(freshLocation(GetParam())));
        makeLayout(*faulty);
        m_locks.emplace(faulty->real().locks());
        faulty->replaceLocks(*m_locks);
        m_books.emplace(std::move(faulty));
        addDesignatedAccounts(*m_books);
        m_service.emplace(m_books->messages);
    }
    void addType() { m_books->run("INSERT Sign (lId, sSign) VALUES(7, 'x')"); }
    std::string said() const {
        return m_books->messages.texts().empty() ? "" : m_books->messages.texts().back();
    }

    std::optional<LoggedLocks> m_locks;
    std::optional<VoucherTypeBooks> m_books;
    std::optional<PresetService> m_service;
};

TEST_P(Presetting, WritesTheTypesOfASetInTheirOrder) {
    EXPECT_EQ(m_service->finish(PresetSet::receiptsAndPayments), Outcome::done);
    EXPECT_EQ(m_books->stored(), presetReceipts);
    EXPECT_EQ(said(), "");
    EXPECT_EQ(CGetData::m_csaSignTable, (Texts{"收", "付", "转"})) << "the host's cache follows";
}

TEST_P(Presetting, WritesEverySet) {
    const std::pair<PresetSet, Texts> sets[] = {
        {PresetSet::unclassified, {"1 记 记帐凭证 0"}},
        {PresetSet::cashAndBank,
         {"1 现 现金凭证 0", "2 银 银行凭证 0", "3 转 转帐凭证 3 1001 1002"}},
        {PresetSet::fiveKinds,
         {"1 01 现金收款凭证 1 1001", "2 02 现金付款凭证 2 1001", "3 03 银行收款凭证 1 1002",
          "4 04 银行付款凭证 2 1002", "5 05 转帐凭证 3 1001 1002"}},
        {PresetSet::custom, {}}};
    for (const auto& [set, types] : sets) {
        EXPECT_EQ(m_service->finish(set), Outcome::done);
        EXPECT_EQ(m_books->stored(), types);
        removeTypes(*m_books);
    }
    EXPECT_EQ(said(), "");
}

TEST_P(Presetting, NamesTheFirstLevelAccountOfTheLowestCode) {
    m_books->run(
        "UPDATE Code SET bBank = 1 WHERE sCode = '1012'\r\n"
        "INSERT Code (lId, sCode, sName, byGrade, bCash, bBank) VALUES(0, '0001', '', 1, 1, 1)\r\n"
        "INSERT Code (lId, sCode, sName, byGrade, bCash) VALUES(9, '1000', '备用金', 1, 1)");
    const auto accounts = m_service->accounts();
    ASSERT_TRUE(accounts.has_value());
    EXPECT_EQ(accounts->cash, "1000");
    EXPECT_EQ(accounts->bank, "1002") << "neither 1012 nor 100201, nor a row that is no account";
    EXPECT_EQ(m_service->finish(PresetSet::receiptsAndPayments), Outcome::done);
    EXPECT_EQ(m_books->stored()[0], "1 收 收款凭证 1 1000 1002");
}

TEST_P(Presetting, RestrictsNothingInBooksWithoutCashAndBankAccounts) {
    m_books->run("UPDATE Code SET bCash = 0, bBank = 0 WHERE lId > 0");
    EXPECT_EQ(m_service->finish(PresetSet::receiptsAndPayments), Outcome::done);
    EXPECT_EQ(m_books->stored(), (Texts{"1 收 收款凭证 0", "2 付 付款凭证 0", "3 转 转帐凭证 0"}));
}

TEST_P(Presetting, RefusesEverySetOnceThereAreTypes) {
    addType();
    for (const PresetSet set : {PresetSet::unclassified, PresetSet::receiptsAndPayments,
                                PresetSet::cashAndBank, PresetSet::fiveKinds, PresetSet::custom}) {
        EXPECT_EQ(m_service->finish(set), Outcome::refused);
        EXPECT_EQ(m_books->messages.onlyNotice().text, typesAlreadySet);
        EXPECT_EQ(m_books->messages.onlyNotice().icon, MessageIcon::information);
        m_books->messages.forget();
    }
    EXPECT_EQ(m_books->stored(), Texts{"7 x  0"});
}

TEST_P(Presetting, FreesTheLocksOfAFinishBeforeItSaysAnything) {
    addType();
    m_locks->forget();
    m_books->messages.whileShown(
        [this](const std::string&) { EXPECT_FALSE(m_books->holdsLocks()); });
    EXPECT_EQ(m_service->finish(PresetSet::fiveKinds), Outcome::refused);
    EXPECT_EQ(m_locks->log(),
              (Texts{"lock Code 1", "lock Sign 2", "unlock Code 1", "unlock Sign 2"}));
}

TEST_P(Presetting, AsksForTheLocksOnceMoreWhereItRefusesWithoutClassification) {
    addType();
    m_locks->forget();
    m_books->messages.whileShown(
        [this](const std::string&) { EXPECT_TRUE(m_books->holdsLocks()); });
    EXPECT_EQ(m_service->finish(PresetSet::unclassified), Outcome::refused);
    EXPECT_EQ(m_locks->log(), (Texts{"lock Code 1", "lock Sign 2", "lock Code 1", "lock Sign 2"}));
    EXPECT_TRUE(m_books->holdsLocks()) << "as long as the wizard is open";
    m_service.reset();
    EXPECT_FALSE(m_books->holdsLocks());
}

TEST_P(Presetting, HoldsNoSecondLockAfterItHasAskedAgain) {
    addType();
    for (int time = 0; time < 3; ++time)
        EXPECT_EQ(m_service->finish(PresetSet::unclassified), Outcome::refused);
    EXPECT_EQ(m_service->finish(PresetSet::fiveKinds), Outcome::refused);
    EXPECT_FALSE(m_books->holdsLocks()) << "one release frees them";
    EXPECT_EQ(m_service->finish(PresetSet::unclassified), Outcome::refused);
    m_service.reset();
    EXPECT_FALSE(m_books->holdsLocks());
}

TEST_P(Presetting, GoesOnAfterARefusalWhereTheTypesAreGone) {
    addType();
    EXPECT_EQ(m_service->finish(PresetSet::unclassified), Outcome::refused);
    removeTypes(*m_books);
    EXPECT_EQ(m_service->finish(PresetSet::receiptsAndPayments), Outcome::done);
    EXPECT_EQ(m_books->stored(), presetReceipts);
    m_service.reset();
    EXPECT_FALSE(m_books->holdsLocks());
}

TEST_P(Presetting, WritesCodesWithQuotesAndWildcardsAsTheyStand) {
    m_books->run(
        "UPDATE Code SET sCode = 'O''1%' WHERE sCode = '1001'\r\n"
        "UPDATE Code SET sCode = '_０2\"' WHERE sCode = '1002'");
    EXPECT_EQ(m_service->finish(PresetSet::receiptsAndPayments), Outcome::done);
    EXPECT_EQ(m_books->stored()[0], "1 收 收款凭证 1 O'1% _０2\"");
}

CHENGHENG_ON_ALL_ENGINES(Presetting);

}  // namespace
