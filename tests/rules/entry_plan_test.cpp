#include "auxiliary/transfer/entry_plan.h"

#include <gtest/gtest.h>

#include "sheets/delimited/delimited_text.h"

namespace {

using namespace chengheng;
constexpr const char* captionsOfWindow[] = {"日期", "凭证号数", "摘要", "部门",
                                            "方向", "金额",     "外币", "数量"};

Sheet entrySheetOf(const std::string& csv) {
    Sheet sheet;
    EXPECT_FALSE(readCsv(csv, sheet));
    return sheet;
}

/// A debit account with two departments, persons, units and items of equal names among them.
class EntryPlans : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    EntryPlans() {
        m_directory.assign(Dimension::department, {{1, "D1", "销售部"}, {2, "D2", "生产部"}});
        m_directory.assign(Dimension::person,
                           {{1, "P1", "张三", 1}, {2, "P2", "李四", 2}, {3, "P3", "张三", 2}});
        m_directory.assign(Dimension::unit,
                           {{1, "U1", "甲公司"}, {2, "U2", "乙公司"}, {3, "U3", "甲公司"}});
        m_directory.assign(
            Dimension::item,
            {{1, "I1", "一期", 0, "01"}, {1, "I1", "一期", 0, "02"}, {2, "I2", "二期", 0, "02"}});
        m_directory.addClass("01", "工程");
        m_directory.addClass("02", "专柜");
    }

    EntryPlan planOf(const AuxiliaryMember& member, const std::string& csv,
                     std::span<const char* const> captions = {}) {
        EntrySheet sheet;
        const auto failure = sheet.read(entrySheetOf(csv), member, captions);
        EXPECT_FALSE(failure) << failure->text();
        return planEntries(sheet, {.member = member,
                                   .account = m_account,
                                   .day = {2025, 12, 31},
                                   .directory = m_directory,
                                   .voucherTypes = m_types,
                                   .entries = m_entries,
                                   .isBrowsing = m_isBrowsing});
    }
    static std::string failureOf(const AuxiliaryMember& member, const std::string& csv) {
        EntrySheet sheet;
        const auto failure = sheet.read(entrySheetOf(csv), member);
        return failure ? failure->text() : "";
    }
    /// Why each row is refused; empty where it is not.
    Texts refusals(const AuxiliaryMember& member, const std::string& csv) {
        Texts texts;
        for (const PlannedEntry& row : planOf(member, csv).rows)
            texts.push_back(row.isRefused() ? refusalText(row) : "");
        return texts;
    }
    /// Why the only row below "摘要,<headings>" is refused.
    std::string refusal(const AuxiliaryMember& member, const std::string& headings,
                        const std::string& cells) {
        return refusals(member, "摘要," + headings + "\n期初," + cells + "\n").at(0);
    }

    const AuxiliaryMember& department = memberOf(AuxiliaryKind::department);
    const AuxiliaryMember& person = memberOf(AuxiliaryKind::person);
    const AuxiliaryMember& unit = memberOf(AuxiliaryKind::unit);
    const AuxiliaryMember& project = memberOf(AuxiliaryKind::project);
    AuxiliaryAccount m_account{.id = 5, .code = "1122", .name = "应收", .isDebit = true};
    EntryDirectory m_directory;
    std::vector<_SignInfo> m_types{{.lId = 1, .sSign = "记", .sSignName = "记帐凭证"}};
    std::vector<AuxiliaryEntry> m_entries;
    bool m_isBrowsing = false;
};

}  // namespace

TEST_F(EntryPlans, TakeColumnsInAnyOrderAndWhatIsMissingFromTheAccount) {
    const EntryPlan plan =
        planOf(department, "期初表\n部门,备注,金额,摘要\n销售部,x,\"1,200.5\",货款\n");
    ASSERT_EQ(plan.rows.size(), 1u);
    ASSERT_TRUE(plan.mayBeApplied());
    EXPECT_EQ(plan.rows[0].row, 3u);
    EXPECT_EQ(plan.ignored, Texts{"备注"});
    const AuxiliaryEntry& entry = *plan.rows[0].entry;
    EXPECT_EQ(entry.content, (EntryContent{.date = {2025, 12, 31},
                                           .sign = "",
                                           .number = 0,
                                           .summary = "货款",
                                           .of = {.department = 1},
                                           .isDebit = true,
                                           .money = 1200.5}));
    EXPECT_EQ(entry.names.department, "销售部");
    EXPECT_EQ(plan.changes().size(), 1u);
    EXPECT_EQ(plan.changes()[0].after, entry);
    EXPECT_FALSE(plan.changes()[0].before);
}

