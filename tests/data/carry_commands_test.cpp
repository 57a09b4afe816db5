#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/carry_books.h"
#include "tests/support/environment.h"
#include "tests/support/run_tool.h"

namespace carry_commands {
namespace {

using namespace chengheng;
using testing::HasSubstr;

/// Cash and a loan of two years that a list knows.
class CarryCommands : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.now().addAccounts({"1001", "1002"});
        m_books.now().addCredit("2001");
        m_books.mirror();
        m_books.close("1001", 5, 1, 0);
        m_books.close("2001", 4, 0, 2);
    }
    ToolRun run(std::vector<std::string> more) const {
        std::vector<std::string> arguments{"carry-forward", m_books.location()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return runInProcess(arguments);
    }

    /// The lines of a file, without what marks its letters.
    static std::vector<std::string> rowsOfCsv(const std::string& file) {
        std::ifstream stream(file);
        std::vector<std::string> rows;
        for (std::string line; std::getline(stream, line);) {
            if (line.ends_with('\r')) line.pop_back();
            rows.push_back(line.starts_with("\xEF\xBB\xBF") ? line.substr(3) : line);
        }
        return rows;
    }

    CarryBooks m_books{GetParam()};
    EnvironmentSetting m_home{"CHENGHENG_HOME", m_books.registry().folder()};
};

TEST_P(CarryCommands, ShowWhatWouldBeCarriedAndWriteNothing) {
    const ToolRun shown = run({"--dry-run"});
    EXPECT_EQ(shown.code, toolDone);
    EXPECT_EQ(shown.out,
              "1001 科目1001:借 期末 6.00,本年期初 0.00\n"
              "2001 科目2001:贷 期末 6.00,本年期初 0.00\n"
              "资产 = 借\t6.00\n\n负债 = 贷\t6.00\n\n"
              "将结转 2 个科目,借方合计 6.00,贷方合计 6.00。\n试算结果平衡\n");
    EXPECT_EQ(shown.err, "");
    EXPECT_EQ(m_books.now().rows(), std::vector<std::string>{});
    const ToolRun json = run({"--dry-run", "--json"});
    EXPECT_THAT(json.out, HasSubstr("\"debitTotal\": 6.0"));
    EXPECT_THAT(json.out, HasSubstr("\"code\": \"1001\""));
}

TEST_P(CarryCommands, SayBeforehandThatBooksWithVouchersTakeNothing) {
    m_books.now().addVoucher();
    ToolRun shown = run({"--dry-run"});
    EXPECT_EQ(shown.code, toolFaultsFound);
    EXPECT_EQ(shown.err, "帐套已有凭证或只能浏览,不能结转上年余额,没有改动。\n");
    EXPECT_THAT(run({"--dry-run", "--json"}).out, HasSubstr("\"browsing\": true"));
    EXPECT_EQ(run({}).code, toolWrongInput);
}

TEST_P(CarryCommands, NameWhatStandsInTheWay) {
    m_books.now().addAccounts({"1003"});
    ToolRun shown = run({"--dry-run"});
    EXPECT_EQ(shown.code, toolFaultsFound);
    EXPECT_EQ(shown.err, "1003 科目1003:上年没有此科目。\n");
    shown = run({});
    EXPECT_EQ(shown.code, toolWrongInput);
    EXPECT_THAT(shown.err, HasSubstr("上年科目信息和本年科目信息不一致,不能结转期初余额!"));
    EXPECT_EQ(m_books.now().rows(), std::vector<std::string>{});
}

TEST_P(CarryCommands, SayWhenNeitherYearHasAccounts) {
    m_books.now().books().run("DELETE FROM Code WHERE lId > 0");
    m_books.mirror();
    const ToolRun shown = run({"--dry-run"});
    EXPECT_EQ(shown.code, toolFaultsFound);
    EXPECT_EQ(shown.err, "上年和本年都没有可以结转的科目,没有改动。\n");
}

TEST_P(CarryCommands, CarryAndProveItAfterwards) {
    ToolRun ran = run({});
    EXPECT_EQ(ran.code, toolDone);
    EXPECT_EQ(ran.out, "已结转 2 个科目,借方合计 6.00,贷方合计 6.00。\n");
    EXPECT_EQ(m_books.now().openings("1001"), allPeriods("6"));
    ran = run({"--verify"});
    EXPECT_EQ(ran.code, toolDone);
    EXPECT_EQ(ran.out, "本年期初余额与上年期末余额一致。\n");
    ran = run({});
    EXPECT_EQ(ran.code, toolWrongInput);
    EXPECT_THAT(ran.err, HasSubstr("结转上年余额不成功"));
    ran = run({"--dry-run"});
    EXPECT_EQ(ran.code, toolFaultsFound);
    EXPECT_EQ(ran.err, "本年已有期初余额,不能再次结转。\n");
}

TEST_P(CarryCommands, NameTheDifferencesOfTheTwoYears) {
    ASSERT_EQ(run({}).code, toolDone);
    m_books.last("UPDATE AccSum SET mCredit = 0.25 WHERE mDebet = 1");
    m_books.last(
        formatSql("INSERT INTO AssAcc (lId, byPeroid, lCodeId, lItemId, lDeptId, lEnterId, "
                  "sItemId, mBegin, mDebt, mCredit, dBegin, dDebt, dCredit, mFBegin, mFDebt, "
                  "mFCredit) VALUES (1, 12, %d, 0, 3, 0, '', 7, 0, 0, 0, 0, 0, 0, 0, 0)",
                  m_books.now().idOf("1002")));
    ToolRun ran = run({"--verify"});
    EXPECT_EQ(ran.code, toolFaultsFound);
    EXPECT_EQ(ran.out,
              "1001 科目1001:上年期末金额 5.75,本年期初 6.00,相差 -0.25\n"
              "1002 科目1002(部门 3):上年期末金额 7.00,本年期初 0.00,相差 7.00\n"
              "本年期初余额与上年期末余额有 2 处不同。\n");
    ran = run({"--verify", "--json"});
    EXPECT_THAT(ran.out, HasSubstr("\"closing\": 5.75"));
    EXPECT_EQ(run({"--verify", "--dry-run"}).code, toolWrongUsage);
}

TEST_P(CarryCommands, RepeatWhatDiffersAndSayIt) {
    ASSERT_EQ(run({}).code, toolDone);
    ToolRun ran = run({"--repeat"});
    EXPECT_EQ(ran.code, toolDone);
    EXPECT_EQ(ran.out, "本年期初余额与上年期末余额一致。\n");
    m_books.last("UPDATE AccSum SET mCredit = 0.25 WHERE mDebet = 1");
    const char* const difference = "1001 科目1001:上年期末金额 5.75,本年期初 6.00,相差 -0.25\n";
    ran = run({"--repeat", "--dry-run"});
    EXPECT_EQ(ran.code, toolDone);
    EXPECT_EQ(ran.out, std::string(difference) + "可以补转 1 处差额,共 1 个科目。\n");
    EXPECT_EQ(m_books.now().openings("1001"), allPeriods("6"));
    ran = run({"--repeat"});
    EXPECT_EQ(ran.code, toolDone);
    EXPECT_EQ(ran.out, std::string(difference) + "已补转 1 处差额,共 1 个科目。\n");
    EXPECT_EQ(m_books.now().openings("1001"), allPeriods("5.75"));
    EXPECT_EQ(run({"--verify"}).code, toolDone);
    EXPECT_EQ(m_books.now().books().faults(), std::vector<std::string>{});
    EXPECT_EQ(run({"--verify", "--repeat"}).code, toolWrongUsage);
}

TEST_P(CarryCommands, NameWhatARepeatLeaves) {
    ASSERT_EQ(run({}).code, toolDone);
    m_books.last(
        "INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect) "
        "VALUES (90, '1003', '旧', '资产', 1, 1, 1);"
        "INSERT INTO AccSum VALUES (90, 90, 12, 3, 0, 0, 0, 0, 0, 0, 0, 0)");
    ToolRun ran = run({"--repeat"});
    EXPECT_EQ(ran.code, toolFaultsFound);
    EXPECT_EQ(ran.out, "没有可以补转的差额,没有改动。另有 1 处差额不能补转,保持不变。\n");
    EXPECT_EQ(ran.err, "1003 旧:本年没有此科目。\n");
    ran = run({"--repeat", "--json"});
    EXPECT_THAT(ran.out, HasSubstr("\"carried\": false"));
    EXPECT_THAT(ran.out, HasSubstr("\"code\": \"1003\""));
}

TEST_P(CarryCommands, WriteWhatTheyShowToAFile) {
    const std::string file = freshFolder() + "/a.csv";
    ToolRun ran = run({"--dry-run", "--csv", file});
    EXPECT_EQ(ran.code, toolDone);
    EXPECT_THAT(ran.out, HasSubstr("结转上年余额预览"));
    EXPECT_EQ(rowsOfCsv(file),
              (std::vector<std::string>{"科目编码,科目名称,借/贷,上年期末余额,本年期初余额",
                                        "1001,科目1001,借,6.00,0.00", "2001,科目2001,贷,6.00,0.00",
                                        ",借方合计,,6.00,", ",贷方合计,,6.00,"}));
    EXPECT_EQ(run({"--dry-run", "--csv", file}).code, toolTargetExists);
    ASSERT_EQ(run({}).code, toolDone);
    m_books.last("UPDATE AccSum SET mCredit = 0.25 WHERE mDebet = 1");
    for (const char* option : {"--verify", "--repeat"}) {
        std::vector<std::string> arguments{option, "--csv", file, "--force"};
        if (std::string(option) == "--repeat") arguments.emplace_back("--dry-run");
        ran = run(arguments);
        EXPECT_EQ(ran.code, std::string(option) == "--verify" ? toolFaultsFound : toolDone);
        EXPECT_EQ(rowsOfCsv(file),
                  (std::vector<std::string>{"科目编码,科目名称,项目,上年期末余额,本年期初余额,相差",
                                            "1001,科目1001,金额,5.75,6.00,-0.25"}));
    }
    EXPECT_EQ(run({"--repeat", "--csv", file, "--force"}).code, toolWrongUsage);
    EXPECT_EQ(run({"--verify", "--csv", file, "--xlsx", file}).code, toolWrongUsage);
    EXPECT_EQ(m_books.now().openings("1001"), allPeriods("6"));
}

TEST_P(CarryCommands, GiveBooksUnderTheirTemporaryNameTheirOwnBackWhicheverOpensThem) {
    const std::string file = m_books.lastLocation();
    if (isServerAddress(file)) return;
    const std::filesystem::path temporary =
        std::filesystem::path(file).replace_filename("NbzwTmp.db");
    const std::string told = "上次结转中断,帐套留在临时文件“" + temporary.string() +
                             "”中。\n已恢复为“" + file + "”,内容没有改变。\n";
    const std::string folder = freshFolder();
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"info", file},
          {"backup", file, folder + "/backup.db"},
          {"copy", file, folder + "/copy.db"},
          {"upgrade", file},
          {"new-year", file, "--target", folder + "/2026/Nbzw.db", "--unlisted"}}) {
        std::filesystem::rename(file, temporary);
        const ToolRun ran = runInProcess(command);
        EXPECT_EQ(ran.code, toolDone) << command.front();
        EXPECT_EQ(ran.err, told) << command.front();
    }
    EXPECT_EQ(runInProcess({"info", file}).err, "");
}

TEST_P(CarryCommands, DoNotRepeatWhatWasNeverDone) {
    const ToolRun ran = run({"--repeat"});
    EXPECT_EQ(ran.code, toolWrongInput);
    EXPECT_THAT(ran.err, HasSubstr("本年还没有期初余额,请使用“结转上年余额”。"));
    EXPECT_EQ(m_books.now().rows(), std::vector<std::string>{});
}

TEST_P(CarryCommands, SayWhenThereIsNoYearBefore) {
    m_books.forgetList();
    for (const char* option : {"--dry-run", "--verify"}) {
        const ToolRun ran = run({option});
        EXPECT_EQ(ran.code, toolWrongInput);
        EXPECT_THAT(ran.err, HasSubstr("上年帐套不存在"));
        EXPECT_EQ(ran.out, "");
    }
}

CHENGHENG_ON_SHARED_ENGINES(CarryCommands);

}  // namespace
}  // namespace carry_commands
