#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/e2e/run_chbooks.h"
#include "tests/support/engine_cases.h"
#include "tests/support/run_program.h"
#include "tests/support/small_books.h"

namespace {

using chengheng::chbooks;
using chengheng::EngineCase;
using chengheng::ProgramRun;
using testing::HasSubstr;
using Json = nlohmann::json;

using namespace chengheng::chbooks_exit;

/// The commands that bring a chart in and out, on books of each engine.
class ChartCommands : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { fillSmallBooks(*chengheng::openForTest(m_books)); }

    std::string file(const std::string& name, const std::string& content) const {
        std::ofstream(m_folder + name) << content;
        return m_folder + name;
    }
    Json plan(const std::string& path) const {
        return Json::parse(chbooks({"import-chart", m_books, path, "--dry-run", "--json"}).out);
    }
    ProgramRun import(const std::string& path, const char* option = nullptr) const {
        std::vector<std::string> arguments{"import-chart", m_books, path};
        if (option != nullptr) arguments.emplace_back(option);
        return chbooks(arguments);
    }

    std::string m_books = chengheng::freshLocation(GetParam());
    std::string m_folder = chengheng::freshFolder() + "/";
};

TEST_P(ChartCommands, ExportReadsBackUnchangedFromBothKindsOfFile) {
    for (const char* name : {"chart.csv", "chart.xlsx"}) {
        const ProgramRun run = chbooks({"export-chart", m_books, m_folder + name});
        EXPECT_EQ(run.exitCode, done) << run.err;
        const Json planned = plan(m_folder + name);
        EXPECT_EQ(planned["unchanged"], 6) << planned;
        EXPECT_EQ(planned["refused"], 0);
    }
}

TEST_P(ChartCommands, DryRunListsEveryRowAndChangesNothing) {
    const std::string path = file("chart.csv",
                                  "code,name,class\n"
                                  "1003,备用金,资产\n"
                                  "2202,应付,负债\n"
                                  "100101,人民币,\n");
    const ProgramRun run = import(path, "--dry-run");
    EXPECT_EQ(run.exitCode, wrongInput) << "a row is refused";
    EXPECT_EQ(run.out,
              "第 2 行 新增 1003 备用金\n"
              "第 3 行 修改 2202 应付\n"
              "第 4 行 拒绝 100101 人民币\n"
              "    第 4 行 A 列:科目 1001 在[未记帐凭证]中已使用,不能增加下级科目!\n"
              "新增 1 行,修改 1 行,不变 0 行,拒绝 1 行。\n");
    EXPECT_EQ(plan(path)["rows"][0]["fate"], "new");
    EXPECT_EQ(import(path).exitCode, wrongInput);
    EXPECT_EQ(plan(path)["new"], 1) << "nothing was imported";
}

TEST_P(ChartCommands, ImportWritesThePlanAndLeavesSoundBooks) {
    const std::string path = file("chart.csv", "code,name,class\n1003,备用金,资产\n100301,甲,\n");
    const ProgramRun run = import(path);
    EXPECT_EQ(run.exitCode, done) << run.err;
    EXPECT_THAT(run.out, HasSubstr("新增 2 行"));
    EXPECT_EQ(plan(path)["unchanged"], 2);
    EXPECT_EQ(chbooks({"check", m_books}).exitCode, done);
}

TEST_P(ChartCommands, ImportGoesOnOverQuestionsOnlyWhenTheyAreAccepted) {
    const std::string path = file("chart.csv", "code,name,class\n9001,表外,资产\n");
    const ProgramRun asked = import(path);
    EXPECT_EQ(asked.exitCode, wrongInput);
    EXPECT_THAT(asked.out, HasSubstr("需确认:科目编码首位和分类编号不符,接受此编码吗?"));
    EXPECT_THAT(asked.err, HasSubstr("--accept"));
    EXPECT_EQ(plan(path)["new"], 1);
    EXPECT_EQ(import(path, "--accept").exitCode, done);
}

TEST_P(ChartCommands, ImportReadsFilesOfOtherEncodings) {
    const std::string name = "\xB1\xB8\xD3\xC3\xBD\xF0";  // 备用金 in GB18030
    EXPECT_EQ(plan(file("chart.csv", "code,name\n1003," + name + "\n"))["rows"][0]["name"],
              "备用金");
}

TEST_P(ChartCommands, ReportFilesAndBooksThatCannotBeUsed) {
    EXPECT_EQ(import(m_folder + "missing.csv").exitCode, failed);
    EXPECT_EQ(import(file("other.csv", "a,b\n1,2\n")).exitCode, failed);
    EXPECT_EQ(chbooks({"import-chart", m_folder + "missing.db", m_folder}).exitCode, failed);
    EXPECT_EQ(chbooks({"export-chart", m_books, m_folder + "chart.doc"}).exitCode, wrongInput);
    EXPECT_EQ(chbooks({"export-chart", m_books, m_folder + "none/chart.csv"}).exitCode, failed);
    EXPECT_EQ(chbooks({"export-chart", m_books}).exitCode, wrongUsage);
}

INSTANTIATE_TEST_SUITE_P(On, ChartCommands, testing::ValuesIn(chengheng::sharedEngineCases()),
                         chengheng::engineCaseName);

}  // namespace
