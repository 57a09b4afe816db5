#include "sheets/xlsx/xlsx_contents.h"

#include <gtest/gtest.h>

#include "tests/support/read_xlsx.h"

namespace chengheng {
namespace {

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
