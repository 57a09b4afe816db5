#include "auxiliary/entries/entry_service.h"

#include <gtest/gtest.h>

#include "data/access/row_lease.h"
#include "data/tables/balances.h"
#include "data/tables/vouchers.h"
#include "tests/data/entry_case.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

class EntryWritings : public EntryCase {};

TEST_P(EntryWritings, OfEachMemberGiveTwelveRowsAndTheOpeningBalance) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        const AuxiliaryEntry entry = added(member, 1, 100.25);
        EXPECT_EQ(m_books.stored(member), std::vector{entry}) << member.caption;
        EXPECT_EQ(m_books.auxiliary(member, 1), allPeriods("100.25")) << member.caption;
        EXPECT_EQ(m_books.auxiliary(member, 2), "") << member.caption;
        EXPECT_EQ(openings(member), allPeriods("100.25")) << member.caption;
        EXPECT_TRUE(m_books.agree(member)) << member.caption;
    }
    EXPECT_EQ(m_books.books().faults(), Texts{});
    EXPECT_TRUE(m_books.messages().texts().empty());
}

TEST_P(EntryWritings, OfTheSameCombinationRaiseItsRows) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        added(member, 1, 100);
        added(member, 1, 50, false);
        added(member, 2, 7);
        EXPECT_EQ(m_books.auxiliary(member, 1), allPeriods("50")) << member.caption;
        EXPECT_EQ(m_books.auxiliary(member, 2), allPeriods("7")) << member.caption;
        EXPECT_EQ(openings(member), allPeriods("57")) << member.caption;
    }
    EXPECT_EQ(readRows<_AssAccInfo>(m_books.database(), nullptr).size(), 7u * 24);
    EXPECT_EQ(readRows<_AccSumInfo>(m_books.database(), nullptr).size(), 7u * 12);
}

TEST_P(EntryWritings, MovedToAnotherCombinationLowerTheOneAndRaiseTheOther) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        const AuxiliaryEntry before = added(member, 1, 100);
        added(member, 1, 1);
        ASSERT_EQ(modify(member, before, EntryBooks::entry(member, 2, 130)), Outcome::done);
        EXPECT_EQ(m_books.auxiliary(member, 1), allPeriods("1")) << member.caption;
        EXPECT_EQ(m_books.auxiliary(member, 2), allPeriods("130")) << member.caption;
        EXPECT_EQ(openings(member), allPeriods("131")) << member.caption;
        EXPECT_TRUE(m_books.agree(member)) << member.caption;
    }
}

TEST_P(EntryWritings, DeletedTakeTheirFiguresAway) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        const AuxiliaryEntry entry = added(member, 1, 100);
        const AuxiliaryEntry kept = added(member, 1, 5);
        ASSERT_EQ(remove(member, entry), Outcome::done);
        EXPECT_EQ(m_books.stored(member), std::vector{kept}) << member.caption;
        EXPECT_EQ(m_books.auxiliary(member, 1), allPeriods("5")) << member.caption;
        EXPECT_EQ(openings(member), allPeriods("5")) << member.caption;
    }
    EXPECT_EQ(readRows<_RegMainInfo>(m_books.database(), nullptr).size(), 7u);
}

TEST_P(EntryWritings, LeaveTheHeaderThatAnotherLineNeeds) {
    const AuxiliaryEntry first = added(m_department, 1, 100);
    const AuxiliaryEntry second = added(m_department, 2, 5);
    m_books.books().run(formatSql("UPDATE RegSub SET lTieId = %d", first.headerId));
    ASSERT_EQ(remove(m_department, first), Outcome::done);
    auto left = m_books.stored(m_department);
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0].headerId, first.headerId);
    EXPECT_EQ(left[0].content, second.content);
    ASSERT_EQ(remove(m_department, left[0]), Outcome::done);
    const auto headers = readRows<_RegMainInfo>(m_books.database(), nullptr);
    ASSERT_EQ(headers.size(), 1u);
    EXPECT_EQ(headers[0].lId, second.headerId) << "which no line named";
}

