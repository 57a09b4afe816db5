#include "auxiliary/entries/entry_input.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace {

using namespace chengheng;

const AuxiliaryMember& departmentMember = memberOf(AuxiliaryKind::department);

EntryInput rightInput(const AuxiliaryMember& member) {
    EntryInput input{
        {.date = "2025-12-31", .sign = "记", .number = "1", .summary = "期初", .money = "100"},
        true};
    for (const DimensionWords& words : member.dimensions)
        nameOf(input.names, words.dimension) = "有";
    return input;
}

/// The text of the first refusal, then the field; names "有" are known, and belong together.
std::string refusalOf(const AuxiliaryMember& member, const EntryInput& input,
                      Date day = {2025, 12, 31}) {
    const auto refusal = firstRefusal(
        entryChecks(),
        {.member = member,
         .input = input,
         .day = day,
         .isKnown = [&](Dimension dimension) { return nameOf(input.names, dimension) != "无"; },
         .belongTogether = [&] { return input.names.person != "别"; }});
    return refusal ? refusal->notice.text + " " + refusal->notice.focusField : "";
}

}  // namespace

TEST(EntryInputs, AreCheckedInTheirOrder) {
    std::vector<std::string> names;
    for (const auto& check : entryChecks()) names.emplace_back(check.name);
    EXPECT_EQ(names, (std::vector<std::string>{
                         "the date is of the last month before the books begin",
                         "there is an amount", "the amount is a number", "the amount is not 0",
                         "there is a summary", "the names are those of records",
                         "the person is of the department", "the foreign amount is a number",
                         "the quantity is a number", "the voucher number is a number"}));
}

TEST(EntryInputs, AreOfTheMonthBeforeTheBooksBegin) {
    EXPECT_EQ(openingEntryDay({2026, 1, 1}), (Date{2025, 12, 31}));
    EXPECT_EQ(openingEntryDay({2028, 3, 1}), (Date{2028, 2, 29}));
    for (const char* date : {"2025-12-31", "2025-12-01", " 2025/12/5 ", "2025.12.5"}) {
        EntryInput input = rightInput(departmentMember);
        input.date = date;
        EXPECT_EQ(refusalOf(departmentMember, input), "") << date;
    }
    for (const char* date : {"", "2026-01-01", "2025-11-30", "2024-12-31", "2025-12-32", "昨天"}) {
        EntryInput input = rightInput(departmentMember);
        input.date = date;
        EXPECT_EQ(refusalOf(departmentMember, input), "日期输入无效 dtDate") << date;
    }
    EntryInput late = rightInput(departmentMember);
    late.date = "2026-02-21";
    EXPECT_EQ(refusalOf(departmentMember, late, {2026, 2, 20}), "日期输入无效 dtDate");
    late.date = "2026-02-20";
    EXPECT_EQ(refusalOf(departmentMember, late, {2026, 2, 20}), "");
}

TEST(EntryInputs, AreRefusedForTheFirstOfTheirFaults) {
    EntryInput input;
    EXPECT_EQ(refusalOf(departmentMember, input), "日期输入无效 dtDate");
    input.date = "2025-12-31";
    EXPECT_EQ(refusalOf(departmentMember, input), "金额不能为空 mMoney");
    input.money = "1,5";
    EXPECT_EQ(refusalOf(departmentMember, input), "金额输入无效 mMoney");
    input.money = "10000000000000";
    EXPECT_EQ(refusalOf(departmentMember, input),
              "数值太大,期初余额最大为9,999,999,999,999.99,本次操作没有保存。 mMoney");
    input.money = "0";
    EXPECT_EQ(refusalOf(departmentMember, input), "摘要不能为空 sDigest");
    input.summary = "期初";
    EXPECT_EQ(refusalOf(departmentMember, input), "部门不能为空 lDeptId");
    input.names.department = "无";
    EXPECT_EQ(refusalOf(departmentMember, input), "该部门不存在 lDeptId");
    input.names.department = "有";
    input.foreign = "a";
    EXPECT_EQ(refusalOf(departmentMember, input), "外币输入无效 mFgn");
    input.foreign = "1";
    input.quantity = "--1";
    EXPECT_EQ(refusalOf(departmentMember, input), "数量输入无效 dAmt");
    input.quantity = "1.5";
    input.number = "-1";
    EXPECT_EQ(refusalOf(departmentMember, input), "凭证号输入无效 lNumber");
    input.number = "";
    EXPECT_EQ(refusalOf(departmentMember, input), "");
}

TEST(EntryInputs, WithoutAnAmountAreRefusedByFourMembers) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        for (const char* zero : {"0", "0.004", "-0.00"}) {
            EntryInput input = rightInput(member);
            input.money = zero;
            EXPECT_EQ(refusalOf(member, input), member.refusesZero ? "金额不能为0 mMoney" : "")
                << member.caption << zero;
        }
        EntryInput input = rightInput(member);
        input.money = "0.005";
        EXPECT_EQ(refusalOf(member, input), "") << member.caption;
    }
}

