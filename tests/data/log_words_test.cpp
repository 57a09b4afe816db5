#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "accounts/changing/designation.h"
#include "accounts/transfer/chart_import.h"
#include "books/logon/own_password.h"
#include "books/parameters/parameters_service.h"
#include "currency/currency_service.h"
#include "currency/rates/rate_writing.h"
#include "currency/transfer/rate_import.h"
#include "data/access/row_lease.h"
#include "data/lookups/cached_records.h"
#include "directories/directory_service.h"
#include "directories/transfer/directory_import.h"
#include "opening/direction/direction_adjust.h"
#include "operators/operator_service.h"
#include "settle/settle_service.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/carry_books.h"
#include "tests/support/changing_files.h"
#include "tests/support/entry_books.h"
#include "tests/support/kept_log.h"
#include "vouchertype/preset/preset_service.h"
#include "vouchertype/transfer/voucher_type_import.h"
#include "vouchertype/voucher_type_service.h"

namespace log_words {
namespace {

using namespace chengheng;
using testing::ElementsAre;

/// A change, and the entry that it leaves.
struct Change {
    const char* file;   ///< where it is begun
    const char* entry;  ///< function and words
    std::function<Outcome()> make;
};

using Changes = std::vector<Change>;

/// Where a change is begun that leaves no entry with words of its own, and why.
const std::set<std::string> withoutWords{
    "books/carrying/carry_repeat.cpp",   // looks; the step writer writes
    "books/demo/demo_books.cpp",         // new books, whose log begins later
    "books/logon/books_session.cpp",     // who is logged on is no row of the log
    "books/logon/wrong_tries.cpp",       // nor are tries
    "books/newyear/new_year_books.cpp",  // asks for the right; writes other books
    "currency/currency_change.cpp",      // what all of currencies say theirs to
    "currency/currency_change.h",        // the same
    "operators/roles/server_roles.cpp",  // changes no row
    "session/record_change.cpp",         // what the others say theirs to
    "session/record_change.h",           // the same
};

template <class Import>
Outcome imported(Import import, const char* csv) {
    Sheet sheet;
    EXPECT_FALSE(readCsv(csv, sheet));
    const auto plan = import.plan(std::move(sheet), "表");
    return plan ? import.apply(*plan) : Outcome::failed;
}

/// Books of the supervisor 张三, whose log is kept, and those of the year before.
class LogWordsWalk : public testing::TestWithParam<EngineCase> {
  protected:
    LogWordsWalk() {
        now().addAccounts({"1001", "1002", "100201", "1003"});
        m_carry.mirror();
        m_carry.close("1001", 0, 5, 0);
        _UsersInfo user{1, 1, "张三", 1, hashPassword("old", PasswordCost::least)};
        EXPECT_EQ(database().Users_Edit(user), 0);
        books().run("UPDATE ABIdTable SET lLastId = 1 WHERE sTable = 'Cyrency'");
        m_log.emplace(database());
        m_lookups.emplace(g_lpszNbZwDBName);
    }
    OpeningTestBooks& now() { return m_carry.now(); }
    AccountBooks& books() { return now().books(); }
    CNbCwDB& database() { return now().database(); }
    RecordingMessages& messages() { return now().messages(); }
    Outcome answered(Answer answer, const std::function<Outcome()>& change) {
        messages().willAnswer(answer);
        return change();
    }

    void expectEntries(const Changes& changes) {
        for (const Change& change : changes) {
            SCOPED_TRACE(std::string(change.file) + " " + change.entry);
            m_log->news();
            messages().forget();
            EXPECT_EQ(change.make(), Outcome::done) << testing::PrintToString(messages().texts());
            EXPECT_THAT(m_log->news(), ElementsAre(change.entry));
            m_walked.insert(change.file);
        }
    }

    Changes onOpening();
    Changes onAccounts();
    Changes onCurrencies();
    Changes onSettlement();
    Changes onVoucherTypes();
    Changes onOperators();
    Changes onBooks();
    Changes onDirectories();

