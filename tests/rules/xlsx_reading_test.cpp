#include "sheets/xlsx/xlsx_reading.h"

#include <gtest/gtest.h>

#include "sheets/xlsx/xlsx_contents.h"
#include "tests/support/read_xlsx.h"

namespace chengheng {
namespace {

TEST(XlsxReading, NumbersComeBackWithTheDigitsTyped) {
    const SheetRow row = readCells(
        {.rows = "<row r=\"1\"><c r=\"A1\"><v>1001</v></c><c r=\"B1\" t=\"n\"><v>100101</v></c>"
                 "<c r=\"C1\"><v>0.30000000000000004</v></c><c r=\"D1\"><v>1.5E+3</v></c>"
                 "<c r=\"E1\"><v>2.2999999999999998</v></c><c r=\"F1\"><v> -0.5 </v></c>"
                 "<c r=\"G1\"><v>622202123456789</v></c></row>"});
    ASSERT_EQ(row.size(), 7U);
    const std::vector<std::string> digits{"1001", "100101", "0.30000000000000004", "1500",
                                          "2.3",  "-0.5",   "622202123456789"};
    for (std::size_t at = 0; at < row.size(); ++at) {
        EXPECT_TRUE(row[at].isNumber());
        EXPECT_EQ(cellText(row[at]), digits[at]);
    }
    EXPECT_EQ(row[4].number, 2.3);
}

TEST(XlsxReading, ZerosThatTheFormatShowsBelongToTheDigits) {
    const SheetRow row =
        readCells({.rows = "<row><c s=\"0\"><v>101</v></c><c s=\"1\"><v>101</v></c>"
                           "<c s=\"1\"><v>10102</v></c><c s=\"1\"><v>1.5</v></c>"
                           "<c s=\"1\"><v>1010</v></c></row>",
                   .formats = "<numFmt numFmtId=\"170\" formatCode=\"0000\"/>",
                   .looks = "<xf numFmtId=\"0\"/><xf numFmtId=\"170\"/>"});
    EXPECT_EQ(row, (SheetRow{Cell::of(101.0), Cell::of(101.0, "0101"), Cell::of(10102.0),
                             Cell::of(1.5), Cell::of(1010.0)}));
    EXPECT_EQ(cellText(row[1]), "0101");
}

TEST(XlsxReading, SharedStringsComeWithTheirRunsButNotTheirPronunciation) {
    const SheetRow row = readCells(
        {.rows = "<row><c t=\"s\"><v>0</v></c><c t=\"s\"><v>2</v></c><c t=\"s\"><v>1</v></c></row>",
         .strings = "<si><t>库存现金</t></si>"
                    "<si><r><rPr><b/></rPr><t>银行</t></r><r><t xml:space=\"preserve\"> 存款 "
                    "</t></r><rPh sb=\"0\" eb=\"1\"><t>yinhang</t></rPh></si>"
                    "<si>\n<t>&lt;a&gt; &amp; &#x4E00;</t>\n</si>"});
    EXPECT_EQ(row, (SheetRow{Cell::of("库存现金"), Cell::of("<a> & 一"), Cell::of("银行 存款 ")}));
    EXPECT_EQ(
        readCells(
            {.rows = "<row><c t=\"s\"><v>0</v></c></row>",
             .strings = "<si><r><t>a</t></r><rPh><rPr></rPr><t>x</t></rPh><r><t>b</t></r></si>"}),
        SheetRow{Cell::of("ab")});
}

TEST(XlsxReading, InlineStringsComeWithTheirRuns) {
    const SheetRow row =
        readCells({.rows = "<row><c t=\"inlineStr\"><is><t>0101</t></is></c>"
                           "<c t=\"inlineStr\"><is><r><t>a</t></r><r><t>b</t></r></is></c></row>"});
    EXPECT_EQ(row, (SheetRow{Cell::of("0101"), Cell::of("ab")}));
}

TEST(XlsxReading, EscapedCharactersAreTheCharactersMeant) {
    const SheetRow row =
        readCells({.rows = "<row><c t=\"inlineStr\"><is><t>a_x000D_\nb</t></is></c>"
                           "<c t=\"str\"><v>_x005F_x0041_</v></c>"
                           "<c t=\"str\"><v>_x0000_ _xD83D_ _x41_ _xZZZZ_ _x0041</v></c></row>"});
    EXPECT_EQ(row, (SheetRow{Cell::of("a\r\nb"), Cell::of("_x0041_"),
                             Cell::of("_x0000_ _xD83D_ _x41_ _xZZZZ_ _x0041")}));
}

TEST(XlsxReading, ResultsOfFormulasTruthsAndFaultsAreRead) {
    const SheetRow row = readCells(
        {.rows = "<row><c><f>1+1</f><v>2</v></c><c t=\"str\"><f>A1</f><v>x</v></c>"
                 "<c t=\"b\"><v>1</v></c><c t=\"b\"><v>0</v></c><c t=\"e\"><v>#N/A</v></c>"
                 "<c t=\"d\"><v>2026-01-05</v></c><c t=\"str\"><f>A9</f><v></v></c>"
                 "<c/><c><v> </v></c><c t=\"str\"><v> </v></c></row>"});
    EXPECT_EQ(row, (SheetRow{Cell::of(2.0), Cell::of("x"), Cell::of("TRUE"), Cell::of("FALSE"),
                             Cell::of("#N/A"), Cell::of("2026-01-05"), Cell(), Cell(), Cell(),
                             Cell::of(" ")}));
}

TEST(XlsxReading, CellsAndRowsKeepTheirPlaces) {
    const Sheet sheet =
        readBytes(MadeWorkbook{.rows = "<row r=\"2\"><c r=\"C2\"><v>1</v></c><c><v>2</v></c>"
                                       "<c r=\"AB2\" s=\"0\"/></row>"
                                       "<row><c><v>3</v></c></row><row r=\"9\"/>"}
                      .bytes());
    ASSERT_EQ(sheet.rows.size(), 3U);
    EXPECT_TRUE(sheet.rows[0].empty());
    EXPECT_EQ(sheet.rows[1], (SheetRow{Cell(), Cell(), Cell::of(1.0), Cell::of(2.0)}));
    EXPECT_EQ(sheet.rows[2], (SheetRow{Cell::of(3.0)}));
    EXPECT_EQ(sheet.name, "科目");
}

TEST(XlsxReading, CellsInAnyOrderAndAtTheBordersKeepTheirPlaces) {
    EXPECT_EQ(readCells({.rows = "<row><c r=\"B1\"><v>2</v></c><c r=\"A1\"><v>1</v></c>"
                                 "<c r=\"Z1\"><v>26</v></c><c r=\"AZ1\"><v>52</v></c></row>"})
                  .size(),
              52U);
    const Sheet sheet = readBytes(
        MadeWorkbook{.rows = "<row r=\"1048576\"><c r=\"XFD1048576\"><v>1</v></c></row>"}.bytes());
    EXPECT_EQ(sheet.at(1'048'575, 16'383), Cell::of(1.0));
}

TEST(XlsxReading, CellsOutsideOfRowsAndRowsOutsideOfTheDataAreNone) {
    const Sheet sheet =
        readBytes(withPart("xl/worksheets/sheet1.xml",
                           "<worksheet><row r=\"1\"><c><v>1</v></c></row><sheetData><c><v>2</v></c>"
                           "<row r=\"2\"><c><v>3</v></c></row></sheetData>"
                           "<row r=\"3\"><c><v>4</v></c></row></worksheet>"));
    EXPECT_EQ(sheet.rows, (std::vector<SheetRow>{{}, {Cell::of(3.0)}}));
}

TEST(XlsxReading, FirstVisibleSheetOfCellsIsRead) {
    const Sheet sheet = readBytes(
        MadeWorkbook{.rows = "<row><c><v>1</v></c></row>",
                     .sheets = "<sheet name=\"a\" r:id=\"rId1\" state=\"hidden\"/>"
                               "<sheet name=\"b\" r:id=\"rId3\"/><sheet name=\"c\" r:id=\"rId2\"/>"}
            .bytes());
    EXPECT_EQ(sheet.name, "c");
    EXPECT_EQ(sheet.at(0, 0), Cell::of("second"));
}

TEST(XlsxReading, WorkbookWithoutAVisibleSheetIsAFailure) {
    const SheetFailure failure = xlsxFailureOf(
        {.rows = "", .sheets = "<sheet name=\"a\" r:id=\"rId1\" state=\"veryHidden\"/>"});
    EXPECT_EQ(failure.text(), "工作簿中没有可见的工作表。");
}

TEST(XlsxReading, PartsAreFoundFromWhereTheyAreNamed) {
    EXPECT_EQ(partName("", "xl/workbook.xml"), "xl/workbook.xml");
    EXPECT_EQ(partName("xl/workbook.xml", "worksheets/a.xml"), "xl/worksheets/a.xml");
    EXPECT_EQ(partName("xl/workbook.xml", "/xl/a.xml"), "xl/a.xml");
    EXPECT_EQ(partName("xl/a/b.xml", "../c.xml"), "xl/c.xml");
    EXPECT_EQ(partName("xl/a.xml", "../../../etc/./c.xml"), "etc/c.xml");
    EXPECT_EQ(partName("a.xml", "b//c.xml"), "b/c.xml");
    EXPECT_EQ(partName("x/a.xml", ""), "x");
}

/// A workbook that is laid out otherwise: with these relationships of the package and of it.
std::string laidOut(const std::string& workbookPart, const std::string& top,
                    const std::string& own) {
    auto parts = MadeWorkbook{.rows = "<row><c><v>1</v></c></row>"}.parts();
    const std::string relations = "_rels/" + workbookPart.substr(workbookPart.rfind('/') + 1);
    const std::string folder = workbookPart.substr(0, workbookPart.rfind('/') + 1);
    parts[0].second = "<Relationships>" + top + "</Relationships>";
    parts[1].first = workbookPart;
    parts[2] = {folder + relations + ".rels", "<Relationships>" + own + "</Relationships>"};
    return packedFile(parts);
}

std::string relation(const std::string& id, const std::string& kind, const std::string& target,
                     const std::string& more = "") {
    return "<Relationship Id=\"" + id + "\" Type=\"types/" + kind + "\" Target=\"" + target +
           "\" " + more + "/>";
}

TEST(XlsxReading, WorkbookMayLieAtTheTopOfThePackage) {
    const std::string bytes = laidOut("book.xml", relation("a", "officeDocument", "book.xml"),
                                      relation("rId1", "worksheet", "xl/worksheets/sheet1.xml"));
    EXPECT_EQ(readBytes(bytes).at(0, 0), Cell::of(1.0));
}

TEST(XlsxReading, WorkbookThatIsNoXmlIsNone) {
    const std::string bytes = laidOut("xl/book.bin", relation("a", "officeDocument", "xl/book.bin"),
                                      relation("rId1", "worksheet", "worksheets/sheet1.xml"));
    EXPECT_TRUE(xlsxFailureOf(bytes).text().starts_with("文件不是 XLSX 工作簿。"));
}

TEST(XlsxReading, RelationshipsToTheOutsideAreNotFollowed) {
    const std::string outside =
        relation("rId1", "worksheet", "http://a/b.xml", "TargetMode=\"External\"");
    const std::string bytes =
        laidOut("xl/book.xml", relation("a", "officeDocument", "xl/book.xml"),
                outside + relation("rId1", "worksheet", "worksheets/sheet1.xml"));
    EXPECT_EQ(readBytes(bytes).at(0, 0), Cell::of(1.0));
}

TEST(XlsxReading, MoreRelationshipsOrSheetsThanAnyoneHasAreAFailure) {
    std::string relations = relation("rId1", "worksheet", "worksheets/sheet1.xml");
    for (int id = 0; id < 9'999; ++id) relations += relation("x", "y", "z");
    const std::string top = relation("a", "officeDocument", "xl/book.xml");
    EXPECT_EQ(readBytes(laidOut("xl/book.xml", top, relations)).at(0, 0), Cell::of(1.0));
    relations += relation("x", "y", "z");
    EXPECT_TRUE(xlsxFailureOf(laidOut("xl/book.xml", top, relations))
                    .text()
                    .ends_with("too many relationships"));
    std::string sheets = "<sheet name=\"a\" state=\"hidden\"/>";
    for (int sheet = 0; sheet < 10'000; ++sheet) sheets += "<sheet name=\"a\" r:id=\"rId1\"/>";
    const std::string rows = "<row><c><v>1</v></c></row>";
    EXPECT_EQ(readCells({.rows = rows, .sheets = sheets}), SheetRow{Cell::of(1.0)});
    EXPECT_TRUE(xlsxFailureOf({.rows = rows, .sheets = sheets + "<sheet name=\"a\"/>"})
                    .text()
                    .ends_with("too many sheets"));
}

TEST(XlsxReading, UnreadableCellsAreFailuresWithTheirPlace) {
    const std::string before = "<row r=\"4\"><c r=\"B4\"";
    const std::vector<std::pair<std::string, std::string>> cells{
        {"><v>12x</v>", "第 4 行 B 列:数值“12x”无法识别。"},
        {"><v>1e999</v>", "第 4 行 B 列:数值“1e999”无法识别。"},
        {"><v>nan</v>", "第 4 行 B 列:数值“nan”无法识别。"},
        {" t=\"s\"><v>7</v>", "第 4 行 B 列:单元格内容无法识别。"},
        {" t=\"s\"><v>-1</v>", "第 4 行 B 列:单元格内容无法识别。"},
        {" t=\"s\"><v>0</v>", "第 4 行 B 列:单元格内容无法识别。"},
        {" t=\"s\"><v>0x</v>", "第 4 行 B 列:单元格内容无法识别。"},
        {" t=\"new\"><v>1</v>", "第 4 行 B 列:单元格内容无法识别。"},
        {"><f>1+1</f>", "第 4 行 B 列:公式没有计算结果。请在表格程序中打开该文件,保存后重试。"},
        {"><f>1+1</f><v/>", "第 4 行 B 列:公式没有计算结果。请在表格程序中打开该文件,保存后重试。"},
        {" t=\"n\"><f>1+1</f><v> </v>",
         "第 4 行 B 列:公式没有计算结果。请在表格程序中打开该文件,保存后重试。"}};
    for (const auto& [cell, text] : cells)
        EXPECT_EQ(xlsxFailureOf({.rows = before + cell + "</c></row>"}).text(), text);
}

TEST(XlsxReading, PlacesThatNoSheetHasAreFailures) {
    const std::string tooManyRows = "超过 1048576 行,表格太大了。请拆分后重试。";
    const auto damaged = [](const std::string& place) {
        return "XLSX 文件已损坏或不完整。请重新取得该文件。\n详细信息:" + place;
    };
    const std::vector<std::pair<std::string, std::string>> places{
        {"<row r=\"0\"><c><v>1</v></c></row>", damaged("row \"0\"")},
        {"<row r=\"x\"><c><v>1</v></c></row>", damaged("row \"x\"")},
        {"<row r=\"99999999999999999999\"/>", damaged("row \"99999999999999999999\"")},
        {"<row r=\"1048577\"/>", tooManyRows},
        {"<row r=\"1048576\"/><row/>", tooManyRows},
        {"<row><c r=\"XFE1\"/></row>", damaged("cell \"XFE1\"")},
        {"<row><c r=\"XFDA1\"/></row>", damaged("cell \"XFDA1\"")},
        {"<row><c r=\"XFEA1\"/></row>", damaged("cell \"XFEA1\"")},
        {"<row><c r=\"7\"/></row>", damaged("cell \"7\"")},
        {"<row><c r=\"a1\"/></row>", damaged("cell \"a1\"")},
        {"<row><c r=\"XFD1\"/><c/></row>", damaged("cell \"\"")}};
    for (const auto& [rows, text] : places)
        EXPECT_EQ(xlsxFailureOf({.rows = rows}).text(), text) << rows;
}

}  // namespace
}  // namespace chengheng
