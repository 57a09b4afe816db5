#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "accounts/changing/designation.h"
#include "accounts/transfer/chart_import.h"
#include "books/carrying/carry_repeat.h"
#include "books/newyear/new_year_books.h"
#include "books/parameters/parameters_service.h"
#include "currency/currency_service.h"
#include "currency/rates/rate_writing.h"
#include "currency/transfer/rate_import.h"
#include "data/connection/database.h"
#include "data/transfer/content_digest.h"
#include "directories/directory_service.h"
#include "directories/transfer/directory_import.h"
#include "opening/direction/direction_adjust.h"
#include "operators/operator_service.h"
#include "operators/roles/server_roles.h"
#include "settle/settle_service.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/carry_books.h"
#include "tests/support/changing_files.h"
#include "tests/support/entry_books.h"
#include "tests/support/operator_books.h"
#include "vouchertype/preset/preset_service.h"
#include "vouchertype/transfer/voucher_type_import.h"
#include "vouchertype/voucher_type_service.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;

/// A change that somebody without a right tries.
struct Writing {
    const char* file;   ///< where it asks for the right
    const char* right;  ///< whose name it is refused by
    std::function<void()> write;
};

/// Where the books are written to without a right being asked for, and why.
const std::set<std::string> withoutRight{
    "books/demo/demo_books.cpp",        // new books
    "books/logon/books_session.cpp",    // who is logged on, the own password
    "books/logon/own_password.cpp",     // the own password
    "books/logon/wrong_tries.cpp",      // counting tries
    "opening/screen/opening_work.cpp",  // sums of nothing go; what was typed stays
    "opening/storing/saving.cpp",       // sums above others follow from those below
    "session/record_change.cpp",        // what asks
    "session/record_change.h",          // the same
    "currency/currency_change.h",       // what asks for all of currencies
    "currency/currency_change.cpp",     // the same
};

template <class Import>
void importRows(Import import, const char* csv) {
    Sheet sheet;
    ASSERT_FALSE(readCsv(csv, sheet));
    const auto plan = import.plan(std::move(sheet), "表");
    ASSERT_TRUE(plan && plan->isAcceptable());
    import.apply(*plan);
}

/// Books that the supervisor 张三 works on, who is none any more since he logged on.
class RightsWalk : public testing::TestWithParam<EngineCase> {
  protected:
    RightsWalk() {
        m_carry.now().addAccounts({"1001", "1002"});
        m_carry.mirror();
        m_carry.close("1001", 0, 5, 0);
    }
    RecordingMessages& messages() { return m_carry.messages(); }
    CNbCwDB& database() { return m_carry.now().database(); }

    static void endSupervision(AccountBooks& books) {
        books.run("UPDATE Users SET bManager = 0 WHERE lUserId = 1");
    }
    static std::vector<TableDigest> content(CNbCwDB& database) {
        std::vector<TableDigest> digests;
        EXPECT_TRUE(digestContent(database.selectedDatabase()->engine(), digests).isDone());
        // Which tells of what was refused.
        std::erase_if(digests, [](const TableDigest& table) {
            return table.table.starts_with("OperationLog");
        });
        return digests;
    }
    /// Whether each is refused by the name of its right and writes nothing.
    static void expectRefused(const std::vector<Writing>& writings, RecordingMessages& messages,
                              CNbCwDB& database) {
        const auto before = content(database);
        for (const Writing& writing : writings) {
            SCOPED_TRACE(std::string(writing.file) + " " + writing.right);
            messages.forget();
            messages.whileShown({});
            writing.write();
            ASSERT_FALSE(messages.notices().empty());
            EXPECT_EQ(messages.notices().back().text,
                      "你没有[" + std::string(writing.right) + "]权限!");
            EXPECT_EQ(messages.notices().back().icon, MessageIcon::stop);
            EXPECT_EQ(content(database), before);
        }
    }
    void answer(Answer given) { messages().willAnswer(given); }

