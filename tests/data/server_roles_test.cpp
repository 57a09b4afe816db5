#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/sql/sql_format.h"
#include "operators/roles/role_texts.h"
#include "operators/roles/server_roles.h"
#include "session/host_globals.h"
#include "tests/data/role_books.h"
#include "tests/support/engine_cases.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/killed_process.h"
#include "tests/support/made_books.h"
#include "tests/support/operator_books.h"
#include "tests/support/private_postgres.h"
#include "tests/support/waiting_process.h"

namespace {

using namespace chengheng;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class ServerRolesCommand : public testing::Test {
  protected:
    void SetUp() override {
        if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
        m_books = std::make_unique<RoleBooks>();
    }
    /// All that the server keeps of roles, their privileges and row policies.
    std::string trace() const {
        return m_books->ask(
            "SELECT concat_ws('|', "
            "(SELECT string_agg(rolname, ',' ORDER BY rolname) FROM pg_roles "
            "WHERE rolname LIKE '" +
            m_books->schema() +
            "%'), "
            "(SELECT string_agg(relname || relacl::text, ',' ORDER BY relname) FROM pg_class "
            "WHERE relnamespace = current_schema()::regnamespace AND relname <> 'locksession'), "
            "(SELECT string_agg(attname || attacl::text, ',' ORDER BY attname) FROM pg_attribute "
            "JOIN pg_class c ON c.oid = attrelid "
            "WHERE c.relnamespace = current_schema()::regnamespace), "
            "(SELECT string_agg(tablename || policyname, ',' ORDER BY 1) FROM pg_policies "
            "WHERE schemaname = current_schema()), "
            "(SELECT string_agg(relname, ',') FROM pg_class WHERE relrowsecurity "
            "AND relnamespace = current_schema()::regnamespace), "
            "(SELECT nspacl::text FROM pg_namespace WHERE nspname = current_schema()))");
    }

    std::unique_ptr<RoleBooks> m_books;
};

TEST_F(ServerRolesCommand, MakesARoleForEachOperatorAndSaysWhatItMayWrite) {
    m_books->add("李明", {57});
    const ToolRun run = m_books->run();
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(run.out, HasSubstr("新建 " + m_books->roleOf("李明") + "(操作员 李明)\n"));
    EXPECT_THAT(run.out, HasSubstr("    增加 结算方式:删除、增加、修改\n"));
    EXPECT_THAT(run.out, HasSubstr("    口令:没有给出,用 --passwords 给出后才能登录\n"));
    EXPECT_THAT(run.out, HasSubstr("2 个角色:新建 2,改名 0,修改 0,不变 0,删除 0。\n"));
    EXPECT_THAT(m_books->roles(), ElementsAre(m_books->roleOf("李明"), m_books->roleOf("王芳")));
}

TEST_F(ServerRolesCommand, ChangesNothingWhenNothingHasChanged) {
    m_books->add("李明", {1, 43, 57});
    ASSERT_EQ(m_books->run().code, toolDone);
    const std::string logged =
        formatSql("SELECT count(*) FROM OperationLog WHERE sWords = '%s'", role_texts::logged);
    EXPECT_EQ(m_books->ask(logged), "1");
    const std::string before = trace();
    const ToolRun again = m_books->run();
    EXPECT_EQ(m_books->ask(logged), "1");
    EXPECT_EQ(again.out, "不变 " + m_books->roleOf("王芳") + "(操作员 王芳)\n不变 " +
                             m_books->roleOf("李明") +
                             "(操作员 李明)\n2 个角色:新建 0,改名 0,修改 0,不变 2,删除 0。\n");
    EXPECT_EQ(trace(), before);
}

TEST_F(ServerRolesCommand, BringsRolesInLineWithRightsThatWereGivenAndTaken) {
    const int id = m_books->add("李明", {57, 43});
    m_books->bringIntoLine();
    m_books->setRights(id, {52, 14});
    const ToolRun run = m_books->run({"--json"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(run.out, HasSubstr("\"change\": \"changed\""));
    EXPECT_EQ(m_books->stateOf("李明", "DELETE FROM Settle"), "42501");
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE Code SET bDirect = bDirect"), "42501");
    EXPECT_EQ(m_books->stateOf("李明", "DELETE FROM Sign"), "");
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE ProjClass SET sClsName = 'x'"), "");
    EXPECT_THAT(m_books->run().out, HasSubstr("不变 2"));
}

TEST_F(ServerRolesCommand, NarrowsATableToColumnsAndWidensItAgain) {
    const int id = m_books->add("李明", {41});
    m_books->bringIntoLine();
    m_books->setRights(id, {43});
    ASSERT_EQ(m_books->run().code, toolDone);
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE Code SET sName = sName"), "42501");
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE Code SET bDirect = bDirect"), "");
    m_books->setRights(id, {41, 43});
    ASSERT_EQ(m_books->run().code, toolDone);
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE Code SET sName = sName"), "");
    EXPECT_THAT(m_books->run().out, HasSubstr("不变 2"));
}

TEST_F(ServerRolesCommand, TakesAwayWhatSomebodyElseGaveARole) {
    m_books->add("李明", {});
    m_books->bringIntoLine();
    m_books->ask("GRANT TRUNCATE, UPDATE ON Code TO \"" + m_books->roleOf("李明") + "\"");
    EXPECT_EQ(m_books->stateOf("李明", "TRUNCATE Code"), "");
    ASSERT_EQ(m_books->run().code, toolDone);
    EXPECT_EQ(m_books->stateOf("李明", "TRUNCATE Code"), "42501");
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE Code SET sName = sName"), "42501");
}

TEST_F(ServerRolesCommand, DropsTheRoleOfAnOperatorWhoIsGone) {
    m_books->add("李明", {43, 57});
    m_books->bringIntoLine();
    m_books->ask("DELETE FROM Users WHERE lUserId = 2; DELETE FROM UserAuth WHERE lUserId = 2");
    const ToolRun run = m_books->run();
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(run.out, HasSubstr("删除 " + m_books->roleOf("李明") + "\n"));
    EXPECT_THAT(m_books->roles(), ElementsAre(m_books->roleOf("王芳")));
    EXPECT_THAT(trace(), Not(HasSubstr("李明")));
}

TEST_F(ServerRolesCommand, RenamesRolesWithTheirOperatorsEvenWhereTheyExchangeNames) {
    m_books->add("李明", {57});
    m_books->add("赵燕", {52}, "q");
    m_books->bringIntoLine();
    m_books->ask(
        "UPDATE Users SET sUserName = CASE lUserId WHEN 2 THEN '赵燕' ELSE '李明' END "
        "WHERE lUserId > 1");
    const ToolRun run = m_books->run();
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(run.out, HasSubstr("改名 " + m_books->roleOf("李明") + " → " +
                                   m_books->roleOf("赵燕") + "(操作员 赵燕)\n"));
    EXPECT_EQ(m_books->stateOf("赵燕", "DELETE FROM Settle"), "") << "with the password as before";
    EXPECT_EQ(m_books->stateOf("赵燕", "DELETE FROM Sign"), "42501");
    EXPECT_THAT(m_books->run().out, HasSubstr("不变 3"));
}

TEST_F(ServerRolesCommand, TakesAnyNameOfAnOperatorAsItStands) {
    const std::vector<std::string> names{"a\"b'; DROP ROLE x; --",
                                         "%s {0} $1",
                                         "back\\slash'",
                                         "pg_signal_backend",
                                         "two\nlines",
                                         "一二三四五六七八九十一二三四五六七八九十",
                                         "一二三四五六七八九十一二三四五六七八九〇"};
    for (const std::string& name : names) m_books->add(name, {57}, "");
    const ToolRun run = m_books->run();
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(run.out, Not(HasSubstr("two\nlines")));
    const std::vector<std::string> roles = m_books->roles();
    EXPECT_EQ(roles.size(), names.size() + 1);
    for (std::size_t at = 0; at < 5; ++at)
        EXPECT_THAT(roles, testing::Contains(m_books->roleOf(names[at])));
    for (const std::string& role : roles) EXPECT_LE(role.size(), 63U);
    EXPECT_THAT(m_books->run().out, HasSubstr("不变 8"));
    EXPECT_EQ(m_books->run({"--drop"}).code, toolDone);
    EXPECT_THAT(m_books->roles(), IsEmpty());
}

TEST_F(ServerRolesCommand, LeavesARoleOfSomebodyElseAloneThatHasTheName) {
    m_books->add("李明", {}, "");
    const std::string taken = m_books->roleOf("李明");
    m_books->ask("CREATE ROLE \"" + taken + "\"");
    ASSERT_EQ(m_books->run().code, toolDone);
    EXPECT_THAT(m_books->roles(), Not(testing::Contains(taken)));
    EXPECT_EQ(m_books->roles().size(), 2U);
    EXPECT_THAT(m_books->run().out, HasSubstr("不变 2"));
    m_books->run({"--drop"});
    EXPECT_EQ(m_books->ask("DROP ROLE \"" + taken + "\"; SELECT 'there'"), "there");
}

TEST_F(ServerRolesCommand, OnlySaysWhatItWouldDoInADryRun) {
    m_books->add("李明", {43});
    const std::string before = trace();
    const ToolRun run = m_books->run({"--dry-run"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(run.out, HasSubstr("新建 2"));
    EXPECT_THAT(run.out, HasSubstr("没有改动服务器(--dry-run)。\n"));
    EXPECT_EQ(trace(), before);
    m_books->bringIntoLine();
    const std::string made = trace();
    EXPECT_THAT(m_books->run({"--drop", "--dry-run"}).out, HasSubstr("删除 2"));
    EXPECT_EQ(trace(), made);
}

TEST_F(ServerRolesCommand, GivesNobodyTheRightsOfAnother) {
    m_books->add("李明", {57}, "");
    m_books->ask("DELETE FROM UserAuth WHERE lUserId = 2");
    const std::string before = trace();
    for (const auto& options : {std::vector<std::string>{}, {"--dry-run"}}) {
        const ToolRun run = m_books->run(options);
        EXPECT_EQ(run.code, toolWrongInput);
        EXPECT_EQ(run.err, "系统安全出现故障!\n");
    }
    EXPECT_EQ(trace(), before);
}

TEST_F(ServerRolesCommand, TakesAllAwayAgain) {
    const std::string before = trace();
    m_books->add("李明", {1, 43, 48});
    m_books->bringIntoLine();
    EXPECT_NE(trace(), before);
    const ToolRun run = m_books->run({"--drop"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(m_books->roles(), IsEmpty());
    EXPECT_EQ(m_books->ask("SELECT count(*) FROM pg_policies WHERE schemaname = current_schema()"),
              "0");
    EXPECT_EQ(m_books->ask("SELECT count(*) FROM pg_class WHERE relrowsecurity AND relnamespace = "
                           "current_schema()::regnamespace"),
              "0");
    EXPECT_THAT(trace(), Not(HasSubstr("李明")));
    EXPECT_THAT(m_books->run({"--drop"}).out, HasSubstr("0 个角色"));
}

TEST_F(ServerRolesCommand, GivesAPasswordOnlyWhereItIsThatOfTheBooks) {
    m_books->add("李明", {57}, "ge heim\"'");
    m_books->bringIntoLine();
    EXPECT_EQ(m_books->ask("SELECT count(*) FROM pg_authid WHERE rolname LIKE '" +
                           m_books->schema() + ".%' AND rolpassword LIKE 'SCRAM-SHA-256$%'"),
              "2");
    EXPECT_NO_THROW(askServer(m_books->addressFor("李明", "ge heim\"'"), "SELECT 1"));
    EXPECT_ANY_THROW(askServer(m_books->addressFor("李明", "geheim"), "SELECT 1"));
    const std::pair<const char*, const char*> wrong[] = {
        {"李明\tgeraten\n", "口令文件第 1 行:不是操作员“李明”在帐套中的口令,什么都没有改变。\n"},
        {"\n王芳\tsecret\n李明\tgeraten\n",
         "口令文件第 3 行:不是操作员“李明”在帐套中的口令,什么都没有改变。\n"},
        {"无名\tgeraten\n", "口令文件第 1 行:帐套中没有操作员“无名”,什么都没有改变。\n"},
        {"李明 geraten\n",
         "口令文件第 1 行看不懂,什么都没有改变。\n每行应为:操作员,制表符,口令。\n"},
        {"李明\t\n",
         "口令文件第 1 "
         "行:操作员“李明”没有口令,什么都没有改变。\n没有口令的操作员不能登录服务器。\n"},
        {"李明\ta\r\n李明\tgeraten\n",
         "口令文件第 2 行:操作员“李明”出现了两次,什么都没有改变。\n"}};
    const std::string before = trace();
    for (const auto& [lines, told] : wrong) {
        const ToolRun run = m_books->run({"--passwords", RoleBooks::passwordFile(lines)});
        EXPECT_EQ(run.code, toolWrongInput);
        EXPECT_THAT(run.err, HasSubstr(told));
        EXPECT_THAT(run.out + run.err, Not(HasSubstr("geraten")));
    }
    EXPECT_EQ(trace(), before);
    EXPECT_NO_THROW(askServer(m_books->addressFor("李明", "ge heim\"'"), "SELECT 1"));
    EXPECT_EQ(m_books->run({"--passwords", "/no/such/file"}).code, toolFailed);
}

TEST_F(ServerRolesCommand, LetsNobodyInWithoutAPassword) {
    m_books->add("李明", {57}, "");
    m_books->bringIntoLine();
    EXPECT_ANY_THROW(askServer(m_books->addressFor("李明", ""), "SELECT 1"));
    EXPECT_ANY_THROW(askServer(m_books->addressFor("李明", "p"), "SELECT 1"));
}

TEST_F(ServerRolesCommand, TellsOfWritingThatComesFromElsewhere) {
    m_books->add("李明", {}, "");
    m_books->ask("GRANT DELETE ON Code TO PUBLIC");
    const ToolRun run = m_books->run();
    EXPECT_EQ(run.code, toolFaultsFound);
    EXPECT_THAT(run.err, HasSubstr("注意:角色另外还有写入权限(来自 PUBLIC 或其他角色):" +
                                   m_books->roleOf("李明") + " code DELETE\n"));
    m_books->ask("REVOKE DELETE ON Code FROM PUBLIC");
    EXPECT_EQ(m_books->run().code, toolDone);
}

TEST_F(ServerRolesCommand, NeedsTheOwnerOfTheBooksAndTheRightToMakeRoles) {
    const std::string role = "plain_" + m_books->schema();
    m_books->ask("CREATE ROLE " + role + " LOGIN PASSWORD 'p'; GRANT USAGE ON SCHEMA " +
                 m_books->schema() + " TO " + role + "; GRANT ALL ON ALL TABLES IN SCHEMA " +
                 m_books->schema() + " TO " + role);
    const std::string address =
        replaced(m_books->location(), m_books->location().substr(0, m_books->location().find('@')),
                 "postgresql://" + role + ":p");
    const std::string before = trace();
    ToolRun run = runInProcess({"server-roles", address});
    EXPECT_EQ(run.code, toolFailed);
    EXPECT_THAT(run.err,
                HasSubstr("数据库用户“" + role + "”不能建立、修改角色,什么都没有改变。\n"));
    m_books->ask("ALTER ROLE " + role + " CREATEROLE");
    run = runInProcess({"server-roles", address});
    EXPECT_EQ(run.code, toolFailed);
    EXPECT_THAT(run.err, HasSubstr("数据库用户“" + role + "”不是表“"));
    EXPECT_EQ(trace(), before);
    m_books->ask("DROP OWNED BY " + role + "; DROP ROLE " + role);
}

TEST_F(ServerRolesCommand, WorksForAnOwnerWhoIsNoSuperuser) {
    m_books->add("李明", {43});
    const std::string role = "owner_" + m_books->schema();
    const std::string schema = m_books->schema();
    m_books->ask("CREATE ROLE " + role + " LOGIN CREATEROLE PASSWORD 'p'; ALTER SCHEMA " + schema +
                 " OWNER TO " + role +
                 "; DO $$ DECLARE t text; BEGIN FOR t IN SELECT tablename FROM pg_tables WHERE "
                 "schemaname = '" +
                 schema + "' LOOP EXECUTE format('ALTER TABLE " + schema + ".%I OWNER TO " + role +
                 "', t); END LOOP; END $$");
    const std::string address =
        replaced(m_books->location(), m_books->location().substr(0, m_books->location().find('@')),
                 "postgresql://" + role + ":p");
    const std::string passwords = RoleBooks::passwordFile("李明\tp\n");
    const ToolRun run = runInProcess({"server-roles", address, "--passwords", passwords});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(m_books->stateOf("李明", "DELETE FROM AccSum"), "");
    EXPECT_EQ(m_books->stateOf("李明", "DELETE FROM Code"), "42501");
    EXPECT_EQ(runInProcess({"server-roles", address, "--drop"}).code, toolDone);
    m_books->ask("REASSIGN OWNED BY " + role + " TO CURRENT_USER; DROP OWNED BY " + role +
                 "; DROP ROLE " + role);
}

TEST_F(ServerRolesCommand, LeavesAllOrNothingWhereverItIsKilled) {
    m_books->add("李明", {43, 57});
    const std::string passwords = RoleBooks::passwordFile("李明\tp\n");
    const std::string before = trace();
    bool isKilled = true;
    std::string done;
    for (int call = 1; isKilled; ++call) {
        ASSERT_LT(call, 200);
        isKilled =
            isKilledAtWork(m_books->location(), [call](std::unique_ptr<FaultyEngine> engine) {
                engine->dieAtCall(call);
                OperatorBooks books(std::move(engine));
                RolesOutcome outcome;
                const std::vector<RolePassword> given{{1, "李明", "p"}};
                if (ServerRoles(books.messages).bringIntoLine(given, outcome) != Outcome::done)
                    throw std::runtime_error("not done");
            });
        const std::string after = trace();
        if (after == before) continue;
        if (done.empty()) done = after;
        EXPECT_EQ(after, done) << call;
    }
    EXPECT_EQ(trace(), done);
    EXPECT_THAT(done, HasSubstr("李明"));
    EXPECT_EQ(m_books->stateOf("李明", "DELETE FROM Settle"), "");
}

TEST_F(ServerRolesCommand, LeavesNothingWhereACallFails) {
    m_books->add("李明", {43, 57});
    const std::string before = trace();
    for (int call = 1;; ++call) {
        ASSERT_LT(call, 200);
        auto faulty =
            std::make_unique<FaultyEngine>(openForTest(m_books->location(), OpenMode::existing));
        FaultyEngine& engine = *faulty;
        OperatorBooks books(std::move(faulty));
        engine.failCall(call);
        RolesOutcome outcome;
        const Outcome result = ServerRoles(books.messages).bringIntoLine({}, outcome);
        if (result == Outcome::done) break;
        EXPECT_EQ(result, Outcome::failed);
        EXPECT_EQ(books.messages.onlyNotice().text.empty(), false);
        books.messages.forget();
        EXPECT_FALSE(books.holdsLocks());
        EXPECT_EQ(trace(), before) << call;
    }
    EXPECT_NE(trace(), before);
}

TEST_F(ServerRolesCommand, RunsTwiceAtOnceAsIfOneAfterTheOther) {
    m_books->add("李明", {43, 57});
    std::vector<std::unique_ptr<WaitingProcess>> others;
    for (int each = 0; each < 3; ++each)
        others.push_back(
            std::make_unique<WaitingProcess>([this] { return m_books->run().code == toolDone; }));
    for (const auto& other : others) other->start(std::chrono::milliseconds(0));
    for (const auto& other : others) EXPECT_TRUE(other->hasSucceeded());
    EXPECT_EQ(m_books->roles().size(), 2U);
    EXPECT_THAT(m_books->run().out, HasSubstr("不变 2"));
}

TEST(ServerRolesOfFiles, AreRefusedInWords) {
    const std::string file = makeBooks(freshLocation({"sqliteFile"}));
    const ToolRun run = runInProcess({"server-roles", file});
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_EQ(run.err,
              "帐套“" + file + "”是文件,没有数据库角色。\n数据库角色只用于服务器上的帐套。\n");
}

}  // namespace
