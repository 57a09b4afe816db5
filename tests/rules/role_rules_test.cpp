#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/tables/schema.h"
#include "operators/roles/role_names.h"
#include "operators/roles/role_passwords.h"
#include "operators/roles/role_plan.h"
#include "operators/roles/role_rights.h"

namespace chengheng {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const BooksPlace books{"firm", "books_2026"};

std::string nameOf(std::string_view operatorName, std::int32_t userId = 2,
                   std::string_view taken = "", const BooksPlace& place = books) {
    return roleName(place, operatorName, userId,
                    [taken](std::string_view name) { return name == taken; });
}

TEST(RoleNames, ShowSchemaAndOperator) { EXPECT_EQ(nameOf("李明"), "books_2026.李明"); }

TEST(RoleNames, AreNumberedWhereTheNameIsTakenOrTooLong) {
    const std::string numbered = nameOf("李明", 2, "books_2026.李明");
    EXPECT_TRUE(numbered.starts_with("books_2026.李明~"));
    EXPECT_EQ(numbered.size(), std::string("books_2026.李明").size() + 9);
    EXPECT_NE(numbered, nameOf("李明", 3, "books_2026.李明"));
    EXPECT_NE(numbered, nameOf("李明", 2, "books_2026.李明", {"other", "books_2026"}));
    EXPECT_EQ(nameOf(std::string(52, 'x')), "books_2026." + std::string(52, 'x'));
    const std::string cut = nameOf(std::string(53, 'x'));
    EXPECT_EQ(cut.size(), 63U);
    EXPECT_TRUE(cut.starts_with("books_2026.xxxx"));
}

TEST(RoleNames, AreCutBetweenCharacters) {
    std::string name;
    for (int each = 0; each < 20; ++each) name += "明";
    const std::string cut = nameOf(name);
    EXPECT_LE(cut.size(), 63U);
    const std::string words = cut.substr(0, cut.find('~'));
    EXPECT_EQ((words.size() - std::string("books_2026.").size()) % std::string("明").size(), 0U);
}

TEST(RoleMarks, TellWhoseRoleOfWhichBooksItIs) {
    const BooksPlace hostile{"a\" in database \"b", "c\"d"};
    for (const BooksPlace& place : {books, hostile}) {
        EXPECT_EQ(ownerInMark(place, roleMark(place, 27)), 27);
        EXPECT_EQ(ownerInMark({place.database, "other"}, roleMark(place, 27)), std::nullopt);
        EXPECT_EQ(ownerInMark({"other", place.schema}, roleMark(place, 27)), std::nullopt);
        EXPECT_EQ(ownerInMark(place, roleMark(place, 27) + " "), std::nullopt);
    }
    EXPECT_EQ(ownerInMark(books, ""), std::nullopt);
    EXPECT_EQ(ownerInMark(books, "chengheng operator x"), std::nullopt);
    EXPECT_EQ(roleMark(books, 5),
              "chengheng operator 5 of schema \"books_2026\" in database \"firm\"");
}

OperatorRecord operatorWith(std::initializer_list<int> functions, bool isSupervisor = false) {
    OperatorRecord record;
    record.user = {5, 5, "李明", static_cast<std::int16_t>(isSupervisor ? 1 : 0), ""};
    for (const int function : functions) record.rights.set(function, true);
    return record;
}

std::vector<std::string> conditionsOf(const RoleRights& rights, std::string_view table) {
    std::vector<std::string> conditions;
    for (const RowPolicy& policy : rights.policies)
        if (policy.table == table) conditions.push_back(policy.what + " " + policy.condition);
    return conditions;
}

const std::vector<std::string> tables{"abidtable", "assacc",      "code", "settle",
                                      "users",     "projitems07", "mine"};

TEST(RoleRights, AreThoseOfTheTablesThatAreThere) {
    const RoleRights rights = roleRightsOf(operatorWith({13, 57}), tables);
    const auto has = [&](const char* table, const char* what, const char* column = "") {
        return rights.privileges.contains({table, what, column});
    };
    EXPECT_TRUE(has("", "USAGE"));
    EXPECT_TRUE(has("settle", "INSERT") && has("settle", "UPDATE") && has("settle", "DELETE"));
    EXPECT_TRUE(has("projitems07", "INSERT"));
    EXPECT_TRUE(has("abidtable", "UPDATE", "llastid"));
    EXPECT_TRUE(has("users", "UPDATE", "spassword"));
    EXPECT_TRUE(has("code", "SELECT"));
    EXPECT_FALSE(has("code", "UPDATE"));
    EXPECT_FALSE(has("users", "UPDATE"));
    for (const Privilege& each : rights.privileges)
        EXPECT_NE(each.table, "mine") << "a table of somebody else";
}

TEST(RoleRights, RestrictRowsOnlyWhereNoRightOpensAll) {
    const RoleRights person = roleRightsOf(operatorWith({1}), tables);
    EXPECT_THAT(conditionsOf(person, "assacc"),
                testing::ElementsAre(testing::StartsWith("DELETE (mBegin = 0 AND mDebt = 0")));
    EXPECT_THAT(conditionsOf(roleRightsOf(operatorWith({1, 45}), tables), "assacc"), IsEmpty());
    EXPECT_THAT(conditionsOf(person, "users"),
                testing::ElementsAre("SELECT (lUserId = 5)", "UPDATE (lUserId = 5)"));
    EXPECT_THAT(conditionsOf(roleRightsOf(operatorWith({}, true), tables), "users"), IsEmpty());
}

TEST(RoleRights, CountTheIdsOfTablesThatGetRows) {
    EXPECT_THAT(conditionsOf(roleRightsOf(operatorWith({57}), tables), "abidtable"),
                testing::ElementsAre("UPDATE (sTable IN ('Settle'))"));
    EXPECT_THAT(conditionsOf(roleRightsOf(operatorWith({41, 57}), tables), "abidtable"),
                testing::ElementsAre("UPDATE (sTable IN ('Code', 'Settle'))"));
}

RolesState stateOf(std::map<std::int32_t, std::string> roles) {
    RolesState state;
    state.place = books;
    state.tables = tables;
    state.roles = std::move(roles);
    for (const auto& [userId, role] : state.roles) state.allRoles.insert(role);
    return state;
}

TEST(RolePlans, GiveUpAllNamesBeforeAnyIsTaken) {
    RolesState state = stateOf({{5, "books_2026.赵燕"}, {6, "books_2026.李明"}});
    OperatorRecord other = operatorWith({});
    other.user = {6, 6, "赵燕", 0, ""};
    const RolesPlan plan = planRoles(state, std::vector{operatorWith({}), other});
    ASSERT_EQ(plan.roles.size(), 2U);
    EXPECT_EQ(plan.roles[0].fate, RoleFate::renamed);
    EXPECT_EQ(plan.roles[0].formerRole, "books_2026.赵燕");
    EXPECT_EQ(plan.roles[1].role, "books_2026.赵燕");
    const auto at = [&](const std::string& words) { return plan.script.find(words); };
    EXPECT_LT(at("ALTER ROLE \"books_2026.李明\" RENAME"), at("RENAME TO \"books_2026.李明\""));
    EXPECT_LT(at("ALTER ROLE \"books_2026.赵燕\" RENAME"), at("RENAME TO \"books_2026.赵燕\""));
}

TEST(RolePlans, DropWhoIsGoneAndKeepNoPolicyOfTheirs) {
    RolesState state = stateOf({{9, "books_2026.旧人"}});
    state.privileges["books_2026.旧人"] = {{"settle", "DELETE", ""}};
    state.policies = {{"users", "chengheng SELECT 9", "books_2026.旧人", "(lUserId = 9)"},
                      {"users", "chengheng everybody", "", ""}};
    state.guardedTables = {"users"};
    const RolesPlan plan = planRolesEnd(state);
    ASSERT_EQ(plan.roles.size(), 1U);
    EXPECT_EQ(plan.roles[0].fate, RoleFate::dropped);
    EXPECT_EQ(plan.script,
              "DROP POLICY \"chengheng SELECT 9\" ON \"users\";\n"
              "DROP POLICY \"chengheng everybody\" ON \"users\";\n"
              "ALTER TABLE \"users\" DISABLE ROW LEVEL SECURITY;\n"
              "REVOKE DELETE ON TABLE \"settle\" FROM \"books_2026.旧人\";\n"
              "DROP ROLE \"books_2026.旧人\";\n");
    state.foreignlyGuarded = {"users"};
    EXPECT_THAT(planRolesEnd(state).script, Not(HasSubstr("DISABLE")))
        << "somebody else keeps rows back, too";
}

TEST(RolePlans, LetIntoADatabaseThatIsNotOpenToEverybody) {
    RolesState state = stateOf({});
    EXPECT_THAT(planRoles(state, std::vector{operatorWith({})}).script, Not(HasSubstr("CONNECT")));
    state.mayEverybodyConnect = false;
    EXPECT_THAT(planRoles(state, std::vector{operatorWith({})}).script,
                HasSubstr("GRANT CONNECT ON DATABASE \"firm\" TO \"books_2026.李明\";\n"));
}

std::vector<std::string> passwordsIn(std::string_view text) {
    std::vector<RolePassword> passwords;
    if (const auto refusal = readRolePasswords(text, passwords)) return {refusal->notice.text};
    std::vector<std::string> texts;
    for (const RolePassword& each : passwords)
        texts.push_back(std::to_string(each.line) + each.operatorName + "=" + each.password);
    return texts;
}

TEST(RolePasswords, StandBehindTheFirstTabOfALine) {
    EXPECT_THAT(passwordsIn("\xEF\xBB\xBF李明\t a\tb \r\n\n  \n 赵燕 \tc"),
                testing::ElementsAre("1李明= a\tb ", "4赵燕=c"));
    EXPECT_THAT(passwordsIn(""), IsEmpty());
}

TEST(RolePasswords, AreNeverPartOfWhatIsToldOfALine) {
    for (const char* text : {"geheim\n", "李明\ta\n李明\tgeheim\n", "李明\ta\ngeheim"}) {
        const auto told = passwordsIn(text);
        ASSERT_EQ(told.size(), 1U);
        EXPECT_THAT(told.front(), HasSubstr("什么都没有改变"));
        EXPECT_THAT(told.front(), Not(HasSubstr("geheim")));
    }
    EXPECT_THAT(passwordsIn(std::string_view("李明\ta\0b\n", 10)).front(), HasSubstr("第 1 行"));
}

}  // namespace
}  // namespace chengheng