TEST_P(EntryWritings, ThatShareAHeaderTakeItAlongWhenTheyGoTogether) {
    const AuxiliaryEntry first = added(m_department, 1, 100);
    added(m_department, 2, 5);
    m_books.books().run(formatSql("UPDATE RegSub SET lTieId = %d", first.headerId));
    const auto stored = m_books.stored(m_department);
    EntryChange changes[] = {{.before = stored.at(0), .after = {}},
                             {.before = stored.at(1), .after = {}}};
    ASSERT_EQ(m_books.service(m_department).write(m_books.account(m_department), changes),
              Outcome::done);
    for (const _RegMainInfo& header : readRows<_RegMainInfo>(m_books.database(), nullptr))
        EXPECT_NE(header.lId, first.headerId);
}

TEST_P(EntryWritings, CarryForeignCurrencyAndQuantityInTheirOwnColumns) {
    AuxiliaryEntry entry = EntryBooks::entry(m_department, 1, 100);
    entry.content.foreign = 20.5;
    entry.content.quantity = 3.00001;
    for (int time = 1; time <= 2; ++time) {
        ASSERT_EQ(m_books.service(m_department).add(m_books.account(m_department), entry),
                  Outcome::done);
        for (const _AssAccInfo& row : readRows<_AssAccInfo>(m_books.database(), nullptr)) {
            EXPECT_EQ(row.mBegin, 100 * time);
            EXPECT_EQ(row.mFBegin, 20.5 * time);
            EXPECT_EQ(row.dBegin, 3.00001 * time);
            EXPECT_EQ(row.mDebt + row.mCredit + row.dDebt + row.dCredit + row.mFDebt, 0);
        }
        for (const _AccSumInfo& row : readRows<_AccSumInfo>(m_books.database(), nullptr)) {
            EXPECT_EQ(row.mBegin, 100 * time);
            EXPECT_EQ(row.mFgnBegin, 20.5 * time);
            EXPECT_EQ(row.dAmtBegin, 3.00001 * time);
        }
    }
}

TEST_P(EntryWritings, StoreAHeaderOfNoPeriodAndALineThatNamesIt) {
    const AuxiliaryEntry entry = added(m_department, 2, 12.5, false);
    const auto headers = readRows<_RegMainInfo>(m_books.database(), nullptr);
    const auto lines = readRows<_RegSubInfo>(m_books.database(), nullptr);
    ASSERT_EQ(headers.size(), 1u);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(headers[0].lId, entry.headerId);
    EXPECT_EQ(headers[0].byPeroid, 0);
    EXPECT_EQ(headers[0].dtDate, (Date{2025, 12, 31}));
    EXPECT_EQ(headers[0].sSign, "记");
    EXPECT_EQ(headers[0].lNumber, 7);
    EXPECT_EQ(headers[0].lUBill, 1);
    EXPECT_EQ(lines[0].lId, entry.lineId);
    EXPECT_EQ(lines[0].lTieId, entry.headerId);
    EXPECT_EQ(lines[0].lLine, 1);
    EXPECT_EQ(lines[0].bDirect, 0);
    EXPECT_EQ(lines[0].mMoney, 12.5);
    EXPECT_EQ(lines[0].lDeptId, 2);
    EXPECT_EQ(lines[0].lPersonId, std::nullopt);
    EXPECT_EQ(lines[0].bBegin, 1);
    EXPECT_EQ(openings(m_department), allPeriods("-12.5"));
}

TEST_P(EntryWritings, LeaveTheOpeningBalancesToBeTyped) {
    m_books.opening().addAccounts({"1001"});
    added(m_department, 1, 100);
    ASSERT_EQ(m_books.opening().work().refresh(), Outcome::done);
    EXPECT_FALSE(m_books.opening().work().isBrowsing());
    EXPECT_EQ(m_books.opening().shown(accountCode(m_department)), "100.00");
    EXPECT_TRUE(m_books.opening().type("1001", "5"));
}

TEST_P(EntryWritings, DrawIdsFromOneSequenceWithUnpostedVouchers) {
    m_books.books().run(
        "UPDATE ABIdTable SET lLastId = 90 WHERE sTable = 'UnRegMain'\r\n"
        "UPDATE ABIdTable SET lLastId = 70 WHERE sTable = 'RegSub'");
    const AuxiliaryEntry entry = added(m_department, 1, 1);
    EXPECT_EQ(entry.headerId, 91);
    EXPECT_EQ(entry.lineId, 71);
    const AuxiliaryEntry next = added(m_department, 1, 1);
    EXPECT_EQ(next.headerId, 92);
    EXPECT_EQ(next.lineId, 72);
    EXPECT_EQ(m_books.database().RegMain_GetLastId(), 92);
    EXPECT_EQ(m_books.database().UnregMain_GetLastId(), 92);
    EXPECT_EQ(m_books.database().RegSub_GetLastId(), 72);
    EXPECT_EQ(m_books.database().UnregSub_GetLastId(), 72);
}

