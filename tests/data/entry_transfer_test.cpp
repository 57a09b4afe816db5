#include <gtest/gtest.h>

#include <fstream>

#include "auxiliary/transfer/entry_import.h"
#include "data/access/row_lease.h"
#include "data/sql/sql_format.h"
#include "data/tables/balances.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"

namespace {

using namespace chengheng;

/// Opening entries that go into files and come back.
class EntryTransfers : public testing::TestWithParam<EngineCase> {
  protected:
    using Texts = std::vector<std::string>;

    /// What the entries say, without their ids.
    static std::vector<AuxiliaryEntry> withoutIds(std::vector<AuxiliaryEntry> entries) {
        for (AuxiliaryEntry& entry : entries) entry.lineId = entry.headerId = 0;
        return entries;
    }
    /// Entries that differ in all that an entry says.
    static std::vector<EntryChange> manyEntries(const AuxiliaryMember& member) {
        std::vector<EntryChange> changes;
        for (const int which : {1, 2, 1}) {
            AuxiliaryEntry entry = EntryBooks::entry(member, which, 1234.56 * which, which == 1);
            entry.content.foreign = 0.01 * which;
            entry.content.quantity = which == 1 ? 0 : 3.00001;
            changes.push_back({.before = {}, .after = entry});
        }
        EntryContent& last = changes.back().after->content;
        last.date = {2025, 12, 1};
        last.sign = "";
        last.number = 0;
        last.summary = "=1+1, \"引号\"";
        return changes;
    }
    void removeAll(const AuxiliaryMember& member) {
        std::vector<EntryChange> changes;
        for (const AuxiliaryEntry& entry : m_books.stored(member))
            changes.push_back({.before = entry, .after = {}});
        ASSERT_EQ(write(member, changes), Outcome::done);
    }
    Outcome write(const AuxiliaryMember& member, std::vector<EntryChange> changes) {
        return m_books.service(member).write(m_books.account(member), changes);
    }
    std::optional<EntryPlan> planOf(const AuxiliaryMember& member, const std::string& csv) {
        const std::string path = m_folder + "/entries.csv";
        std::ofstream(path) << csv;
        const AuxiliaryAccount account = m_books.account(member);
        return EntryImport(m_books.messages(), member, account).planFile(path);
    }
    std::string said() {
        const Texts texts = m_books.messages().texts();
        m_books.messages().forget();
        return texts.empty() ? "" : texts.back();
    }

    EntryBooks m_books{freshLocation(GetParam())};
    std::string m_folder = freshFolder();
    const AuxiliaryMember& m_department = memberOf(AuxiliaryKind::department);
};

TEST_P(EntryTransfers, OfEachMemberReadBackAsTheyWere) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        ASSERT_EQ(write(member, manyEntries(member)), Outcome::done);
        const auto before = m_books.stored(member);
        const std::string openings = m_books.opening().openings(accountCode(member));
        const AuxiliaryAccount account = m_books.account(member);
        for (const char* name : {"/e.csv", "/e.xlsx"}) {
            const std::string path = m_folder + name;
            ASSERT_EQ(exportEntries(m_books.messages(), member, account, before, path,
                                    Overwrite::replace),
                      Outcome::done);
            removeAll(member);
            const auto plan = EntryImport(m_books.messages(), member, account).planFile(path);
            ASSERT_TRUE(plan && plan->mayBeApplied()) << member.caption;
            EXPECT_EQ(plan->repeatedCount(), 0u);
            EXPECT_EQ(plan->ignored, Texts{});
            ASSERT_EQ(write(member, plan->changes()), Outcome::done);
            EXPECT_EQ(withoutIds(m_books.stored(member)), withoutIds(before)) << member.caption;
            EXPECT_EQ(m_books.opening().openings(accountCode(member)), openings);
            EXPECT_TRUE(m_books.agree(member));
        }
        const auto again =
            EntryImport(m_books.messages(), member, account).planFile(m_folder + "/e.csv");
        ASSERT_TRUE(again);
        EXPECT_EQ(again->repeatedCount(), 3u) << member.caption;
    }
    EXPECT_EQ(said(), "");
    EXPECT_EQ(m_books.books().faults(), Texts{});
}