TEST_F(EntryPlans, TakeEveryColumn) {
    m_account.hasForeign = m_account.hasQuantity = true;
    const EntryPlan plan = planOf(person,
                                  "日期,凭证类别,凭证号,摘要,部门,个人,方向,金额,外币,数量\n"
                                  "2025/12/1,记帐凭证,0012,借款,D2,P3,贷方,7,1.5,2.00001\n");
    ASSERT_TRUE(plan.mayBeApplied());
    const EntryContent& content = plan.rows[0].entry->content;
    EXPECT_EQ(content, (EntryContent{.date = {2025, 12, 1},
                                     .sign = "记",
                                     .number = 12,
                                     .summary = "借款",
                                     .of = {.department = 2, .person = 3},
                                     .isDebit = false,
                                     .money = 7,
                                     .foreign = 1.5,
                                     .quantity = 2.00001}));
    EXPECT_EQ(namesText(plan.rows[0], person), "生产部 张三");
}

TEST_F(EntryPlans, TakeTheVoucherNumberAsTheWindowShowsIt) {
    const EntryPlan plan = planOf(
        department, "凭证号数,摘要,部门,金额\n记-0007,a,D1,1\n0008,b,D1,1\n,c,D1,1\n记-,d,D1,1\n");
    ASSERT_TRUE(plan.mayBeApplied());
    Texts numbers;
    for (const PlannedEntry& row : plan.rows)
        numbers.push_back(voucherNumberText(row.entry->content));
    EXPECT_EQ(numbers, (Texts{"记-0007", "0008", "", "记-0000"}));
    EXPECT_EQ(refusals(department, "凭证号数,摘要,部门,金额\n转-1,a,D1,1\n记7,b,D1,1\n"),
              (Texts{"第 2 行 A 列:没有“转”这个凭证类别。", "第 3 行 A 列:凭证号输入无效"}));
    EXPECT_EQ(failureOf(department, "凭证号数,凭证号,摘要,部门,金额\n"),
              "第 1 行 B 列:“凭证号数”已包括凭证类别和凭证号,不能再有“凭证号”一列。");
}

TEST_F(EntryPlans, TakeAPastedBlockInTheOrderOfTheWindow) {
    const EntryPlan plan = planOf(
        department, "2025-12-31,记-0007,期初,销售部,借,5,,\n,,货款,D2,,6\n", captionsOfWindow);
    ASSERT_TRUE(plan.mayBeApplied());
    ASSERT_EQ(plan.rows.size(), 2u);
    EXPECT_EQ(plan.rows[0].row, 1u);
    EXPECT_EQ(plan.rows[0].entry->content.number, 7);
    EXPECT_EQ(plan.rows[1].entry->content.of.department, 2);
    const EntryPlan headed = planOf(department, "金额,摘要,部门\n5,期初,D1\n", captionsOfWindow);
    ASSERT_EQ(headed.rows.size(), 1u);
    EXPECT_EQ(headed.rows[0].entry->content.money, 5);
}

TEST_F(EntryPlans, RefuseInTheWordsAndTheOrderOfTheRecordDialog) {
    const std::string row = "日期,凭证号,部门,个人,金额,外币,数量";
    m_account.hasForeign = m_account.hasQuantity = true;
    EXPECT_EQ(refusal(person, row, "2026-01-01,x,无,无,无,无,无"), "第 2 行 B 列:日期输入无效");
    EXPECT_EQ(refusal(person, row, ",x,无,无,,无,无"), "第 2 行 F 列:金额不能为空");
    EXPECT_EQ(refusal(person, row, ",x,无,无,无,无,无"), "第 2 行 F 列:金额输入无效");
    EXPECT_EQ(refusal(person, row, ",x,无,无,0,无,无"), "第 2 行 F 列:金额不能为0");
    EXPECT_EQ(refusal(person, row, ",x,无,无,1,无,无"), "第 2 行 D 列:非法的部门");
    EXPECT_EQ(refusal(person, row, ",x,D1,,1,无,无"), "第 2 行 E 列:姓名不能为空");
    EXPECT_EQ(refusal(person, row, ",x,D1,无,1,无,无"), "第 2 行 E 列:非法的姓名");
    EXPECT_EQ(refusal(person, row, ",x,D1,李四,1,无,无"), "第 2 行 E 列:部门与个人不匹配");
    EXPECT_EQ(refusal(person, row, ",x,D1,张三,1,无,无"), "第 2 行 G 列:外币输入无效");
    EXPECT_EQ(refusal(person, row, ",x,D1,张三,1,1,无"), "第 2 行 H 列:数量输入无效");
    EXPECT_EQ(refusal(person, row, ",x,D1,张三,1,1,1"), "第 2 行 C 列:凭证号输入无效");
    EXPECT_EQ(refusal(person, row, ",1,D1,张三,1,1,1"), "");
    EXPECT_EQ(refusals(unit, "摘要,单位,金额\n,乙公司,1\n"), Texts{"第 2 行 A 列:摘要不能为空"});
}

