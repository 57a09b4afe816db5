#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/engine_cases.h"
#include "tests/support/opening_books.h"
#include "tests/support/run_tool.h"
#include "tests/support/small_books.h"

namespace {

using namespace chengheng;
using testing::HasSubstr;

/// The small books: 1001 and 1122 with 400.10 on the debit side, 2202 with 400.10.
class OpeningCommands : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { fillSmallBooks(*openForTest(m_books)); }

    std::string file(const std::string& name, const std::string& content) const {
        std::ofstream(m_folder + name) << content;
        return m_folder + name;
    }
    ToolRun import(const std::string& content, std::vector<std::string> more = {}) const {
        std::vector<std::string> arguments{"import-opening", m_books, file("opening.csv", content)};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return runInProcess(arguments);
    }
    ToolRun trialBalance() const { return runInProcess({"trial-balance", m_books}); }

    std::string m_books = freshLocation(GetParam());
    std::string m_folder = freshFolder() + "/";
};

TEST_P(OpeningCommands, PrintTheFiveTextsOfTheTrialBalance) {
    const ToolRun run = trialBalance();
    EXPECT_EQ(run.code, toolDone);
    EXPECT_EQ(run.out,
              "资产 = 借\t400.10\n\n"
              "负债 = 贷\t400.10\n\n"
              "合计 = 借\t400.10\n"
              "合计 = 贷\t400.10\n"
              "试算结果平衡\n");
    EXPECT_EQ(run.err, "");
}

TEST_P(OpeningCommands, TellBooksThatDoNotBalanceByTheExitCode) {
    ASSERT_EQ(import("科目编码,期初余额\n1001,300.5\n").code, toolDone);
    const ToolRun run = trialBalance();
    EXPECT_EQ(run.code, toolFaultsFound);
    EXPECT_THAT(run.out, HasSubstr("试算结果不平衡,差额为0.50\n"));
    EXPECT_THAT(runInProcess({"trial-balance", m_books, "--json"}).out,
                HasSubstr("\"difference\": 0.5,"));
    ASSERT_EQ(import("科目编码,期初余额\n1001,0\n").code, toolDone);
    const std::string json = runInProcess({"trial-balance", m_books, "--json"}).out;
    EXPECT_THAT(json, HasSubstr("\"difference\": 300.0,"));
    EXPECT_THAT(json, HasSubstr("\"balanced\": false"));
}

TEST_P(OpeningCommands, KeepTheFourFiguresOfBooksThatBeginMidYear) {
    OpeningTestBooks(m_books, OpeningLayout::simple, false)
        .books()
        .run("UPDATE zAccountM SET dtStart = '2026/3/1' WHERE lId = 1");
    EXPECT_EQ(import("科目编码,年初余额,累计借方,累计贷方,期初余额\n"
                     "10020101,100,30,10,99\n"
                     "1001,50,5,,\n")
                  .code,
              toolDone);
    const std::string path = m_folder + "out.csv";
    ASSERT_EQ(runInProcess({"export-opening", m_books, path}).code, toolDone);
    std::ifstream exported(path);
    const std::string text{std::istreambuf_iterator<char>(exported), {}};
    EXPECT_THAT(text, HasSubstr("100.00,30.00,10.00,99.00"));
    EXPECT_THAT(text, HasSubstr("50.00,5.00,0.00,55.00"));
    EXPECT_EQ(runInProcess({"check", m_books}).code, toolDone);
    const ToolRun again = runInProcess({"import-opening", m_books, path});
    EXPECT_EQ(again.code, toolDone);
    EXPECT_THAT(again.out, HasSubstr("改动 0 格"));
}