TEST_P(EntryTransfers, FindNamesAndCodesAsTheRecordDialogDoes) {
    m_books.books().run(
        "INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (3, '销售部', '甲')\r\n"
        "INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (4, 'D4', '生产部')\r\n"
        "INSERT INTO Person (lId, lDeptId, sPersonCode, sPersonName) VALUES (3, 2, 'P3', "
        "'张三')\r\n"
        "INSERT INTO Enter (lId, lClassId, sEnterCode, sEnterName) VALUES (3, 1, 'u1', 'ABC')\r\n"
        "INSERT INTO ProjItems01 (lId, FIELD0, FIELD1) VALUES (3, 'I2', '三期')");
    const Texts texts{"销售部", "生产部", "甲",     "D1", "D4", "d1", "张三", "P1",
                      "P3",     "李四",   "甲公司", "U1", "u1", "AB", "abc",  "ABC",
                      "一期",   "三期",   "I2",     "",   "'",  "%"};
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        LookupScope scope;
        ASSERT_TRUE(
            readItemClasses(m_books.database(), m_books.account(member).id, scope.itemClasses));
        EntryDirectory directory;
        ASSERT_TRUE(
            readEntryDirectory(m_books.database(), member, m_books.account(member).id, directory));
        for (const DimensionWords& words : member.dimensions) {
            for (const std::string& text : texts) {
                for (const int department : {0, 2}) {
                    scope.department = words.dimension == Dimension::person ? department : 0;
                    std::vector<DimensionChoice> wanted;
                    ASSERT_TRUE(
                        findByText(m_books.database(), words.dimension, text, scope, wanted));
                    std::vector<DimensionChoice> found;
                    for (const auto* choice : directory.find(words.dimension, text, scope))
                        found.push_back(*choice);
                    const auto byId = [](const auto& one, const auto& other) {
                        return one.id < other.id;
                    };
                    std::ranges::sort(wanted, byId);
                    std::ranges::sort(found, byId);
                    EXPECT_EQ(found, wanted) << member.caption << ' ' << text;
                }
            }
        }
    }
}

TEST_P(EntryTransfers, AreRefusedWhenANameHasGoneMeanwhile) {
    const auto plan = planOf(m_department, "摘要,部门,金额\na,D1,1\nb,D2,2\n");
    ASSERT_TRUE(plan && plan->mayBeApplied());
    m_books.books().run("UPDATE Dept SET sDeptName = '改名' WHERE lId = 2");
    const Texts before = m_books.rows();
    EXPECT_EQ(write(m_department, plan->changes()), Outcome::refused);
    EXPECT_EQ(said(), "该部门不存在,添加不成功");
    EXPECT_EQ(m_books.rows(), before);
}

TEST_P(EntryTransfers, AreRefusedRowByRowInBooksWithVouchers) {
    m_books.opening().addVoucher();
    const auto plan = planOf(m_department, "摘要,部门,金额\na,D1,1\n");
    ASSERT_TRUE(plan);
    EXPECT_FALSE(plan->mayBeApplied());
    EXPECT_EQ(refusalText(plan->rows[0]), "第 2 行:期初余额只能浏览");
}

TEST_P(EntryTransfers, AreOfTheMonthBeforeBooksThatBeginMidYear) {
    EntryBooks books(freshLocation(GetParam()), OpeningLayout::midYear);
    const AuxiliaryAccount account = books.account(m_department);
    const char* const captions[] = {"摘要", "部门", "金额", "日期"};
    const auto plan =
        EntryImport(books.messages(), m_department, account)
            .planBlock(
                {.rows = {{Cell::of("a"), Cell::of("D1"), Cell::of(5.0)},
                          {Cell::of("b"), Cell::of("D1"), Cell::of(5.0), Cell::of("2025-12-31")}}},
                captions);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->rows[0].entry->content.date, (Date{2026, 2, 28}));
    EXPECT_EQ(refusalText(plan->rows[1]), "第 2 行 D 列:日期输入无效");
}

TEST_P(EntryTransfers, TellWhyTheyCannotBePlanned) {
    EXPECT_FALSE(planOf(m_department, "摘要,金额\n"));
    EXPECT_NE(said().find("没有标题行。标题行中应有“摘要”、“部门”、“金额”。"), std::string::npos);
    EXPECT_FALSE(EntryImport(m_books.messages(), m_department, m_books.account(m_department))
                     .planFile(m_folder + "/none.csv"));
    EXPECT_NE(said().find("none.csv"), std::string::npos);
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::departmentAndProject);
    const AuxiliaryAccount account = m_books.account(member);
    std::ofstream(m_folder + "/in.csv") << "摘要,部门,项目,金额\na,D1,I1,1\n";
    int failures = 0;
    for (int call = 1; call < 100; ++call) {
        m_books.books().engine().failCall(call);
        const auto plan =
            EntryImport(m_books.messages(), member, account).planFile(m_folder + "/in.csv");
        m_books.books().engine().failCall(0);
        if (plan) {
            EXPECT_TRUE(plan->mayBeApplied());
            break;
        }
        ++failures;
        EXPECT_NE(said(), "") << call;
    }
    EXPECT_GT(failures, 5);
}

