#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include "sheets/delimited/delimited_text.h"
#include "sheets/files/sheet_files.h"
#include "sheets/xlsx/xlsx_writing.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_workbook.h"

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
    sheet.columns = {{.width = 0, .decimals = 2}, {.width = 0, .decimals = 2}, {.decimals = 3}};
    sheet.columns.pop_back();
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
        EXPECT_EQ(failure->text(),
                  cell.isNumber() ? "第 2 行 B 列:单元格的数值不是有效的数字,不能写入表格文件。"
                                  : "第 2 行 B 列:单元格内容不是有效的文字,不能写入表格文件。");
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

TEST(XlsxWriting, SignsForCharactersThatXmlCannotHoldCountAsWhatTheyTake) {
    const std::string path = freshFolder() + "/a.xlsx";
    const auto write = [&](std::size_t size) {
        return writeXlsx(oneCell(Cell::of(std::string(size, '\x01'))), path, Overwrite::replace);
    };
    EXPECT_FALSE(write(4681));
    EXPECT_TRUE(write(4682));
}

TEST(XlsxWriting, MoreRowsOrColumnsThanSpreadsheetsHaveAreRefused) {
    const std::string path = freshFolder() + "/a.xlsx";
    const auto write = [&](std::vector<SheetRow> rows) {
        const auto failure = writeXlsx(sheetOf(std::move(rows)), path, Overwrite::replace);
        return failure ? failure->reason : "";
    };
    EXPECT_EQ(write(std::vector<SheetRow>(1'048'577)),
              "超过 1048576 行,表格太大了。请拆分后重试。");
    EXPECT_EQ(write({SheetRow(16'385)}), "超过 16384 列,表格太大了。请拆分后重试。");
    EXPECT_FALSE(files::exists(path));
    EXPECT_EQ(write(std::vector<SheetRow>(1'048'576)), "");
    EXPECT_EQ(write({SheetRow(16'384)}), "");
}

TEST(XlsxWriting, AWorkbookThatCannotBeMadeIsToldWithTheReason) {
    const std::string path = freshFolder() + "/none/a.xlsx";
    const auto failure = makeWorkbook(oneCell(Cell::of("a")), path);
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->text().starts_with("生成 XLSX 文件时出错。\n详细信息:"))
        << failure->text();
    EXPECT_GT(failure->text().size(), std::string("生成 XLSX 文件时出错。\n详细信息:").size());
}

class XlsxLooks : public testing::Test {
  protected:
    std::string partOf(const Sheet& sheet, const std::string& part) const {
        EXPECT_FALSE(makeWorkbook(sheet, m_path));
        return unpackedPart(m_path, part);
    }
    void expectPiece(const std::string& text, const std::string& piece) const {
        EXPECT_NE(text.find(piece), std::string::npos) << piece << " in\n" << text;
    }

    std::string m_path = freshFolder() + "/a.xlsx";
    std::string m_cells = "xl/worksheets/sheet1.xml";
};

TEST_F(XlsxLooks, TheHeaderIsBoldAndStays) {
    Sheet sheet = sheetOf({{Cell::of("编码")}, {Cell::of("1001")}});
    EXPECT_EQ(partOf(sheet, m_cells).find("<pane"), std::string::npos);
    EXPECT_EQ(partOf(sheet, "xl/styles.xml").find("<b/>"), std::string::npos);
    sheet.hasHeader = true;
    const std::string cells = partOf(sheet, m_cells);
    expectPiece(cells, "<pane ySplit=\"1\" topLeftCell=\"A2\"");
    expectPiece(cells, "<c r=\"A1\" s=\"1\" t=\"inlineStr\">");
    expectPiece(cells, "<c r=\"A2\" t=\"inlineStr\">");
    expectPiece(partOf(sheet, "xl/styles.xml"), "<b/>");
}

TEST_F(XlsxLooks, NumbersHaveTheDecimalsOfTheirColumn) {
    Sheet sheet = sheetOf({{Cell::of(1.5), Cell::of(2.5), Cell::of(3.5), Cell::of(4.5)}});
    sheet.columns = {{.decimals = 2}, {.decimals = 0}, {}, {.decimals = 4}};
    sheet.columns.pop_back();
    const std::string cells = partOf(sheet, m_cells);
    expectPiece(cells, "<c r=\"A1\" s=\"1\"><v>1.5</v></c>");
    expectPiece(cells, "<c r=\"B1\" s=\"2\"><v>2.5</v></c>");
    expectPiece(cells, "<c r=\"C1\"><v>3.5</v></c>");
    expectPiece(cells, "<c r=\"D1\"><v>4.5</v></c>");
    const std::string styles = partOf(sheet, "xl/styles.xml");
    expectPiece(styles, "<numFmt numFmtId=\"164\" formatCode=\"#,##0.00\"/>");
    expectPiece(styles, "<numFmt numFmtId=\"165\" formatCode=\"#,##0\"/>");
}

TEST_F(XlsxLooks, ColumnsAreAsWideAsToldOrAsTheirCellsNeed) {
    Sheet sheet = sheetOf({{Cell::of(std::string(90, 'x')), Cell::of("a"), Cell::of("科目编码名称"),
                            Cell::of(1234567.5), Cell::of(1234567.5), Cell::of("a")},
                           {Cell::of("b")}});
    sheet.columns = {
        {.width = 20, .decimals = {}}, {}, {}, {.decimals = 2}, {.decimals = {}}, {.decimals = 9}};
    sheet.columns.pop_back();
    sheet.rows[0].push_back(Cell::of(std::string(90, 'y')));
    const std::string cells = partOf(sheet, m_cells);
    const auto expectWidth = [&](int column, const std::string& width) {
        const std::string number = std::to_string(column);
        expectPiece(cells, "<col min=\"" + number + "\" max=\"" + number + "\" width=\"" + width);
    };
    expectWidth(1, "20.7109375");
    expectWidth(2, "10.7109375");
    expectWidth(3, "14.7109375");
    expectWidth(4, "14.7109375");
    expectWidth(5, "11.7109375");
    expectWidth(6, "10.7109375");
    expectWidth(7, "60.7109375");
}

}  // namespace
}  // namespace chengheng
