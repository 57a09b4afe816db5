#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"
#include "tests/support/run_tool.h"

namespace {

using namespace chengheng;
using testing::HasSubstr;

/// Accounts of each kind of auxiliary accounting, 2001 to 2007; 2006 stands below 2.
class AuxiliaryCommands : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { EntryBooks books(m_books); }

    std::string file(const std::string& content) const {
        std::ofstream(m_folder + "in.csv") << content;
        return m_folder + "in.csv";
    }
    ToolRun import(const std::string& account, const std::string& content,
                   std::vector<std::string> more = {}) const {
        std::vector<std::string> arguments{"import-auxiliary", m_books, account, file(content)};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return runInProcess(arguments);
    }
    std::vector<AuxiliaryEntry> stored(AuxiliaryKind kind) const {
        return EntryBooks(m_books, OpeningLayout::simple, false).stored(memberOf(kind));
    }

    std::string m_books = freshLocation(GetParam());
    std::string m_folder = freshFolder() + "/";
    const std::string m_unit = accountCode(memberOf(AuxiliaryKind::unit));
};

TEST_P(AuxiliaryCommands, ImportTheEntriesWithAllTheirSums) {
    const ToolRun run =
        import(m_unit, "摘要,单位,金额,备注\n货款,甲公司,\"1,000\",x\n运费,U2,5,\n");
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(run.out,
              "不认识标题“备注”,该列没有导入。\n第 2 行 新增 甲公司 1,000\n"
              "第 3 行 新增 乙公司 5\n新增 2 行,拒绝 0 行。\n已导入“" +
                  m_folder + "in.csv”。\n");
    EXPECT_EQ(run.err, "");
    EntryBooks books(m_books, OpeningLayout::simple, false);
    EXPECT_EQ(books.stored(memberOf(AuxiliaryKind::unit)).size(), 2u);
    EXPECT_TRUE(books.agree(memberOf(AuxiliaryKind::unit)));
    EXPECT_EQ(books.opening().openings(m_unit), allPeriods("1005"));
    ASSERT_EQ(books.opening().work().refresh(), Outcome::done);
    EXPECT_EQ(books.opening().whatASaveWouldChange(), std::vector<std::string>{});
}

TEST_P(AuxiliaryCommands, WriteTheSumsOfTheAccountsAbove) {
    {
        EntryBooks books(m_books, OpeningLayout::simple, false);
        books.opening().addAccounts({"4001", "400101"});
        books.opening().change("400101", "sAssBook = 'B'");
    }
    ASSERT_EQ(import("400101", "摘要,单位,金额\na,甲公司,7\n").code, toolDone);
    EntryBooks books(m_books, OpeningLayout::simple, false);
    EXPECT_EQ(books.opening().openings("4001"), allPeriods("7"));
}

TEST_P(AuxiliaryCommands, ChangeNothingInADryRun) {
    const ToolRun run = import(m_unit, "摘要,单位,金额\na,甲公司,7\n", {"--dry-run"});
    EXPECT_EQ(run.code, toolDone);
    EXPECT_EQ(run.out, "第 2 行 新增 甲公司 7\n新增 1 行,拒绝 0 行。\n");
    EXPECT_TRUE(stored(AuxiliaryKind::unit).empty());
}

TEST_P(AuxiliaryCommands, ImportAllOrNothing) {
    for (const bool isDryRun : {false, true}) {
        const ToolRun run =
            import(m_unit, "摘要,单位,金额\na,甲公司,7\nb,\x1b[2J,1\nc,乙公司,\"1,5\"\n",
                   isDryRun ? std::vector<std::string>{"--dry-run"} : std::vector<std::string>{});
        EXPECT_EQ(run.code, toolWrongInput);
        EXPECT_THAT(run.out, HasSubstr("第 3 行 B 列:该单位信息不存在\n"));
        EXPECT_THAT(run.out, HasSubstr("第 4 行 C 列:金额输入无效\n新增 1 行,拒绝 2 行。\n"));
        EXPECT_EQ(run.out.find('\x1b'), std::string::npos);
        EXPECT_EQ(run.err, "没有导入。请修改文件后重试。\n");
    }
    EXPECT_TRUE(stored(AuxiliaryKind::unit).empty());
}

