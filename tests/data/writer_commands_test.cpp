#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/system/workstation.h"
#include "session/rights/passwords.h"
#include "session/who_writes.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/made_books.h"
#include "tests/support/operator_books.h"
#include "tests/support/run_tool.h"
#include "tests/support/small_books.h"

namespace {

using namespace chengheng;

using testing::HasSubstr;
using testing::Not;

std::string fileHolding(const std::string& text) {
    static int count = 0;
    const std::string path = freshFolder() + "/file" + std::to_string(++count) + ".csv";
    std::ofstream(path, std::ios::binary) << text;
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    return path;
}

/// Books of the supervisor 王芳, whose password is "secret", and of 李明 with the right to
/// departments, whose password is "pw".
class WriterCommands : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        run("INSERT INTO Users VALUES (2, 2, '李明', 0, '" +
            hashPassword("pw", PasswordCost::least) + "'); INSERT INTO UserAuth VALUES (2, 2, '" +
            rightsText({8}) + "')");
    }
    void run(const std::string& sql) {
        runScript(*openForTest(m_location, OpenMode::existing), sql);
    }
    std::string cell(const std::string& select) {
        return readCell(*openForTest(m_location, OpenMode::existing), select);
    }
    ToolRun importDepartments(std::vector<std::string> more) {
        std::vector<std::string> words{"import-directory", m_location, "departments",
                                       m_departments};
        words.insert(words.end(), more.begin(), more.end());
        return runInProcess(words);
    }
    ToolRun asLi(const std::string& passwords) {
        return importDepartments({"--operator", "李明", "--password-file", fileHolding(passwords)});
    }
    std::string departments() { return cell("SELECT count(*) FROM Dept"); }

    const std::string m_location = makeBooks(freshLocation(GetParam()));
    const std::string m_departments = fileHolding("编码,名称\n01,销售部\n");
};

TEST_P(WriterCommands, WriteAsTheOperatorWithHisRight) {
    const ToolRun done = asLi("pw\n");
    EXPECT_EQ(done.code, toolDone) << done.err;
    EXPECT_EQ(departments(), "1");
    EXPECT_EQ(cell("SELECT count(*) FROM LoginInfoTbl"), "0") << "logged off again";
    EXPECT_THAT(done.out + done.err, Not(HasSubstr("pw\n")));
    const ToolRun info = runInProcess({"info", m_location});
    EXPECT_THAT(info.out, HasSubstr("  李明\n"));
    EXPECT_THAT(info.out, Not(HasSubstr("管理员")));
}

TEST_P(WriterCommands, WriteAsTheAdministratorWithoutAnOperatorAndTellItAfterwards) {
    EXPECT_EQ(importDepartments({}).code, toolDone);
    EXPECT_EQ(departments(), "1");
    const ToolRun info = runInProcess({"info", m_location});
    EXPECT_THAT(info.out, HasSubstr("最近使用\n  20"));
    EXPECT_THAT(info.out, HasSubstr("  管理员,用命令行写入\n"));
    EXPECT_THAT(info.out, Not(HasSubstr("李明")));
    const ToolRun json = runInProcess({"info", m_location, "--json"});
    EXPECT_THAT(json.out, HasSubstr("\"administrator\": true"));
}

TEST_P(WriterCommands, NoteNothingOfTheAdministratorWhereNothingWasWritten) {
    EXPECT_EQ(importDepartments({"--dry-run"}).code, toolDone);
    EXPECT_THAT(runInProcess({"info", m_location}).out, Not(HasSubstr("管理员")));
}

TEST_P(WriterCommands, AreRefusedWithoutTheRight) {
    run("UPDATE UserAuth SET sAuthId = 'N' WHERE lUserId = 2");
    const ToolRun refused = asLi("pw\n");
    EXPECT_EQ(refused.code, toolWrongInput);
    EXPECT_EQ(refused.err, "你没有[部门目录]权限!\n");
    EXPECT_EQ(departments(), "0");
    EXPECT_EQ(cell("SELECT count(*) FROM LoginInfoTbl"), "0");
}

