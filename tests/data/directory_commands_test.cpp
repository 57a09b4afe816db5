#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "directories/directory_service.h"
#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"
#include "tests/support/run_tool.h"

namespace {

using namespace chengheng;
using testing::HasSubstr;
using Json = nlohmann::json;
using Lines = std::vector<std::string>;

/// The commands on books with two of everything but unit and project classes.
class DirectoryCommands : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { EntryBooks books(m_books); }

    std::string file(const std::string& content) const {
        std::ofstream(m_folder + "in.csv") << content;
        return m_folder + "in.csv";
    }
    ToolRun import(const char* kind, const std::string& content, Lines more = {}) const {
        Lines arguments{"import-directory", m_books, kind, file(content)};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return runInProcess(arguments);
    }
    Lines stored(DirectoryKind kind) const {
        EntryBooks books(m_books, OpeningLayout::simple, false);
        DirectoryService service(books.messages(), directoryOf(kind));
        const auto records = service.readAll();
        EXPECT_TRUE(records);
        Lines lines;
        for (const DirectoryRecord& record : *records) lines.push_back(directoryLine(record));
        return lines;
    }

    std::string m_books = freshLocation(GetParam());
    std::string m_folder = freshFolder() + "/";
};

TEST_P(DirectoryCommands, ImportShowsWhatBecomesOfEachRowAndDoesIt) {
    const ToolRun run = import("persons", "编码,名称,所属部门,备注\nP3,王五,销售部,x\nP1,赵六,,\n");
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(run.out,
              "不认识标题“备注”,该列没有导入。\n第 2 行 新增 P3 王五\n第 3 行 修改 P1 赵六\n"
              "新增 1 行,修改 1 行,不变 0 行,拒绝 0 行。\n已导入“" +
                  m_folder + "in.csv”。\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(stored(DirectoryKind::person), (Lines{"P1 赵六", "P2 李四", "P3 王五"}));
}

TEST_P(DirectoryCommands, DryRunShowsTheSameAndChangesNothing) {
    const std::string content = "编码,名称\nD3,研发部\nD4,销售部\n";
    ToolRun run = import("departments", content, {"--dry-run"});
    EXPECT_EQ(run.code, toolWrongInput) << "a row is refused";
    EXPECT_EQ(run.out,
              "第 2 行 新增 D3 研发部\n第 3 行 拒绝 D4 销售部\n"
              "    第 3 行 B 列:部门名称重复:已有“D1 销售部”\n"
              "新增 1 行,修改 0 行,不变 0 行,拒绝 1 行。\n");
    run = import("departments", content);
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_THAT(run.err, HasSubstr("有 1 行被拒绝,没有导入。"));
    EXPECT_EQ(import("departments", "编码,名称\nD3,研发部\n", {"--dry-run"}).code, toolDone);
    EXPECT_EQ(stored(DirectoryKind::department).size(), 2u);
}

TEST_P(DirectoryCommands, ImportAsksOnceForSharedNamesAndTakesTheAnswerFromTheCommandLine) {
    const std::string content = "编码,名称,单位分类\nU3,甲公司,1\n";
    ToolRun run = import("units", content);
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_THAT(run.out, HasSubstr("需确认:已有同名的单位“U1 甲公司”\n"));
    EXPECT_THAT(run.err, HasSubstr("没有导入。确认无误后请加 --accept 重新执行。"));
    EXPECT_EQ(stored(DirectoryKind::unit).size(), 2u);
    run = import("units", content, {"--accept"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(stored(DirectoryKind::unit).size(), 3u);
}

TEST_P(DirectoryCommands, ImportTellsProgramsInJson) {
    const ToolRun run =
        import("units", "编码,名称,性质\nU1,甲公司,客商\n", {"--dry-run", "--json"});
    const Json plan = Json::parse(run.out);
    EXPECT_EQ(plan["refused"], 1);
    EXPECT_EQ(plan["rows"][0]["column"], 3);
    EXPECT_EQ(plan["rows"][0]["heading"], "性质");
    EXPECT_EQ(plan["rows"][0]["fate"], "refused");
}

TEST_P(DirectoryCommands, ExportOfEveryDirectoryReadsBackUnchanged) {
    for (const Directory& each : directories())
        for (const char* end : {".csv", ".xlsx"}) {
            const std::string path = m_folder + each.key + end;
            ToolRun run = runInProcess({"export-directory", m_books, each.key, path});
            EXPECT_EQ(run.code, toolDone) << run.err;
            EXPECT_EQ(run.out, std::string(each.title) + "已导出到“" + path + "”。\n");
            run = runInProcess({"import-directory", m_books, each.key, path});
            EXPECT_EQ(run.code, toolDone) << run.err;
            EXPECT_THAT(run.out, HasSubstr("新增 0 行,修改 0 行"));
            EXPECT_THAT(run.out, HasSubstr("拒绝 0 行"));
        }
}

TEST_P(DirectoryCommands, ExportKeepsToTheRulesOfWrittenFiles) {
    const std::string path = m_folder + "units.csv";
    EXPECT_EQ(runInProcess({"export-directory", m_books, "units", path}).code, toolDone);
    EXPECT_EQ(runInProcess({"export-directory", m_books, "units", path}).code, toolTargetExists);
    EXPECT_EQ(runInProcess({"export-directory", m_books, "units", path, "--force"}).code, toolDone);
    EXPECT_EQ(runInProcess({"export-directory", m_books, "units", m_folder + "u.txt"}).code,
              toolWrongInput);
}

TEST_P(DirectoryCommands, TellWhatTheyCannotWorkWith) {
    const std::string content = "编码,名称\nD3,研发部\n";
    const ToolRun run = import("customers", content);
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_EQ(run.err,
              "不认识目录“customers”。\n请用 departments、persons、unit-classes、units、"
              "project-classes 或 projects。\n");
    EXPECT_EQ(runInProcess({"export-directory", m_books, "", m_folder + "x.csv"}).code,
              toolWrongInput);
    EXPECT_EQ(runInProcess({"import-directory", m_books, "units", m_folder + "none.csv"}).code,
              toolFailed);
    EXPECT_EQ(runInProcess({"import-directory", m_folder + "none.db", "units", file(content)}).code,
              toolFailed);
    EXPECT_EQ(runInProcess({"import-directory", m_books, "units"}).code, toolWrongUsage);
}

CHENGHENG_ON_SHARED_ENGINES(DirectoryCommands);

}  // namespace
