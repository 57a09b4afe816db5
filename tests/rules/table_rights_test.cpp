#include "session/table_rights.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "data/tables/schema.h"
#include "session/rights_list.h"

namespace chengheng {
namespace {

bool isTable(const std::string& name) {
    return name == "ProjItems" || (findTable(name) != nullptr && findTable(name)->name == name);
}

/// The tables that a function writes.
std::set<std::string> writtenBy(int function) {
    std::set<std::string> tables;
    for (const TableGrant& grant : functionGrants()[static_cast<std::size_t>(function - 1)].grants)
        tables.insert(grant.table);
    return tables;
}

TEST(TableRights, HaveOneEntryForEachFunctionInItsPlace) {
    ASSERT_EQ(functionGrants().size(), static_cast<std::size_t>(functionCount));
    for (int function = 1; function <= functionCount; ++function)
        EXPECT_EQ(functionGrants()[static_cast<std::size_t>(function - 1)].function, function)
            << functionName(function);
}

TEST(TableRights, NameTablesAndColumnsOfTheLayoutAndNoReading) {
    for (const FunctionGrants& each : functionGrants())
        for (const TableGrant& grant : each.grants) {
            EXPECT_TRUE(isTable(grant.table)) << grant.table;
            EXPECT_EQ(grant.uses & toRead, 0U) << functionName(each.function);
            EXPECT_NE(grant.uses & toWrite, 0U) << functionName(each.function);
        }
    for (const auto grants : {everybodysGrants(), plainOperatorsGrants(), supervisorsGrants()})
        for (const TableGrant& grant : grants) EXPECT_TRUE(isTable(grant.table)) << grant.table;
}

TEST(TableRights, GrantWhatTheServicesWrite) {
    using Tables = std::set<std::string>;
    EXPECT_EQ(writtenBy(1), (Tables{"AssAcc", "Person"}));
    EXPECT_EQ(writtenBy(8), (Tables{"AssAcc", "Dept"}));
    EXPECT_EQ(writtenBy(13), (Tables{"AssAcc", "ProjItems"}));
    EXPECT_EQ(writtenBy(14), (Tables{"ProjClass"}));
    EXPECT_EQ(writtenBy(40), (Tables{"zAccountM"}));
    EXPECT_EQ(writtenBy(41), (Tables{"Code"}));
    EXPECT_EQ(writtenBy(43), (Tables{"AccSum", "AssAcc", "Code", "RegMain", "RegSub"}));
    EXPECT_EQ(writtenBy(45), (Tables{"AccSum", "AssAcc"}));
    EXPECT_EQ(writtenBy(46), (Tables{"Cyrency", "ExchgFix", "ExchgFlt"}));
    EXPECT_EQ(writtenBy(52), (Tables{"Sign"}));
    EXPECT_EQ(writtenBy(57), (Tables{"Settle"}));
    EXPECT_EQ(writtenBy(75), (Tables{"AssAcc", "Enter", "EnterClass"}));
}

TEST(TableRights, LetFunctionsThatOnlyLookWriteNothing) {
    for (int function = 1; function <= functionCount; ++function) {
        const std::string name = functionName(function);
        const bool isLooking = name.ends_with("查询") || name.ends_with("浏览") ||
                               name.ends_with("打印") || name.ends_with("余额表") ||
                               name.ends_with("明细帐") || name.ends_with("分析");
        if (isLooking) {
            EXPECT_EQ(writtenBy(function), std::set<std::string>{}) << name;
        }
    }
}

TEST(TableRights, LeaveTheOperatorsToSupervisors) {
    for (const char* table : {"Users", "UserAuth"}) {
        EXPECT_EQ(grantingRights(table, toWrite), "[主管]");
        for (const TableGrant& grant : everybodysGrants()) EXPECT_STRNE(grant.table, table);
        for (const TableGrant& grant : plainOperatorsGrants())
            if (std::string_view(grant.table) == table) {
                EXPECT_EQ(grant.rows, RowRule::ownOperator);
            }
    }
}

TEST(TableRights, LetEverybodyReadEveryTable) {
    for (const TableInfo& table : allTables())
        for (const auto own : {plainOperatorsGrants(), supervisorsGrants()}) {
            const auto reads = [&](const TableGrant& grant) {
                return grant.table == table.name && (grant.uses & toRead) != 0;
            };
            EXPECT_TRUE(std::ranges::any_of(everybodysGrants(), reads) ||
                        std::ranges::any_of(own, reads))
                << table.name;
        }
}

TEST(TableRights, AreFoundByTheTableInAnyCase) {
    EXPECT_EQ(grantingRights("SETTLE", toWrite), "[结算方式设置]");
    EXPECT_EQ(grantingRights("projitems07", toAdd), "[项目定义及目录]");
    EXPECT_EQ(grantingRights("ProjItems", toAdd), "[项目定义及目录]");
    EXPECT_EQ(grantingRights("ProjClass", toAdd), "") << "its owner makes the tables of items";
    EXPECT_EQ(grantingRights("BooksFormat", toWrite), "");
}

TEST(TableRights, AreFoundByTheWordsOfAServer) {
    EXPECT_EQ(tableInWords("permission denied for table unregmain"), "UnregMain");
    EXPECT_EQ(tableInWords("对表 _digest 权限不够"), "_Digest");
    EXPECT_EQ(tableInWords("must be owner of table projitems2"), "projitems2");
    EXPECT_EQ(tableInWords("permission denied for schema Code"), "") << "no name of a table";
    EXPECT_EQ(tableInWords("permission denied for table codes"), "");
    EXPECT_EQ(tableInWords(""), "");
}

}  // namespace
}  // namespace chengheng
