#include <gtest/gtest.h>

#include "sheets/delimited/delimited_reader.h"
#include "sheets/delimited/delimited_text.h"
#include "sheets/text_encoding.h"

namespace chengheng {
namespace {

/// The texts of a sheet, an absent cell being empty.
using CellTexts = std::vector<std::vector<std::string>>;

CellTexts textsOf(const Sheet& sheet) {
    CellTexts texts;
    for (const SheetRow& row : sheet.rows) {
        texts.emplace_back();
        for (const Cell& cell : row) texts.back().push_back(cell.text);
    }
    return texts;
}

CellTexts readTexts(std::string_view bytes) {
    Sheet sheet;
    const std::optional<SheetFailure> failure = readCsv(bytes, sheet);
    EXPECT_FALSE(failure) << failure->text();
    return textsOf(sheet);
}

SheetFailure readFailure(std::string_view bytes) {
    Sheet sheet;
    sheet.rows.resize(3);
    const std::optional<SheetFailure> failure = readCsv(bytes, sheet);
    EXPECT_TRUE(failure);
    EXPECT_TRUE(sheet.rows.empty()) << "half of a sheet was left";
    return failure.value_or(SheetFailure());
}

std::string utf16(std::u16string_view text, bool isBig) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8U);
        bytes += isBig ? high : low;
        bytes += isBig ? low : high;
    }
    return bytes;
}

const CellTexts accountRows{{"编码", "名称"}, {"0101", "库存现金"}};

TEST(CsvReading, ReadsUtf8WithAndWithoutItsMark) {
    EXPECT_EQ(readTexts("编码,名称\r\n0101,库存现金\r\n"), accountRows);
    EXPECT_EQ(readTexts("\xEF\xBB\xBF编码,名称\r\n0101,库存现金\r\n"), accountRows);
}

TEST(CsvReading, ReadsUtf16OfBothKindsWithAndWithoutItsMark) {
    for (const bool isBig : {false, true}) {
        EXPECT_EQ(readTexts(utf16(u"\uFEFF编码,名称\r\n0101,库存现金\r\n", isBig)), accountRows);
        EXPECT_EQ(readTexts(utf16(u"编码,名称\r\n0101,库存现金\r\n", isBig)), accountRows);
        EXPECT_EQ(readTexts(utf16(u"a,b\nc,d", isBig)), (CellTexts{{"a", "b"}, {"c", "d"}}));
        EXPECT_EQ(readTexts(utf16(u"\uFEFF𠮷\t😀", isBig)), (CellTexts{{"𠮷", "😀"}}));
    }
}

TEST(CsvReading, ReadsGb18030WithItsTwoAndFourByteCharacters) {
    // 编码,名称 CR LF 0101,库存现金 CR LF
    EXPECT_EQ(readTexts("\xB1\xE0\xC2\xEB,\xC3\xFB\xB3\xC6\r\n"
                        "0101,\xBF\xE2\xB4\xE6\xCF\xD6\xBD\xF0\r\n"),
              accountRows);
    EXPECT_EQ(readTexts("\xFE\x56,\x95\x34\xB2\x35,\x81\x39\xEE\x39,\xA2\xE3,\x94\x39\xFC\x36"),
              (CellTexts{{"㑇", "𠮷", "㐀", "€", "😀"}}));
}

TEST(CsvReading, ReadsEveryLineEndAndALastLineWithoutOne) {
    for (const char* text : {"a,b\r\nc,d\r\n", "a,b\nc,d\n", "a,b\rc,d\r", "a,b\nc,d"})
        EXPECT_EQ(readTexts(text), (CellTexts{{"a", "b"}, {"c", "d"}})) << text;
}

TEST(CsvReading, KeepsLineEndsAndQuotesInsideQuotes) {
    EXPECT_EQ(readTexts("\"a\r\nb\",\"c\"\"d\",\"\",\"e\nf\rg\"\r\n"),
              (CellTexts{{"a\r\nb", "c\"d", "", "e\nf\rg"}}));
}

