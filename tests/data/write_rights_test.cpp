#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "accounts/changing/account_service.h"
#include "accounts/codes/code_levels.h"
#include "currency/currency_service.h"
#include "directories/directory_service.h"
#include "operators/operator_service.h"
#include "session/rights_list.h"
#include "settle/settle_service.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_layout.h"
#include "tests/support/operator_books.h"
#include "tests/support/recording_messages.h"
#include "vouchertype/preset/preset_service.h"
#include "vouchertype/voucher_type_service.h"

namespace {

using namespace chengheng;

/// Books that somebody works on without a window between him and the services.
class WriteRights : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { openNewBooks(m_database, freshLocation(GetParam()), "books"); }
    void logOn(std::initializer_list<int> functions, int manager = 0, int userId = 5) {
        m_session.reset();
        ASSERT_NE(m_database.QRYExecuteSQL("DELETE UserAuth WHERE lId > 0\r\n"
                                           "INSERT UserAuth VALUES( 5, 5, '" +
                                           rightsText(functions) + "' )"),
                  0);
        m_session.emplace(SessionFacts{.database = &m_database,
                                       .databaseName = "books",
                                       .logonUser = {userId, userId, userId, manager, "李明"}});
    }
    /// What each service that writes says when it is asked to.
    std::vector<std::string> refusals() {
        const std::function<Outcome()> writings[] = {
            [&] {
                _SettleInfo method{0, "1", "现金", 0};
                return SettleService(m_messages).add(method, {});
            },
            [&] {
                _SignInfo type;
                type.sSign = "收";
                type.sSignName = "收款凭证";
                return VoucherTypeService(m_messages).add(type);
            },
            [&] { return PresetService(m_messages).finish(PresetSet::unclassified); },
            [&] {
                _CyrencyInfo added;
                const CurrencyInput input{.symbol = "USD",
                                          .name = "美元",
                                          .mode = RateMode::multiplied,
                                          .decimals = "4",
                                          .maxError = "0.00001"};
                return CurrencyService(m_messages).add(input, 2026, added);
            },
            [&] {
                return AccountService(m_messages, CodeLevels("4222"))
                    .add(assetEntry("1001"))
                    .outcome;
            },
            [&] {
                OperatorRecord added;
                return OperatorService(m_messages, PasswordCost::least)
                    .add({"王芳", "", ""}, added);
            }};
        std::vector<std::string> said;
        for (const auto& write : writings) {
            m_messages.forget();
            EXPECT_EQ(write(), Outcome::refused);
            said.push_back(m_messages.onlyNotice().text);
            EXPECT_EQ(m_messages.onlyNotice().icon, MessageIcon::stop);
        }
        for (const Directory& directory : directories()) {
            m_messages.forget();
            DirectoryRecord record;
            record.code = "01";
            record.name = "某某";
            EXPECT_EQ(DirectoryService(m_messages, directory).add(record), Outcome::refused);
            said.push_back(m_messages.onlyNotice().text);
        }
        return said;
    }

    CNbCwDB m_database;
    RecordingMessages m_messages;
    std::optional<HostSession> m_session;
};

TEST_P(WriteRights, EveryServiceRefusesWhoHasNotTheRightToWhatItWrites) {
    logOn({});
    EXPECT_EQ(refusals(),
              (std::vector<std::string>{
                  "你没有[结算方式设置]权限!", "你没有[凭证类别设置]权限!",
                  "你没有[凭证类别设置]权限!", "你没有[外币设置]权限!", "你没有[会计科目设置]权限!",
                  "你没有[主管]权限!", "你没有[部门目录]权限!", "你没有[个人往来目录]权限!",
                  "你没有[单位往来目录]权限!", "你没有[单位往来目录]权限!",
                  "你没有[项目大类定义]权限!", "你没有[项目定义及目录]权限!"}));
    for (const char* table : {"Settle", "Sign", "Cyrency", "Code", "Users", "Dept"}) {
        char** cells = nullptr;
        int columns = 0;
        int rows = 0;
        EXPECT_EQ(m_database.QRYGetData(std::string("SELECT lId FROM ") + table + " WHERE lId > 0",
                                        cells, columns, rows),
                  0);
        EXPECT_EQ(rows, 0) << table;
        m_database.QRYReleaseBuffer(cells, columns, rows);
    }
}

TEST_P(WriteRights, AreThoseOfTheFunctionsOfTheirNumbers) {
    const std::pair<WriteRight, const char*> names[] = {
        {WriteRight::persons, "个人往来目录"},        {WriteRight::departments, "部门目录"},
        {WriteRight::projectItems, "项目定义及目录"}, {WriteRight::projectClasses, "项目大类定义"},
        {WriteRight::parameters, "帐套参数调整"},     {WriteRight::accounts, "会计科目设置"},
        {WriteRight::opening, "期初余额录入"},        {WriteRight::carryForward, "上年结转"},
        {WriteRight::currencies, "外币设置"},         {WriteRight::voucherTypes, "凭证类别设置"},
        {WriteRight::settlement, "结算方式设置"},     {WriteRight::units, "单位往来目录"}};
    for (const auto& [right, name] : names) {
        const int function = static_cast<int>(right);
        EXPECT_STREQ(functionName(function), name);
        logOn({});
        EXPECT_TRUE(writeRefusal(right)) << name;
        logOn({function});
        EXPECT_FALSE(writeRefusal(right)) << name;
        for (const auto& [other, otherName] : names) {
            if (other != right) {
                EXPECT_TRUE(writeRefusal(other)) << otherName;
            }
        }
    }
}

TEST_P(WriteRights, AreAskedAnewWithEachChange) {
    logOn({57});
    _SettleInfo method{0, "1", "现金", 0};
    EXPECT_EQ(SettleService(m_messages).add(method, {}), Outcome::done);
    ASSERT_NE(m_database.QRYExecuteSQL("UPDATE UserAuth SET sAuthId = 'N' WHERE lUserId = 5"), 0);
    EXPECT_EQ(SettleService(m_messages).modify(method, {method.lId, "1", "现款", 0}, {}),
              Outcome::refused);
    EXPECT_EQ(m_messages.onlyNotice().text, "你没有[结算方式设置]权限!");
}

TEST_P(WriteRights, AreAllThoseOfASupervisorAndOfWhoWorksWithoutLoggingOn) {
    for (const auto& [manager, userId] : {std::pair{1, 5}, std::pair{0, 0}}) {
        logOn({}, manager, userId);
        for (const WriteRight right : {WriteRight::supervisor, WriteRight::own,
                                       WriteRight::settlement, WriteRight::accounts})
            EXPECT_FALSE(writeRefusal(right));
    }
    logOn({1, 8, 41});
    EXPECT_TRUE(writeRefusal(WriteRight::supervisor));
    EXPECT_FALSE(writeRefusal(WriteRight::own)) << "everybody's";
}

CHENGHENG_ON_ALL_ENGINES(WriteRights);

}  // namespace
