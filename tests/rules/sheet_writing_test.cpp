#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include "sheets/delimited/delimited_text.h"
#include "sheets/files/sheet_files.h"
#include "tests/support/engine_cases.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;

constexpr const char* mark = "\xEF\xBB\xBF";

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string csvOf(const Sheet& sheet) {
    std::string text;
    const std::optional<SheetFailure> failure = csvText(sheet, text);
    EXPECT_FALSE(failure) << failure->text();
    return text;
}

Sheet sheetOf(std::vector<SheetRow> rows) {
    Sheet sheet;
    sheet.rows = std::move(rows);
    return sheet;
}

Sheet oneCell(Cell cell) { return sheetOf({{std::move(cell)}}); }

TEST(CsvText, BeginsWithTheMarkAndEndsEachLineWithCrLf) {
    const Sheet sheet =
        sheetOf({{Cell::of("科目编码"), Cell::of("金额")}, {Cell::of("0101"), Cell::of(12.5)}});
    EXPECT_EQ(csvOf(sheet), std::string(mark) + "科目编码,金额\r\n0101,12.5\r\n");
}

TEST(CsvText, QuotesWhatWouldBeReadOtherwise) {
    const std::vector<std::pair<std::string, std::string>> cells{
        {"a,b", "\"a,b\""}, {"a\"b", "\"a\"\"b\""}, {"a\r\nb", "\"a\r\nb\""}, {"a\nb", "\"a\nb\""},
        {"a;b", "\"a;b\""}, {"a\tb", "\"a\tb\""},   {" a", "\" a\""},         {"a ", "\"a \""},
        {"a b", "a b"},     {"O'Brien", "O'Brien"}};
    for (const auto& [cell, written] : cells)
        EXPECT_EQ(csvOf(oneCell(Cell::of(cell))), mark + written + "\r\n");
}

TEST(CsvText, KeepsTextsThatLookLikeFormulas) {
    for (const char* text : {"=1+1", "+86 10", "-1", "@SUM(A1)"})
        EXPECT_EQ(csvOf(oneCell(Cell::of(text))), std::string(mark) + text + "\r\n");
}

TEST(CsvText, NumbersHaveTheDecimalsOfTheirColumnOrTheirOwn) {
    Sheet sheet = sheetOf({{Cell::of(1234567.0), Cell::of(2.675), Cell::of(0.1)}});
    sheet.columns = {{.width = 0, .decimals = 2}, {.width = 0, .decimals = 2}};
    EXPECT_EQ(csvOf(sheet), std::string(mark) + "1234567.00,2.68,0.1\r\n");
}

TEST(CsvText, AbsentCellsAreEmptyFields) {
    EXPECT_EQ(csvOf(sheetOf({{Cell(), Cell::of("a"), Cell()}, {}})),
              std::string(mark) + ",a,\r\n\r\n");
}

TEST(CsvText, RefusesWhatIsNoTextAndNoNumberAndNamesTheCell) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const Cell& cell : {Cell::of("a\xFF"), Cell::of(std::string("a\0b", 3)),
                             Cell::of(infinity), Cell::of(std::nan(""))}) {
        std::string text;
        const std::optional<SheetFailure> failure = csvText(sheetOf({{}, {Cell(), cell}}), text);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->row, 2U);
        EXPECT_EQ(failure->column, 2U);
        EXPECT_TRUE(failure->text().starts_with("第 2 行 B 列:单元格")) << failure->text();
    }
}

TEST(ClipboardBlockText, SeparatesByTabsAndQuotesOnlyWhatItMust) {
    std::string text;
    ASSERT_FALSE(writeClipboardBlock(
        sheetOf({{Cell::of("a,b"), Cell::of(" 5\" c ")}, {Cell::of("x\ty"), Cell::of("\"q\"")}}),
        text));
    EXPECT_EQ(text, "a,b\t 5\" c \n\"x\ty\"\t\"\"\"q\"\"\"\n");
}

