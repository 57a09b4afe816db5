#include "report/output/list_printing.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "accounts/printing/chart_list.h"
#include "base/system/workstation.h"
#include "currency/currency_list.h"
#include "data/access/CNbCwDB.h"
#include "data/connection/database.h"
#include "data/lookups/cached_records.h"
#include "data/tables/currency.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "session/last_failure.h"
#include "settle/settlement_list.h"
#include "tests/support/engine_cases.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/made_books.h"
#include "tests/support/recording_messages.h"
#include "tests/support/recording_printer.h"
#include "tests/support/report_rows.h"
#include "tests/support/small_books.h"
#include "vouchertype/voucher_type_list.h"

namespace chengheng {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const _CyrencyInfo dollar{7, 7, "USD", "美元", 1, 5, 0};

/// New books with their templates, and 王芳 at work on them.
class ListPrinting : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        const std::string location = makeBooks(freshLocation(GetParam()));
        auto engine = std::make_unique<FaultyEngine>(openForTest(location, OpenMode::existing));
        m_engine = engine.get();
        m_database.adopt(std::move(engine), location.c_str(), "books");
        logOn("books");
        ASSERT_NE(m_database.DBSelect("books"), 0);
        m_lookups.emplace("books");
    }
    void logOn(const char* name) {
        m_session.reset();
        m_session.emplace(SessionFacts{.database = &m_database,
                                       .databaseName = name,
                                       .setName = "示例帐套",
                                       .logonUser = {1, 1, 1, 1, "王芳"}});
    }
    void run(const std::string& batch) {
        ASSERT_NE(m_database.QRYExecuteSQL(batch), 0) << m_database.lastStatus().detail;
    }
    void addMethods() {
        run("INSERT Settle VALUES(1, '1', '现金', 0)\n"
            "INSERT Settle VALUES(2, '2', '转帐支票', 1)\n"
            "INSERT Settle VALUES(3, '3', 'O''Brien %', 3)\n"
            "INSERT Settle VALUES(4, '4', '电汇', 2)");
    }
    void print(const PrintedList& list, ReportOutput output = ReportOutput::print) {
        printList(list, output, m_messages, m_printer);
    }
    const Report& onlyReport() {
        EXPECT_EQ(m_printer.outputs.size(), 1u);
        static const Report none;
        return m_printer.outputs.empty() ? none : m_printer.outputs.front().report;
    }

    CNbCwDB m_database;
    FaultyEngine* m_engine = nullptr;
    RecordingMessages m_messages;
    RecordingPrinter m_printer;
    std::optional<HostSession> m_session;
    std::optional<BookLookups> m_lookups;
};

TEST_P(ListPrinting, TakesTitlePageAndColumnsFromTheTemplate) {
    print(settlementList());
    EXPECT_EQ(onlyReport().title, "结算方式一览表");
    EXPECT_EQ(onlyReport().page.paper, 9);
    EXPECT_TRUE(onlyReport().page.isPortrait);
    EXPECT_THAT(columnTexts(onlyReport()),
                ElementsAre("方式号 10", "方式名 30", "使用支票登记簿 18"));
    EXPECT_EQ(onlyReport().layoutFile, "Normal.rpn");
}

TEST_P(ListPrinting, FillsNumberNameAndTheMarkOfTheChequeRegister) {
    addMethods();
    print(settlementList());
    EXPECT_THAT(rowTexts(onlyReport()),
                ElementsAre("1|现金|-", "2|转帐支票|√", "3|O'Brien %|√", "4|电汇|-"));
    EXPECT_THAT(m_messages.texts(), IsEmpty());
}

TEST_P(ListPrinting, ReadsTheListAnewEachTime) {
    print(settlementList());
    addMethods();
    print(settlementList());
    ASSERT_EQ(m_printer.outputs.size(), 2u);
    EXPECT_EQ(m_printer.outputs[0].report.rowCount(), 0u);
    EXPECT_EQ(m_printer.outputs[1].report.rowCount(), 4u);
}

TEST_P(ListPrinting, TellsThePrinterWhichOfTheTwoCommandsItWas) {
    print(settlementList(), ReportOutput::print);
    print(settlementList(), ReportOutput::preview);
    ASSERT_EQ(m_printer.outputs.size(), 2u);
    EXPECT_EQ(m_printer.outputs[0].kind, ReportOutput::print);
    EXPECT_EQ(m_printer.outputs[1].kind, ReportOutput::preview);
}