    std::vector<Writing> onAccounts();
    std::vector<Writing> onOpening();
    std::vector<Writing> onCurrencies();
    std::vector<Writing> onSettings();
    std::vector<Writing> onBooks();
    std::vector<Writing> onDirectories();
    std::vector<Writing> all() {
        std::vector<Writing> writings;
        for (const auto& some :
             {onAccounts(), onOpening(), onCurrencies(), onSettings(), onBooks(), onDirectories()})
            writings.insert(writings.end(), some.begin(), some.end());
        return writings;
    }

    CarryBooks m_carry{GetParam()};
    OpeningBooks m_opening;
};

std::vector<Writing> RightsWalk::onAccounts() {
    constexpr const char* right = "会计科目设置";
    return {{"accounts/changing/account_service.cpp", right,
             [this] { m_carry.now().books().service().add(assetEntry("1003")); }},
            {"accounts/changing/account_service.cpp", right,
             [this] {
                 answer(Answer::ok);
                 m_carry.now().books().service().remove("1002", "科目1002");
             }},
            {"accounts/changing/designation.cpp", right,
             [this] {
                 answer(Answer::ok);
                 DesignationService(messages()).designate("1001   库存现金", "1002   银行存款");
             }},
            {"accounts/transfer/chart_import.cpp", right, [this] {
                 importRows(ChartImport(messages()),
                            "科目编码,科目名称,科目类型\n1003,备用金,资产\n");
             }}};
}

std::vector<Writing> RightsWalk::onOpening() {
    constexpr const char* right = "期初余额录入";
    return {{"opening/editing/step_writer.cpp", right,
             [this] { EXPECT_FALSE(m_carry.now().type("1001", "5")); }},
            {"opening/direction/direction_adjust.cpp", right, [this] {
                 answer(Answer::yes);
                 adjustDirection(m_opening, 1, messages());
             }}};
}

std::vector<Writing> RightsWalk::onCurrencies() {
    constexpr const char* right = "外币设置";
    return {{"currency/currency_service.cpp", right,
             [this] {
                 _CyrencyInfo added;
                 CurrencyService(messages())
                     .add({.symbol = "EUR",
                           .name = "欧元",
                           .mode = RateMode::multiplied,
                           .decimals = "4",
                           .maxError = "0.00001"},
                          2026, added);
             }},
            {"currency/transfer/rate_import.cpp", right,
             [this] {
                 importRows(RateImport(messages(), 2026, {.currency = 1}), "月份,汇率\n2,7.1\n");
             }},
            {"currency/rates/rate_writing.cpp", right, [this] {
                 const RateChange change{
                     .currency = 1, .kind = RateKind::fixed, .before = {}, .after = {.rate = 7.5}};
                 writeRates(messages(), std::span(&change, 1));
             }}};
}

std::vector<Writing> RightsWalk::onSettings() {
    return {{"settle/settle_service.cpp", "结算方式设置",
             [this] {
                 _SettleInfo method{0, "1", "现金", 0};
                 SettleService(messages()).add(method, {});
             }},
            {"vouchertype/voucher_type_service.cpp", "凭证类别设置",
             [this] {
                 _SignInfo type;
                 type.sSign = "收";
                 type.sSignName = "收款凭证";
                 VoucherTypeService(messages()).add(type);
             }},
            {"vouchertype/preset/preset_service.cpp", "凭证类别设置",
             [this] { PresetService(messages()).finish(PresetSet::unclassified); }},
            {"vouchertype/transfer/voucher_type_import.cpp", "凭证类别设置",
             [this] { importRows(VoucherTypeImport(messages()), "类别,名称\n收,收款凭证\n"); }},
            {"operators/operator_service.cpp", "主管",
             [this] {
                 OperatorRecord added;
                 OperatorService(messages(), PasswordCost::least).add({"王芳", "", ""}, added);
             }},
            {"operators/roles/server_roles.cpp", "主管",
             [this] {
                 RolesOutcome outcome;
                 ServerRoles(messages()).bringIntoLine({}, outcome);
             }},
            {"operators/roles/server_roles.cpp", "主管", [this] {
                 RolesOutcome outcome;
                 ServerRoles(messages()).end(outcome);
             }}};
}

