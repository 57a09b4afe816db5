#include "auxiliary/members/auxiliary_member.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "auxiliary/screen/entry_list.h"

namespace {

using namespace chengheng;

/// What a member has of its own, as the bookkeeper and the database meet it.
struct Expected {
    AuxiliaryKind kind;
    const char* caption;
    const char* adding;
    const char* modifying;
    const char* finding;
    const char* entries;
    const char* lookupTables;
    const char* sums;
    const char* update;
    std::vector<std::string> headings;
    bool refusesZero;
};

const std::vector<Expected> memberExpectations{
    {AuxiliaryKind::department,
     "部门核算期初",
     "部门核算期初——添加记录",
     "部门核算期初——修改记录",
     "部门核算期初——查找",
     "lCodeId=5 AND lDeptId <> 0 AND bBegin<>0",
     "Dept Code",
     "byPeroid > 0 AND lCodeId = 5 AND lDeptId = 6",
     "lCodeId = 5 AND lDeptId = 6 ",
     {"部门"},
     false},
    {AuxiliaryKind::departmentAndProject,
     "部门项目期初",
     "部门项目期初——添加记录",
     "部门项目期初——修改记录",
     "部门项目期初——查找",
     "bBegin<>0 AND lCodeId=5 AND lItemId<>0 AND lDeptId<>0",
     "Dept ProjClass ProjCodes ProjItems Code",
     "byPeroid > 0 AND lCodeId = 5 AND lDeptId = 6 AND lItemId = 9 AND sItemId = '01'",
     "lCodeId = 5 AND lDeptId = 6 AND lItemId = 9 AND sItemId = '01' ",
     {"部门", "项目"},
     false},
    {AuxiliaryKind::project,
     "项目核算期初",
     "项目期初——添加记录",
     "项目期初——修改记录",
     "项目期初——查找",
     "bBegin<>0 AND lCodeId=5 AND lItemId<>0",
     "ProjClass ProjCodes ProjItems Code",
     "byPeroid > 0 AND lCodeId = 5 AND lItemId = 9 AND sItemId = '01'",
     "lCodeId = 5 AND lItemId = 9 AND sItemId = '01' ",
     {"项目"},
     false},
    {AuxiliaryKind::person,
     "个人往来期初",
     "个人期初添加记录",
     "个人期初——修改记录",
     "个人期初——查找",
     "lCodeId = 5 AND lPersonId is not NULL AND bBegin <> 0",
     "Dept Person Code",
     "byPeroid > 0 AND lCodeId = 5 AND lPersonId = 7 AND lDeptId = 6",
     "lCodeId = 5 AND lPersonId = 7 AND lDeptId = 6 ",
     {"部门", "个人"},
     true},
    {AuxiliaryKind::departmentAndUnit,
     "部门往来期初",
     "单位部门期初——添加记录",
     "单位部门期初——修改记录",
     "单位部门期初——查找",
     "bBegin<>0 AND lCodeId=5 AND lEnterId>0 AND lDeptId>0",
     "Dept Enter EnterClass Code",
     "byPeroid > 0 AND lCodeId = 5 AND lEnterId = 8 AND lDeptId = 6",
     "lCodeId = 5 AND lEnterId = 8 AND lDeptId = 6 ",
     {"部门", "单位"},
     true},
    {AuxiliaryKind::unitAndProject,
     "项目往来期初",
     "单位项目期初——添加记录",
     "单位项目期初——修改记录",
     "单位项目期初——查找",
     "bBegin<>0 AND lCodeId=5 AND lEnterId <> 0 AND lItemId<>0",
     "Enter ProjClass ProjCodes ProjItems Codes",
     "byPeroid > 0 AND lCodeId = 5 AND lEnterId = 8 AND lItemId = 9 AND sItemId = '01'",
     "lCodeId = 5 AND lEnterId = 8 AND lItemId = 9 AND sItemId = '01' ",
     {"单位", "项目"},
     true},
    {AuxiliaryKind::unit,
     "单位往来期初",
     "单位期初——添加记录",
     "单位期初——修改记录",
     "单位期初——查找",
     "bBegin<>0 AND lCodeId=5 AND lEnterId<>0",
     "Enter EnterClass Code",
     "byPeroid > 0 AND lCodeId = 5 AND lEnterId = 8",
     "lCodeId = 5 AND lEnterId = 8 ",
     {"单位"},
     true},
};

const EntryDimensions sixToNine{
    .department = 6, .person = 7, .unit = 8, .item = 9, .itemClass = "01"};

}  // namespace