TEST_P(ListPrinting, NamesCompanyBooksOperatorAndDayOfTheSession) {
    print(settlementList());
    const ReportFacts& facts = onlyReport().facts;
    EXPECT_EQ(facts.company, "示例贸易有限公司");
    EXPECT_EQ(facts.setName, "示例帐套");
    EXPECT_EQ(facts.operatorName, "王芳");
    EXPECT_EQ(facts.day, today());
}

TEST_P(ListPrinting, KeepsTheOrderOfTheTemplatesColumnsAndLeavesTheRestEmpty) {
    addMethods();
    run("DELETE ZWPrintSub WHERE lTieId = 35\n"
        "INSERT ZWPrintSub VALUES(900, 35, 'A', '', 3)\n"
        "INSERT ZWPrintSub VALUES(901, 35, 'B', '', 4)\n"
        "INSERT ZWPrintSub VALUES(902, 35, 'C', '', 5)\n"
        "INSERT ZWPrintSub VALUES(903, 35, 'D', '', 6)");
    print(settlementList());
    EXPECT_THAT(columnTexts(onlyReport()), ElementsAre("A 3", "B 4", "C 5", "D 6"));
    EXPECT_EQ(rowTexts(onlyReport()).at(1), "2|转帐支票|√|-");
}

TEST_P(ListPrinting, KeepsTheColumnsInTheirOrderWhenOneOfThemWasWidened) {
    addMethods();
    // A server that knows how small the table is reads it as it lies, changed rows last.
    runScript(m_engine->real(), "ANALYZE");
    run("UPDATE ZWPrintSub SET byWidth = 12 WHERE lTieId = 35 AND sColName = '方式号'");
    print(settlementList());
    EXPECT_THAT(columnTexts(onlyReport()),
                ElementsAre("方式号 12", "方式名 30", "使用支票登记簿 18"));
    EXPECT_EQ(rowTexts(onlyReport()).at(1), "2|转帐支票|√");
}

TEST_P(ListPrinting, PrintsEveryColumnWhateverWidthTheTemplateGivesIt) {
    addMethods();
    for (const auto& [stored, width] : {std::pair{"-5", 0}, {"0", 0}, {"255", 255}, {"300", 255}}) {
        plant(m_database.selectedDatabase()->engine(),
              std::string("UPDATE ZWPrintSub SET byWidth = ") + stored + " WHERE lTieId = 35");
        print(settlementList());
        const Report& report = m_printer.outputs.back().report;
        for (const ReportColumn& column : report.columns) EXPECT_EQ(column.width, width) << stored;
        EXPECT_EQ(report.rowCount(), 4u);
    }
}

TEST_P(ListPrinting, TurnsThePageForATemplateThatIsNotUpright) {
    run("UPDATE ZWPrintMain SET bPortrait = 0, byPage = 8 WHERE lId = 35");
    print(settlementList());
    EXPECT_FALSE(onlyReport().page.isPortrait);
    EXPECT_EQ(onlyReport().page.paper, 8);
}

TEST_P(ListPrinting, SaysSelectDBErrorAndPrintsNothingWhenTheBooksDoNotAnswer) {
    logOn("others");
    print(settlementList());
    EXPECT_EQ(m_messages.onlyNotice().text, "Select DB Error!");
    EXPECT_EQ(m_messages.onlyNotice().detail, lastFailureText());
    EXPECT_NE(m_messages.onlyNotice().detail, "");
    EXPECT_THAT(m_printer.outputs, IsEmpty());
}

TEST_P(ListPrinting, SaysWhichTemplateTheBooksLack) {
    run("DELETE ZWPrintMain WHERE lId = 35");
    print(settlementList());
    EXPECT_THAT(m_messages.onlyNotice().text, HasSubstr("没有35号打印模板"));
    EXPECT_THAT(m_printer.outputs, IsEmpty());
}

TEST_P(ListPrinting, TakesATemplateWithoutColumnsAsLacking) {
    run("DELETE ZWPrintSub WHERE lTieId = 35");
    print(settlementList());
    EXPECT_THAT(m_messages.onlyNotice().text, HasSubstr("没有35号打印模板"));
    EXPECT_THAT(m_printer.outputs, IsEmpty());
}