    CarryBooks m_carry{GetParam()};
    std::optional<KeptLog> m_log;
    std::optional<BookLookups> m_lookups;
    OpeningBooks m_opening;
    _SettleInfo m_method{0, "1", "现金", 0};
    _SignInfo m_type;
    _CyrencyInfo m_currency;
    OperatorRecord m_operator;
    std::set<std::string> m_walked;
};

Changes LogWordsWalk::onOpening() {
    const char* const steps = "opening/editing/step_writer.cpp";
    const auto typed = [this](const char* code, const char* text) {
        return now().type(code, text) ? Outcome::done : Outcome::failed;
    };
    return {
        {"books/carrying/carry_forward.cpp", "45 结转上年余额 1 个科目",
         [this] { return m_carry.carry(); }},
        {steps, "45 再次结转上年余额 1 个科目",
         [this] {
             m_carry.last("UPDATE AccSum SET mDebet = 7");
             return m_carry.repeat();
         }},
        {steps, "43 修改期初余额 1001 科目1001", [=] { return typed("1001", "8"); }},
        {steps, "43 修改期初余额 1001 科目1001 等 2 个科目",
         [this] {
             return now().work().writeFigures(
                 {{now().idOf("1001"), Measure::money, &Balance::opening, 1},
                  {now().idOf("100201"), Measure::money, &Balance::opening, 2}});
         }},
        {"opening/storing/saving.cpp", "43 汇总上级科目余额",
         [this] {
             now().work().beginEdit();
             books().run(
                 formatSql("UPDATE AccSum SET mBegin = 3 WHERE lCodeId = %d", now().idOf("1002")));
             m_log->news();
             return now().work().save();
         }},
        {"opening/screen/opening_work.cpp", "43 清除没有金额的余额记录",
         [this] {
             now().addRows("1003", 12);
             m_log->news();
             return now().work().refresh();
         }},
        {"opening/direction/direction_adjust.cpp", "43 调整余额方向 1003 科目1003 借 → 贷", [this] {
             EXPECT_TRUE(readOpeningBooks(database(), m_opening).isDone());
             messages().willAnswer(Answer::yes);
             return adjustDirection(m_opening, now().lineOf("1003"), messages());
         }}};
}

Changes LogWordsWalk::onAccounts() {
    const char* const service = "accounts/changing/account_service.cpp";
    return {{service, "41 增加科目 100301 备用金",
             [this] { return books().service().add(assetEntry("100301", "备用金")).outcome; }},
            {service, "41 修改科目 100301 备用金 → 100301 找零",
             [this] {
                 return books()
                     .service()
                     .modify(books().account("100301"), assetEntry("100301", "找零"))
                     .outcome;
             }},
            {service, "41 修改科目 100301 找零 → 100302 找零",
             [this] {
                 return books()
                     .service()
                     .modify(books().account("100301"), assetEntry("100302", "找零"))
                     .outcome;
             }},
            {service, "41 删除科目 100302 找零",
             [this] {
                 return answered(Answer::ok, [this] {
                     return books().service().remove("100302", "找零").outcome;
                 });
             }},
            {"accounts/changing/designation.cpp", "41 指定现金科目 1001,银行科目 1002",
             [this] {
                 messages().willAnswer(Answer::ok);
                 return DesignationService(messages()).designate("1001   现金", "1002   银行")
                            ? Outcome::done
                            : Outcome::failed;
             }},
            {"accounts/transfer/chart_import.cpp", "41 导入会计科目:新增 1 个,修改 1 个", [this] {
                 return imported(ChartImport(messages()),
                                 "科目编码,科目名称,科目类型\n1009,其他,资产\n1003,别的,资产\n");
             }}};
}

Changes LogWordsWalk::onCurrencies() {
    const char* const service = "currency/currency_service.cpp";
    const CurrencyInput euro{.symbol = "EUR", .name = "欧元"};
    const auto changed = [](std::size_t month, double rate) {
        const RateRow row = readRates(RateKind::fixed, 1, 2026)->at(month);
        RateRow after = row;
        after.rate = rate;
        return RateChange{1, RateKind::fixed, row, after};
    };
    return {{service, "46 增加外币 EUR 欧元",
             [=, this] { return CurrencyService(messages()).add(euro, 2026, m_currency); }},
            {service, "46 修改外币 EUR 欧元 → EUR 欧币",
             [=, this] {
                 const _CyrencyInfo loaded = m_currency;
                 CurrencyInput input = euro;
                 input.name = "欧币";
                 return CurrencyService(messages()).modify(loaded, input, m_currency);
             }},
            {service, "46 删除外币 EUR 欧币",
             [this] {
                 messages().willAnswer(Answer::yes);
                 return CurrencyService(messages()).remove(m_currency.lId, false);
             }},
            {service, "46 修改固定汇率 USD 美元 2026.03",
             [=, this] {
                 RateEdit written;
                 return CurrencyService(messages())
                     .writeRate(RateKind::fixed, 1, changed(2, 0).before.id, RateColumn::rate, 7,
                                written);
             }},
            {"currency/rates/rate_writing.cpp", "46 修改固定汇率 USD 美元 2026.04",
             [=, this] {
                 const std::vector<RateChange> changes{changed(3, 7.5)};
                 return writeRates(messages(), changes);
             }},
            {"currency/rates/rate_writing.cpp", "46 修改固定汇率 USD 美元 2 项",
             [=, this] {
                 const std::vector<RateChange> changes{changed(4, 7.6), changed(5, 7.7)};
                 return writeRates(messages(), changes);
             }},
            {"currency/transfer/rate_import.cpp", "46 导入汇率:修改 1 项", [this] {
                 return imported(RateImport(messages(), 2026, {.currency = 1}),
                                 "月份,汇率\n8,7.8\n");
             }}};
}

Changes LogWordsWalk::onSettlement() {
    const char* const service = "settle/settle_service.cpp";
    return {{service, "57 增加结算方式 1 现金",
             [this] { return SettleService(messages()).add(m_method, {}); }},
            {service, "57 修改结算方式 1 现金 → 1 现款",
             [this] {
                 const _SettleInfo loaded = std::exchange(m_method, {m_method.lId, "1", "现款", 0});
                 return SettleService(messages()).modify(loaded, m_method, {});
             }},
            {service, "57 修改结算方式 1 现款",
             [this] {
                 const _SettleInfo loaded = std::exchange(m_method, {m_method.lId, "1", "现款", 1});
                 return SettleService(messages()).modify(loaded, m_method, {});
             }},
            {service, "57 删除结算方式 1 现款", [this] {
                 messages().willAnswer(Answer::yes);
                 const Leaf leaf{m_method.lId, "1 现款"};
                 return SettleService(messages()).remove(&leaf, m_method);
             }}};
}

Changes LogWordsWalk::onVoucherTypes() {
    const char* const service = "vouchertype/voucher_type_service.cpp";
    return {
        {service, "52 增加凭证类别 收 收款凭证",
         [this] {
             m_type.sSign = "收";
             m_type.sSignName = "收款凭证";
             return VoucherTypeService(messages()).add(m_type);
         }},
        {service, "52 修改凭证类别 收 收款凭证 → 收 收入凭证",
         [this] {
             const _SignInfo loaded = m_type;
             m_type.sSignName = "收入凭证";
             return VoucherTypeService(messages()).modify(loaded, m_type);
         }},
        {service, "52 删除凭证类别 收 收入凭证",
         [this] {
             messages().willAnswer(Answer::yes);
             return VoucherTypeService(messages()).remove(m_type.lId);
         }},
        {"vouchertype/transfer/voucher_type_import.cpp", "52 导入凭证类别:新增 1 个,修改 0 个",
         [this] { return imported(VoucherTypeImport(messages()), "类别,名称\n付,付款凭证\n"); }},
        {"vouchertype/preset/preset_service.cpp",
         "52 预置凭证类别 收 收款凭证 付 付款凭证 转 转帐凭证", [this] {
             books().run("DELETE Sign WHERE lId > 0");
             m_log->news();
             return PresetService(messages()).finish(PresetSet::receiptsAndPayments);
         }}};
}

Changes LogWordsWalk::onOperators() {
    const char* const service = "operators/operator_service.cpp";
    const auto operators = [this] { return OperatorService(messages(), PasswordCost::least); };
    return {{service, "0 增加操作员 王芳",
             [=, this] {
                 return operators().add({"王芳", "", ""}, m_operator);
             }},
            {service, "0 修改操作员 王芳 → 王方",
             [=, this] {
                 return operators().modify({"王方", "", ""}, m_operator);
             }},
            {service, "0 修改操作员 王方 的口令",
             [=, this] {
                 return operators().modify({"王方", "neu", "neu"}, m_operator);
             }},
            {service, "0 更改操作员 王方 的权限:增加 1 项:出纳(结算方式设置)",
             [=, this] {
                 RightsChange change;
                 change.granted.set(56);
                 return operators().saveRights(change, m_operator);
             }},
            {service, "0 把操作员 王方 设为主管",
             [=, this] {
                 messages().willAnswer(Answer::yes);
                 return operators().setSupervisor(true, m_operator);
             }},
            {service, "0 取消操作员 王方 的主管资格",
             [=, this] {
                 messages().willAnswer(Answer::yes);
                 return operators().setSupervisor(false, m_operator);
             }},
            {service, "0 删除操作员 王方", [=, this] {
                 messages().willAnswer(Answer::yes);
                 return operators().remove(&m_operator);
             }}};
}

Changes LogWordsWalk::onBooks() {
    return {{"books/parameters/parameters_service.cpp",
             "40 修改帐套参数:单位名称  → 乙公司、科目级长 4222 → 42222",
             [this] {
                 ParametersService service(messages(), nullptr);
                 ParameterFacts facts;
                 EXPECT_EQ(service.read(facts), Outcome::done);
                 BooksParameters wanted = parametersOf(facts.stored);
                 wanted.company = "乙公司";
                 wanted.levelPattern = "42222";
                 return service.change({facts, wanted, false});
             }},
            {"books/logon/own_password.cpp", "0 修改本人 张三 的口令", [this] {
                 OwnPassword form(messages(), PasswordCost::least);
                 form.old = "old";
                 form.wanted = form.confirmation = "neu";
                 return form.confirm() ? Outcome::done : Outcome::failed;
             }}};
}

Changes LogWordsWalk::onDirectories() {
    const char* const service = "directories/directory_service.cpp";
    const char* const nouns[] = {"8 {}部门 D1 甲",  "1 {}个人 D1 甲",      "75 {}单位分类 D1 甲",
                                 "75 {}单位 D1 甲", "14 {}项目大类 D1 甲", "13 {}项目 D1 甲"};
    static std::vector<std::string> entries;
    entries.clear();
    entries.reserve(3 * std::size(nouns));
    const auto entry = [](const char* noun, const char* deed) {
        std::string text = noun;
        return entries.emplace_back(text.replace(text.find("{}"), 2, deed)).c_str();
    };
    Changes changes;
    std::size_t at = 0;
    for (const Directory& directory : directories()) {
        const auto record = std::make_shared<DirectoryRecord>();
        const char* const noun = nouns[at++];
        changes.push_back({service, entry(noun, "增加"), [=, this, &directory] {
                               record->code = "D1";
                               record->name = "甲";
                               record->group = directory.groups ? 1 : 0;
                               return DirectoryService(messages(), directory).add(*record);
                           }});
        changes.push_back(
            {service, entry((std::string(noun) + " → D1 乙").c_str(), "修改"),
             [=, this, &directory] {
                 const DirectoryRecord loaded = *record;
                 record->name = "乙";
                 return DirectoryService(messages(), directory).modify(loaded, *record);
             }});
        std::string deleted = noun;
        deleted.replace(deleted.rfind("甲"), std::string("甲").size(), "乙");
        changes.push_back({service, entry(deleted.c_str(), "删除"), [=, this, &directory] {
                               messages().willAnswer(Answer::yes);
                               return DirectoryService(messages(), directory).remove(record.get());
                           }});
    }
    changes.push_back(
        {"directories/transfer/directory_import.cpp", "8 导入部门:新增 2 个,修改 0 个", [this] {
             return imported(DirectoryImport(messages(), directories().front()),
                             "编码,名称\n91,甲部\n92,乙部\n");
         }});
    return changes;
}

TEST_P(LogWordsWalk, EveryChangeOfEveryServiceLeavesOneEntryInItsWords) {
    m_carry.addMembers();
    ASSERT_EQ(now().work().refresh(), Outcome::done);
    for (const Changes& changes : {onOpening(), onAccounts(), onCurrencies(), onSettlement(),
                                   onVoucherTypes(), onOperators(), onBooks(), onDirectories()})
        expectEntries(changes);
    std::set<std::string> known = withoutWords;
    known.insert(m_walked.begin(), m_walked.end());
    known.insert("auxiliary/entries/entry_service.cpp");
    EXPECT_THAT(changingFiles(), testing::ElementsAreArray(known))
        << "a service that writes says in the log what it does, and is walked through here";
}

TEST_P(LogWordsWalk, SoDoThoseOfAuxiliaryEntries) {
    EntryBooks books(freshLocation(GetParam()));
    const AuxiliaryMember& member = auxiliaryMembers().front();
    const AuxiliaryAccount account = books.account(member);
    KeptLog log(books.database());
    EntryService service = books.service(member);
    AuxiliaryEntry entry = EntryBooks::entry(member, 1, 5);
    const auto entryOf = [&](const char* deed, int count) {
        return "43 " + std::string(deed) + "期初明细 " + account.code + " " + account.name + " " +
               std::to_string(count) + " 笔";
    };
    EXPECT_EQ(service.add(account, entry), Outcome::done);
    EXPECT_THAT(log.news(), ElementsAre(entryOf("增加", 1)));
    const AuxiliaryEntry before = entry;
    entry.content.money = 7;
    EXPECT_EQ(service.modify(account, before, entry), Outcome::done);
    EXPECT_THAT(log.news(), ElementsAre(entryOf("修改", 1)));
    EntryChange changes[] = {{.before = entry, .after = {}},
                             {.before = {}, .after = EntryBooks::entry(member, 2, 3)}};
    EXPECT_EQ(service.write(account, changes), Outcome::done);
    EXPECT_THAT(log.news(), ElementsAre(entryOf("修改", 2)));
    EXPECT_EQ(service.remove(account, *changes[1].after), Outcome::done);
    EXPECT_THAT(log.news(), ElementsAre(entryOf("删除", 1)));
}

CHENGHENG_ON_SHARED_ENGINES(LogWordsWalk);

}  // namespace
}  // namespace log_words