TEST(ColumnLetters, CountAsSpreadsheetsDo) {
    EXPECT_EQ(columnLetters(1), "A");
    EXPECT_EQ(columnLetters(26), "Z");
    EXPECT_EQ(columnLetters(27), "AA");
    EXPECT_EQ(columnLetters(702), "ZZ");
    EXPECT_EQ(columnLetters(703), "AAA");
    EXPECT_EQ(columnLetters(16384), "XFD");
}

using WriteSheet = std::optional<SheetFailure> (*)(const Sheet&, const std::string&, Overwrite);

/// What holds for a file of either kind.
class SheetFileWriting : public testing::TestWithParam<WriteSheet> {
  protected:
    std::optional<SheetFailure> write(const Sheet& sheet) {
        return GetParam()(sheet, m_path, Overwrite::replace);
    }

    std::string m_folder = freshFolder();
    std::string m_path = m_folder + "/科目.file";
};

std::string kindOf(const testing::TestParamInfo<WriteSheet>& tested) {
    return tested.param == &writeCsv ? "csv" : "xlsx";
}

INSTANTIATE_TEST_SUITE_P(Of, SheetFileWriting, testing::Values(&writeCsv, &writeXlsx), kindOf);

TEST_P(SheetFileWriting, PutsTheFileInThePlaceOfTheOldOneAndLeavesNothingBeside) {
    std::ofstream(m_path) << "old";
    ASSERT_FALSE(write(oneCell(Cell::of("new"))));
    EXPECT_NE(bytesOf(m_path), "old");
    EXPECT_EQ(std::distance(files::directory_iterator(m_folder), {}), 1);
}

TEST_P(SheetFileWriting, CellThatCannotBeWrittenLeavesTheOldFile) {
    std::ofstream(m_path) << "old";
    const std::optional<SheetFailure> failure = write(oneCell(Cell::of("\xFF")));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text(), "没有写入文件“" + m_path +
                                   "”,原有的文件保持不变。\n"
                                   "第 1 行 A 列:单元格内容不是有效的文字,不能写入表格文件。");
    EXPECT_EQ(bytesOf(m_path), "old");
    EXPECT_EQ(std::distance(files::directory_iterator(m_folder), {}), 1);
}

TEST_P(SheetFileWriting, MissingFolderIsToldByName) {
    m_path = m_folder + "/none/a.file";
    const std::optional<SheetFailure> failure = write(oneCell(Cell::of("a")));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text(), "没有写入文件“" + m_path +
                                   "”,原有的文件保持不变。\n"
                                   "所在的文件夹不存在。请先建立文件夹,或换一个路径。");
}

TEST_P(SheetFileWriting, FolderInItsPlaceStays) {
    files::create_directory(m_path);
    const std::optional<SheetFailure> failure = write(oneCell(Cell::of("a")));
    ASSERT_TRUE(failure);
    EXPECT_NE(failure->text().find(m_path), std::string::npos);
    EXPECT_TRUE(files::is_directory(m_path));
}

TEST(XlsxWriting, TextLongerThanSpreadsheetsTakeIsRefusedWithItsPlace) {
    const std::string path = freshFolder() + "/a.xlsx";
    EXPECT_FALSE(writeXlsx(oneCell(Cell::of(std::string(32767, 'x'))), path, Overwrite::replace));
    const std::optional<SheetFailure> failure =
        writeXlsx(sheetOf({{}, {}, {Cell::of(std::string(32768, 'x'))}}), path, Overwrite::replace);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->row, 3U);
    EXPECT_EQ(failure->column, 1U);
    EXPECT_EQ(failure->reason, "单元格内容超过 32767 个字符,XLSX 文件放不下。请改用 CSV 文件。");
}

TEST(XlsxWriting, MoreRowsOrColumnsThanSpreadsheetsHaveAreRefused) {
    const std::string path = freshFolder() + "/a.xlsx";
    EXPECT_TRUE(writeXlsx(sheetOf(std::vector<SheetRow>(1'048'577)), path, Overwrite::replace));
    EXPECT_TRUE(writeXlsx(sheetOf({SheetRow(16'385)}), path, Overwrite::replace));
    EXPECT_FALSE(files::exists(path));
}

}  // namespace
}  // namespace chengheng