TEST_P(EntryWritings, LockWhatTheMemberNamesThenWhatIsWritten) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        m_books.books().locks().forget();
        added(member, 1, 1);
        const std::string lookups = member.lookupTables;
        Texts expected{"lock " + lookups + " 1", "lock AssAcc AccSum RegMain RegSug 2"};
        Texts released{"unlock " + lookups + " 1", "unlock AssAcc AccSum RegMain RegSug 2"};
        if (member.kind == Kind::unitAndProject) {
            expected.push_back("lock Code 1");
            released.insert(released.begin(), "unlock Code 1");
        }
        expected.insert(expected.end(), released.begin(), released.end());
        EXPECT_EQ(m_books.books().locks().log(), expected) << member.caption;
    }
}

TEST_P(EntryWritings, WithoutMoneyLeaveTheRowsOfTheirCombinationWhenTheyGo) {
    AuxiliaryEntry entry = EntryBooks::entry(m_department, 1, 0.00004);
    ASSERT_EQ(m_books.service(m_department).add(m_books.account(m_department), entry),
              Outcome::done);
    m_books.books().run("UPDATE AssAcc SET mBegin = 33, dBegin = 2");
    ASSERT_EQ(remove(m_department, entry), Outcome::done);
    EXPECT_EQ(m_books.auxiliary(m_department, 1), allPeriods("33"));
}

TEST_P(EntryWritings, MoveRowsThatDifferEachByTheDifference) {
    const AuxiliaryEntry entry = added(m_department, 1, 10);
    m_books.books().run("UPDATE AssAcc SET mBegin = 3, mDebt = 4 WHERE byPeroid = 5");
    m_books.books().run("UPDATE AccSum SET mBegin = 2, mDebet = 4 WHERE byPeroid = 6");
    ASSERT_EQ(modify(m_department, entry, EntryBooks::entry(m_department, 1, 11)), Outcome::done);
    EXPECT_EQ(m_books.auxiliary(m_department, 1),
              "1=11 2=11 3=11 4=11 5=4 6=11 7=11 8=11 9=11 10=11 11=11 12=11");
    EXPECT_EQ(openings(m_department),
              "1=11 2=11 3=11 4=11 5=11 6=3 7=11 8=11 9=11 10=11 11=11 12=11");
    EXPECT_EQ(readRows<_AssAccInfo>(m_books.database(), "mDebt = 4").size(), 1u);
    EXPECT_EQ(readRows<_AccSumInfo>(m_books.database(), "mDebet = 4").size(), 1u);
}

TEST_P(EntryWritings, WhoseRowsWereSweptAwayInsertTheirNegative) {
    const AuxiliaryEntry entry = added(m_department, 1, 10);
    m_books.books().run("DELETE AssAcc WHERE lId > 0");
    m_books.books().run("DELETE AccSum WHERE lId > 0");
    ASSERT_EQ(remove(m_department, entry), Outcome::done);
    EXPECT_EQ(m_books.auxiliary(m_department, 1), allPeriods("-10"));
    EXPECT_EQ(openings(m_department), allPeriods("-10"));
}

TEST_P(EntryWritings, OfManyAreAllOrNothing) {
    std::vector<EntryChange> changes;
    for (int count = 0; count < 30; ++count)
        changes.push_back(
            {.before = {}, .after = EntryBooks::entry(m_department, 1 + count % 2, count)});
    const AuxiliaryAccount account = m_books.account(m_department);
    EXPECT_EQ(m_books.service(m_department).write(account, changes), Outcome::done);
    EXPECT_EQ(m_books.stored(m_department).size(), 30u);
    EXPECT_EQ(m_books.auxiliary(m_department, 1), allPeriods("210"));
    EXPECT_EQ(m_books.auxiliary(m_department, 2), allPeriods("225"));
    EXPECT_EQ(openings(m_department), allPeriods("435"));
    const Texts before = m_books.rows();
    changes.back().after->names.department = "没有";
    EXPECT_EQ(m_books.service(m_department).write(account, changes), Outcome::refused);
    EXPECT_EQ(refusal(before), "该部门不存在,添加不成功");
}

