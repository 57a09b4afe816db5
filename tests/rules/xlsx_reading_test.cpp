#include "sheets/xlsx/xlsx_reading.h"

#include <gtest/gtest.h>

#include "sheets/xlsx/xlsx_contents.h"
#include "sheets/xlsx/xlsx_number_formats.h"
#include "tests/support/made_workbook.h"

namespace chengheng {
namespace {

Sheet readBytes(std::string_view bytes) {
    Sheet sheet;
    const std::optional<SheetFailure> failure = readXlsx(bytes, sheet);
    EXPECT_FALSE(failure) << failure->text();
    return sheet;
}

/// The only row of a sheet with these cells.
SheetRow readCells(const MadeWorkbook& workbook) {
    const Sheet sheet = readBytes(workbook.bytes());
    EXPECT_EQ(sheet.rows.size(), 1U);
    return sheet.rows.empty() ? SheetRow() : sheet.rows.front();
}

SheetFailure xlsxFailureOf(std::string_view bytes) {
    Sheet sheet;
    sheet.rows.resize(3);
    const std::optional<SheetFailure> failure = readXlsx(bytes, sheet);
    EXPECT_TRUE(failure);
    EXPECT_TRUE(sheet.rows.empty()) << "half of a sheet was left";
    return failure.value_or(SheetFailure());
}

SheetFailure xlsxFailureOf(const MadeWorkbook& workbook) { return xlsxFailureOf(workbook.bytes()); }

/// A workbook in which the content of one part is another; without it when that is empty.
std::string withPart(const std::string& name, const std::string& content) {
    auto parts = MadeWorkbook{.rows = "<row><c><v>1</v></c></row>"}.parts();
    std::erase_if(parts, [&](const auto& part) { return part.first == name; });
    if (!content.empty()) parts.emplace_back(name, content);
    return packedFile(parts);
}

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
    EXPECT_EQ(readCells({.rows = "<row><c t=\"s\"><v>0</v></c></row>",
                         .strings = "<si><r><t>a</t></r><rPh><t>x</t></rPh><r><t>b</t></r></si>"}),
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

TEST(XlsxReading, DatesAreTexts) {
    const std::string looks =
        "<xf/><xf numFmtId=\"14\"/><xf numFmtId=\"22\"/><xf numFmtId=\"20\"/>"
        "<xf numFmtId=\"31\"/><xf numFmtId=\"170\"/>";
    const std::string rows =
        "<row><c s=\"1\"><v>46027</v></c><c s=\"2\"><v>46027.354166666664</v></c>"
        "<c s=\"3\"><v>0.5</v></c><c s=\"4\"><v>59</v></c><c s=\"5\"><v>61.99</v></c>"
        "<c s=\"1\"><v>-1</v></c><c s=\"1\"><v>2958466</v></c><c s=\"1\"><v>60</v></c></row>";
    MadeWorkbook workbook{
        .rows = rows,
        .formats = "<numFmt numFmtId=\"170\" formatCode=\"yyyy&quot;年&quot;m&quot;月&quot;\"/>",
        .looks = looks};
    EXPECT_EQ(readCells(workbook),
              (SheetRow{Cell::of("2026-01-05"), Cell::of("2026-01-05 08:30:00"),
                        Cell::of("12:00:00"), Cell::of("1900-02-28"), Cell::of("1900-03-01"),
                        Cell::of(-1.0), Cell::of(2958466.0), Cell::of(60.0)}));
    for (const char* flag : {"1", "true"}) {
        workbook.settings = std::string("<workbookPr date1904=\"") + flag + "\"/>";
        EXPECT_EQ(readCells(workbook)[0], Cell::of("2030-01-06"));
    }
    for (const char* flag : {"0", "false"}) {
        workbook.settings = std::string("<workbookPr date1904=\"") + flag + "\"/>";
        EXPECT_EQ(readCells(workbook)[0], Cell::of("2026-01-05"));
    }
}

TEST(XlsxReading, TheCalendarEndsWithTheYear9999) {
    const NumberLook date{.hasDate = true};
    const NumberLook time{.hasTime = true};
    EXPECT_EQ(shownNumber(2'958'465, date, false), Cell::of("9999-12-31"));
    EXPECT_EQ(shownNumber(2'958'466, date, false), Cell::of(2'958'466.0));
    EXPECT_EQ(shownNumber(2'957'003, date, true), Cell::of("9999-12-31"));
    EXPECT_EQ(shownNumber(2'957'004, date, true), Cell::of(2'957'004.0));
    EXPECT_EQ(shownNumber(0, date, true), Cell::of("1904-01-01"));
    EXPECT_EQ(shownNumber(60, date, true), Cell::of("1904-03-01"));
    EXPECT_EQ(shownNumber(0, date, false), Cell::of(0.0));
    EXPECT_EQ(shownNumber(1, date, false), Cell::of("1900-01-01"));
    EXPECT_EQ(shownNumber(0, time, false), Cell::of("00:00:00"));
    EXPECT_EQ(shownNumber(0.354340277778, time, false), Cell::of("08:30:15"));
}

/// What the formats do that every workbook knows, by their numbers from 0 on: tell a number, a
/// date, a time or both.
constexpr std::string_view knownKinds =
    "nnnnnnnnnnnnnnddddttttbnnnndddddttttdnnnnnnnntntnndddddttddnn";

TEST(XlsxReading, KnownFormatsTellDatesAndTimes) {
    std::string looks;
    std::string cells;
    SheetRow shown;
    for (std::size_t format = 0; format < knownKinds.size(); ++format) {
        looks += "<xf numFmtId=\"" + std::to_string(format) + "\"/>";
        const std::string style = "<c s=\"" + std::to_string(format) + "\"><v>";
        cells += style + "46027.5</v></c>" + style + "0.5</v></c>";
        const char kind = knownKinds[format];
        shown.push_back(kind == 'n'   ? Cell::of(46027.5)
                        : kind == 'd' ? Cell::of("2026-01-05")
                                      : Cell::of("2026-01-05 12:00:00"));
        shown.push_back(kind == 't' ? Cell::of("12:00:00") : Cell::of(0.5));
    }
    EXPECT_EQ(readCells({.rows = "<row>" + cells + "</row>", .looks = looks}), shown);
}

TEST(XlsxReading, LengthsOfTimeAreNumbers) {
    const SheetRow row =
        readCells({.rows = "<row><c s=\"0\"><v>1.5</v></c><c s=\"1\"><v>0.5</v></c></row>",
                   .looks = "<xf numFmtId=\"46\"/><xf numFmtId=\"47\"/>"});
    EXPECT_EQ(row, (SheetRow{Cell::of(1.5), Cell::of("12:00:00")}));
}

TEST(XlsxReading, CellsWithoutAStyleHaveTheFirstOneOfTheCells) {
    EXPECT_EQ(readCells({.rows = "<row><c><v>46027</v></c></row>",
                         .looks = "<xf/><xf numFmtId=\"14\"/>"}),
              SheetRow{Cell::of(46027.0)});
    EXPECT_EQ(readCells({.rows = "<row><c><v>46027</v></c><c s=\"1\"><v>46027</v></c></row>",
                         .formats = "<numFmt numFmtId=\"1\" formatCode=\"yyyy\"/>",
                         .looks = "<xf/>"}),
              (SheetRow{Cell::of(46027.0), Cell::of(46027.0)}));
    // The styles that have names stand before those of the cells, others behind them.
    auto parts =
        MadeWorkbook{.rows = "<row><c><v>1</v></c><c s=\"1\"><v>46027</v></c></row>"}.parts();
    parts.back().second =
        "<styleSheet><cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs>"
        "<cellXfs><xf numFmtId=\"0\"/></cellXfs><dxfs><xf numFmtId=\"14\"/></dxfs></styleSheet>";
    EXPECT_EQ(readBytes(packedFile(parts)).rows.front(),
              (SheetRow{Cell::of(1.0), Cell::of(46027.0)}));
}

TEST(XlsxReading, ALongUnreadableNumberIsNamedByItsBeginning) {
    const std::string text =
        xlsxFailureOf({.rows = "<row><c><v>" + std::string(50, 'x') + "</v></c></row>"}).text();
    EXPECT_NE(text.find(std::string(40, 'x')), std::string::npos) << text;
    EXPECT_EQ(text.find(std::string(41, 'x')), std::string::npos) << text;
}

TEST(XlsxReading, FormatsTellDatesFromNumbers) {
    const NumberLook number{};
    const NumberLook date{true, false, 0};
    const NumberLook time{false, true, 0};
    const NumberLook both{true, true, 0};
    const std::vector<std::pair<const char*, NumberLook>> formats{
        {"General", number},
        {"0.00", number},
        {"#,##0.00;[Red]-#,##0.00", number},
        {"\"dmy\"0", {false, false, 1}},
        {"0.00E+00", number},
        {"@", number},
        {"[h]:mm", number},
        {"yyyy-mm-dd", date},
        {"[$-804]yyyy\"年\"m\"月\"d\"日\"", date},
        {"m/d", date},
        {"M月", date},
        {"h:mm AM/PM", time},
        {"mm:ss", time},
        {"yyyy-mm-dd hh:mm", both},
        {"0\\d", {false, false, 1}},
        {"000000", {false, false, 6}},
        {"0", {false, false, 1}},
        {"\"\"yyyy", date},
        {"AM/PM", number},
        {"", number},
        {"\"", number},
        {"\"yd", number},
        {"[", number},
        {"[h", number},
        {"[$y", number},
        {"[Red]yyyy", date},
        {"[mm]:ss", number},
        {"[S]", number},
        {"yy;0", date},
        {";yy", number},
        {"_d0", {false, false, 1}},
        {"*y0", {false, false, 1}},
        {"h A/P", time},
        {"A/P", number},
        {"GENERAL", number},
        {"s", time},
        {"Y", date},
        {"d", date},
        {"m", date},
        {"00a", number},
        {"000000000000000", {false, false, 15}},
        {"0000000000000000", number},
        {"\\", number}};
    for (const auto& [format, look] : formats) EXPECT_EQ(lookOfFormat(format), look) << format;
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

TEST(XlsxReading, FileCutAnywhereIsAFailure) {
    const std::string whole =
        MadeWorkbook{.rows = "<row><c t=\"s\"><v>0</v></c></row>", .strings = "<si><t>a</t></si>"}
            .bytes();
    ASSERT_FALSE(readBytes(whole).rows.empty());
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(xlsxFailureOf(whole.substr(0, size)).reason.empty());
}

TEST(XlsxReading, ChangedByteIsAFailureOrChangesNothing) {
    const std::string whole =
        MadeWorkbook{.rows = "<row><c t=\"s\"><v>0</v></c></row>",
                     .strings = "<si><t>" + std::string(3000, 'x') + "</t></si>"}
            .bytes();
    const Sheet before = readBytes(whole);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string changed = whole;
        changed[at] = static_cast<char>(~changed[at]);
        Sheet sheet;
        if (const auto failure = readXlsx(changed, sheet)) {
            EXPECT_EQ(failure->reason.find("太大"), std::string::npos) << failure->reason;
            continue;
        }
        EXPECT_EQ(sheet.rows, before.rows) << at;
    }
}

TEST(XlsxReading, OtherPackedFilesAreToldToBeNone) {
    const char* text = "文件不是 XLSX 工作簿。请在表格程序中另存为 .xlsx 或 .csv 后重试。";
    EXPECT_EQ(xlsxFailureOf(packedFile({{"readme.txt", "text"}})).text(), text);
    EXPECT_EQ(xlsxFailureOf(withPart("xl/workbook.xml", "")).text(), text);
    EXPECT_EQ(xlsxFailureOf(withPart("xl/workbook.xml", "<document/>")).text(), text);
    EXPECT_EQ(xlsxFailureOf(withPart("xl/_rels/workbook.xml.rels", "")).text(), text);
}

TEST(XlsxReading, MissingOrHarmedPartIsNamed) {
    EXPECT_EQ(xlsxFailureOf(withPart("xl/worksheets/sheet1.xml", "")).text(),
              "XLSX 文件已损坏或不完整。请重新取得该文件。\n"
              "详细信息:xl/worksheets/sheet1.xml: No such file");
    for (const auto& [part, content] : MadeWorkbook{.rows = ""}.parts()) {
        if (part == "xl/worksheets/sheet2.xml") continue;
        EXPECT_EQ(xlsxFailureOf(withPart(part, "<a>\n</b>")).text(),
                  "XLSX 文件已损坏或不完整。请重新取得该文件。\n"
                  "详细信息:" +
                      part + ": line 2: mismatched tag");
        EXPECT_TRUE(
            xlsxFailureOf(withPart(part, "<a>")).text().ends_with("line 1: no element found"));
    }
    EXPECT_TRUE(xlsxFailureOf(withPart("xl/worksheets/sheet1.xml", "<worksheet/>"))
                    .text()
                    .ends_with("xl/worksheets/sheet1.xml: no cells"));
}

TEST(XlsxReading, StringsAndStylesMayBeMissing) {
    for (const char* part : {"xl/sharedStrings.xml", "xl/styles.xml"})
        EXPECT_EQ(readBytes(withPart(part, "")).at(0, 0), Cell::of(1.0)) << part;
}

TEST(XlsxReading, PrefixedNamesAreTheSameNames) {
    const std::string sheet =
        "<x:worksheet xmlns:x=\"main\"><x:sheetData><x:row><x:c><x:v>7</x:v></x:c></x:row>"
        "</x:sheetData></x:worksheet>";
    EXPECT_EQ(readBytes(withPart("xl/worksheets/sheet1.xml", sheet)).at(0, 0), Cell::of(7.0));
}

TEST(XlsxReading, CellWithinAValueBeginsAnew) {
    EXPECT_EQ(readCells({.rows = "<row><c><v>46<c t=\"inlineStr\"><is><t>inner</t></is></c></v>"
                                 "</c><c><v>2</v></c></row>"}),
              (SheetRow{Cell(), Cell::of("inner"), Cell::of(2.0)}));
}

TEST(XlsxReading, DocumentTypesAreRefused) {
    const SheetFailure failure = xlsxFailureOf(withPart(
        "xl/worksheets/sheet1.xml",
        "<!DOCTYPE a [<!ENTITY b \"c\"><!ENTITY d \"&b;&b;\">]><worksheet>&d;</worksheet>"));
    EXPECT_TRUE(failure.text().ends_with("sheet1.xml: has a document type")) << failure.text();
}

TEST(XlsxReading, DeepNestingIsRefused) {
    std::string deep;
    for (int level = 0; level < 100'000; ++level) deep += "<a>";
    const SheetFailure failure = xlsxFailureOf(withPart("xl/worksheets/sheet1.xml", deep));
    EXPECT_TRUE(failure.text().ends_with("elements nested too deeply")) << failure.text();
}

TEST(XlsxReading, NestingIsRefusedFromTheSixtyFifthLevelOn) {
    const auto isTooDeep = [](int levels) {
        std::string nested;
        for (int level = 0; level < levels; ++level) nested += "<a>";
        for (int level = 0; level < levels; ++level) nested += "</a>";
        Sheet sheet;
        const auto failure = readXlsx(withPart("xl/worksheets/sheet1.xml", nested), sheet);
        return failure && failure->text().ends_with("elements nested too deeply");
    };
    EXPECT_FALSE(isTooDeep(64));
    EXPECT_TRUE(isTooDeep(65));
}

TEST(XlsxReading, SignWithoutEndIsRefused) {
    for (const std::size_t size : {8U << 20U, 3U << 19U}) {
        const SheetFailure failure =
            xlsxFailureOf(withPart("xl/worksheets/sheet1.xml", "<a b=\"" + std::string(size, 'x')));
        EXPECT_TRUE(failure.text().ends_with("a sign without end")) << failure.text();
    }
}

TEST(XlsxReading, LongSignsThatEndAndManyRemarksAreRead) {
    std::string remarks;
    for (int remark = 0; remark < 20'000; ++remark)
        remarks += "<!--" + std::string(100, 'x') + "-->";
    const std::string sheet = "<worksheet b=\"" + std::string(900'000, 'x') + "\">" + remarks +
                              "<sheetData><row><c><v>1</v></c></row></sheetData></worksheet>";
    EXPECT_EQ(readBytes(withPart("xl/worksheets/sheet1.xml", sheet)).at(0, 0), Cell::of(1.0));
}

/// Takes what a part holds without looking at it.
class Unheeding : public XmlHandler {
    void start(std::string_view, const XmlAttributes&) override {}
    void end(std::string_view) override {}
    void text(std::string_view) override {}
};

TEST(XlsxReading, PartsThatTogetherUnpackToTooMuchAreRefused) {
    const std::string bytes = packedFile({{"a.xml", "<a>" + std::string(700'000, ' ') + "</a>"}});
    ASSERT_LT(bytes.size(), 2000U);
    XlsxPackage package(sheet_limits::megabyte);
    ASSERT_FALSE(package.open(bytes));
    Unheeding handler;
    EXPECT_FALSE(package.read("a.xml", handler));
    const std::optional<SheetFailure> failure = package.read("a.xml", handler);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text(), "XLSX 文件解压后超过 1 MB,太大了。请拆分后重试。");
}

TEST(XlsxReading, APartThatUnpacksToJustTheLimitIsRead) {
    const auto read = [](std::size_t size) {
        const std::string bytes =
            packedFile({{"a.xml", "<a>" + std::string(size - 7, ' ') + "</a>"}});
        XlsxPackage package(sheet_limits::megabyte);
        EXPECT_FALSE(package.open(bytes));
        Unheeding handler;
        return !package.read("a.xml", handler);
    };
    EXPECT_TRUE(read(sheet_limits::megabyte));
    EXPECT_FALSE(read(sheet_limits::megabyte + 1));
}

TEST(XlsxReading, WhatASheetHeldBeforeIsGone) {
    Sheet sheet;
    sheet.hasHeader = true;
    sheet.rows.resize(3);
    ASSERT_FALSE(readXlsx(MadeWorkbook{.rows = "<row><c><v>1</v></c></row>"}.bytes(), sheet));
    EXPECT_EQ(sheet.rows, (std::vector<SheetRow>{{Cell::of(1.0)}}));
    EXPECT_FALSE(sheet.hasHeader);
}

TEST(XlsxReading, LongTextThatManyCellsReferToIsRefused) {
    std::string rows = "<row>";
    for (int cell = 0; cell < 10'000; ++cell) rows += "<c t=\"s\"><v>0</v></c>";
    const SheetFailure failure = xlsxFailureOf(
        {.rows = rows + "</row>", .strings = "<si><t>" + std::string(100'000, 'x') + "</t></si>"});
    EXPECT_EQ(failure.text(), "文字超过 256 MB,表格太大了。请拆分后重试。");
}

TEST(XlsxReading, ManyRowsWithACellFarRightAreRefused) {
    std::string most;
    for (int row = 0; row < 244; ++row) most += "<row><c r=\"XFD1\"><v>1</v></c></row>";
    most += "<row><c r=\"CJP1\"><v>1</v></c></row>";
    EXPECT_EQ(readBytes(MadeWorkbook{.rows = most}.bytes()).rows.back().size(), 2304U);
    std::string rows;
    for (int row = 0; row < 1'000; ++row) rows += "<row><c r=\"XFD1\"><v>1</v></c></row>";
    EXPECT_EQ(xlsxFailureOf({.rows = rows}).text(),
              "超过 4000000 个单元格,表格太大了。请拆分后重试。");
}

}  // namespace
}  // namespace chengheng
