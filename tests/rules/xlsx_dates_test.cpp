#include "sheets/xlsx/xlsx_number_formats.h"

#include <gtest/gtest.h>

#include "tests/support/read_xlsx.h"

namespace chengheng {
namespace {

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

}  // namespace
}  // namespace chengheng