/// Entries of the units 1 to 80, whose names are put into the books.
std::vector<EntryChange> entriesOfManyUnits(EntryBooks& books) {
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unit);
    std::string units;
    std::vector<EntryChange> changes;
    for (int unit = 1; unit <= 80; ++unit) {
        const std::string name = "客户" + std::to_string(unit);
        if (unit > 2)
            units += formatSql(
                "INSERT INTO Enter (lId, lClassId, sEnterName) VALUES (%d, 1, '%s')\n", unit, name);
        AuxiliaryEntry entry = EntryBooks::entry(member, 1, unit);
        entry.content.of.unit = unit;
        if (unit == 2) entry.names.unit = "乙公司";
        if (unit > 2) entry.names.unit = name;
        changes.push_back({.before = {}, .after = entry});
    }
    books.books().run(units);
    return changes;
}

TEST_P(EntryWritings, OfManyUnitsRaiseTheRowsOfEach) {
    const AuxiliaryMember& member = memberOf(Kind::unit);
    std::vector<EntryChange> changes = entriesOfManyUnits(m_books);
    const AuxiliaryAccount account = m_books.account(member);
    for (int time = 1; time <= 2; ++time) {
        ASSERT_EQ(m_books.service(member).write(account, changes), Outcome::done);
        EXPECT_EQ(m_books.auxiliary(member, 1), allPeriods(std::to_string(time)));
        EXPECT_EQ(m_books.auxiliary(member, 2), allPeriods(std::to_string(2 * time)));
        EXPECT_EQ(readRows<_AssAccInfo>(m_books.database(), nullptr).size(), 80u * 12);
        EXPECT_EQ(openings(member), allPeriods(std::to_string(3240 * time)));
    }
}

TEST_P(EntryWritings, OfManyUnitsMakeTheRowsThatWritingThemInPartsMakes) {
    const AuxiliaryMember& member = memberOf(Kind::unit);
    std::vector<EntryChange> changes;
    // Two for each unit, with more decimals than a statement writes.
    for (EntryChange change : entriesOfManyUnits(m_books)) {
        for (const double figure : {0.1, 0.12345678}) {
            change.after->content.money = figure;
            change.after->content.foreign = -figure;
            change.after->content.quantity = figure;
            changes.push_back(change);
        }
    }
    const AuxiliaryAccount account = m_books.account(member);
    const auto written = [&](std::size_t atOnce) {
        m_books.books().run(
            "DELETE AssAcc WHERE lId > 0\r\nUPDATE ABIdTable SET lLastId = 7 WHERE sTable = "
            "'AssAcc'");
        for (std::size_t at = 0; at < changes.size(); at += atOnce)
            EXPECT_EQ(
                m_books.service(member).write(account, std::span(changes).subspan(at, atOnce)),
                Outcome::done);
        return readRows<_AssAccInfo>(m_books.database(), "lId > 0 ORDER BY lId");
    };
    const std::vector<_AssAccInfo> inParts = written(40);
    const std::vector<_AssAccInfo> atOnce = written(changes.size());
    EXPECT_EQ(atOnce, inParts);
    ASSERT_EQ(atOnce.size(), 80u * 12);
    EXPECT_EQ(atOnce.front().lId, 8);
    EXPECT_EQ(m_books.database().lastIdOf<_AssAccInfo>(), 7 + 80 * 12);
}

TEST_P(EntryWritings, UnlikeTheAuxiliarySumsAreFoundByTheCheck) {
    const AuxiliaryMember& member = memberOf(Kind::unitAndProject);
    added(member, 1, 10);
    added(member, 1, 4, false);
    added(member, 2, 30);
    EXPECT_EQ(m_books.books().faults(), Texts{});
    // Both together as the account has them, each on its own not.
    m_books.books().run(
        "UPDATE AssAcc SET mBegin = 7, dBegin = 0.00001 WHERE lEnterId = 1\r\n"
        "UPDATE AssAcc SET mBegin = 29, dBegin = -0.00001 WHERE lEnterId = 2");
    const std::string account =
        formatSql("openingEntries: 科目 2006 科目2006(编号 %d):", m_books.account(member).id);
    const std::string first = account + "单位(编号 1)、项目 01 (编号 1)的";
    const std::string second = account + "单位(编号 2)、项目 01 (编号 2)的";
    EXPECT_EQ(m_books.books().faults(),
              (Texts{first + "期初金额,期初明细合计为 6.00,辅助总帐为 7.00",
                     first + "期初数量,期初明细合计为 0.00000,辅助总帐为 0.00001",
                     second + "期初金额,期初明细合计为 30.00,辅助总帐为 29.00",
                     second + "期初数量,期初明细合计为 0.00000,辅助总帐为 -0.00001"}));
}