TEST(CsvReading, QuoteWithinABareCellBelongsToIt) {
    EXPECT_EQ(readTexts("5\" 钉,b\n"), (CellTexts{{"5\" 钉", "b"}}));
}

TEST(CsvReading, KeepsZerosBlanksAndSignsOfTexts) {
    EXPECT_EQ(readTexts("0101, a ,=1+1,+5,-0\n"), (CellTexts{{"0101", " a ", "=1+1", "+5", "-0"}}));
}

TEST(CsvReading, EmptyFieldsAreAbsentCellsAndEmptyLinesRowsWithoutCells) {
    Sheet sheet;
    ASSERT_FALSE(readCsv("a,,\n\n,b\n", sheet));
    ASSERT_EQ(sheet.rows.size(), 3U);
    EXPECT_EQ(sheet.rows[0], (SheetRow{Cell::of("a")}));
    EXPECT_TRUE(sheet.rows[1].empty());
    EXPECT_EQ(sheet.rows[2], (SheetRow{Cell(), Cell::of("b")}));
    EXPECT_TRUE(readTexts("").empty());
    EXPECT_TRUE(readTexts("\xEF\xBB\xBF").empty());
}

TEST(CsvReading, TellsCommaTabAndSemicolonApart) {
    const std::vector<std::pair<const char*, char>> texts{{"a,b\nc,d\n", ','},
                                                          {"a\tb\nc\td\n", '\t'},
                                                          {"a;b\nc;d\n", ';'},
                                                          {"a;b,c;d\ne;f,g;h\n", ';'},
                                                          {"名称\n", ','},
                                                          {"", ','},
                                                          {"a;1,5\nb;2\nc;3\n", ';'},
                                                          {"title;\na,b,c\nd,e,f\n", ','},
                                                          {"\"a;b;c;d\",e\n\"f;g;h;i\",j\n", ','},
                                                          {"a,\"b\n;\"\nc,d,e\n\"f\n\"\n", ','},
                                                          {"1,5;\"b\"\n2,5;\"c\"\n", ';'},
                                                          {"\"a\tb\";c\nd;e\n", ';'},
                                                          {"1;2\n3,4,5\n", ','},
                                                          {"标题\n说明\n备注\na;b\nc;d\n", ';'}};
    for (const auto& [text, separator] : texts) EXPECT_EQ(separatorOf(text), separator) << text;
}

TEST(CsvReading, SeparatorOfALongLineIsToldFromItsBeginning) {
    std::string line;
    for (int cell = 0; cell < 40000; ++cell) line += "ab;";
    EXPECT_EQ(separatorOf(line), ';');
}

