#include <gtest/gtest.h>

#include <array>

#include "data/lookups/CGetData.h"

namespace {

constexpr std::array<int, 4> levelLengths{4, 6, 8, 10};

}  // namespace

TEST(GetCodeSeparator, CutsTheCodeBeforeThreeBlanks) {
    EXPECT_EQ(CGetData::GetCode_Separator("1001   库存现金"), "1001");
    EXPECT_EQ(CGetData::GetCode_Separator("100201     工商银行"), "100201");
    EXPECT_EQ(CGetData::GetCode_Separator("1001   现金   备用"), "1001");
}

TEST(GetCodeSeparator, GivesATextWithoutTheSeparatorBack) {
    EXPECT_EQ(CGetData::GetCode_Separator("1001"), "1001");
    EXPECT_EQ(CGetData::GetCode_Separator("1001  现金"), "1001  现金");
    EXPECT_EQ(CGetData::GetCode_Separator(""), "");
    EXPECT_EQ(CGetData::GetCode_Separator("   "), "");
}

TEST(GetCodeInclude, CutsACodeWhereItsLevelsEnd) {
    EXPECT_EQ(CGetData::GetCode_Include("1001", levelLengths), "1001");
    EXPECT_EQ(CGetData::GetCode_Include("100102", levelLengths), "1001-02");
    EXPECT_EQ(CGetData::GetCode_Include("10010203", levelLengths), "1001-02-03");
    EXPECT_EQ(CGetData::GetCode_Include("1001020304", levelLengths), "1001-02-03-04");
}

TEST(GetCodeInclude, LeavesACodeThatEndsAtNoLevel) {
    EXPECT_EQ(CGetData::GetCode_Include("10010", levelLengths), "10010");
    EXPECT_EQ(CGetData::GetCode_Include("100", levelLengths), "100");
    EXPECT_EQ(CGetData::GetCode_Include("", levelLengths), "");
    EXPECT_EQ(CGetData::GetCode_Include("100102030405", levelLengths), "100102030405");
    EXPECT_EQ(CGetData::GetCode_Include("1001", {}), "1001");
}

TEST(GetCodeInclude, CutsBetweenCharactersNotBytes) {
    EXPECT_EQ(CGetData::GetCode_Include("应收账款国内", levelLengths), "应收账款-国内");
}

TEST(StringToTime, ReadsADayInTheUsualForms) {
    const Date day{2026, 1, 5};
    EXPECT_EQ(CGetData::StringToTime("2026-01-05"), day);
    EXPECT_EQ(CGetData::StringToTime("2026/1/5"), day);
    EXPECT_EQ(CGetData::StringToTime("2026.1.5"), day);
    EXPECT_EQ(CGetData::StringToTime(" 2026-01-05 "), day);
}

TEST(StringToTime, ReadsNothingElse) {
    for (const char* text : {"", "   ", "2026-02-29", "2026-13-01", "20260105", "2026-1/5", "今天"})
        EXPECT_EQ(CGetData::StringToTime(text), std::nullopt) << text;
}

TEST(AccountingYear, HasNoDatesWhileNoBooksAreOpen) {
    EXPECT_FALSE(CGetData::GetStartDate().isSet());
    EXPECT_FALSE(CGetData::GetYMonthDay(1).isSet());
}