TEST_P(ListPrinting, SaysOnceWhyAndPrintsNothingWhicheverReadingFails) {
    addMethods();
    for (int call = 1;; ++call) {
        m_engine->failCall(call, Failure::damaged);
        print(settlementList());
        m_engine->failCall(0);
        // Behind the readings only the log is told, which may fail.
        if (!m_printer.outputs.empty()) {
            EXPECT_GT(call, 3);
            break;
        }
        EXPECT_THAT(m_messages.onlyNotice().text, testing::Not(HasSubstr("没有35号"))) << call;
        m_messages.forget();
    }
    EXPECT_EQ(onlyReport().rowCount(), 4u);
    EXPECT_THAT(m_messages.texts(), IsEmpty());
}

TEST_P(ListPrinting, PrintsTheAccountsOfARange) {
    const std::string insert = "INSERT Code (lId, sCode, sName, byGrade, sAssBook) VALUES";
    run("DELETE Code\n" + insert + "(1, '1001', '现金', 1, '')\n" + insert +
        "(2, '1002', '存款', 1, '')\n" + insert + "(3, '100201', '工行', 2, 'BC')\n" + insert +
        "(4, '10020101', '户', 3, '')\n" + insert + "(5, '1003', '其他', 1, 'R')");
    print(chartList({.firstCode = "1002", .lastCode = "1002", .lastLevel = 2}));
    EXPECT_THAT(rowTexts(onlyReport()),
                ElementsAre("1|1002|存款|-|-", "2|100201|  工行|-|部门往来"));
    EXPECT_EQ(onlyReport().keyColumn, 1u) << "the code, not the level";
}

TEST_P(ListPrinting, PrintsVoucherTypesWithTheirRestrictions) {
    run("DELETE Sign\n"
        "INSERT Sign VALUES(1, '收', '收款凭证', 1, '1001', '1002')\n"
        "INSERT Sign VALUES(2, '付', '付款凭证', 2, '1001', '1002')\n"
        "INSERT Sign VALUES(3, '转', '转帐凭证', 3, '1001', '1002')\n"
        "INSERT Sign VALUES(4, '记', '记帐凭证', 0, '', '')");
    print(voucherTypeList());
    EXPECT_EQ(onlyReport().title, "凭证类别一览表");
    EXPECT_THAT(rowTexts(onlyReport()),
                ElementsAre("收|收款凭证|借方必有|1001|1002", "付|付款凭证|贷方必有|1001|1002",
                            "转|转帐凭证|借贷必无|1001|1002", "记|记帐凭证|-|-|-"));
}

TEST_P(ListPrinting, PrintsCurrenciesWithTheWayTheyAreConverted) {
    run("DELETE Cyrency\n"
        "INSERT Cyrency VALUES(1, 1, 'USD', '美元', 1, 5, 0.00001)\n"
        "INSERT Cyrency VALUES(2, 2, 'JPY', '日元', 0, 2, 0)\n"
        "INSERT Cyrency VALUES(3, 3, 'EUR', '欧元', 1, 9, 100000)");
    print(currencyList());
    EXPECT_EQ(onlyReport().title, "外币一览表");
    EXPECT_THAT(rowTexts(onlyReport()), ElementsAre("USD|美元|原币*汇率 = 本位币|5|0.00001",
                                                    "JPY|日元|原币/汇率 = 本位币|2|0",
                                                    "EUR|欧元|原币*汇率 = 本位币|9|100000"));
}

TEST_P(ListPrinting, PrintsTheFixedRatesOfACurrencyByMonth) {
    run("INSERT ExchgFix VALUES(901, 7, '2026-02-01', 2, 1234.5, 0)\n"
        "INSERT ExchgFix VALUES(902, 7, '2026-01-01', 1, 7.123456, 7.2)\n"
        "INSERT ExchgFix VALUES(903, 8, '2026-03-01', 3, 1, 1)");
    print(rateList(RateKind::fixed, dollar));
    EXPECT_EQ(onlyReport().title, "固定汇率一览表");
    EXPECT_THAT(columnTexts(onlyReport()), ElementsAre("月份 14", "记帐汇率 20", "调整汇率 20"));
    EXPECT_EQ(onlyReport().lines.at(0).left, "外币:美元(USD)");
    EXPECT_THAT(rowTexts(onlyReport()),
                ElementsAre("2026.01|7.12346|7.20000", "2026.02|1,234.50000|-"));
}

