#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/e2e/run_chbooks.h"

namespace {

using chengheng::chbooks;
using chengheng::EngineCase;
using chengheng::freshFolder;
using chengheng::freshLocation;
using chengheng::openForTest;
using chengheng::OpenMode;
using chengheng::ProgramRun;
using chengheng::runScript;
using chengheng::smallBooks;
using testing::HasSubstr;
using Json = nlohmann::json;

using namespace chengheng::chbooks_exit;

/// The commands on books of each engine.
class ToolOnBooks : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { m_books = smallBooks(GetParam()); }
    void damage(const std::string& sql) {
        runScript(*openForTest(m_books, OpenMode::existing), sql);
    }

    std::string m_books;
};

TEST_P(ToolOnBooks, InfoShowsTheBooksToAPerson) {
    const ProgramRun run = chbooks({"info", m_books});
    EXPECT_EQ(run.exitCode, done) << run.err;
    for (const char* text : {"小帐", "小公司", "2026-01-01", "4222", "AccSum"})
        EXPECT_THAT(run.out, HasSubstr(text));
}

TEST_P(ToolOnBooks, InfoShowsTheBooksToAProgram) {
    const ProgramRun run = chbooks({"info", m_books, "--json"});
    ASSERT_EQ(run.exitCode, done) << run.err;
    const Json info = Json::parse(run.out);
    EXPECT_EQ(info["name"], "小帐");
    EXPECT_EQ(info["year"], 2026);
    EXPECT_EQ(info["levelPattern"], "4222");
    EXPECT_EQ(info["foreignCurrency"], true);
    EXPECT_EQ(info["tables"]["Code"], 6);
    EXPECT_EQ(info["tables"]["ProjItems01"], 1);
    EXPECT_GT(info["bytes"], 0);
    EXPECT_EQ(info["formatVersion"], 7);
}

TEST_P(ToolOnBooks, NamesCannotSteerTheTerminal) {
    const std::string name = "红\x1B[31m\n\x7F\xC2\x9B\t字";
    damage("UPDATE zAccountM SET sName = '" + name + "'");
    const ProgramRun run = chbooks({"info", m_books});
    EXPECT_EQ(run.exitCode, done) << run.err;
    EXPECT_THAT(run.out, HasSubstr("红␛[31m␊␡\uFFFD␉字\n"));
    const std::string json = chbooks({"info", m_books, "--json"}).out;
    EXPECT_THAT(json, HasSubstr("红\\u001b[31m\\n\\u007f\\u009b\\t字"));
    EXPECT_EQ(Json::parse(json)["name"], name);
    const ProgramRun missing = chbooks({"info", "/none\x1B[31m"});
    EXPECT_THAT(missing.err, HasSubstr("/none␛[31m"));
}

TEST_P(ToolOnBooks, CheckOfSoundBooksFindsNothing) {
    const ProgramRun run = chbooks({"check", m_books});
    EXPECT_EQ(run.exitCode, done);
    EXPECT_THAT(run.out, HasSubstr("全部通过"));
}

TEST_P(ToolOnBooks, CheckNamesEachFaultAndReturnsOne) {
    damage("UPDATE Code SET bEnd = 1 WHERE lId = 3; DELETE FROM Settle");
    const ProgramRun run = chbooks({"check", m_books});
    EXPECT_EQ(run.exitCode, faultsFound);
    EXPECT_THAT(run.out, HasSubstr("科目 100201 工商银行"));
    EXPECT_THAT(run.out, HasSubstr("RegSub.sStlId"));
}

TEST_P(ToolOnBooks, CheckTellsAProgramEachFault) {
    damage("UPDATE Code SET byGrade = 5 WHERE lId = 6");
    const ProgramRun run = chbooks({"check", m_books, "--json"});
    EXPECT_EQ(run.exitCode, faultsFound);
    const Json found = Json::parse(run.out);
    EXPECT_EQ(found["sound"], false);
    ASSERT_EQ(found["faults"].size(), 1U);
    EXPECT_EQ(found["faults"][0]["check"], "grades");
    EXPECT_GT(found["checks"].size(), 10U);
}

TEST_P(ToolOnBooks, CheckTellsWhatIsWorthALookAndIsNoFault) {
    std::string rows;
    for (int period = 1; period <= 12; ++period)
        rows += "INSERT INTO AccSum (lId, lCodeId, byPeroid, mBegin) VALUES (" +
                std::to_string(100 + period) + ", 2, " + std::to_string(period) + ", 3);";
    damage(rows + "UPDATE ABIdTable SET lLastId = 200 WHERE sTable = 'AccSum'");
    const ProgramRun run = chbooks({"check", m_books});
    EXPECT_EQ(run.exitCode, done);
    EXPECT_THAT(run.out, HasSubstr("[上级科目与下级合计] 科目 1002 银行存款"));
    EXPECT_THAT(run.out, HasSubstr("全部通过。另有 1 处提示,不一定是错误,请核对。"));
    const Json found = Json::parse(chbooks({"check", m_books, "--json"}).out);
    EXPECT_EQ(found["sound"], true);
    ASSERT_EQ(found["notes"].size(), 1U);
    EXPECT_EQ(found["notes"][0]["check"], "parentSums");
}

TEST_P(ToolOnBooks, BackupAndRestoreBringTheBooksBack) {
    const std::string file = freshFolder() + "/backup.db";
    EXPECT_EQ(chbooks({"backup", m_books, file}).exitCode, done);
    EXPECT_EQ(chbooks({"backup", m_books, file}).exitCode, targetExists);
    EXPECT_EQ(chbooks({"backup", m_books, file, "--force"}).exitCode, done);
    damage("DELETE FROM Code");
    EXPECT_EQ(chbooks({"restore", file, m_books}).exitCode, targetExists);
    const ProgramRun run = chbooks({"restore", file, m_books, "--force"});
    EXPECT_EQ(run.exitCode, done) << run.err;
    EXPECT_EQ(chbooks({"check", m_books}).exitCode, done);
}

TEST_P(ToolOnBooks, CopyMakesEqualBooks) {
    const std::string target = freshLocation(GetParam());
    const ProgramRun run = chbooks({"copy", m_books, target});
    EXPECT_EQ(run.exitCode, done) << run.err;
    EXPECT_EQ(chbooks({"copy", m_books, target}).exitCode, targetExists);
    EXPECT_EQ(chbooks({"check", target}).exitCode, done);
}

CHENGHENG_ON_SHARED_ENGINES(ToolOnBooks);

}  // namespace