/// Longer than what the separator is told from.
const std::string longCell(70'000, 'x');

TEST(CsvReading, ALineCutShortByTheSampleCountsOnlyWhenItIsTheFirst) {
    EXPECT_EQ(separatorOf("a;b;c\n1,2,3,4,5" + longCell + ";y;z\n"), ';');
    std::string text = "x,1,2,3,4\n";
    for (int row = 0; row < 5; ++row) text += "a;b\n";
    EXPECT_EQ(separatorOf(text + longCell), ';');
}

TEST(CsvReading, AQuoteCutShortByTheSampleIsNoneThatStandsWhereItShouldNot) {
    EXPECT_EQ(separatorOf("a,b;c\na,b;c\n1,5;\"" + longCell + "\"\n"), ';');
    std::string text;
    for (int row = 0; row < 20; ++row) text += "1,5\n";
    for (int row = 0; row < 10; ++row) text += "\"" + longCell.substr(0, 7000) + "\";b\n";
    EXPECT_EQ(separatorOf(text), ';');
}

TEST(CsvReading, QuoteThatIsNotClosedIsAFailureAtItsCell) {
    const SheetFailure failure = readFailure("a,b\n\"c\nd\",e\nf,\"g\nh\n");
    EXPECT_EQ(failure.text(), "第 3 行 B 列:单元格以引号开头,但没有结束的引号。");
}

TEST(CsvReading, TextAfterAClosingQuoteIsAFailureAtItsCell) {
    const SheetFailure failure = readFailure("a,b\n\"c\"d,e\n");
    EXPECT_EQ(failure.text(),
              "第 2 行 A 列:结束的引号之后还有文字。单元格中的引号应写成两个引号。");
}

TEST(CsvReading, NulIsAFailureAtItsCell) {
    for (const std::string& cell : {std::string("x\0", 2), std::string("\"x\0\"", 4)}) {
        const SheetFailure failure = readFailure("编码,名称,说明,方向\na," + cell + ",b,c\n");
        EXPECT_EQ(failure.text(), "第 2 行 B 列:单元格中有不能作为文字的内容(NUL)。");
    }
}

TEST(CsvReading, BytesOfNoEncodingAreAFailureWhereTheyStand) {
    // Cut in the middle of a character, within quotes and outside.
    for (const char* text :
         {"库存现金,银行存款\n应收帐款,预付帐\xE6", "现金存款,\n帐款,\"银行\xE9"}) {
        const SheetFailure failure = readFailure(text);
        EXPECT_EQ(failure.row, 2U);
        EXPECT_EQ(failure.column, 2U);
        EXPECT_TRUE(failure.reason.starts_with("此处的内容无法识别。")) << failure.reason;
    }
    EXPECT_EQ(readFailure(utf16(u"\uFEFFa\tb\n", false) + "\x01\xD8").row, 2U);
    EXPECT_EQ(readFailure(utf16(u"\uFEFFa\tb\nc", true) + "\xDC").row, 2U);
    for (const char* text : {"a,b\n\xFF", "a,b\r\xFF"}) {
        EXPECT_EQ(readFailure(text).row, 2U);
        EXPECT_EQ(readFailure(text).column, 1U);
    }
    EXPECT_EQ(readFailure("\xFF").row, 1U);
    EXPECT_EQ(readFailure("\xFF").column, 1U);
    EXPECT_EQ(readFailure("现金存款,\n帐款,\xE9").column, 2U);
    EXPECT_EQ(readFailure("\x89PNG\r\n\x1A\n\xFF\xFF").row, 3U);
}

TEST(CsvReading, TextAfterAQuoteIsToldThoughTheTextBreaksOff) {
    EXPECT_TRUE(readFailure("银行存款\n\"a\"b,c\n\xE9").reason.starts_with("结束的引号之后"));
}

TEST(CsvReading, WhatASheetHeldBeforeIsGone) {
    for (const auto read : {&readCsv, &readClipboardBlock}) {
        Sheet sheet;
        sheet.name = "old";
        sheet.rows.resize(3);
        ASSERT_FALSE(read("a", sheet));
        EXPECT_EQ(sheet.name, "");
        EXPECT_EQ(textsOf(sheet), (CellTexts{{"a"}}));
        EXPECT_TRUE(read("a\n\"\xFF", sheet));
        EXPECT_TRUE(sheet.rows.empty());
    }
}

// Of a text of ASCII more than a quarter of the bytes are zeros when it is UTF-16, of any other
// more than a fiftieth.
TEST(CsvReading, FewZerosDoNotMakeUtf16) {
    EXPECT_EQ(readTexts(std::string("a\0b\0", 4)), (CellTexts{{"ab"}}));
    EXPECT_EQ(readFailure(std::string("a\0bc", 4)).text(),
              "第 1 行 A 列:单元格中有不能作为文字的内容(NUL)。");
    std::u16string cell(47, u'库');
    EXPECT_EQ(readTexts(utf16(cell + u",b", false)).front().size(), 2U);
    cell += u'库';
    EXPECT_TRUE(readFailure(utf16(cell + u",b", false)).reason.ends_with("(NUL)。"));
}

TEST(CsvReading, FirstAndLastCharactersOfUtf16PairsAreRead) {
    EXPECT_EQ(readTexts(utf16(u"\uFEFF\U00010000,\U0010FFFF", false)),
              (CellTexts{{"\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}}));
    EXPECT_EQ(readTexts(utf16(u"\uFEFF\uD7FF,\uE000", false)),
              (CellTexts{{"\xED\x9F\xBF", "\xEE\x80\x80"}}));
}

TEST(CsvReading, HalvesOfUtf16PairsAreNoCharacters) {
    const std::string mark = "\xFF\xFE";
    for (const std::string& units :
         {std::string("\x00\xD8\xFF\xDB", 4), std::string("\x00\xD8\x00\xE0", 4),
          std::string("\x00\xDC", 2), std::string("\x00\xDC\x00\xDC", 4),
          std::string("\xFF\xDF", 2), std::string("\xFF\xDB", 2), std::string("\x00\xD8", 2)})
        EXPECT_TRUE(readFailure(mark + units).reason.starts_with("此处的内容无法识别。"));
}

TEST(CsvReading, NulInUtf16IsAFailureAtItsCell) {
    EXPECT_EQ(readFailure(utf16(std::u16string_view(u"\uFEFFa,b\0", 5), false)).text(),
              "第 1 行 B 列:单元格中有不能作为文字的内容(NUL)。");
}

TEST(CsvReading, ALongGb18030TextIsReadWhole) {
    std::string bytes;
    for (int sign = 0; sign < 20'000; ++sign) bytes += "\xBF\xE2";
    EXPECT_EQ(readTexts(bytes).front().front().size(), 60'000U);
}

// One byte in five that is not ASCII may begin what is broken.
TEST(CsvReading, BytesAreTakenForDamagedUtf8OnlyWhenMostOfThemAreUtf8) {
    EXPECT_EQ(readTexts("\xC3\xA9\xE4\xB9"), (CellTexts{{"茅涔"}}));
    EXPECT_TRUE(readFailure("a,\xE2\x80\x94\xE4\xB9x\n").reason.starts_with("此处"));
}

TEST(TextDecoding, WhatTheTextHeldBeforeIsGone) {
    for (const std::string& bytes :
         {utf16(u"\uFEFFa", false), std::string("\xBF\xE2"), std::string("a")}) {
        std::string text = "old";
        EXPECT_TRUE(decodeText(bytes, text));
        EXPECT_FALSE(text.starts_with("old"));
    }
}

TEST(TextDecoding, CharactersAreThoseOfUnicodeWithoutHalvesOfPairs) {
    for (const char32_t number : {0x1U, 0xD7FFU, 0xE000U, 0x10FFFFU})
        EXPECT_TRUE(isCharacter(number));
    for (const char32_t number : {0x0U, 0xD800U, 0xDFFFU, 0x110000U})
        EXPECT_FALSE(isCharacter(number));
}

TEST(CsvReading, Utf8WithAStrayByteIsNotTakenForGb18030) {
    EXPECT_EQ(readFailure("科目编码,科目名称\n1001,库存\xFF现金\n").row, 2U);
}

TEST(CsvReading, EmptyCellsAtTheEndOfARowAndEmptyRowsAtTheEndAreNotKept) {
    EXPECT_EQ(readTexts("a,b,,\n,,\n,c,\n\n,,,\n"), (CellTexts{{"a", "b"}, {}, {"", "c"}}));
    EXPECT_TRUE(readTexts(std::string(4'100'000, ',')).empty());
}

TEST(CsvReading, MoreRowsThanAreReadIsAFailure) {
    const SheetFailure failure = readFailure(std::string(1'048'576, '\n') + "a");
    EXPECT_EQ(failure.text(), "超过 1048576 行,表格太大了。请拆分后重试。");
}

TEST(CsvReading, MoreColumnsThanAreReadIsAFailure) {
    const std::string separators(16'384, ',');
    EXPECT_EQ(readTexts(separators.substr(1) + "a").front().size(), 16'384U);
    EXPECT_EQ(readFailure(separators + "a").text(), "超过 16384 列,表格太大了。请拆分后重试。");
}

TEST(CsvReading, MoreCellsThanAreReadIsAFailure) {
    const std::string row = std::string(16'383, ',') + "a\n";
    std::string text;
    for (int rows = 0; rows < 245; ++rows) text += row;
    EXPECT_EQ(readFailure(text).text(), "超过 4000000 个单元格,表格太大了。请拆分后重试。");
}

CellTexts readBlock(std::string_view text) {
    Sheet sheet;
    const std::optional<SheetFailure> failure = readClipboardBlock(text, sheet);
    EXPECT_FALSE(failure) << failure->text();
    return textsOf(sheet);
}

TEST(ClipboardBlock, RowsAndCellsAreCutByLineEndsAndTabs) {
    EXPECT_EQ(readBlock("1001\t1,234.50\r\n1002\t\r\n"),
              (CellTexts{{"1001", "1,234.50"}, {"1002"}}));
    EXPECT_EQ(readBlock("a"), (CellTexts{{"a"}}));
    EXPECT_EQ(readBlock("a;b,c"), (CellTexts{{"a;b,c"}}));
    EXPECT_TRUE(readBlock("").empty());
}

TEST(ClipboardBlock, QuotedCellsMayHoldTabsAndLineEnds) {
    EXPECT_EQ(readBlock("\"a\tb\nc\"\t\"d\"\"e\"\n"), (CellTexts{{"a\tb\nc", "d\"e"}}));
}

TEST(ClipboardBlock, QuotesThatDoNotPairBelongToTheCell) {
    EXPECT_EQ(readBlock("\"a\tb\n5\" c\t\"x\" y\n"),
              (CellTexts{{"\"a", "b"}, {"5\" c", "\"x\" y"}}));
}

TEST(ClipboardBlock, WhatIsWrittenIsReadBack) {
    Sheet sheet;
    sheet.rows = {{Cell::of("a\tb"), Cell::of("\"quoted\""), Cell::of("line\r\nend")},
                  {},
                  {Cell::of("\""), Cell::of(" 0101 "), Cell::of("𠮷\"")},
                  {Cell(), Cell::of("last")}};
    std::string text;
    ASSERT_FALSE(writeClipboardBlock(sheet, text));
    Sheet read;
    ASSERT_FALSE(readClipboardBlock(text, read));
    EXPECT_EQ(read.rows, sheet.rows);
}

TEST(ClipboardBlock, BytesThatAreNoTextAreAFailure) {
    Sheet sheet;
    for (const std::string_view text : {std::string_view("a\xFF"), std::string_view("a\0", 2)}) {
        EXPECT_TRUE(readClipboardBlock(text, sheet));
        EXPECT_TRUE(sheet.rows.empty());
    }
}

TEST(Utf8Writing, EveryLengthOfCharacterIsWritten) {
    std::string text;
    for (const char32_t character : {U'a', U'é', U'帐', U'𠮷'}) appendUtf8(character, text);
    EXPECT_EQ(text, "aé帐𠮷");
    const std::vector<std::pair<char32_t, std::string>> borders{{0x7F, "\x7F"},
                                                                {0x80, "\xC2\x80"},
                                                                {0x7FF, "\xDF\xBF"},
                                                                {0x800, "\xE0\xA0\x80"},
                                                                {0xFFFF, "\xEF\xBF\xBF"},
                                                                {0x10000, "\xF0\x90\x80\x80"},
                                                                {0x10FFFF, "\xF4\x8F\xBF\xBF"}};
    for (const auto& [character, bytes] : borders) {
        text.clear();
        appendUtf8(character, text);
        EXPECT_EQ(text, bytes);
    }
}

}  // namespace
}  // namespace chengheng
