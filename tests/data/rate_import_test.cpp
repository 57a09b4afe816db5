#include "currency/transfer/rate_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "sheets/delimited/delimited_text.h"
#include "tests/support/currency_books.h"
#include "tests/support/engine_cases.h"
#include "tests/support/run_tool.h"

namespace {

using namespace chengheng;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

Sheet readSheet(const std::string& csv) {
    Sheet sheet;
    EXPECT_FALSE(readCsv(csv, sheet));
    return sheet;
}

class RateImports : public testing::TestWithParam<EngineCase> {
  protected:
    RateImports() {
        m_books.insert("USD", "美元");
        m_books.insert("EUR", "欧元");
    }
    Outcome import(const std::string& csv, QuotedAs quotedAs = {}) {
        RateImport import(m_books.messages, 2026, quotedAs);
        const auto plan = import.plan(readSheet(csv), "汇率.csv");
        return plan ? import.apply(*plan) : Outcome::failed;
    }
    Texts rates() {
        Texts all = m_books.filledRates("ExchgFix");
        for (std::string& rate : m_books.filledRates("ExchgFlt")) all.push_back(std::move(rate));
        return all;
    }

    CurrencyBooks m_books{freshLocation(GetParam())};
};

TEST_P(RateImports, WriteTheRatesOfSeveralCurrencies) {
    EXPECT_EQ(import("日期,USD,EUR\n2026-01-02,7.1,8.1\n2026-01-03,7.2,\n"), Outcome::done);
    EXPECT_EQ(rates(), (Texts{"2 1 2026-01-02 1 7.1 0", "3 1 2026-01-03 1 7.2 0",
                              "367 2 2026-01-02 1 8.1 0"}));
    EXPECT_TRUE(m_books.messages.texts().empty());
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_EQ(import("月份,汇率,调整汇率\n2,7.1,7.2\n", {.currency = 1}), Outcome::done);
    EXPECT_EQ(m_books.filledRates("ExchgFix"), Texts{"2 1 2026-02-01 2 7.1 7.2"});
}

TEST_P(RateImports, NeedACurrencyWhereTheSheetNamesNone) {
    EXPECT_EQ(import("月份,汇率\n2,7.1\n"), Outcome::failed);
    EXPECT_THAT(m_books.messages.onlyNotice().text,
                HasSubstr("没有“币符”列,不知道是哪一种外币的汇率。请先选择外币。"));
    m_books.messages.forget();
    EXPECT_EQ(import("月份,汇率\n2,7.1\n", {.currency = 3}), Outcome::failed);
    EXPECT_EQ(rates(), Texts{});
}

TEST_P(RateImports, AreWholeOrNotAtAll) {
    EXPECT_EQ(import("日期,USD\n2026-01-02,7.1\n2026-01-03,x\n"), Outcome::refused);
    EXPECT_THAT(m_books.messages.onlyNotice().text, HasSubstr("有 1 行被拒绝,没有导入。"));
    EXPECT_EQ(rates(), Texts{});
}

TEST_P(RateImports, AskOnceAboutWhatDepartsAndDoNothingWithoutConsent) {
    const std::string csv = "日期,USD\n2026-01-02,7.1\n2026-01-03,71\n";
    m_books.messages.willAnswer(Answer::cancel);
    EXPECT_EQ(import(csv), Outcome::refused);
    EXPECT_EQ(rates(), Texts{});
    m_books.messages.willAnswer(Answer::ok);
    EXPECT_EQ(import(csv), Outcome::done);
    EXPECT_EQ(rates().size(), 2u);
}

TEST_P(RateImports, AreOutdatedWhenTheBooksNoLongerGiveThePlan) {
    for (const char* change : {"UPDATE ExchgFlt SET dRate = 9 WHERE lId = 2",
                               "UPDATE Cyrency SET bMode = 0 WHERE lId = 1",
                               "UPDATE Cyrency SET byDecimal = 2 WHERE lId = 1"}) {
        RateImport import(m_books.messages, 2026, {});
        const auto plan = import.plan(readSheet("日期,USD\n2026-01-02,7.123\n"), "汇率.csv");
        ASSERT_TRUE(plan);
        if (std::string(change).find("bMode") != std::string::npos) {
            // The rate is quoted as the currency is: the plan stays the same.
            m_books.run(change);
            EXPECT_EQ(import.apply(*plan), Outcome::done);
            m_books.run("UPDATE ExchgFlt SET dRate = 0 WHERE lId = 2");
            continue;
        }
        m_books.run(change);
        const Texts before = rates();
        EXPECT_EQ(import.apply(*plan), Outcome::stale) << change;
        EXPECT_THAT(m_books.messages.onlyNotice().text, HasSubstr("预览之后"));
        m_books.messages.forget();
        EXPECT_EQ(rates(), before);
        m_books.run("UPDATE ExchgFlt SET dRate = 0 WHERE lId = 2");
    }
}

TEST_P(RateImports, OfARateQuotedTheOtherWayAreOutdatedByAnotherMode) {
    RateImport import(m_books.messages, 2026, {.mode = RateMode::multiplied});
    const auto plan = import.plan(readSheet("日期,USD\n2026-01-02,8\n"), "汇率.csv");
    ASSERT_TRUE(plan);
    m_books.run("UPDATE Cyrency SET bMode = 0 WHERE lId = 1");
    EXPECT_EQ(import.apply(*plan), Outcome::stale);
    EXPECT_EQ(rates(), Texts{});
}

TEST_P(RateImports, ReadBackWhatWasExported) {
    ASSERT_EQ(import("月份,汇率,调整汇率\n2,7.1,7.2\n10,7.3,\n", {.currency = 1}), Outcome::done);
    const std::string file = freshFolder() + "/rates.xlsx";
    EXPECT_EQ(exportRates(m_books.messages, RateKind::fixed, 1, 2026, file, Overwrite::refuse),
              Outcome::done);
    RateImport import(m_books.messages, 2026, {});
    const auto plan = import.plan(file);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->rows.size(), 2u);
    EXPECT_EQ(plan->count(RowFate::unchanged), 2u);
    EXPECT_EQ(exportRates(m_books.messages, RateKind::fixed, 9, 2026, file, Overwrite::replace),
              Outcome::stale);
    EXPECT_EQ(m_books.messages.texts().size(), 1u);
}