TEST_P(ListPrinting, PutsEachFieldUnderItsHeadingWhenColumnsWereExchanged) {
    // A column of a template: its number, the field it has, and what it gets.
    const auto become = [this](int number, const char* column, const char* heading,
                               const char* field) {
        run(
            fmt::format("UPDATE ZWPrintSub SET sColName = '{}', sFiled = '{}#' "
                        "WHERE lTieId = {} AND sFiled = '{}'",
                        heading, field, number, column));
    };
    become(3, "dRate", "调整汇率", "dAdjustRate");
    become(3, "dAdjustRate", "记帐汇率", "dRate");
    become(4, "dtDate", "记帐汇率", "dRate");
    become(4, "dRate", "日期", "dtDate");
    become(2, "sExchCode", "币名", "sExchName");
    become(2, "sExchName", "币符", "sExchCode");
    run("UPDATE ZWPrintSub SET sFiled = REPLACE(sFiled, '#', '') WHERE sFiled LIKE '%#'");
    run("INSERT Cyrency VALUES(7, 7, 'USD', '美元', 1, 5, 0)\n"
        "INSERT ExchgFix VALUES(1, 7, '2026/1/1', 1, 7.1, 7.2)\n"
        "INSERT ExchgFlt VALUES(1, 7, '2026/2/1', 2, 7.3, 7.4)");
    print(rateList(RateKind::fixed, dollar));
    print(rateList(RateKind::floating, dollar));
    print(currencyList());
    ASSERT_EQ(m_printer.outputs.size(), 3u);
    const auto report = [this](std::size_t at) { return m_printer.outputs[at].report; };
    EXPECT_THAT(columnTexts(report(0)), ElementsAre("月份 14", "调整汇率 20", "记帐汇率 20"));
    EXPECT_THAT(rowTexts(report(0)), ElementsAre("2026.01|7.20000|7.10000"));
    EXPECT_THAT(columnTexts(report(1)), ElementsAre("记帐汇率 14", "日期 20", "调整汇率 20"));
    EXPECT_THAT(rowTexts(report(1)), ElementsAre("7.30000|2026.02.01|7.40000"));
    EXPECT_THAT(columnTexts(report(2)).front(), "币名 10");
    EXPECT_THAT(rowTexts(report(2)).front(), testing::StartsWith("美元|USD|"));
}

TEST_P(ListPrinting, GoesByPositionWhereATemplateNamesNoFieldOfTheList) {
    run("UPDATE ZWPrintSub SET sFiled = 'other' WHERE lTieId = 3\n"
        "INSERT ExchgFix VALUES(1, 7, '2026/1/1', 1, 7.1, 7.2)");
    print(rateList(RateKind::fixed, dollar));
    EXPECT_THAT(rowTexts(onlyReport()), ElementsAre("2026.01|7.10000|7.20000"));
}

TEST_P(ListPrinting, PrintsTheFloatingRatesOfAMonthOrOfTheYearByDay) {
    run("INSERT ExchgFlt VALUES(901, 7, '2026-02-28', 2, 7.5, 0)\n"
        "INSERT ExchgFlt VALUES(902, 7, '2026-02-01', 2, 7.25, 7.2)\n"
        "INSERT ExchgFlt VALUES(903, 7, '2026-03-01', 3, 0, 0)\n"
        "INSERT ExchgFlt VALUES(904, 8, '2026-02-01', 2, 1, 1)");
    print(rateList(RateKind::floating, dollar, 2));
    print(rateList(RateKind::floating, dollar));
    ASSERT_EQ(m_printer.outputs.size(), 2u);
    const Report& month = m_printer.outputs[0].report;
    EXPECT_EQ(month.title, "浮动汇率一览表");
    EXPECT_EQ(month.columns.at(0).heading, "日期");
    EXPECT_THAT(rowTexts(month), ElementsAre("2026.02.01|7.25000|7.20000", "2026.02.28|7.50000|-"));
    EXPECT_THAT(
        rowTexts(m_printer.outputs[1].report),
        ElementsAre("2026.02.01|7.25000|7.20000", "2026.02.28|7.50000|-", "2026.03.01|-|-"));
}

TEST_P(ListPrinting, SaysThatThereIsNoPrinterWhereNoneIsInstalled) {
    const HostMessages installed(m_messages);
    printList(settlementList(), ReportOutput::print, m_messages);
    EXPECT_EQ(m_messages.onlyNotice().text, "本程序没有打印功能。");
}

TEST_P(ListPrinting, UsesThePrinterThatIsInstalled) {
    const HostReportPrinter installed(m_printer);
    printList(settlementList(), ReportOutput::preview, m_messages);
    EXPECT_EQ(m_printer.outputs.size(), 1u);
}

CHENGHENG_ON_SHARED_ENGINES(ListPrinting);

}  // namespace
}  // namespace chengheng