TEST_P(EntryWritings, WithoutAuxiliarySumsAreFoundByTheCheckAndSumsAloneAreNot) {
    added(m_department, 1, 10);
    const AuxiliaryMember& unit = memberOf(Kind::unit);
    const AuxiliaryEntry entry = added(unit, 1, 5);
    m_books.books().run(formatSql("DELETE RegSub WHERE lId = %d", entry.lineId));
    EXPECT_EQ(m_books.books().faults(), Texts{});
    m_books.books().run("UPDATE AssAcc SET lDeptId = 2 WHERE lDeptId = 1");
    const std::string account =
        formatSql("openingEntries: 科目 2001 科目2001(编号 %d):", m_books.account(m_department).id);
    EXPECT_EQ(m_books.books().faults(),
              (Texts{account + "部门(编号 1)的期初金额,期初明细合计为 10.00,辅助总帐为 0.00",
                     account + "部门(编号 2)的期初金额,期初明细合计为 0.00,辅助总帐为 10.00"}));
}

TEST_P(EntryWritings, AreNoVouchersToTheCheckOfTheOpeningBalances) {
    added(m_department, 1, 10);
    m_books.books().run(
        "UPDATE AccSum SET mBegin = 9 WHERE byPeroid = 5\r\n"
        "UPDATE AssAcc SET mBegin = 9 WHERE byPeroid = 5");
    const Texts faults = m_books.books().faults();
    ASSERT_EQ(faults.size(), 1u);
    EXPECT_TRUE(faults[0].starts_with("openings: "));
}

CHENGHENG_ON_ALL_ENGINES(EntryWritings);

class MidYearEntries : public testing::TestWithParam<EngineCase> {};

TEST_P(MidYearEntries, AreHeldAgainstThePeriodTheBooksBeginWith) {
    EntryBooks books(freshLocation(GetParam()), OpeningLayout::midYear);
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unit);
    AuxiliaryEntry entry = EntryBooks::entry(member, 1, 10);
    entry.content.date = {2026, 2, 28};
    ASSERT_EQ(books.service(member).add(books.account(member), entry), Outcome::done);
    for (const char* table : {"AccSum", "AssAcc"})
        books.books().run(
            formatSql("UPDATE %s SET mBegin = 4 WHERE byPeroid = 1", SqlFragment{table}));
    EXPECT_EQ(books.books().faults(), Texts{});
    for (const char* table : {"AccSum", "AssAcc"})
        books.books().run(
            formatSql("UPDATE %s SET mBegin = 4 WHERE byPeroid > 1", SqlFragment{table}));
    EXPECT_EQ(books.books().faults().size(), 1u);
}

TEST_P(MidYearEntries, MoveAllTwelveRowsAndNoMovement) {
    EntryBooks books(freshLocation(GetParam()), OpeningLayout::midYear);
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unit);
    AuxiliaryEntry entry = EntryBooks::entry(member, 1, 10);
    ASSERT_EQ(books.service(member).add(books.account(member), entry), Outcome::done);
    books.books().run("UPDATE AccSum SET mBegin = 4, mDebet = 8, mCredit = 2 WHERE byPeroid = 1");
    AuxiliaryEntry more = EntryBooks::entry(member, 1, 5);
    ASSERT_EQ(books.service(member).add(books.account(member), more), Outcome::done);
    EXPECT_EQ(books.opening().openings(accountCode(member)),
              "1=9 2=15 3=15 4=15 5=15 6=15 7=15 8=15 9=15 10=15 11=15 12=15");
    EXPECT_EQ(readRows<_AccSumInfo>(books.database(), "mDebet = 8 AND mCredit = 2").size(), 1u);
    EXPECT_TRUE(books.agree(member));
}

CHENGHENG_ON_ALL_ENGINES(MidYearEntries);

}  // namespace