TEST_P(OpeningCommands, ExportFilesThatReadBackUnchanged) {
    for (const char* name : {"out.csv", "out.xlsx"}) {
        const std::string path = m_folder + name;
        ASSERT_EQ(runInProcess({"export-opening", m_books, path}).code, toolDone) << name;
        const ToolRun run = runInProcess({"import-opening", m_books, path});
        EXPECT_EQ(run.code, toolDone) << name;
        EXPECT_EQ(run.out, "改动 0 格,不变 5 格,上级科目不计 2 格,拒绝 0 格。\n") << name;
    }
}

TEST_P(OpeningCommands, ShowWhatADryRunWouldChangeAndChangeNothing) {
    const ToolRun run =
        import("科目编码,期初余额,外币期初余额\n1001,\"1,000.00\",\n10020101,7,1\n", {"--dry-run"});
    EXPECT_EQ(run.code, toolDone);
    EXPECT_EQ(run.out,
              "第 2 行 B 列:1001 300.00 → 1,000.00\n"
              "第 3 行 B 列:10020101 0.00 → 7.00\n"
              "第 3 行 C 列:10020101 0.00 → 1.00\n"
              "改动 3 格,不变 0 格,上级科目不计 0 格,拒绝 0 格。\n");
    EXPECT_EQ(trialBalance().code, toolDone);
}

TEST_P(OpeningCommands, ImportTheFiguresAndTheSumsAboveThem) {
    EXPECT_EQ(import("科目编码,期初余额\n1001,293\n10020101,7\n").code, toolDone);
    EXPECT_EQ(trialBalance().code, toolDone);
    EXPECT_EQ(runInProcess({"check", m_books}).code, toolDone);
    OpeningTestBooks books(m_books, OpeningLayout::simple, false);
    EXPECT_EQ(books.work().refresh(), Outcome::done);
    EXPECT_EQ(books.shown("1002"), "7.00");
    EXPECT_EQ(books.whatASaveWouldChange(), std::vector<std::string>{});
}

TEST_P(OpeningCommands, ImportAllOrNothing) {
    const ToolRun run = import("科目编码,期初余额\n1001,293\n9999,7\n1122,5\n");
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_THAT(run.out, HasSubstr("第 3 行 A 列:9999 没有这个科目(“9999”)\n"));
    EXPECT_THAT(run.out,
                HasSubstr("第 4 行 B 列:1122 辅助科目的期初余额请在辅助期初中录入(“5”)\n"));
    EXPECT_EQ(run.err, "没有导入。请修改文件后重试。\n");
    EXPECT_EQ(trialBalance().code, toolDone);
}

TEST_P(OpeningCommands, RefuseCommasThatPartNoGroup) {
    const ToolRun run = import("科目编码,期初余额\n1001,\"1,5\"\n10020101,\"12,34,567\"\n");
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_THAT(run.out, HasSubstr("第 2 行 B 列:1001 不是数字:小数点应为“.”,不能用“,”(“1,5”)\n"));
    EXPECT_THAT(run.out, HasSubstr("第 3 行 B 列:10020101 不是数字(“12,34,567”)\n"));
    EXPECT_EQ(trialBalance().code, toolDone);
}

TEST_P(OpeningCommands, RefuseFilesThatAreNoneOfTheirs) {
    const ToolRun run = import("1001,5\n");
    EXPECT_EQ(run.code, toolFailed);
    EXPECT_THAT(run.err, HasSubstr("没有找到标题行。"));
    EXPECT_EQ(runInProcess({"import-opening", m_books, m_folder + "none.csv"}).code, toolFailed);
    EXPECT_EQ(runInProcess({"export-opening", m_books, m_folder + "out.doc"}).code, toolWrongInput);
    EXPECT_EQ(runInProcess({"export-opening", m_books, m_folder + "none/out.csv"}).code,
              toolFailed);
    EXPECT_EQ(runInProcess({"export-opening", m_books}).code, toolWrongUsage);
    EXPECT_EQ(runInProcess({"trial-balance", m_folder + "none.db"}).code, toolFailed);
}

CHENGHENG_ON_SHARED_ENGINES(OpeningCommands);

}  // namespace
