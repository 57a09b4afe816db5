#include <gtest/gtest.h>

#include "sheets/sheet_budget.h"
#include "sheets/sheet_limits.h"
#include "sheets/sheet_texts.h"
#include "sheets/text_measures.h"
#include "sheets/written_cells.h"
#include "sheets/xlsx/xlsx_escapes.h"

namespace chengheng {
namespace {

namespace limits = sheet_limits;

/// What a budget says; empty when it grants what was asked for.
std::string told(const std::optional<SheetFailure>& failure) {
    return failure ? failure->text() : "";
}

constexpr const char* tooManyCells = "超过 4000000 个单元格,表格太大了。请拆分后重试。";

TEST(SheetBudget, GrantsAsMuchAsItsLimitsAndNoMore) {
    SheetBudget budget;
    EXPECT_EQ(told(budget.take(limits::cells, limits::textSize)), "");
    EXPECT_EQ(told(budget.take(0, 0)), "");
    EXPECT_EQ(told(budget.take(1, 0)), tooManyCells);
    SheetBudget other;
    EXPECT_EQ(told(other.take(0, limits::textSize)), "");
    EXPECT_EQ(told(other.take(0, 1)), "文字超过 256 MB,表格太大了。请拆分后重试。");
}

TEST(SheetBudget, CountsTheCellsBeforeTheLastOfARowOnce) {
    SheetBudget budget;
    Sheet sheet;
    ASSERT_FALSE(budget.take(limits::cells - 5, 0));
    const auto put = [&](std::size_t row, std::size_t column) {
        return told(budget.put(sheet, row, column, Cell::of("a"), 0));
    };
    EXPECT_EQ(put(0, 2), "");
    EXPECT_EQ(put(0, 0), "");
    EXPECT_EQ(put(0, 3), "");
    EXPECT_EQ(put(2, 0), "");
    EXPECT_EQ(put(1, 0), tooManyCells);
    const Cell cell = Cell::of("a");
    EXPECT_EQ(sheet.rows, (std::vector<SheetRow>{{cell, Cell(), cell, cell}, {}, {cell}}));
}

TEST(SheetBudget, CountsTheBytesOfACell) {
    SheetBudget budget;
    Sheet sheet;
    EXPECT_EQ(told(budget.put(sheet, 0, 0, Cell::of("a"), limits::textSize)), "");
    EXPECT_EQ(told(budget.put(sheet, 0, 0, Cell::of("a"), 0)), "");
    EXPECT_NE(told(budget.put(sheet, 0, 0, Cell::of("a"), 1)), "");
}

TEST(SheetBudget, PutsNoCellBeyondTheLastRowOrColumn) {
    SheetBudget budget;
    Sheet sheet;
    const Cell cell = Cell::of("a");
    EXPECT_EQ(told(budget.put(sheet, 0, limits::columns, cell, 0)),
              "超过 16384 列,表格太大了。请拆分后重试。");
    EXPECT_EQ(told(budget.put(sheet, limits::rows, 0, cell, 0)),
              "超过 1048576 行,表格太大了。请拆分后重试。");
    EXPECT_TRUE(sheet.rows.empty());
    EXPECT_EQ(told(budget.put(sheet, 0, limits::columns - 1, cell, 0)), "");
    EXPECT_EQ(told(budget.put(sheet, limits::rows - 1, 0, cell, 0)), "");
    EXPECT_EQ(sheet.rows.size(), limits::rows);
    EXPECT_EQ(sheet.columnCount(), limits::columns);
}

TEST(Sheets, NothingStandsBeyondTheEnds) {
    Sheet sheet;
    EXPECT_EQ(sheet.columnCount(), 0U);
    // What was there and was taken away is still in memory.
    sheet.rows = {{Cell::of("a"), Cell::of("b")}, {Cell::of("c")}};
    sheet.rows[0].pop_back();
    sheet.rows.pop_back();
    EXPECT_EQ(sheet.at(0, 0), Cell::of("a"));
    EXPECT_TRUE(sheet.at(0, 1).isAbsent());
    EXPECT_TRUE(sheet.at(1, 0).isAbsent());
}

TEST(Sheets, ACellIsShownAsItsTextOrDigits) {
    EXPECT_EQ(cellText(Cell()), "");
    EXPECT_EQ(cellText(Cell::of("a")), "a");
    EXPECT_EQ(cellText(Cell::of(1.5)), "1.5");
    EXPECT_EQ(cellText(Cell::of(1.0, "01")), "01");
}

TEST(Sheets, ARowIsBlankWithoutAnyCell) {
    EXPECT_TRUE(isBlankRow({}));
    EXPECT_TRUE(isBlankRow({Cell(), Cell()}));
    EXPECT_FALSE(isBlankRow({Cell(), Cell::of("a")}));
}

TEST(SheetFailures, ArePlacedByRowAndColumn) {
    const std::string reason = "错。";
    EXPECT_EQ(SheetFailure{.reason = reason}.text(), reason);
    EXPECT_EQ((SheetFailure{.reason = reason, .row = 1}.text()), "第 1 行:错。");
    EXPECT_EQ((SheetFailure{.reason = reason, .row = 1, .column = 1}.text()), "第 1 行 A 列:错。");
    const SheetFailure failure{.reason = reason, .row = 2, .column = 28};
    EXPECT_EQ(whileReading(failure, "甲").text(), "没有读入文件“甲”。\n第 2 行 AB 列:错。");
    EXPECT_EQ(whileWriting(failure, "甲").text(),
              "没有写入文件“甲”,原有的文件保持不变。\n第 2 行 AB 列:错。");
}

TEST(SheetFailures, OfTheSystemAreToldInWordsOfTheirOwn) {
    const std::string other = "读写时出错。请检查磁盘后重试。\n详细信息:detail";
    const std::vector<std::tuple<Failure, std::string, std::string>> failures{
        {Failure::readOnly, sheet_texts::noRight, sheet_texts::noRight},
        {Failure::missing, sheet_texts::fileMissing, sheet_texts::folderMissing},
        {Failure::full, "文件超过 64 MB,太大了。请拆分后重试。", sheet_texts::diskFull},
        {Failure::refused, other, sheet_texts::fileThere},
        {Failure::foreign, other, sheet_texts::booksThere},
        {Failure::lost, other, other}};
    for (const auto& [failure, reading, writing] : failures) {
        const Status status = Status::of(failure, "detail");
        EXPECT_EQ(whileReading(status, "甲").reason, reading);
        EXPECT_EQ(whileReading(status, "甲").heading, "没有读入文件“甲”。");
        EXPECT_EQ(whileWriting(status, "甲").reason, writing);
        EXPECT_EQ(whileWriting(status, "甲").heading, "没有写入文件“甲”,原有的文件保持不变。");
    }
    EXPECT_EQ(whileWriting(Status::of(Failure::unconfirmed, "detail"), "甲").text(),
              "文件“甲”已经写好。\n"
              "但系统没有确认它已存到磁盘上。请检查磁盘,并核对该文件。\n"
              "详细信息:detail");
}

TEST(TextMeasures, WideCharactersTakeTwoPlacesAndPairsTwoUnits) {
    EXPECT_EQ(displayWidth(""), 0);
    EXPECT_EQ(displayWidth("ab"), 2);
    EXPECT_EQ(displayWidth("é\xE0\xBF\xBF"), 2);
    EXPECT_EQ(displayWidth("\xE1\x84\x80中𠮷"), 6);
    EXPECT_EQ(displayWidth("ab\n\nxyz\nc"), 3);
    EXPECT_EQ(utf16Length(""), 0U);
    EXPECT_EQ(utf16Length("aé中\xEF\xBF\xBD"), 4U);
    EXPECT_EQ(utf16Length("\xF0\x90\x80\x80"), 2U);
}

TEST(WrittenCells, AsManyAsCanBeReadAreWritten) {
    Sheet sheet;
    sheet.rows.assign(limits::cells / limits::columns, SheetRow(limits::columns));
    sheet.rows.emplace_back(limits::cells % limits::columns);
    EXPECT_FALSE(checkWrittenCells(sheet));
    sheet.rows.back().emplace_back();
    EXPECT_EQ(told(checkWrittenCells(sheet)), tooManyCells);
}

TEST(WrittenCells, ContentIsTheSameWithNumbersToFifteenDigits) {
    const auto sheetOf = [](std::vector<SheetRow> rows) {
        Sheet sheet;
        sheet.rows = std::move(rows);
        return sheet;
    };
    const Sheet written = sheetOf({{Cell::of(0.3), Cell::of("a")}, {Cell::of(0.0)}});
    EXPECT_TRUE(isSameContent(written, written));
    EXPECT_TRUE(isSameContent(sheetOf({{Cell()}, {}}), {}));
    EXPECT_TRUE(isSameContent(
        written,
        sheetOf({{Cell::of(0.30000000000000004), Cell::of("a"), Cell()}, {Cell::of(0.0)}})));
    for (const auto& rows : std::vector<std::vector<SheetRow>>{
             {{Cell::of(0.3001), Cell::of("a")}, {Cell::of(0.0)}},
             {{Cell::of(-0.3), Cell::of("a")}, {Cell::of(0.0)}},
             {{Cell::of(0.3), Cell::of("b")}, {Cell::of(0.0)}},
             {{Cell::of(0.3), Cell::of("a")}, {Cell::of("0")}},
             {{Cell::of(0.3), Cell::of("a")}},
             {{Cell::of(0.3)}, {Cell::of(0.0)}},
             {{Cell::of(0.3), Cell::of("a")}, {Cell::of(0.0)}, {Cell::of("c")}},
             {{Cell::of(0.3), Cell::of("a"), Cell::of("c")}, {Cell::of(0.0)}}}) {
        EXPECT_FALSE(isSameContent(written, sheetOf(rows)));
        EXPECT_FALSE(isSameContent(sheetOf(rows), written));
    }
}

TEST(XlsxEscapes, CharactersThatXmlCannotHoldAreWrittenAsSigns) {
    const std::vector<std::pair<std::string, std::string>> texts{
        {"\x01", "_x0001_"},          {"a\x1F b", "a_x001F_ b"},    {"\r", "_x000D_"},
        {"_x0041_", "_x005F_x0041_"}, {"_xffff_", "_x005F_xffff_"}, {"\xEF\xBF\xBE", "_xFFFE_"},
        {"\xEF\xBF\xBF|", "_xFFFF_|"}};
    for (const auto& [text, escaped] : texts) {
        EXPECT_EQ(escapedForXlsx(text), escaped);
        EXPECT_EQ(unescapedFromXlsx(escaped), text);
    }
}

TEST(XlsxEscapes, WhatIsNoSignStaysAsItIs) {
    for (const std::string text :
         {"a b", "\t\n", "_x0041", "_x0041-", "_y0041_", "-x0041_", "_x000G_", "_x00G1_", "_x-041_",
          "_x____", "_x", "中\xEF\xBF\xBD"}) {
        EXPECT_EQ(escapedForXlsx(text), text);
        EXPECT_EQ(unescapedFromXlsx(text), text);
    }
    EXPECT_EQ(unescapedFromXlsx("_x00e9_"), "é");
    EXPECT_EQ(unescapedFromXlsx("_x0000__xD800__xDFFF_"), "_x0000__xD800__xDFFF_");
}

}  // namespace
}  // namespace chengheng