TEST(EntryInputs, AreRefusedInTheWordsOfEachMember) {
    struct Words {
        const char* empty;
        const char* unknown;
    };
    using Kind = AuxiliaryKind;
    const std::map<std::pair<Kind, Dimension>, Words> expectations{
        {{Kind::department, Dimension::department}, {"部门不能为空", "该部门不存在"}},
        {{Kind::departmentAndProject, Dimension::department}, {"部门不能为空", "该部门不存在"}},
        {{Kind::departmentAndProject, Dimension::item}, {"项目不能为空", "该项目名称不存在"}},
        {{Kind::project, Dimension::item}, {"项目不能为空", "该项目名称不存在"}},
        {{Kind::person, Dimension::department}, {"", "非法的部门"}},
        {{Kind::person, Dimension::person}, {"姓名不能为空", "非法的姓名"}},
        {{Kind::departmentAndUnit, Dimension::department}, {"部门不能为空", "该部门不存在"}},
        {{Kind::departmentAndUnit, Dimension::unit}, {"单位不能为空", "该单位信息不存在"}},
        {{Kind::unitAndProject, Dimension::unit}, {"单位不能为空", "该单位信息不存在"}},
        {{Kind::unitAndProject, Dimension::item}, {"项目不能为空", "该项目信息不存在"}},
        {{Kind::unit, Dimension::unit}, {"单位不能为空", "该单位信息不存在"}},
    };
    std::size_t count = 0;
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        for (const DimensionWords& words : member.dimensions) {
            ++count;
            const auto& [empty, unknown] = expectations.at({member.kind, words.dimension});
            const std::string field = std::string(" ") + entryField(words.dimension);
            EntryInput input = rightInput(member);
            nameOf(input.names, words.dimension) = " ";
            EXPECT_EQ(refusalOf(member, input), *empty ? empty + field : "") << member.caption;
            nameOf(input.names, words.dimension) = "无";
            EXPECT_EQ(refusalOf(member, input), unknown + field) << member.caption;
        }
    }
    EXPECT_EQ(count, expectations.size());
}

TEST(EntryInputs, CheckTwoDimensionsInTheOrderOfTheDialog) {
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::departmentAndUnit);
    EntryInput input = rightInput(member);
    input.names = {};
    EXPECT_EQ(refusalOf(member, input), "部门不能为空 lDeptId");
    input.names.department = "无";
    EXPECT_EQ(refusalOf(member, input), "该部门不存在 lDeptId");
    input.names.department = "有";
    EXPECT_EQ(refusalOf(member, input), "单位不能为空 lEnterId");
}

TEST(EntryInputs, OfAPersonOfAnotherDepartmentAreRefused) {
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::person);
    EntryInput input = rightInput(member);
    input.names.person = "别";
    EXPECT_EQ(refusalOf(member, input), "部门与个人不匹配 lPersonId");
}

TEST(EntryInputs, SayWhatTheirTextsMean) {
    EntryInput input = rightInput(departmentMember);
    input.date = " 2025/12/5 ";
    input.number = " 0042 ";
    input.summary = " 期初 余额 ";
    input.money = "1,234.565";
    input.foreign = "=1+2";
    input.quantity = "0.123456";
    const EntryContent content = contentOf(input);
    EXPECT_EQ(content.date, (Date{2025, 12, 5}));
    EXPECT_EQ(content.number, 42);
    EXPECT_EQ(content.summary, "期初 余额");
    EXPECT_EQ(content.money, 1234.57);
    EXPECT_EQ(content.foreign, 3);
    EXPECT_EQ(content.quantity, 0.12346);
    EXPECT_TRUE(content.isDebit);
}

TEST(EntryInputs, LeaveTheAmountWithFiveDecimals) {
    EXPECT_EQ(rewrittenAmount("1,234.5"), "1234.50000");
    EXPECT_EQ(rewrittenAmount("-0.000001"), "0.00000");
    EXPECT_EQ(rewrittenAmount("x"), "x");
}

TEST(EntryInputs, OfAnEntryAreWhatMakesItAgain) {
    AuxiliaryEntry entry;
    entry.content = {.date = {2025, 12, 31},
                     .sign = "记",
                     .number = 3,
                     .summary = "期初",
                     .of = {},
                     .isDebit = false,
                     .money = 12.5,
                     .foreign = 0,
                     .quantity = 1.25};
    entry.names.department = "销售部";
    const EntryInput input = entryInput(entry);
    EXPECT_EQ(input.date, "2025-12-31");
    EXPECT_EQ(input.number, "3");
    EXPECT_EQ(input.money, "12.50000");
    EXPECT_EQ(input.foreign, "");
    EXPECT_EQ(input.quantity, "1.25000");
    EXPECT_EQ(input.names.department, "销售部");
    EXPECT_EQ(contentOf(input), entry.content);
}
