#include "auxiliary/transfer/entry_sheet.h"

#include <gtest/gtest.h>

namespace {

using namespace chengheng;

class EntrySheets : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    EntrySheets() {
        m_directory.assign(Dimension::department, {{1, "D1", "销售部"}, {2, "D2", "生产部"}});
        m_directory.assign(Dimension::person,
                           {{1, "P1", "张三", 1}, {2, "P2", "张三", 2}, {3, "P3", "张三", 2}});
        m_directory.assign(Dimension::item,
                           {{1, "I1", "一期", 0, "01"}, {1, "I1", "一期", 0, "02"}});
        m_directory.assign(Dimension::unit, {{1, "乙公司", "甲公司"},
                                             {2, "U2", "乙公司"},
                                             {3, "U3", " 丙公司"},
                                             {4, "U2", "丁公司"}});
    }

    /// The texts of a row of exported entries, or of the headings (0).
    Texts row(AuxiliaryKind kind, const AuxiliaryEntry& entry, std::size_t at = 1) {
        const Sheet sheet = exportedEntries(memberOf(kind), m_account, {&entry, 1}, m_directory);
        Texts texts;
        for (const Cell& cell : sheet.rows.at(at)) texts.push_back(cellText(cell));
        return texts;
    }
    std::string unitText(std::int32_t id, const std::string& name) {
        AuxiliaryEntry entry;
        entry.content.of.unit = id;
        entry.names.unit = name;
        return m_directory.textOf(Dimension::unit, entry);
    }

    AuxiliaryAccount m_account{.id = 5, .code = "1122", .name = "应收", .isDebit = true};
    EntryDirectory m_directory;
};

}  // namespace

TEST_F(EntrySheets, HaveTheColumnsThatTheAccountKeeps) {
    AuxiliaryEntry entry;
    entry.content = {.date = {2025, 12, 31},
                     .sign = "记",
                     .number = 7,
                     .summary = "=1+1",
                     .of = {.department = 1},
                     .isDebit = false,
                     .money = 1234.5};
    entry.names.department = "销售部";
    EXPECT_EQ(row(AuxiliaryKind::department, entry, 0),
              (Texts{"日期", "凭证类别", "凭证号", "摘要", "部门", "方向", "金额"}));
    EXPECT_EQ(row(AuxiliaryKind::department, entry),
              (Texts{"2025-12-31", "记", "7", "=1+1", "销售部", "贷", "1234.5"}));
    entry.content.quantity = 2;
    EXPECT_EQ(row(AuxiliaryKind::department, entry, 0).back(), "数量");
    m_account.hasForeign = true;
    entry.content.number = 0;
    EXPECT_EQ(row(AuxiliaryKind::department, entry),
              (Texts{"2025-12-31", "记", "", "=1+1", "销售部", "贷", "1234.5", "", "2"}));
}

TEST_F(EntrySheets, GiveTheCodeWhereANameDoesNotTellWho) {
    AuxiliaryEntry entry;
    entry.content.date = {2025, 12, 31};
    entry.content.of = {.department = 1, .person = 1};
    entry.names = {.department = "销售部", .person = "张三", .unit = {}, .item = {}};
    const Texts only = row(AuxiliaryKind::person, entry);
    EXPECT_EQ((Texts{only.begin() + 4, only.begin() + 6}), (Texts{"销售部", "张三"}));
    entry.content.of = {.department = 2, .person = 3};
    entry.names.department = "生产部";
    const Texts shared = row(AuxiliaryKind::person, entry);
    EXPECT_EQ((Texts{shared.begin() + 4, shared.begin() + 6}), (Texts{"生产部", "P3"}));
    EXPECT_EQ(unitText(1, "甲公司"), "甲公司");
    EXPECT_EQ(unitText(2, "乙公司"), "乙公司") << "a name goes before a code";
    EXPECT_EQ(unitText(3, " 丙公司"), "U3") << "blanks around a name are not read";
    EXPECT_EQ(unitText(9, "戊公司"), "戊公司") << "vanished";
}

TEST_F(EntrySheets, NameTheClassOfAProjectItem) {
    AuxiliaryEntry entry;
    entry.content.date = {2025, 12, 31};
    entry.content.of = {.item = 1, .itemClass = "02"};
    entry.names.item = "一期";
    const Texts texts = row(AuxiliaryKind::project, entry);
    EXPECT_EQ((Texts{texts.begin() + 4, texts.begin() + 6}), (Texts{"02", "一期"}));
}
