#include "directories/transfer/directory_plan.h"

#include <gtest/gtest.h>

#include <chrono>

#include "sheets/delimited/delimited_text.h"
#include "sheets/sheet_texts.h"

namespace {

using namespace chengheng;
using Lines = std::vector<std::string>;

/// A directory's records and groups, and what becomes of sheets that are held against them.
class DirectoryPlans : public testing::Test {
  protected:
    using enum DirectoryKind;

    void SetUp() override {
        m_groups = {{.id = 1, .code = "D1", .name = "销售部"},
                    {.id = 2, .code = "D2", .name = "生产部"}};
        m_records = {{.id = 1, .group = 1, .code = "1", .name = "甲"},
                     {.id = 2, .group = 2, .code = "2", .name = "乙"}};
    }

    DirectoryPlan plan(DirectoryKind kind, const std::string& csv) {
        Sheet sheet;
        EXPECT_FALSE(readCsv(csv, sheet));
        const Directory& directory = directoryOf(kind);
        DirectorySheet read;
        const auto failure = read.read(sheet, directory);
        EXPECT_FALSE(failure) << failure->text();
        return planDirectory(
            directory, read,
            {m_records, directory.groups ? m_groups : std::vector<DirectoryRecord>()});
    }
    std::string failure(DirectoryKind kind, const std::string& csv) {
        Sheet sheet;
        EXPECT_FALSE(readCsv(csv, sheet));
        DirectorySheet read;
        const auto found = read.read(sheet, directoryOf(kind));
        return found ? found->text() : "";
    }
    /// "2 新增", "3 拒绝 第 3 行 A 列:..."
    Lines fates(DirectoryKind kind, const std::string& csv) {
        Lines lines;
        for (const PlannedRow& row : plan(kind, csv).rows) {
            lines.push_back(std::to_string(row.row) + " " + fateTitle(row.fate));
            if (row.fate == RowFate::refused) lines.back() += " " + refusalText(row);
            for (const std::string& question : row.questions) lines.back() += " ? " + question;
        }
        return lines;
    }