TEST_F(EntryPlans, RefuseWhatTheFieldsOfTheDialogLetNobodyType) {
    Texts names;
    for (const auto& check : entryRowChecks()) names.emplace_back(check.name);
    EXPECT_EQ(names, (Texts{"the summary fits", "the summary is one line", "the direction is one",
                            "the voucher type is there", "the account keeps foreign currency",
                            "the account keeps quantities"}));
    std::string longest;
    for (int at = 0; at < 60; ++at) longest += "字";
    const std::string headings = "摘要,部门,金额,方向,凭证类别,外币,数量\n";
    const auto refused = [&](const std::string& row) {
        return refusals(department, headings + row + "\n").at(0);
    };
    EXPECT_EQ(refused(longest + ",D1,1"), "");
    EXPECT_EQ(refused(longest + "字,D1,1,x"), "第 2 行 A 列:摘要超过 60 个字符。");
    EXPECT_EQ(refused("\"两\n行\",D1,1,x"), "第 2 行 A 列:摘要中有换行或不能显示的字符。");
    EXPECT_EQ(refused("\x1b[2J,D1,1"), "第 2 行 A 列:摘要中有换行或不能显示的字符。");
    EXPECT_EQ(refused("a,D1,1,x,y"), "第 2 行 D 列:“x”不是方向,应为借或贷。");
    EXPECT_EQ(refused("a,D1,1,贷,y"), "第 2 行 E 列:没有“y”这个凭证类别。");
    EXPECT_EQ(refused("a,D1,1,贷,记,5"), "第 2 行 F 列:科目不核算外币");
    EXPECT_EQ(refused("a,D1,1,贷,记,0,5"), "第 2 行 G 列:科目不核算数量");
    EXPECT_EQ(refused("a,D1,1,贷,记,0,0"), "");
}

TEST_F(EntryPlans, NameTheCodesOfEqualNamesAndTakeTheCode) {
    EXPECT_EQ(refusal(unit, "单位,金额", "甲公司,1"),
              "第 2 行 B 列:有 2 个“甲公司”(编码 U1、U3),请改填编码。");
    EXPECT_EQ(planOf(unit, "摘要,单位,金额\na,U3,1\n").rows[0].entry->content.of.unit, 3);
    EXPECT_EQ(refusal(person, "个人,金额", "张三,1"),
              "第 2 行 B 列:有 2 个“张三”(编码 P1、P3),请改填编码。");
    const EntryPlan plan = planOf(person, "摘要,个人,部门,金额\na,张三,生产部,1\nb,P1,,1\n");
    ASSERT_TRUE(plan.mayBeApplied());
    EXPECT_EQ(plan.rows[0].entry->content.of, (EntryDimensions{.department = 2, .person = 3}));
    EXPECT_EQ(plan.rows[1].entry->content.of, (EntryDimensions{.department = 1, .person = 1}));
    std::vector<DimensionChoice> many;
    for (int id = 1; id <= 7; ++id) many.push_back({id, "U" + std::to_string(id), "同名"});
    m_directory.assign(Dimension::unit, std::move(many));
    EXPECT_EQ(refusal(unit, "单位,金额", "同名,1"),
              "第 2 行 B 列:有 7 个“同名”(编码 U1、U2、U3、U4、U5等),请改填编码。");
}

