#include <gtest/gtest.h>

#include "data/access/unit_of_work.h"
#include "tests/data/entry_case.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

/// What is refused writes nothing, and says why.
class RefusedEntries : public EntryCase {};

TEST_P(RefusedEntries, AreThoseThatNameWhatIsGone) {
    struct Gone {
        Kind kind;
        const char* statement;
        const char* adding;
        const char* modifying;
    };
    const Gone all[] = {
        {Kind::department, "UPDATE Dept SET sDeptName = '新' WHERE lId = 1",
         "该部门不存在,添加不成功", "该部门不存在,修改不成功"},
        {Kind::departmentAndProject, "DELETE ProjItems01 WHERE lId = 1", "该项目名称不存在",
         "该项目名称不存在"},
        {Kind::project, "DELETE ProjClass WHERE lId = 1", "该项目名称不存在", "该项目名称不存在"},
        {Kind::person, "DELETE Person WHERE lId = 1", "非法的姓名", "非法的姓名"},
        {Kind::departmentAndUnit, "DELETE Enter WHERE lId = 1", "该单位不存在,添加不成功",
         "该单位不存在,修改不成功"},
        {Kind::unitAndProject, "DELETE Enter WHERE lId = 1", "该单位名称不存在,添加不成功",
         "该单位名称不存在,修改不成功"},
        {Kind::unitAndProject, "DELETE ProjItems01 WHERE lId = 1", "该项目信息不存在",
         "没有符合该项目ID的记录"},
        {Kind::unit, "DELETE Enter WHERE lId = 1", "该单位信息不存在", "该单位信息不存在"},
    };
    for (const auto& [kind, statement, adding, modifying] : all) {
        const AuxiliaryMember& member = memberOf(kind);
        const AuxiliaryEntry second = added(member, 2, 10);
        const Texts before = m_books.rows();
        UnitOfWork unit(m_books.database());
        m_books.books().run(statement);
        AuxiliaryEntry first = EntryBooks::entry(member, 1, 10);
        EXPECT_EQ(m_books.service(member).add(m_books.account(member), first), Outcome::refused);
        EXPECT_EQ(refusal(before), adding) << member.caption;
        EXPECT_EQ(modify(member, second, first), Outcome::refused);
        EXPECT_EQ(refusal(before), modifying) << member.caption;
    }
}

TEST_P(RefusedEntries, AreThoseOfAPersonWhoWentToAnotherDepartment) {
    const AuxiliaryMember& member = memberOf(Kind::person);
    const Texts before = m_books.rows();
    m_books.books().run("UPDATE Person SET lDeptId = 2 WHERE lId = 1");
    AuxiliaryEntry entry = EntryBooks::entry(member, 1, 10);
    EXPECT_EQ(m_books.service(member).add(m_books.account(member), entry), Outcome::refused);
    EXPECT_EQ(refusal(before), "部门与个人不匹配");
}

TEST_P(RefusedEntries, AreThoseOfAnAccountThatIsGoneOrAnother) {
    const AuxiliaryEntry entry = added(m_department, 1, 10);
    const AuxiliaryAccount account = m_books.account(m_department);
    EntryService service = m_books.service(m_department);
    const Texts before = m_books.rows();
    const auto expectRefused = [&](const char* adding, const char* modifying,
                                   const char* deleting) {
        AuxiliaryEntry other = EntryBooks::entry(m_department, 2, 5);
        EXPECT_EQ(service.add(account, other), Outcome::stale);
        EXPECT_EQ(refusal(before), adding);
        EXPECT_EQ(service.modify(account, entry, other), Outcome::stale);
        EXPECT_EQ(refusal(before), modifying);
        EXPECT_EQ(service.remove(account, entry), Outcome::stale);
        EXPECT_EQ(refusal(before), deleting);
    };
    const char* const changed = "科目已被其他工作站修改,本次操作没有保存,请重新打开窗口。";
    for (const char* change : {"bEnd = 0", "sAssBook = 'B'", "bDirect = 0"}) {
        UnitOfWork unit(m_books.database());
        m_books.opening().change(account.code, change);
        expectRefused(changed, changed, changed);
    }
    m_books.opening().change(account.code, "sCode = '9999'");
    expectRefused("该科目不存在,添加不成功", "该科目不存在,修改不成功", "该科目不存在,删除不成功");
}