TEST_P(EntryTransfers, AreOfEndAccountsWithAuxiliaryAccountingOnly) {
    m_books.opening().addAccounts({"3001", "300101"});
    const auto outcomeOf = [&](const char* code) {
        EntryAccount found;
        return findEntryAccount(m_books.messages(), code, found);
    };
    EXPECT_EQ(outcomeOf("3001"), Outcome::refused);
    EXPECT_EQ(said(), "科目“3001”有下级科目,请在末级科目中录入期初明细。");
    EXPECT_EQ(outcomeOf("300101"), Outcome::refused);
    EXPECT_EQ(said(), "科目“300101”没有辅助核算,没有期初明细。");
    EXPECT_EQ(outcomeOf("9' OR 1=1"), Outcome::refused);
    EXPECT_EQ(said(), "没有“9' OR 1=1”这个科目。");
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        EntryAccount found;
        ASSERT_EQ(findEntryAccount(m_books.messages(), accountCode(member), found), Outcome::done);
        EXPECT_EQ(found.member, &member);
        EXPECT_EQ(found.account.id, m_books.account(member).id);
    }
}

TEST_P(EntryTransfers, FromSixtyThousandRowsAreDecidedInMoments) {
    std::string csv = "摘要,部门,金额\n";
    for (int row = 0; row < 60'000; ++row) csv += row == 59'999 ? "z,D1,x\n" : "a,D1,1\n";
    const auto plan = planOf(m_department, csv);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->rows.size(), 60'000u);
    EXPECT_EQ(plan->refusedCount(), 1u);
    EXPECT_EQ(refusalText(plan->rows.back()), "第 60001 行 C 列:金额输入无效");
}

TEST_P(EntryTransfers, OfHundredsOfUnitsGiveEachItsSums) {
    constexpr int units = 300;
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unit);
    std::string batch;
    std::string csv = "摘要,单位,金额\n";
    for (int unit = 3; unit < 3 + units; ++unit) {
        appendSql(batch,
                  "INSERT INTO Enter (lId, lClassId, sEnterCode, sEnterName) VALUES (%d, 1, '%s', "
                  "'%s')\r\n",
                  unit, "C" + std::to_string(unit), "客户" + std::to_string(unit));
        csv += "货款,客户" + std::to_string(unit) + "," + std::to_string(unit) + ".25\n";
    }
    m_books.books().run(batch + "UPDATE ABIdTable SET lLastId = 302 WHERE sTable = 'Enter'");
    const auto plan = planOf(member, csv);
    ASSERT_TRUE(plan && plan->mayBeApplied());
    ASSERT_EQ(write(member, plan->changes()), Outcome::done);
    EXPECT_TRUE(m_books.agree(member));
    const auto sums = readRows<_AssAccInfo>(m_books.database(), "lId > 0 ORDER BY lId");
    ASSERT_EQ(sums.size(), units * 12u);
    for (const _AssAccInfo& row : sums) EXPECT_EQ(row.mBegin, row.lEnterId + 0.25);
    EXPECT_EQ(m_books.database().AssAcc_GetLastId(), sums.back().lId);
    EXPECT_EQ(m_books.books().faults(), Texts{});
}

TEST_P(EntryTransfers, WithWhatFollowsThemAreWrittenTogetherOrNotAtAll) {
    const auto plan = planOf(m_department, "摘要,部门,金额\na,D1,1\n");
    ASSERT_TRUE(plan);
    auto changes = plan->changes();
    const Texts before = m_books.rows();
    const auto fail = [] {
        EXPECT_EQ(g_pDB->QRYExecuteSQL("DELETE FROM NoSuchTable"), 0);
        return g_pDB->lastStatus();
    };
    EXPECT_EQ(m_books.service(m_department).write(m_books.account(m_department), changes, fail),
              Outcome::failed);
    EXPECT_EQ(m_books.rows(), before);
    EXPECT_NE(said(), "");
    bool isCalled = false;
    const auto note = [&isCalled] {
        isCalled = true;
        return Status::done();
    };
    EXPECT_EQ(m_books.service(m_department).write(m_books.account(m_department), changes, note),
              Outcome::done);
    EXPECT_TRUE(isCalled);
    EXPECT_EQ(m_books.stored(m_department).size(), 1u);
}

CHENGHENG_ON_ALL_ENGINES(EntryTransfers);

}  // namespace
