#include <gtest/gtest.h>

#include <algorithm>

#include "base/values/text.h"
#include "data/tables/schema.h"
#include "operators/operator_texts.h"
#include "operators/presets.h"
#include "session/table_rights.h"
#include "tests/data/role_books.h"
#include "tests/support/private_postgres.h"

namespace {

using namespace chengheng;

constexpr const char* refused = "42501";

/// What a program other than ours may do that logs on to the server as an operator.
class RoleRightsOnServer : public testing::Test {
  protected:
    void SetUp() override {
        if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
        m_books = std::make_unique<RoleBooks>();
        m_books->ask(
            "CREATE TABLE ProjItems01 (lId integer PRIMARY KEY, FIELD0 text, FIELD1 text)");
    }
    /// Whether the table of what right grants which tables lets somebody do it.
    static bool mayBy(const OperatorRights& rights, bool isSupervisor, const std::string& table,
                      unsigned use, const std::string& column = "") {
        const auto grantsIt = [&](const TableGrant& grant) {
            const std::string name = grant.table;
            const bool isOfTable = name == table || (name == "ProjItems" && table == "ProjItems01");
            const std::string columns = std::string(", ") + grant.columns + ",";
            return isOfTable && (grant.uses & use) != 0 &&
                   (use != toChange || std::string_view(grant.columns).empty() ||
                    columns.find(", " + column + ",") != std::string::npos);
        };
        const auto any = [&](std::span<const TableGrant> grants) {
            return std::ranges::any_of(grants, grantsIt);
        };
        if (any(everybodysGrants())) return true;
        if (any(isSupervisor ? supervisorsGrants() : plainOperatorsGrants())) return true;
        return std::ranges::any_of(functionGrants(), [&](const FunctionGrants& each) {
            return (isSupervisor || rights.grants(each.function)) && any(each.grants);
        });
    }
    void expectWritesAsGranted(const std::string& name, const OperatorRights& rights,
                               bool isSupervisor = false) {
        ForeignProgram program = m_books->programOf(name);
        std::vector<TableInfo> tables = allTables();
        tables.push_back(projectItemTable("01"));
        for (const TableInfo& table : tables) {
            const auto expect = [&](const std::string& sql, bool isAllowed) {
                EXPECT_EQ(program.stateOf(sql), isAllowed ? "" : refused) << name << ": " << sql;
            };
            const auto may = [&](unsigned use, const std::string& column = "") {
                return mayBy(rights, isSupervisor, table.name, use, column);
            };
            expect("SELECT * FROM " + table.name, true);
            // The privilege is asked for though there are no rows.
            expect("INSERT INTO " + table.name + " SELECT * FROM " + table.name + " WHERE false",
                   may(toAdd));
            expect("DELETE FROM " + table.name + " WHERE false", may(toDelete));
            expect("TRUNCATE " + table.name, false);
            for (const ColumnInfo& column : table.columns)
                expect("UPDATE " + table.name + " SET " + column.name + " = " + column.name +
                           " WHERE false",
                       may(toChange, column.name));
        }
        EXPECT_EQ(program.stateOf("CREATE TABLE mine (lId integer)"), refused);
        EXPECT_EQ(program.stateOf("DROP TABLE ProjItems01"), refused);
        EXPECT_EQ(program.stateOf("CREATE ROLE mine"), refused);
    }

