#include "report/engine/cell_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/plain_measure.h"

namespace chengheng {
namespace {

using testing::ElementsAre;

struct CellLines : testing::Test {
    /// `width` counts Latin characters.
    std::vector<std::string> lines(std::string_view text, int width, std::size_t most = 1) {
        return CellSetter(measure, FontRole::cell, 1).lines(text, 2.0 * width, most);
    }
    PlainMeasure measure;
};

TEST_F(CellLines, LeaveATextWholeThatFitsToTheLastCharacter) {
    EXPECT_THAT(lines("1001 现金", 9), ElementsAre("1001 现金"));
    EXPECT_THAT(lines("", 9), ElementsAre(""));
}

TEST_F(CellLines, CutATextAtAWholeCharacterAndEndItInAnEllipsis) {
    EXPECT_THAT(lines("南京清和商贸有限公司", 9), ElementsAre("南京清…"));
    EXPECT_THAT(lines("abcdefghij", 6), ElementsAre("abcd…"));
}

TEST_F(CellLines, LeaveTheEllipsisAloneWhereNothingFitsBesideIt) {
    EXPECT_THAT(lines("南京", 2), ElementsAre("…"));
    EXPECT_THAT(lines("南京", 0), ElementsAre("…"));
}

TEST_F(CellLines, CarryATextOnInFurtherLines) {
    EXPECT_THAT(lines("南京清和商贸有限公司", 8, 3), ElementsAre("南京清和", "商贸有限", "公司"));
}

TEST_F(CellLines, EndInAnEllipsisWhenTheLinesAreUsedUp) {
    EXPECT_THAT(lines("南京清和商贸有限公司", 6, 2), ElementsAre("南京清", "和商…"));
}

TEST_F(CellLines, KeepWordsAndNumbersWholeWhereTheyHaveAPlace) {
    EXPECT_THAT(lines("合同 HT-2026,001 号", 12, 3), ElementsAre("合同", "HT-2026,001", "号"));
    EXPECT_THAT(lines("金额1234.50元整", 9, 2), ElementsAre("金额", "1234.50…"));
}

TEST_F(CellLines, BeginNoLineWithAClosingSign) {
    EXPECT_THAT(lines("部门目录、部门总帐", 8, 3), ElementsAre("部门目", "录、部门", "总帐"));
    EXPECT_THAT(lines("甲、乙", 2, 3), ElementsAre("甲", "、", "乙"));
    for (const std::string sign :
         {"、", "，", "。", "；", "：", "？", "！", "）", "》", "】", "”", "’", ")"})
        EXPECT_THAT(lines("甲乙丙" + sign + "丁", 6, 3), ElementsAre("甲乙", "丙" + sign + "丁"));
}

TEST_F(CellLines, BreakAWordThatIsLongerThanALine) {
    EXPECT_THAT(lines("abcdefghij", 4, 3), ElementsAre("abcd", "efgh", "ij"));
}

TEST_F(CellLines, BeginANewLineWhereTheTextDoes) {
    EXPECT_THAT(lines("甲\n乙", 8, 3), ElementsAre("甲", "乙"));
    EXPECT_THAT(lines("甲乙  \n丙", 4, 3), ElementsAre("甲乙", "丙"));
    EXPECT_THAT(lines("甲\n乙", 8, 1), ElementsAre("甲 乙"));
    EXPECT_THAT(lines("甲\n乙\n丙", 8, 2), ElementsAre("甲", "乙…"));
}

TEST_F(CellLines, KeepToTheBlanksBeforeTheirText) {
    EXPECT_THAT(lines("  南京清和商贸有限公司", 10, 3),
                ElementsAre("  南京清和", "  商贸有限", "  公司"));
    EXPECT_THAT(lines("\u3000南京清和商贸有限公司", 8, 2),
                ElementsAre("\u3000南京清", "\u3000和商…"));
    EXPECT_THAT(lines("  甲乙\n丙", 10, 3), ElementsAre("  甲乙", "丙"));
    EXPECT_THAT(lines("      南京清和", 8, 3), ElementsAre("      南", "京清和")) << "too many";
}

TEST_F(CellLines, LeaveOutBlanksAtTheEndAndCharactersWithoutShape) {
    EXPECT_THAT(lines("甲\t乙\x01\x7f \n", 20), ElementsAre("甲 乙"));
    EXPECT_THAT(lines("甲\n\n", 20, 3), ElementsAre("甲"));
}

TEST_F(CellLines, CountAsManyLinesAsTheyAre) {
    const CellSetter setter(measure, FontRole::cell, 1);
    for (const char* text :
         {"", "甲", "甲\n乙", "南京清和商贸有限公司", "abc def ghi jkl", "\n\n甲"})
        for (const std::size_t most : {1U, 2U, 5U})
            for (const int width : {1, 4, 6, 30})
                EXPECT_EQ(setter.lineCount(text, width, most),
                          setter.lines(text, width, most).size())
                    << text << width << most;
}

TEST_F(CellLines, MeasureNothingForTextsFarFromFillingTheirColumn) {
    const CellSetter setter(measure, FontRole::cell, 1);
    measure.measured = 0;
    EXPECT_EQ(setter.lineCount("1001 库存现金", 100, 3), 1U);
    EXPECT_EQ(measure.measured, 0);
}

}  // namespace
}  // namespace chengheng