TEST_P(WriterCommands, AskForTheRightOfWhateverTheyWrite) {
    const std::string password = fileHolding("pw");
    const std::string month = fileHolding("月份,币符,汇率\n2,USD,7.1\n");
    run("INSERT INTO Cyrency (lId, sExchCode, sExchName, byDecimal, bMode) "
        "VALUES (1, 'USD', '美元', 4, 1)");
    const std::pair<std::vector<std::string>, const char*> commands[] = {
        {{"set", m_location, "--company", "乙公司"}, "帐套参数调整"},
        {{"import-chart", m_location,
          fileHolding("科目编码,科目名称,科目类型\n1999,新科目,资产\n")},
         "会计科目设置"},
        {{"import-directory", m_location, "persons", fileHolding("编码,名称,所属部门\n")},
         "个人往来目录"},
        {{"import-voucher-types", m_location, fileHolding("类别,名称\n收,收款凭证\n")},
         "凭证类别设置"},
        {{"import-opening", m_location, fileHolding("科目编码,期初余额\n1001,5\n")},
         "期初余额录入"},
        {{"new-year", m_location, "--unlisted"}, "重建帐"}};
    for (const auto& [words, right] : commands) {
        std::vector<std::string> all = words;
        all.insert(all.end(), {"--operator", "李明", "--password-file", password});
        const ToolRun run = runInProcess(all);
        EXPECT_EQ(run.code, toolWrongInput) << words.front();
        EXPECT_THAT(run.err, HasSubstr("你没有[" + std::string(right) + "]权限!")) << words.front();
    }
}

TEST_P(WriterCommands, RefuseAWrongPasswordAndAnUnknownOperatorAlikeAndSlowly) {
    const ToolRun wrong = asLi("PW\n");
    EXPECT_EQ(wrong.code, toolWrongInput);
    EXPECT_EQ(wrong.err, "操作员姓名或口令不正确\n");
    EXPECT_THAT(asLi("pw\n").err, HasSubstr("口令连续输错,请在")) << "too soon";
    EXPECT_EQ(importDepartments({"--operator", "某某", "--password-file", fileHolding("pw\n")}).err,
              "操作员姓名或口令不正确\n");
    EXPECT_EQ(departments(), "0");
}

TEST_P(WriterCommands, SayThatAPasswordFileIsMissing) {
    const ToolRun run =
        importDepartments({"--operator", "李明", "--password-file", freshFolder() + "/none.txt"});
    EXPECT_EQ(run.code, toolFailed);
    EXPECT_THAT(run.err, HasSubstr("none.txt"));
    EXPECT_EQ(departments(), "0");
}

TEST_P(WriterCommands, ReadThePasswordAsEditorsLeaveIt) {
    for (const char* text : {"pw", "pw\n", "pw\r\n", "pw\nnext line\n", "\xEF\xBB\xBFpw\r\n"}) {
        EXPECT_EQ(asLi(text).code, toolDone) << text;
        run("DELETE FROM Dept");
    }
    const ToolRun refused = asLi(std::string("pw\0", 3));
    EXPECT_EQ(refused.code, toolFailed);
    EXPECT_EQ(departments(), "0");
    EXPECT_EQ(cell("SELECT lWrong FROM LogonTries WHERE lId = 2"), "0") << "nothing was tried";
}

TEST_P(WriterCommands, WantBothOptionsOrNone) {
    const ToolRun alone = importDepartments({"--operator", "李明"});
    EXPECT_EQ(alone.code, toolWrongUsage);
    EXPECT_THAT(alone.err, HasSubstr("--operator 要和 --password-file 一起给出"));
    EXPECT_EQ(importDepartments({"--password-file", "x"}).code, toolWrongUsage);
    const ToolRun empty = importDepartments({"--operator", "", "--password-file", "x"});
    EXPECT_EQ(empty.code, toolWrongUsage) << "not the administrator";
    EXPECT_THAT(empty.err, HasSubstr("--operator 的值不能空着"));
    EXPECT_EQ(departments(), "0");
}

TEST_P(WriterCommands, SendWhoIsToChooseANewPasswordToTheLogOn) {
    run("INSERT INTO LogonTries (lId, bNewPassword) VALUES (2, 1)");
    const ToolRun refused = asLi("pw\n");
    EXPECT_EQ(refused.code, toolWrongInput);
    EXPECT_EQ(refused.err,
              "主管要求操作员“李明”先更改口令,再开始工作。\n"
              "请先用 chengheng 登录并更改口令,再执行本命令。\n");
    EXPECT_EQ(departments(), "0");
}

CHENGHENG_ON_SHARED_ENGINES(WriterCommands);

TEST(WhoWritesTest, IsAnOperatorOrTheUserOfTheSystem) {
    EXPECT_TRUE(whoWrites().isAdministrator());
    EXPECT_EQ(whoWrites().name, systemUserName());
    const HostSession session({.logonUser = {5, 5, 5, 0, "李明"}});
    EXPECT_FALSE(whoWrites().isAdministrator());
    EXPECT_EQ(whoWrites().userId, 5);
    EXPECT_EQ(whoWrites().name, "李明");
}

}  // namespace
