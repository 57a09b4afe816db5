#include "setting/hub_functions.h"

#include <gtest/gtest.h>

#include <optional>

#include "data/access/CNbCwDB.h"
#include "data/lookups/CGetData.h"
#include "data/tables/books.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_layout.h"
#include "tests/support/recording_messages.h"

namespace {

using namespace chengheng;

constexpr const char* noForeignCurrency =
    "该帐套没有设置外币核算,请到“帐套管理”->“帐套参数调整”中设置完后再使用该功能!";

/// Tells what was launched, in order; the wizard ends as it is told to.
class RecordedWindows final : public IHubWindows {
  public:
    void show(HubFunction function) override { shown.push_back(function); }
    int runPresetWizard() override {
        ++wizardRuns;
        return wizardResult;
    }

    std::vector<HubFunction> shown;
    int wizardRuns = 0;
    int wizardResult = 0;
};

/// Books with an operator who holds the rights a test gives, and with no voucher types.
class HubFunctionChecks : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        openNewBooks(m_database, freshLocation(GetParam()));
        m_session.emplace(SessionFacts{
            .database = &m_database, .databaseName = "books", .logonUser = {5, 5, 5, 0, "会计"}});
        run("INSERT Users VALUES(5, 5, '会计', 0, '')");
        grant({});
    }
    void TearDown() override { CGetData::m_pzAccountMInfo = nullptr; }

    void run(const std::string& batch) {
        ASSERT_NE(m_database.QRYExecuteSQL(batch), 0) << m_database.lastStatus().detail;
    }
    void grant(std::initializer_list<int> functions) {
        std::string rights(255, 'N');
        for (int function : functions) rights[static_cast<std::size_t>(function - 1)] = 'Y';
        run(formatSql("DELETE UserAuth WHERE lId > 0\r\nINSERT UserAuth VALUES(5, 5, '%s')",
                      rights));
    }
    void keepForeignCurrency(bool keep) {
        m_parameters.bFgn = keep ? 1 : 0;
        CGetData::m_pzAccountMInfo = &m_parameters;
    }
    void open(HubFunction function) { HubFunctions(m_messages, m_windows).open(function); }

    CNbCwDB m_database;
    RecordingMessages m_messages;
    HostMessages m_installed{m_messages};
    RecordedWindows m_windows;
    _zAccountMInfo m_parameters;
    std::optional<HostSession> m_session;
};

TEST_P(HubFunctionChecks, OpensEachFunctionByItsOwnRightAndNoOther) {
    keepForeignCurrency(true);
    struct Right {
        HubFunction function;
        int number;
        const char* refusal;
    };
    const Right rights[] = {{HubFunction::bursar, 41, "你没有[会计科目设置]权限!"},
                            {HubFunction::exchange, 46, "你没有[外币设置]权限!"},
                            {HubFunction::begleft, 43, "你没有[期初余额录入]权限!"},
                            {HubFunction::method, 57, "你没有[结算方式设置]权限!"}};
    for (const Right& held : rights) {
        grant({held.number});
        std::vector<std::string> refusals;
        for (const Right& right : rights) {
            open(right.function);
            if (right.number != held.number) refusals.emplace_back(right.refusal);
        }
        EXPECT_EQ(m_windows.shown, std::vector{held.function});
        EXPECT_EQ(m_messages.texts(), refusals);
        m_windows.shown.clear();
        m_messages.forget();
    }
}

TEST_P(HubFunctionChecks, OpensNothingWithoutTheRightAndLetsTheHostTellWhichIsMissing) {
    keepForeignCurrency(true);
    run("INSERT Sign (lId) VALUES(1)");
    const std::pair<HubFunction, const char*> refusals[] = {
        {HubFunction::bursar, "你没有[会计科目设置]权限!"},
        {HubFunction::exchange, "你没有[外币设置]权限!"},
        {HubFunction::begleft, "你没有[期初余额录入]权限!"},
        {HubFunction::species, "你没有[凭证类别设置]权限!"},
        {HubFunction::method, "你没有[结算方式设置]权限!"}};
    for (const auto& [function, text] : refusals) {
        open(function);
        EXPECT_EQ(m_messages.onlyNotice().text, text);
        m_messages.forget();
    }
    EXPECT_TRUE(m_windows.shown.empty());
    EXPECT_EQ(m_windows.wizardRuns, 0);
}

TEST_P(HubFunctionChecks, TellsWhereToSwitchForeignCurrencyOnWhenTheBooksKeepNone) {
    grant({46});
    keepForeignCurrency(false);
    open(HubFunction::exchange);
    EXPECT_TRUE(m_windows.shown.empty());
    const Notice notice = m_messages.onlyNotice();
    EXPECT_EQ(notice.text, noForeignCurrency);
    EXPECT_EQ(notice.icon, MessageIcon::information);
}

TEST_P(HubFunctionChecks, TakesBooksWithoutParametersAsKeepingNoForeignCurrency) {
    grant({46});
    open(HubFunction::exchange);
    EXPECT_TRUE(m_windows.shown.empty());
    EXPECT_EQ(m_messages.onlyNotice().text, noForeignCurrency);
}

TEST_P(HubFunctionChecks, AsksForTheRightBeforeTheForeignCurrencyFlag) {
    keepForeignCurrency(false);
    open(HubFunction::exchange);
    EXPECT_EQ(m_messages.onlyNotice().text, "你没有[外币设置]权限!");
}

TEST_P(HubFunctionChecks, OpensVoucherTypesAtOnceWhenThereIsOne) {
    grant({52});
    run("INSERT Sign (lId) VALUES(1)");
    open(HubFunction::species);
    EXPECT_EQ(m_windows.shown, std::vector{HubFunction::species});
    EXPECT_EQ(m_windows.wizardRuns, 0);
}

TEST_P(HubFunctionChecks, OpensVoucherTypesAfterAFinishedWizardWhenThereIsNone) {
    grant({52});
    m_windows.wizardResult = 0x3025;
    open(HubFunction::species);
    EXPECT_EQ(m_windows.wizardRuns, 1);
    EXPECT_EQ(m_windows.shown, std::vector{HubFunction::species});
}

TEST_P(HubFunctionChecks, OpensNoVoucherTypesAfterAWizardGivenUp) {
    grant({52});
    for (int result : {0, 1, 2, 0x3024}) {
        m_windows.wizardResult = result;
        open(HubFunction::species);
    }
    EXPECT_EQ(m_windows.wizardRuns, 4);
    EXPECT_TRUE(m_windows.shown.empty());
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_P(HubFunctionChecks, OpensNoVoucherTypesAndSaysNothingWhenTheDatabaseCannotBeSelected) {
    m_session.reset();
    m_session.emplace(SessionFacts{
        .database = &m_database, .databaseName = "others", .logonUser = {1, 1, 1, 1, "王芳"}});
    open(HubFunction::species);
    EXPECT_TRUE(m_windows.shown.empty());
    EXPECT_EQ(m_windows.wizardRuns, 0);
    EXPECT_TRUE(m_messages.texts().empty());
}

CHENGHENG_ON_ALL_ENGINES(HubFunctionChecks);

}  // namespace
