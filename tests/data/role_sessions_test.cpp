#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "books/logon/own_password.h"
#include "data/access/row_lease.h"
#include "data/tables/settlement.h"
#include "directories/directory_service.h"
#include "session/CCheckAuth.h"
#include "settle/settle_service.h"
#include "tests/data/role_books.h"
#include "tests/data/session_case.h"
#include "tests/support/private_postgres.h"
#include "tests/support/recording_messages.h"
#include "tests/support/waiting_process.h"
#include "vouchertype/voucher_type_service.h"

namespace {

using namespace chengheng;
using testing::HasSubstr;

/// Our own program, connected to the server as the operator who works with it.
class RoleSessions : public testing::Test {
  protected:
    void SetUp() override {
        if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
        m_books = std::make_unique<RoleBooks>();
    }
    LogonRequest requestOf(const std::string& name, const std::string& password = "p") const {
        LogonRequest request = requestFor(m_books->addressFor(name, password));
        request.operatorName = name;
        request.password = password;
        return request;
    }
    Outcome addMethod(const char* number, const char* name) {
        _SettleInfo method{0, number, name, 0};
        return SettleService(m_messages).add(method, {});
    }
    Outcome addType() {
        _SignInfo type;
        type.sSign = "收";
        type.sSignName = "收款凭证";
        return VoucherTypeService(m_messages).add(type);
    }

    std::unique_ptr<RoleBooks> m_books;
    RecordingMessages m_messages;
};

TEST_F(RoleSessions, WorkAsTheOperatorAndRefuseWhatHeMayNot) {
    m_books->add("李明", {57});
    m_books->bringIntoLine();
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestOf("李明")), "");
    EXPECT_EQ(addMethod("1", "现金"), Outcome::done);
    EXPECT_EQ(addMethod("2", "支票"), Outcome::done);
    EXPECT_EQ(addType(), Outcome::refused);
    EXPECT_EQ(m_messages.onlyNotice().text, "你没有[凭证类别设置]权限!");
    shell.session.logOff();
    EXPECT_EQ(m_books->ask("SELECT count(*) FROM LoginInfoTbl"), "0");
    EXPECT_EQ(m_books->ask("SELECT string_agg(sSettle, ' ' ORDER BY lId) FROM Settle"),
              "现金 支票");
}

TEST_F(RoleSessions, TellWhichRightTheServerMissesAndGoOn) {
    const int id = m_books->add("李明", {57});
    m_books->bringIntoLine();
    m_books->setRights(id, {52, 57});
    WaitingProcess administrator([this] { return m_books->run().code == toolDone; });
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestOf("李明")), "");
    EXPECT_EQ(addType(), Outcome::failed);
    const std::string told = m_messages.onlyNotice().text;
    EXPECT_THAT(told, HasSubstr("所用的数据库用户没有这项权限,数据没有改动。\n写入“凭证类别”要有"
                                "[凭证类别设置]权限。权限刚改过时,请管理员再运行一次 chbooks "
                                "server-roles。"));
    EXPECT_EQ(m_books->ask("SELECT count(*) FROM Sign"), "0");
    m_messages.forget();
    EXPECT_EQ(addMethod("1", "现金"), Outcome::done);
    administrator.start();
    ASSERT_TRUE(administrator.hasSucceeded());
    EXPECT_EQ(addType(), Outcome::done) << "the session need not end for that";
}

TEST_F(RoleSessions, ChangeTheOwnPasswordOfTheBooks) {
    m_books->add("李明", {});
    m_books->bringIntoLine();
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestOf("李明")), "");
    OwnPassword own(m_messages, PasswordCost::least);
    own.old = "p";
    own.wanted = own.confirmation = "neu";
    EXPECT_TRUE(own.confirm());
    shell.session.logOff();
    LogonRequest request = requestOf("李明");
    request.password = "neu";
    EXPECT_EQ(shell.refusalOf(request), "") << "the server's password stays";
    shell.session.logOff();
    const ToolRun run = m_books->run({"--passwords", RoleBooks::passwordFile("李明\tneu\n")});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(shell.refusalOf(requestOf("李明", "neu")), "");
}