TEST_P(AuxiliaryCommands, TellRowsThatAreThereAlready) {
    const std::string content = "摘要,单位,金额\na,甲公司,7\nb,甲公司,7\n";
    ASSERT_EQ(import(m_unit, "摘要,单位,金额\na,甲公司,7\n").code, toolDone);
    const ToolRun run = import(m_unit, content, {"--dry-run"});
    EXPECT_EQ(run.code, toolDone);
    EXPECT_THAT(run.out, HasSubstr("第 2 行 新增 甲公司 7\n"
                                   "    与科目中已有的明细相同,可能是重复导入\n"
                                   "第 3 行 新增 甲公司 7\n新增 2 行"));
}

TEST_P(AuxiliaryCommands, GiveThePlanAsJson) {
    const ToolRun run =
        import(accountCode(memberOf(AuxiliaryKind::person)),
               "摘要,个人,金额,方向\n借款,P1,7,贷\nb,王五,1,\n", {"--json", "--dry-run"});
    EXPECT_EQ(run.code, toolWrongInput);
    const auto json = nlohmann::json::parse(run.out);
    EXPECT_EQ(json["new"], 1);
    EXPECT_EQ(json["refused"], 1);
    EXPECT_EQ(json["alreadyThere"], 0);
    EXPECT_EQ(json["rows"][0],
              nlohmann::json::parse(
                  R"({"row": 2, "column": 0, "heading": "", "fate": "new", "reason": "",
                      "alreadyThere": false, "summary": "借款", "department": "销售部",
                      "person": "张三", "direction": "credit", "amount": "7"})"));
    EXPECT_EQ(json["rows"][1]["reason"], "非法的姓名");
    EXPECT_EQ(json["rows"][1]["column"], 2);
    EXPECT_EQ(json["rows"][1]["heading"], "个人");
}

TEST_P(AuxiliaryCommands, ExportFilesThatReadBackUnchanged) {
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unitAndProject);
    const std::string account = accountCode(member);
    ASSERT_EQ(import(account,
                     "日期,凭证号数,摘要,单位,项目,方向,金额,外币,数量\n"
                     "2025-12-01,记-0012,a,甲公司,一期,借,7.5,1.25,3\n,,b,U2,I2,贷,8,,\n")
                  .code,
              toolDone);
    const auto before = stored(member.kind);
    ASSERT_EQ(before.size(), 2u);
    const std::string out = m_folder + "out.xlsx";
    ToolRun run = runInProcess({"export-auxiliary", m_books, account, out});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(run.out, "期初明细已导出到“" + out + "”。\n");
    EXPECT_EQ(runInProcess({"export-auxiliary", m_books, account, out}).code, toolTargetExists);
    EXPECT_EQ(runInProcess({"export-auxiliary", m_books, account, out, "--force"}).code, toolDone);
    {
        EntryBooks books(m_books, OpeningLayout::simple, false);
        for (const AuxiliaryEntry& entry : before)
            ASSERT_EQ(books.service(member).remove(books.account(member), entry), Outcome::done);
    }
    run = runInProcess({"import-auxiliary", m_books, account, out});
    EXPECT_EQ(run.code, toolDone) << run.out << run.err;
    const auto after = stored(member.kind);
    ASSERT_EQ(after.size(), 2u);
    for (std::size_t at = 0; at < after.size(); ++at)
        EXPECT_EQ(after[at].content, before[at].content);
}

TEST_P(AuxiliaryCommands, RefuseAccountsAndFilesThatAreNoneOfTheirs) {
    const std::string content = "摘要,单位,金额\na,甲公司,7\n";
    ToolRun run = import("9999", content);
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_EQ(run.err, "没有“9999”这个科目。\n");
    EXPECT_EQ(runInProcess({"export-auxiliary", m_books, "9999", m_folder + "o.csv"}).code,
              toolWrongInput);
    run = import(m_unit, "1,2\n");
    EXPECT_EQ(run.code, toolFailed);
    EXPECT_THAT(run.err, HasSubstr("标题行中应有“摘要”、“单位”、“金额”"));
    EXPECT_EQ(runInProcess({"import-auxiliary", m_books, m_unit, m_folder + "none.csv"}).code,
              toolFailed);
    EXPECT_EQ(runInProcess({"import-auxiliary", m_folder + "none.db", m_unit, file(content)}).code,
              toolFailed);
    EXPECT_EQ(runInProcess({"export-auxiliary", m_books, m_unit, m_folder + "o.doc"}).code,
              toolWrongInput);
    EXPECT_EQ(runInProcess({"import-auxiliary", m_books, m_unit}).code, toolWrongUsage);
    EXPECT_EQ(import(m_unit, "摘要,单位,金额\n").code, toolDone) << "nothing to do";
}

CHENGHENG_ON_SHARED_ENGINES(AuxiliaryCommands);

}  // namespace