TEST_P(RefusedEntries, AreAllOnceThereAreVouchers) {
    const AuxiliaryEntry entry = added(m_department, 1, 10);
    m_books.opening().addVoucher();
    const Texts before = m_books.rows();
    const char* const vouchers = "帐套中已有凭证,期初余额只能浏览,本次操作没有保存。";
    AuxiliaryEntry other = EntryBooks::entry(m_department, 2, 5);
    EXPECT_EQ(m_books.service(m_department).add(m_books.account(m_department), other),
              Outcome::stale);
    EXPECT_EQ(refusal(before), vouchers);
    EXPECT_EQ(remove(m_department, entry), Outcome::stale);
    EXPECT_EQ(refusal(before), vouchers);
}

TEST_P(RefusedEntries, LeaveAnEntryThatAnotherWorkstationChangedOrDeleted) {
    const AuxiliaryEntry entry = added(m_department, 1, 10);
    AuxiliaryEntry theirs = entry;
    theirs.content.money = 12;
    ASSERT_EQ(modify(m_department, entry, theirs), Outcome::done);
    const Texts before = m_books.rows();
    const char* const changed = "该记录已被其他工作站修改,本次操作没有进行,列表已重新读入。";
    EXPECT_EQ(modify(m_department, entry, EntryBooks::entry(m_department, 1, 20)), Outcome::stale);
    EXPECT_EQ(refusal(before), changed);
    EXPECT_EQ(remove(m_department, entry), Outcome::stale);
    EXPECT_EQ(refusal(before), changed);
    ASSERT_EQ(remove(m_department, theirs), Outcome::done);
    const Texts after = m_books.rows();
    EXPECT_EQ(remove(m_department, theirs), Outcome::stale);
    EXPECT_EQ(refusal(after), "该记录已被其他工作站删除,列表已重新读入。");
    EXPECT_EQ(openings(m_department), allPeriods("0"));
}

TEST_P(RefusedEntries, AreThoseThatMakeABalanceTooLarge) {
    added(m_department, 1, 9'999'999'999'999);
    const Texts before = m_books.rows();
    AuxiliaryEntry other = EntryBooks::entry(m_department, 2, 1);
    EXPECT_EQ(m_books.service(m_department).add(m_books.account(m_department), other),
              Outcome::refused);
    EXPECT_EQ(refusal(before), "数值太大,期初余额最大为9,999,999,999,999.99,本次操作没有保存。");
}

TEST_P(RefusedEntries, AreVeryManyForTheOneWhoseNameIsGone) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        std::vector<EntryChange> changes;
        for (int count = 0; count < 70; ++count)
            changes.push_back({.before = {}, .after = EntryBooks::entry(member, 2, 1)});
        const AuxiliaryAccount account = m_books.account(member);
        EXPECT_EQ(m_books.service(member).write(account, changes), Outcome::done);
        EXPECT_EQ(m_books.auxiliary(member, 2), allPeriods("70")) << member.caption;
        const Texts before = m_books.rows();
        const DimensionWords& last = member.dimensions.back();
        for (const char* wrong : {"没有", ""}) {
            nameOf(changes[69].after->names, last.dimension) = wrong;
            EXPECT_EQ(m_books.service(member).write(account, changes), Outcome::refused);
            EXPECT_EQ(refusal(before), last.goneAdding) << member.caption;
        }
    }
}

TEST_P(RefusedEntries, StillShowAnEntryWhoseDepartmentHasVanishedAndLetItBeDeleted) {
    AuxiliaryEntry entry = added(m_department, 1, 10);
    m_books.books().run("DELETE Dept WHERE lId = 1");
    entry.names.department = "";
    EXPECT_EQ(m_books.stored(m_department), std::vector{entry});
    EXPECT_EQ(remove(m_department, entry), Outcome::done);
    EXPECT_EQ(openings(m_department), allPeriods("0"));
}

CHENGHENG_ON_ALL_ENGINES(RefusedEntries);

}  // namespace
