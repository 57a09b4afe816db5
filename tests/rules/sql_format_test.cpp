#include "data/sql/sql_format.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

namespace chengheng {
namespace {

std::string realText(double number) {
    std::array<char, 400> room;
    return {room.data(), writeReal(room.data(), number)};
}

TEST(SqlFormat, PutsValuesInTheirPlaces) {
    EXPECT_EQ(formatSql("Update Code Set bEnd = %d Where sCode = '%s'\r\n", 1, "1001"),
              "Update Code Set bEnd = 1 Where sCode = '1001'\r\n");
    EXPECT_EQ(formatSql("%d%d", 1, 2), "12");
    EXPECT_EQ(formatSql("DELETE AccSum"), "DELETE AccSum");
}

TEST(SqlFormat, WritesIntegersOfEveryWidth) {
    EXPECT_EQ(formatSql("%d %d %d", std::uint8_t{255}, std::int16_t{-1}, true), "255 -1 1");
    EXPECT_EQ(formatSql("%ld %u", std::numeric_limits<std::int64_t>::min(),
                        std::numeric_limits<std::uint64_t>::max()),
              "-9223372036854775808 18446744073709551615");
}

TEST(SqlFormat, WritesAnEmptyOptionalAsNull) {
    EXPECT_EQ(formatSql("( %d, %d )", std::optional<int>(), std::optional<int>(7)), "( NULL, 7 )");
}

TEST(SqlFormat, DoublesQuotesInText) {
    EXPECT_EQ(formatSql("sUserName = '%s'", std::string("O'Brien")), "sUserName = 'O''Brien'");
    EXPECT_EQ(formatSql("'%s'", "''"), "''''''");
    EXPECT_EQ(formatSql("'%s'", ""), "''");
}

TEST(SqlFormat, LeavesPercentAndBackslashInPlainTextAlone) {
    EXPECT_EQ(formatSql("sCode = '%s'", "50%_\\"), "sCode = '50%_\\'");
}

TEST(SqlFormat, EscapesWildcardsInALikePattern) {
    EXPECT_EQ(formatSql("sCode Like '%s%%' AND sCode <> '%s'", "1_0%'\\", "1_0%"),
              "sCode Like '1\\_0\\%''\\\\%' AND sCode <> '1_0%'");
    EXPECT_EQ(formatSql("s NOT LIKE\n'%%%s'", "_"), "s NOT LIKE\n'%\\_'");
    EXPECT_EQ(formatSql("sUnlike '%s'", "_"), "sUnlike '_'");
    EXPECT_EQ(formatSql(" LIKE '%s'", "_"), " LIKE '\\_'") << "behind a column put in before it";
}

TEST(SqlFormat, FoldsDoubledPercentSigns) {
    EXPECT_EQ(formatSql("%%%d%%%%'%%'", 3), "%3%%'%'");
    EXPECT_EQ(formatSql("%%"), "%");
}

TEST(SqlFormat, TakesFragmentsOutsideQuotesAsTheyAre) {
    EXPECT_EQ(formatSql("DELETE FROM AccSum WHERE lCodeId in ( %s )", SqlFragment{"1,2,3"}),
              "DELETE FROM AccSum WHERE lCodeId in ( 1,2,3 )");
    EXPECT_EQ(formatSql("ProjItems%s WHERE FIELD1='%s'", SqlFragment{"01"}, "x'y"),
              "ProjItems01 WHERE FIELD1='x''y'");
}

TEST(SqlFormat, WritesDatesInsideQuotes) {
    EXPECT_EQ(formatSql("'%d/%d/%d'", 2026, 2, 28), "'2026/2/28'");
    EXPECT_EQ(formatSql("'%d-%d'", 2026, 2), "'2026-2'");
}

TEST(SqlFormat, TakesNamedConstants) {
    static constexpr std::string_view condition = "lCodeId = %ld";
    EXPECT_EQ(formatSql(condition, 17), "lCodeId = 17");
}

TEST(SqlFormat, AppendsToABatch) {
    std::string batch = "A\n";
    appendSql(batch, "B %d\n", 1);
    appendSql(batch, "C '%s'\n", "x");
    EXPECT_EQ(batch, "A\nB 1\nC 'x'\n");
}

TEST(SqlFormat, WritesAMegabyteOfQuotes) {
    const std::string text(1 << 20, '\'');
    const std::string written = formatSql("s = '%s'", text);
    EXPECT_EQ(written.size(), 6 + 2 * text.size());
    EXPECT_EQ(written.find_first_not_of('\'', 4), std::string::npos);
}

TEST(SqlFormat, KeepsEveryByteOfText) {
    const std::string text("\0\r\n\xff 帐\xF0\x9F\x98\x80", 12);
    EXPECT_EQ(formatSql("%s'%s'", SqlFragment{""}, text), "'" + text + "'");
}

TEST(SqlFormatFaults, NumberOfArgumentsMustFit) {
    EXPECT_STREQ(SqlFormat<int>::faultOf("%d"), nullptr);
    EXPECT_STREQ(SqlFormat<int>::faultOf("%d %d"), "more conversions than arguments");
    EXPECT_STREQ((SqlFormat<int, int>::faultOf("%d")), "more arguments than conversions");
    EXPECT_STREQ(SqlFormat<>::faultOf("%d"), "more conversions than arguments");
}

TEST(SqlFormatFaults, KindsOfArgumentsMustFit) {
    const char* kind = "an argument does not fit its conversion";
    EXPECT_STREQ(SqlFormat<double>::faultOf("%d"), kind);
    EXPECT_STREQ(SqlFormat<int>::faultOf("%lf"), kind);
    EXPECT_STREQ(SqlFormat<int>::faultOf("'%s'"), kind);
    EXPECT_STREQ(SqlFormat<char>::faultOf("%d"), kind);
    EXPECT_STREQ(SqlFormat<std::string>::faultOf("%s"), kind);
    EXPECT_STREQ(SqlFormat<SqlFragment>::faultOf("'%s'"), kind);
    EXPECT_STREQ(SqlFormat<std::string>::faultOf("sName = '%s'"), nullptr);
}

TEST(SqlFormatFaults, OnlyKnownConversionsAreTaken) {
    for (const char* format : {"%x", "%.2f", "%f", "%lu", "100%"})
        EXPECT_STREQ(SqlFormat<int>::faultOf(format),
                     "a conversion other than %d, %ld, %u, %lf, %s, %%")
            << format;
}

TEST(SqlFormatFaults, QuotesMustBeClosed) {
    EXPECT_STREQ(SqlFormat<std::string>::faultOf("s = '%s"), "a quote is left open");
}

TEST(SqlFormatFaults, AMinusBeforeAValueCouldBecomeAComment) {
    EXPECT_STREQ(SqlFormat<int>::faultOf("mBegin -%d"), "a minus before a value");
    EXPECT_STREQ(SqlFormat<int>::faultOf("mBegin - %d"), nullptr);
}

TEST(SqlReal, HasSixDecimalsAndAPoint) {
    EXPECT_EQ(realText(0), "0.000000");
    EXPECT_EQ(realText(1234567.89), "1234567.890000");
    EXPECT_EQ(realText(-0.5), "-0.500000");
    EXPECT_EQ(realText(9.9999999), "10.000000");
    EXPECT_EQ(formatSql("%lf", 2.5F), "2.500000");
}

TEST(SqlReal, HasASignBelowZero) {
    EXPECT_EQ(realText(-1), "-1.000000");
    EXPECT_EQ(realText(-0.000001), "-0.000001");
}

TEST(SqlReal, HasNoSignWhenItRoundsToZero) {
    EXPECT_EQ(realText(-0.0), "0.000000");
    EXPECT_EQ(realText(-0.0000004), "0.000000");
}

TEST(SqlReal, RoundsAnExactHalfToTheEvenDigit) {
    EXPECT_EQ(realText(0.0000005), "0.000000") << "the double lies below the half";
    EXPECT_EQ(realText(0.00048828125), "0.000488");
    EXPECT_EQ(realText(0.5 / 1048576 * 1048575), "0.500000");
    EXPECT_EQ(realText(1.0 / 128), "0.007812") << "0.0078125 is exact";
    EXPECT_EQ(realText(3.0 / 128), "0.023438") << "0.0234375 is exact";
}

TEST(SqlReal, RoundsAsThePrintfFamilyDoes) {
    std::mt19937_64 random(20260105);
    for (int round = 0; round < 200'000; ++round) {
        const auto bits = static_cast<std::int64_t>(random());
        const std::array<double, 3> numbers{static_cast<double>(bits % 100'000'000'000) / 100,
                                            std::ldexp(static_cast<double>(bits >> 11), -60),
                                            static_cast<double>(bits >> 24) * 0.0000005};
        for (const double number : numbers) {
            std::array<char, 64> expected;
            std::snprintf(expected.data(), expected.size(), "%lf", number);
            if (std::string_view(expected.data()) == "-0.000000") continue;
            ASSERT_EQ(realText(number), expected.data());
        }
    }
}

TEST(SqlReal, WritesHugeNumbersInFull) {
    EXPECT_EQ(realText(1e18), "1000000000000000000.000000");
    EXPECT_EQ(realText(-1e22), "-10000000000000000000000.000000");
    EXPECT_EQ(formatSql("%lf", std::numeric_limits<double>::max()).size(), 309U + 7U);
}

TEST(SqlReal, WritesWhatIsNoNumberUnreadably) {
    EXPECT_EQ(realText(std::numeric_limits<double>::quiet_NaN()), "#nan");
    EXPECT_EQ(realText(-std::numeric_limits<double>::infinity()), "#inf");
}

}  // namespace
}  // namespace chengheng