    std::unique_ptr<RoleBooks> m_books;
};

TEST_F(RoleRightsOnServer, LetWhoHasAPresetWriteJustWhatItsFunctionsWrite) {
    for (const RightsPreset& preset : rightsPresets()) m_books->add(preset.name, preset.rights());
    m_books->bringIntoLine();
    for (const RightsPreset& preset : rightsPresets())
        expectWritesAsGranted(preset.name, preset.rights());
}

TEST_F(RoleRightsOnServer, LetASupervisorWriteWhatAllFunctionsWriteAndTheOperators) {
    m_books->add("张三", {}, "p");
    m_books->ask("UPDATE Users SET bManager = 1 WHERE lUserId = 2");
    m_books->bringIntoLine();
    expectWritesAsGranted("张三", {}, true);
    EXPECT_EQ(m_books->rowsOf("张三", "SELECT count(*) FROM Users"), "2");
    EXPECT_EQ(m_books->rowsOf("张三", "UPDATE Users SET sUserName = 'x' WHERE lUserId = 1"), "1");
    EXPECT_EQ(m_books->rowsOf("张三", "UPDATE UserAuth SET sAuthId = 'N'"), "2");
    EXPECT_EQ(m_books->rowsOf("张三", "SELECT count(*) FROM UserAuth"), "2");
}

TEST_F(RoleRightsOnServer, ShowAnOperatorOnlyTheOwnPasswordAndRights) {
    m_books->add("李明", {57});
    m_books->bringIntoLine();
    EXPECT_EQ(m_books->rowsOf("李明", "SELECT string_agg(sUserName, ' ') FROM Users"), "李明");
    EXPECT_EQ(m_books->rowsOf("李明", "SELECT string_agg(lUserId::text, ' ') FROM UserAuth"), "2");
    EXPECT_EQ(m_books->rowsOf("李明", "UPDATE Users SET sPassword = 'x'"), "1") << "the own one";
    EXPECT_EQ(m_books->rowsOf("李明", "UPDATE Users SET sPassword = 'x' WHERE lUserId = 1"), "0");
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE Users SET bManager = 1 WHERE lUserId = 2"), refused);
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE UserAuth SET sAuthId = 'Y'"), refused);
}

TEST_F(RoleRightsOnServer, KeepTheTriesOfOthersFromAnOperator) {
    m_books->add("李明", {});
    m_books->bringIntoLine();
    m_books->ask("INSERT INTO LogonTries (lId, lWrong) VALUES (1, 5), (2, 3), (-7, 4)");
    EXPECT_EQ(m_books->rowsOf("李明", "SELECT count(*) FROM LogonTries"), "2");
    EXPECT_EQ(m_books->rowsOf("李明", "UPDATE LogonTries SET lWrong = 0 WHERE lId = 1"), "0");
    EXPECT_EQ(m_books->rowsOf("李明", "UPDATE LogonTries SET lWrong = 0"), "2");
    EXPECT_EQ(m_books->stateOf("李明", "INSERT INTO LogonTries (lId) VALUES (3)"), refused);
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE LogonTries SET lId = 3 WHERE lId = 2"), refused);
}

TEST_F(RoleRightsOnServer, LetAnOperatorCountOnlyTheIdsOfTablesThatHeAddsTo) {
    m_books->add("李明", {57});
    m_books->bringIntoLine();
    const std::string set = "UPDATE ABIdTable SET lLastId = lLastId WHERE sTable = ";
    EXPECT_EQ(m_books->rowsOf("李明", set + "'Settle'"), "1");
    EXPECT_EQ(m_books->rowsOf("李明", set + "'LoginInfoTbl'"), "1");
    EXPECT_EQ(m_books->rowsOf("李明", set + "'Code'"), "0");
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE ABIdTable SET sTable = 'Code'"), refused);
}

TEST_F(RoleRightsOnServer, LetDirectoriesTakeAlongOnlyEmptySums) {
    m_books->add("李明", {1});
    m_books->add("赵燕", {1, 43});
    m_books->bringIntoLine();
    m_books->ask("INSERT INTO AssAcc (lId, mCredit) VALUES (101, 0), (102, 5)");
    EXPECT_EQ(m_books->rowsOf("李明", "DELETE FROM AssAcc WHERE lId > 100"), "1");
    EXPECT_EQ(m_books->rowsOf("赵燕", "DELETE FROM AssAcc WHERE lId > 100"), "2");
}

TEST_F(RoleRightsOnServer, KeepVouchersFromWhoEntersOpeningBalances) {
    m_books->add("李明", {43});
    m_books->bringIntoLine();
    m_books->ask(
        "INSERT INTO RegMain (lId, byPeroid) VALUES (101, 0), (102, 3), (103, 0);"
        "INSERT INTO RegSub (lId, lTieId, bBegin) VALUES (101, 101, 1), (102, 102, 0)");
    EXPECT_EQ(m_books->rowsOf("李明", "UPDATE RegMain SET lNumber = 9 WHERE lId > 100"), "2");
    EXPECT_EQ(m_books->rowsOf("李明", "DELETE FROM RegSub WHERE lId > 100"), "1");
    EXPECT_EQ(m_books->stateOf("李明", "INSERT INTO RegMain (lId, byPeroid) VALUES (104, 0)"), "");
    EXPECT_EQ(m_books->stateOf("李明", "INSERT INTO RegMain (lId, byPeroid) VALUES (104, 1)"),
              refused);
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE RegSub SET bBegin = 0 WHERE lId = 101"), refused);
    EXPECT_EQ(m_books->stateOf("李明", "INSERT INTO RegSub (lId, bBegin) VALUES (104, 0)"),
              refused);
}

TEST_F(RoleRightsOnServer, KeepWhoMakesVouchersFromCheckingThem) {
    m_books->add("李明", {48});
    m_books->add("赵燕", {49});
    m_books->bringIntoLine();
    m_books->ask(
        "INSERT INTO UnregMain (lId, lUCheck) VALUES (101, 0), (102, 3);"
        "INSERT INTO UnregSub (lId, lTieId) VALUES (101, 101), (102, 102)");
    EXPECT_EQ(m_books->rowsOf("李明", "UPDATE UnregMain SET lNumber = 9 WHERE lId > 100"), "1");
    EXPECT_EQ(m_books->rowsOf("李明", "UPDATE UnregSub SET mMoney = 9 WHERE lId > 100"), "1");
    EXPECT_EQ(m_books->stateOf("李明", "UPDATE UnregMain SET lUCheck = 2 WHERE lId = 101"),
              refused);
    EXPECT_EQ(m_books->rowsOf("赵燕", "UPDATE UnregMain SET lUCheck = 4 WHERE lId > 100"), "2");
    EXPECT_EQ(m_books->stateOf("赵燕", "UPDATE UnregMain SET lNumber = 9"), refused);
}

TEST_F(RoleRightsOnServer, LeaveWhoIsNoOperatorWhatHeHad) {
    m_books->add("李明", {});
    m_books->bringIntoLine();
    const std::string role = "reader_" + m_books->schema();
    m_books->ask("CREATE ROLE " + role + " LOGIN PASSWORD 'p'; GRANT USAGE ON SCHEMA " +
                 m_books->schema() + " TO " + role + "; GRANT SELECT, UPDATE ON Users TO " + role);
    m_books->ask("SET ROLE " + role + "; UPDATE Users SET sUserName = sUserName || '1'");
    EXPECT_EQ(m_books->ask("SELECT count(*) FROM Users WHERE sUserName LIKE '%1'"), "2");
    m_books->ask("UPDATE Users SET sUserName = rtrim(sUserName, '1'); DROP OWNED BY " + role +
                 "; DROP ROLE " + role);
}

}  // namespace