CHENGHENG_ON_ALL_ENGINES(RateImports);

/// The same from the command line.
class RateCommands : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        CurrencyBooks books(m_books);
        books.run(
            "INSERT INTO zAccountM (lId, sName, dtStart, sCodeLen, bFgn, lYear) "
            "VALUES (1, '甲', '2026/1/1', '4222', 1, 2026)");
        books.insert("USD", "美元");
        books.insert("JPY", "日元");
    }
    ToolRun import(const std::string& csv, Texts more = {}) const {
        std::ofstream(m_folder + "in.csv") << csv;
        Texts arguments{"import-rates", m_books, m_folder + "in.csv"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return runInProcess(arguments);
    }
    Texts rates() const {
        CurrencyBooks books(m_books, false);
        Texts all = books.filledRates("ExchgFix");
        for (std::string& rate : books.filledRates("ExchgFlt")) all.push_back(std::move(rate));
        return all;
    }

    std::string m_books = freshLocation(GetParam());
    std::string m_folder = freshFolder() + "/";
};

TEST_P(RateCommands, ImportWhatTheFileGivesAfterADryRun) {
    const std::string csv = "日期,usd,100日元\n2026-02-01,7.1,4.85\n";
    ToolRun run = import(csv, {"--dry-run"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(run.out,
              "第 2 行 修改 2026.02.01 USD 7.1、JPY 0.0485\n"
              "新增 0 行,修改 1 行,不变 0 行,拒绝 0 行。\n");
    EXPECT_EQ(rates(), Texts{});
    run = import(csv);
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(rates(), (Texts{"32 1 2026-02-01 2 7.1 0", "397 2 2026-02-01 2 0.0485 0"}));
}

TEST_P(RateCommands, ImportTheRatesOfTheCurrencyThatIsNamedAsTheyAreQuoted) {
    EXPECT_EQ(
        import("月份,汇率\n3,16\n", {"--currency", "日元", "--units", "2", "--quoted", "foreign"})
            .code,
        toolDone);
    EXPECT_EQ(rates(), Texts{"15 2 2026-03-01 3 0.125 0"});
    EXPECT_EQ(
        import("月份,汇率\n3,0.25\n", {"--currency", "JPY", "--quoted", "home", "--accept"}).code,
        toolDone);
    EXPECT_EQ(rates(), Texts{"15 2 2026-03-01 3 0.25 0"});
    const ToolRun run = import("月份,汇率\n3,1\n", {"--currency", "ZZZ"});
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_THAT(run.err, HasSubstr("帐套中没有币符为“ZZZ”的外币。"));
    EXPECT_EQ(import("月份,汇率\n3,1\n", {"--quoted", "both"}).code, toolWrongUsage);
    EXPECT_EQ(import("月份,汇率\n3,1\n", {"--units", "0"}).code, toolWrongUsage);
    EXPECT_THAT(import("月份,汇率\n3,1\n", {"--quoted", "x"}).err,
                HasSubstr("--quoted 应为 home 或 foreign,不能是“x”。"));
}

TEST_P(RateCommands, WantConsentToWhatDeparts) {
    const std::string csv = "日期,USD\n2026-02-01,7.1\n2026-02-02,71\n";
    const ToolRun run = import(csv);
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_THAT(run.out, HasSubstr("    需确认:USD 的汇率 71 与之前的 7.1 相差过半\n"));
    EXPECT_THAT(run.err, HasSubstr("没有导入。确认无误后请加 --accept 重新执行。"));
    EXPECT_EQ(rates(), Texts{});
    EXPECT_EQ(import(csv, {"--accept"}).code, toolDone);
    EXPECT_EQ(rates().size(), 2u);
}

TEST_P(RateCommands, ExportWhatReadsBack) {
    ASSERT_EQ(import("日期,USD\n2026-02-01,7.1\n").code, toolDone);
    const std::string file = m_folder + "out.csv";
    ToolRun run = runInProcess({"export-rates", m_books, "USD", "days", file});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(run.out, "汇率已导出到“" + file + "”。\n");
    run = runInProcess({"import-rates", m_books, file});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(run.out, HasSubstr("不变 1 行"));
    EXPECT_EQ(runInProcess({"export-rates", m_books, "USD", "weeks", file}).code, toolWrongUsage);
    EXPECT_EQ(runInProcess({"export-rates", m_books, "USD", "days", file}).code, toolTargetExists);
    run = runInProcess({"export-rates", m_books, "美元", "months", file, "--force"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    std::ifstream written(file);
    std::string first;
    std::getline(written, first);
    EXPECT_THAT(first, HasSubstr("月份,币符,记帐汇率,调整汇率"));
}

CHENGHENG_ON_SHARED_ENGINES(RateCommands);

}  // namespace