    std::vector<DirectoryRecord> m_groups;
    std::vector<DirectoryRecord> m_records;
};

TEST_F(DirectoryPlans, AddModifyAndLeaveRecordsByTheirCode) {
    const DirectoryPlan made = plan(person, "编码,名称,所属部门\n1,甲,D1\n2,丙,销售部\n3,丁,D2\n");
    ASSERT_EQ(made.rows.size(), 3u);
    EXPECT_EQ(made.rows[0].fate, RowFate::unchanged);
    EXPECT_EQ(made.rows[1].fate, RowFate::changed);
    EXPECT_EQ(made.rows[2].fate, RowFate::added);
    EXPECT_EQ(made.changed,
              (std::vector<DirectoryRecord>{{.id = 2, .group = 1, .code = "2", .name = "丙"}}));
    EXPECT_EQ(made.added,
              (std::vector<DirectoryRecord>{{.id = 0, .group = 2, .code = "3", .name = "丁"}}));
    EXPECT_TRUE(made.isAcceptable());
}

TEST_F(DirectoryPlans, ReadColumnsInAnyOrderBelowTitlesAndTellThoseThatMeanNothing) {
    const DirectoryPlan made =
        plan(unit, "单位往来目录\n性质,备注,单位分类,名称,编码\n供应商,x,生产部,丙,3\n");
    EXPECT_EQ(made.ignored, Lines{"备注"});
    EXPECT_EQ(
        made.added,
        (std::vector<DirectoryRecord>{
            {.id = 0, .group = 2, .code = "3", .name = "丙", .unitKind = UnitKind::supplier}}));
    EXPECT_EQ(made.rows.front().row, 3u);
}

TEST_F(DirectoryPlans, TakeNoSheetWhoseColumnsAreMissingOrDoubled) {
    EXPECT_EQ(failure(department, ""), "没有标题行。标题行中应有“编码”。");
    EXPECT_EQ(failure(department, "名称\n甲\n"), "第 1 行:没有标题行。标题行中应有“编码”。");
    EXPECT_EQ(failure(projectItem, "编码,名称\n1,甲\n"),
              "第 1 行:没有标题行。标题行中应有“编码”、“项目大类”。");
    EXPECT_EQ(failure(unit, "编码,名称,单位分类,名称\n"), "第 1 行 D 列:标题“名称”重复。");
    EXPECT_EQ(failure(unit, "编码\n"), "");
}

TEST_F(DirectoryPlans, LeaveWhatAMissingColumnOrAnEmptyGroupOrKindWouldSay) {
    m_records[0].unitKind = UnitKind::customer;
    EXPECT_EQ(plan(unit, "编码,名称\n1,丙\n").changed.front(),
              (DirectoryRecord{
                  .id = 1, .group = 1, .code = "1", .name = "丙", .unitKind = UnitKind::customer}));
    EXPECT_EQ(fates(unit, "编码,名称,单位分类,性质\n1,甲,,\n"), Lines{"2 不变"});
    EXPECT_EQ(fates(unit, "编码,性质\n1,供应商\n"), Lines{"2 修改"});
    EXPECT_EQ(fates(unit, "编码,单位分类\n3,D1\n"), Lines{"2 拒绝 第 2 行:单位名称不能为空"});
    EXPECT_EQ(fates(unit, "编码,名称\n1,\n"), Lines{"2 拒绝 第 2 行 B 列:单位名称不能为空"});
}

TEST_F(DirectoryPlans, RefuseInTheWordsAndTheOrderOfTheWindowWithRowAndColumn) {
    EXPECT_EQ(
        fates(person, "名称,编码,所属部门\n甲,,\n甲,a b,\n,9,\n丙,8,\n丁,7,没有\n甲,6,D1\n" +
                          std::string(61, 'x') + ",5,D1\n戊," + std::string(21, '1') + ",D1\n"),
        (Lines{"2 拒绝 第 2 行 B 列:个人编码不能为空", "3 拒绝 第 3 行 B 列:个人编码不能包含空格",
               "4 拒绝 第 4 行 A 列:个人名称不能为空", "5 拒绝 第 5 行 C 列:请选择所属部门",
               "6 拒绝 第 6 行 C 列:没有编码或名称为“没有”的部门",
               "7 拒绝 第 7 行 A 列:个人名称重复:已有“1 甲”",
               "8 拒绝 第 8 行 A 列:个人名称最多 60 个字",
               "9 拒绝 第 9 行 B 列:个人编码最多 20 个字"}));
}

TEST_F(DirectoryPlans, RefuseWhatIsNoKindOfUnitAfterAllChecks) {
    EXPECT_EQ(fates(unit, "编码,名称,单位分类,性质\n3,,D1,客商\n4,丙,D1,客商\n1,甲,D1,客商\n"),
              (Lines{"2 拒绝 第 2 行 B 列:单位名称不能为空",
                     "3 拒绝 第 3 行 D 列:“客商”不是性质,应为客户、供应商或客户兼供应商",
                     "4 拒绝 第 4 行 D 列:“客商”不是性质,应为客户、供应商或客户兼供应商"}));
}

TEST_F(DirectoryPlans, RefuseControlCharactersAndTakeFormulasForTheTextTheyAre) {
    EXPECT_EQ(fates(department, "编码,名称\n3\x01,丙\n4,丁\x07\n5,\"戊\n己\"\n=1+1,=A1\n"),
              (Lines{"2 拒绝 第 2 行 A 列:部门编码含有不能显示的字符",
                     "3 拒绝 第 3 行 B 列:部门名称含有不能显示的字符",
                     "4 拒绝 第 4 行 B 列:部门名称含有不能显示的字符", "5 新增"}));
}

TEST_F(DirectoryPlans, RefuseTheSecondOfTwoRowsWithOneCode) {
    EXPECT_EQ(fates(department, "编码,名称\n3,丙\n1,甲\n3,丁\n1,甲\n"),
              (Lines{"2 新增", "3 不变", "4 拒绝 第 4 行 A 列:部门编码与第 2 行的重复",
                     "5 拒绝 第 5 行 A 列:部门编码与第 3 行的重复"}));
}

TEST_F(DirectoryPlans, HoldEachRowAgainstWhatTheRowsBeforeLeaveBehind) {
    EXPECT_EQ(fates(department, "编码,名称\n1,丙\n3,甲\n4,丙\n"),
              (Lines{"2 修改", "3 新增", "4 拒绝 第 4 行 B 列:部门名称重复:已有“1 丙”"}));
    EXPECT_EQ(fates(department, "编码,名称\n3,丙\n4,丙\n"),
              (Lines{"2 新增", "3 拒绝 第 3 行 B 列:部门名称重复:已有“3 丙”"}));
}

TEST_F(DirectoryPlans, TellProjectClassesApartInAnyCaseOfLetters) {
    m_records = {{.id = 1, .code = "A1", .name = "甲"}};
    EXPECT_EQ(fates(projectClass, "编码,名称\na1,丙\n"),
              Lines{"2 拒绝 第 2 行 A 列:项目大类编码重复:已有“A1 甲”"});
    EXPECT_EQ(fates(projectClass, "编码,名称\nb,丙\nB,丁\nA1,戊\nc-1,己\n"),
              (Lines{"2 新增", "3 拒绝 第 3 行 A 列:项目大类编码与第 2 行的重复", "4 修改",
                     "5 拒绝 第 5 行 A 列:项目大类编码只能由字母和数字组成"}));
}

TEST_F(DirectoryPlans, TellItemsApartWithinTheirClass) {
    m_groups = {{.id = 1, .code = "01", .name = "工程"}, {.id = 2, .code = "02", .name = "产品"}};
    const char* csv = "编码,名称,项目大类\n1,甲,工程\n1,甲,02\n2,甲,02\n3,丙,\n";
    EXPECT_EQ(fates(projectItem, csv),
              (Lines{"2 不变", "3 新增", "4 拒绝 第 4 行 B 列:项目名称重复:已有“1 甲”",
                     "5 拒绝 第 5 行 C 列:请选择项目大类"}));
    EXPECT_EQ(plan(projectItem, csv).added.front().group, 2);
}

TEST_F(DirectoryPlans, FindAGroupByItsCodeBeforeAnyNameAndRefuseEqualNames) {
    m_groups.push_back({.id = 3, .code = "D3", .name = "D1"});
    m_groups.push_back({.id = 4, .code = "D4", .name = "生产部"});
    EXPECT_EQ(plan(person, "编码,名称,所属部门\n3,丙,D1\n").added.front().group, 1);
    EXPECT_EQ(fates(person, "编码,名称,所属部门\n3,丙,生产部\n1,甲,生产部\n4,丁,D4\n"),
              (Lines{"2 拒绝 第 2 行 C 列:有 2 个名称为“生产部”的部门(编码 D2、D4),请改填编码",
                     "3 拒绝 第 3 行 C 列:有 2 个名称为“生产部”的部门(编码 D2、D4),请改填编码",
                     "4 新增"}));
}

TEST_F(DirectoryPlans, TellWhichNamesWouldBeSharedAsTheWindowAsks) {
    EXPECT_EQ(fates(unit, "编码,名称,单位分类\n3,甲,D2\n4,丙,D1\n5,丙,D1\n1,甲,\n"),
              (Lines{"2 新增 ? 已有同名的单位“1 甲”", "3 新增", "4 新增 ? 已有同名的单位“4 丙”",
                     "5 不变"}));
    EXPECT_EQ(
        fates(person, "编码,名称,所属部门\n3,甲,D2\n4,甲,D1\n"),
        (Lines{"2 新增 ? 已有同名的个人“1 甲”", "3 拒绝 第 3 行 B 列:个人名称重复:已有“1 甲”"}));
    EXPECT_EQ(plan(unit, "编码,名称,单位分类\n3,甲,D2\n4,丙,D1\n5,丙,D1\n").rowsWithQuestions(),
              2u);
}

TEST_F(DirectoryPlans, AskAboutNoNameThatARecordSharedBefore) {
    m_records.clear();
    for (int id = 1; id <= 5; ++id)
        m_records.push_back({.id = id, .group = 1, .code = std::to_string(id), .name = "同名"});
    EXPECT_EQ(fates(unit, "编码,名称,性质\n5,同名,客户\n4,别名,客户\n"),
              (Lines{"2 修改", "3 修改"}));
    EXPECT_EQ(fates(unit, "编码,名称,性质\n4,别名,\n5,别名,\n"),
              (Lines{"2 修改", "3 修改 ? 已有同名的单位“4 别名”"}));
}

TEST_F(DirectoryPlans, FindAmongManyBearersOfANameTheOneOfTheDepartment) {
    m_records.clear();
    m_groups.clear();
    for (int id = 1; id <= 9; ++id) {
        const std::string number = std::to_string(id);
        m_groups.push_back({.id = id, .code = "D" + number, .name = "部门" + number});
        m_records.push_back({.id = id, .group = id, .code = number, .name = "同名"});
    }
    EXPECT_EQ(fates(person, "编码,名称,所属部门\n10,同名,D7\n7,同名,D8\n"),
              (Lines{"2 拒绝 第 2 行 B 列:个人名称重复:已有“7 同名”",
                     "3 拒绝 第 3 行 B 列:个人名称重复:已有“8 同名”"}));
}

TEST_F(DirectoryPlans, TakeStoredTextsWithBlanksAroundThemForTheSame) {
    m_records = {{.id = 1, .code = "1 ", .name = " 甲 "}};
    EXPECT_EQ(fates(department, "编码,名称\n1,甲\n"), Lines{"2 不变"});
    EXPECT_EQ(plan(department, "编码,名称\n1,丙\n").changed.front(),
              (DirectoryRecord{.id = 1, .code = "1", .name = "丙"}));
}

TEST_F(DirectoryPlans, TakeCodesThatASheetKeepsAsNumbers) {
    Sheet sheet;
    sheet.rows = {{Cell::of("编码"), Cell::of("名称")},
                  {Cell::of(1001.0), Cell::of(2026.0)},
                  {Cell::of(7.0, "007"), Cell::of("丙")}};
    DirectorySheet read;
    ASSERT_FALSE(read.read(sheet, directoryOf(department)));
    const DirectoryPlan made = planDirectory(directoryOf(department), read, {m_records, {}});
    EXPECT_EQ(made.added.at(0), (DirectoryRecord{.id = 0, .code = "1001", .name = "2026"}));
    EXPECT_EQ(made.added.at(1).code, "007");
}

TEST_F(DirectoryPlans, OfASheetWithoutRowsChangeNothing) {
    const DirectoryPlan made = plan(unit, "编码,名称\n,\n\n");
    EXPECT_TRUE(made.rows.empty());
    EXPECT_TRUE(made.isAcceptable());
    EXPECT_FALSE(made.changesSomething());
}

TEST_F(DirectoryPlans, OfManyEqualNamesTakeNoLongerThanOfOthers) {
    std::string csv = "编码,名称,单位分类\n";
    for (int number = 100'000; number < 160'000; ++number)
        csv += std::to_string(number) + ",同名,D1\n";
    const auto start = std::chrono::steady_clock::now();
    const DirectoryPlan made = plan(unit, csv);
    EXPECT_EQ(made.added.size(), 60'000u);
    EXPECT_EQ(made.rowsWithQuestions(), 59'999u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST_F(DirectoryPlans, OfWhatIsExportedChangeNothing) {
    m_groups.push_back({.id = 3, .code = "D3", .name = "D1"});
    m_records.push_back({.id = 3, .group = 3, .code = "03", .name = "=1+1"});
    m_records.push_back(
        {.id = 4, .group = 2, .code = "4", .name = "a,\"b", .unitKind = UnitKind::supplier});
    const Directory& units = directoryOf(unit);
    const Sheet sheet = exportedDirectory(units, m_records, m_groups);
    EXPECT_EQ(sheet.rows.at(0), (SheetRow{Cell::of("编码"), Cell::of("名称"), Cell::of("单位分类"),
                                          Cell::of("性质")}));
    EXPECT_EQ(sheet.rows.at(1), (SheetRow{Cell::of("1"), Cell::of("甲"), Cell::of("销售部"),
                                          Cell::of("客户兼供应商")}));
    EXPECT_EQ(sheet.rows.at(3).at(2), Cell::of("D3")) << "the name is another's code";
    DirectorySheet read;
    ASSERT_FALSE(read.read(sheet, units));
    const DirectoryPlan made = planDirectory(units, read, {m_records, m_groups});
    EXPECT_EQ(made.count(RowFate::unchanged), 4u);
    std::vector<DirectoryRecord> anew = m_records;
    for (DirectoryRecord& record : anew) record.id = 0;
    EXPECT_EQ(planDirectory(units, read, {{}, m_groups}).added, anew);
}

}  // namespace