TEST_F(EntryPlans, TellItemsOfDifferentClassesApart) {
    EXPECT_EQ(refusal(project, "项目,金额", "一期,1"),
              "第 2 行 B 列:有 2 个“一期”(编码 I1、I1),请改填编码。");
    const EntryPlan plan = planOf(project,
                                  "项目大类,项目,摘要,金额\n02,一期,a,1\n工程,I1,b,1\n,二期,c,1\n"
                                  "01,二期,d,1\n03,二期,e,1\n");
    Texts classes;
    for (const PlannedEntry& row : plan.rows)
        classes.push_back(row.entry ? row.entry->content.of.itemClass : refusalText(row));
    EXPECT_EQ(classes, (Texts{"02", "01", "02", "第 5 行 B 列:该项目名称不存在",
                              "第 6 行 A 列:没有“03”这个项目大类。"}));
}

TEST_F(EntryPlans, ReadNumbersStrictly) {
    const auto refused = [&](const std::string& amount) {
        return refusal(department, "部门,金额", "D1," + amount);
    };
    EXPECT_EQ(refused("\"1,5\""), "第 2 行 C 列:金额输入无效");
    EXPECT_EQ(refused("12元"), "第 2 行 C 列:金额输入无效");
    EXPECT_EQ(refused("=cmd|'/c calc'!A1"), "第 2 行 C 列:金额输入无效");
    EXPECT_EQ(refused("1e999"), "第 2 行 C 列:金额输入无效");
    EXPECT_EQ(refused("10000000000000"),
              "第 2 行 C 列:数值太大,期初余额最大为9,999,999,999,999.99,本次操作没有保存。");
    EXPECT_EQ(refused("1e300"),
              "第 2 行 C 列:数值太大,期初余额最大为9,999,999,999,999.99,本次操作没有保存。");
    EXPECT_EQ(refused("(1,200.00)"), "第 2 行 C 列:金额输入无效") << "the comma parts cells";
    EXPECT_EQ(refused("\"(1,200.00)\""), "");
    EXPECT_EQ(refused("9999999999999.99"), "");
}

TEST_F(EntryPlans, NameTheHeadingsThatAreMissingOrStandTwice) {
    EXPECT_EQ(failureOf(department, ""), "没有标题行。标题行中应有“摘要”、“部门”、“金额”。");
    EXPECT_EQ(failureOf(department, "摘要,金额\n"),
              "第 1 行:没有标题行。标题行中应有“摘要”、“部门”、“金额”。");
    EXPECT_EQ(failureOf(person, "摘要,金额,个人\n"), "") << "a department follows from the person";
    EXPECT_EQ(failureOf(department, "摘要,部门,金额,部门\n"), "第 1 行 D 列:标题“部门”重复。");
    EXPECT_EQ(failureOf(department, "摘要,部门,金额,单位,单位\n"), "");
}

TEST_F(EntryPlans, LeaveOutBlankRows) {
    const EntryPlan plan = planOf(department, "摘要,部门,金额,备注\n,,,\n ,　,,合计\na,D1,1,\n");
    ASSERT_EQ(plan.rows.size(), 1u);
    EXPECT_EQ(plan.rows[0].row, 4u);
    const EntryPlan none = planOf(department, "摘要,部门,金额\n");
    EXPECT_TRUE(none.rows.empty());
    EXPECT_FALSE(none.mayBeApplied());
}

TEST_F(EntryPlans, AreAppliedAsAWholeOrNotAtAll) {
    const EntryPlan plan = planOf(department, "摘要,部门,金额\na,D1,1\nb,无,2\nc,D2,3\n");
    EXPECT_EQ(plan.refusedCount(), 1u);
    EXPECT_FALSE(plan.mayBeApplied());
    EXPECT_TRUE(plan.rows[1].isRefused());
    EXPECT_EQ(plan.rows[1].heading, "部门");
    EXPECT_EQ(namesText(plan.rows[1], department), "无");
}

TEST_F(EntryPlans, TellRowsThatTheAccountHasAlready) {
    m_entries = {*planOf(department, "摘要,部门,金额\na,D1,1\n").rows[0].entry};
    m_entries[0].lineId = 8;
    const EntryPlan plan = planOf(department, "摘要,部门,金额\na,D1,1\na,D1,2\nb,D1,1\na,D2,1\n");
    EXPECT_TRUE(plan.mayBeApplied());
    EXPECT_EQ(plan.repeatedCount(), 1u);
    EXPECT_TRUE(plan.rows[0].isThere);
}

TEST_F(EntryPlans, RefuseEveryRowWhereNothingMayBeWritten) {
    m_isBrowsing = true;
    EXPECT_EQ(refusals(department, "摘要,部门,金额\na,D1,1\n,,x\n"),
              (Texts{"第 2 行:期初余额只能浏览", "第 3 行:期初余额只能浏览"}));
}