TEST(AuxiliaryMembers, AreSevenAndEachHasWhatIsItsOwn) {
    ASSERT_EQ(auxiliaryMembers().size(), memberExpectations.size());
    for (const Expected& expected : memberExpectations) {
        const AuxiliaryMember& member = memberOf(expected.kind);
        EXPECT_STREQ(member.caption, expected.caption);
        EXPECT_STREQ(member.addingTitle, expected.adding);
        EXPECT_STREQ(member.modifyingTitle, expected.modifying);
        EXPECT_STREQ(member.findingTitle, expected.finding);
        EXPECT_EQ(member.entriesOf(5), expected.entries);
        EXPECT_STREQ(member.lookupTables, expected.lookupTables);
        EXPECT_EQ(member.sumsOf(5, sixToNine), expected.sums);
        std::string batch;
        member.updateSums(batch, {1.5, 2, 3.25}, 5, sixToNine);
        EXPECT_EQ(batch, std::string("UPDATE AssAcc Set mBegin = 1.500000, mFBegin = 2.000000, "
                                     "dBegin = 3.250000 Where ") +
                             expected.update + "\r\n");
        EXPECT_EQ(member.refusesZero, expected.refusesZero) << expected.caption;
    }
}

TEST(AuxiliaryMembers, ShowTheirDimensionsBetweenSummaryAndDirection) {
    for (const Expected& expected : memberExpectations) {
        std::vector<std::string> headings{"日期", "凭证号数", "摘要"};
        headings.insert(headings.end(), expected.headings.begin(), expected.headings.end());
        for (const char* last : {"方向", "金额", "外币", "数量"}) headings.emplace_back(last);
        std::vector<std::string> shown;
        for (const EntryColumn column : columnsOf(memberOf(expected.kind)))
            shown.emplace_back(headingOf(column));
        EXPECT_EQ(shown, headings) << expected.caption;
    }
}

TEST(AuxiliaryMembers, AloneAskOrRefuseWhatOthersDoNot) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        EXPECT_EQ(member.asksBeforeGivingUp, member.kind == AuxiliaryKind::project);
        EXPECT_EQ(member.refusesBrowsingNothing, member.kind == AuxiliaryKind::departmentAndUnit);
        EXPECT_EQ(member.mismatch != nullptr, member.kind == AuxiliaryKind::person);
    }
}

TEST(VoucherNumbers, HaveFourDigitsBehindTheirType) {
    EntryContent content;
    EXPECT_EQ(voucherNumberText(content), "");
    content.number = 12;
    EXPECT_EQ(voucherNumberText(content), "0012");
    content.sign = "记";
    EXPECT_EQ(voucherNumberText(content), "记-0012");
    content.number = 12345;
    EXPECT_EQ(voucherNumberText(content), "记-12345");
}

TEST(EntryFiguresOf, AnEntryCountPlusInTheDirectionOfItsAccount) {
    const AuxiliaryAccount debit{.isDebit = true};
    const AuxiliaryAccount credit{.isDebit = false};
    const EntryContent entry{.isDebit = true, .money = 1.005, .foreign = 2, .quantity = 0.000005};
    EXPECT_EQ(figuresOf(entry, debit), (EntryFigures{1.01, 2, 0.00001}));
    EXPECT_EQ(figuresOf(entry, credit), (EntryFigures{-1.01, -2, -0.00001}));
}