std::vector<Writing> RightsWalk::onBooks() {
    return {{"books/parameters/parameters_service.cpp", "帐套参数调整",
             [this] {
                 ParametersService service(messages(), nullptr);
                 ParameterFacts facts;
                 ASSERT_EQ(service.read(facts), Outcome::done);
                 BooksParameters wanted = parametersOf(facts.stored);
                 wanted.company = "乙公司";
                 service.change({facts, wanted, false});
             }},
            {"books/carrying/carry_forward.cpp", "上年结转", [this] { m_carry.carry(); }},
            {"books/carrying/carry_repeat.cpp", "上年结转",
             [this] {
                 RepeatPlan plan;
                 std::vector<Notice> untold;
                 EXPECT_EQ(lookAtRepeat(m_carry.registry(), plan, untold), Outcome::refused);
                 for (const Notice& notice : untold) messages().tell(notice);
             }},
            {"books/newyear/new_year_books.cpp", "重建帐", [this] {
                 NewYearPlan made;
                 const auto refusal =
                     NewYearBooks(m_carry.registry()).make({.books = m_carry.location()}, {}, made);
                 ASSERT_TRUE(refusal);
                 messages().tell(refusal->notice);
             }}};
}

std::vector<Writing> RightsWalk::onDirectories() {
    std::vector<Writing> writings;
    const char* const rights[] = {"部门目录",     "个人往来目录", "单位往来目录",
                                  "单位往来目录", "项目大类定义", "项目定义及目录"};
    std::size_t at = 0;
    for (const Directory& directory : directories()) {
        const char* const right = rights[at++];
        writings.push_back({"directories/directory_service.cpp", right, [this, &directory] {
                                DirectoryRecord record;
                                record.code = "01";
                                record.name = "某某";
                                DirectoryService(messages(), directory).add(record);
                            }});
        if (directory.kind == DirectoryKind::department)
            writings.push_back(
                {"directories/transfer/directory_import.cpp", right, [this, &directory] {
                     importRows(DirectoryImport(messages(), directory), "编码,名称\n01,销售部\n");
                 }});
    }
    return writings;
}

TEST_P(RightsWalk, EveryServiceRefusesASupervisorWhoIsNoneAnyMoreAndHasNoOtherRight) {
    ASSERT_EQ(m_carry.now().work().refresh(), Outcome::done);
    ASSERT_TRUE(readOpeningBooks(database(), m_opening).isDone());
    endSupervision(m_carry.now().books());
    EXPECT_EQ(g_lpLogonUserInfo->lManager, 1) << "what he was when he logged on";
    expectRefused(all(), messages(), database());
}

TEST_P(RightsWalk, SoDoesThatOfAuxiliaryEntries) {
    EntryBooks books(freshLocation(GetParam()));
    const AuxiliaryMember& member = auxiliaryMembers().front();
    const AuxiliaryAccount account = books.account(member);
    endSupervision(books.books());
    AuxiliaryEntry entry = EntryBooks::entry(member, 1, 5);
    expectRefused({{"auxiliary/entries/entry_service.cpp", "期初余额录入",
                    [&] { books.service(member).add(account, entry); }}},
                  books.messages(), books.database());
}

TEST_P(RightsWalk, IsMadeByEveryFileThatBeginsAChange) {
    std::set<std::string> known = withoutRight;
    known.insert("auxiliary/entries/entry_service.cpp");
    for (const Writing& writing : all()) known.insert(writing.file);
    EXPECT_THAT(changingFiles(), testing::ElementsAreArray(known))
        << "a service that writes asks for a right, and is among those walked through here";
}

CHENGHENG_ON_SHARED_ENGINES(RightsWalk);

}  // namespace