TEST_F(RoleSessions, ChooseANewPasswordWhereASupervisorWantsIt) {
    m_books->add("李明", {});
    m_books->bringIntoLine();
    m_books->ask("INSERT INTO LogonTries (lId, bNewPassword) VALUES (2, 1)");
    Shell shell;
    LogonRequest request = requestOf("李明");
    EXPECT_THAT(shell.refusalOf(request), HasSubstr("主管要求操作员“李明”先更改口令"));
    request.newPassword = "neu";
    EXPECT_EQ(shell.refusalOf(request), "");
    shell.session.logOff();
    EXPECT_EQ(m_books->ask("SELECT bNewPassword FROM LogonTries WHERE lId = 2"), "0");
    request = requestOf("李明");
    request.password = "neu";
    EXPECT_EQ(shell.refusalOf(request), "");
}

TEST_F(RoleSessions, CountWrongPasswordsInTheBooks) {
    m_books->add("李明", {});
    m_books->bringIntoLine();
    Shell shell;
    LogonRequest request = requestOf("李明");
    request.password = "falsch";
    EXPECT_THAT(shell.refusalOf(request), HasSubstr("password|"));
    EXPECT_EQ(m_books->ask("SELECT lWrong FROM LogonTries WHERE lId = 2"), "1");
    EXPECT_THAT(shell.refusalOf(requestOf("李明")), HasSubstr("秒")) << "too soon";
}

TEST_F(RoleSessions, LetNobodyElseLogOnOverTheRoleOfAnOperator) {
    m_books->add("李明", {});
    m_books->add("赵燕", {41});
    m_books->bringIntoLine();
    Shell shell;
    LogonRequest request = requestOf("李明");
    request.operatorName = "赵燕";
    EXPECT_THAT(shell.refusalOf(request), HasSubstr("password|"));
}

TEST_F(RoleSessions, ChangeDirectoriesButLeaveTheTablesOfProjectsToTheirOwner) {
    m_books->add("李明", {1, 8, 13, 14, 75});
    m_books->bringIntoLine();
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestOf("李明")), "");
    DirectoryRecord record;
    record.code = "01";
    record.name = "某某";
    DirectoryService departments(m_messages, directoryOf(DirectoryKind::department));
    EXPECT_EQ(departments.add(record), Outcome::done);
    DirectoryService classes(m_messages, directoryOf(DirectoryKind::projectClass));
    DirectoryRecord projects{.id = 0, .group = 0, .code = "07", .name = "工程"};
    EXPECT_EQ(classes.add(projects), Outcome::failed);
    EXPECT_THAT(
        m_messages.onlyNotice().text,
        HasSubstr("增加、删除项目大类等要建立、删除表的操作,只有帐套在服务器上的所有者才能做。"));
    EXPECT_EQ(m_books->ask("SELECT count(*) FROM ProjClass"), "0");
}

TEST_F(RoleSessions, WriteFromTheCommandLineOnlyAsTheirOperator) {
    m_books->add("李明", {8});
    m_books->bringIntoLine();
    const std::string file = RoleBooks::passwordFile("") + ".csv";
    putBytes(file, "编码,名称\n01,财务部\n");
    const std::vector<std::string> line{"import-directory", m_books->addressFor("李明"),
                                        "departments", file};
    EXPECT_EQ(runInProcess(line).code, toolFailed) << "nobody else writes over the role";
    EXPECT_EQ(m_books->ask("SELECT count(*) FROM Dept"), "0");
    std::vector<std::string> asOperator = line;
    asOperator.insert(asOperator.end(),
                      {"--operator", "李明", "--password-file", RoleBooks::passwordFile("p\n")});
    const ToolRun run = runInProcess(asOperator);
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(m_books->ask("SELECT sDeptName FROM Dept"), "财务部");
}

TEST_F(RoleSessions, MakeNoCopyFromWhichTheOthersAreMissing) {
    m_books->add("李明", {37});
    m_books->add("张三", {});
    m_books->ask("UPDATE Users SET bManager = 1 WHERE lUserId = 3");
    m_books->bringIntoLine();
    const std::string folder = RoleBooks::passwordFile("");
    const ToolRun run = runInProcess({"backup", m_books->addressFor("李明"), folder + "1.db"});
    EXPECT_EQ(run.code, toolFailed);
    EXPECT_THAT(run.err, HasSubstr("“操作员”要有[主管]权限"));
    EXPECT_EQ(runInProcess({"check", m_books->addressFor("李明")}).code, toolFailed);
    const ToolRun whole = runInProcess({"backup", m_books->addressFor("张三"), folder + "2.db"});
    EXPECT_EQ(whole.code, toolDone) << whole.err;
}

}  // namespace
