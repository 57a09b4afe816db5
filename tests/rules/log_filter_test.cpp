#include "operationlog/log_filter.h"

#include <gtest/gtest.h>

namespace chengheng::log_filter_test {
namespace {

TEST(LogMoments, AreADayOrATimeOfIt) {
    EXPECT_EQ(logMoment("2026-11-23"), "2026-11-23");
    EXPECT_EQ(logMoment(" 2026/1/5 "), "2026-01-05");
    EXPECT_EQ(logMoment("2026-11-23 18:04"), "2026-11-23T18:04");
    EXPECT_EQ(logMoment("2026-11-23T18:04:05"), "2026-11-23T18:04:05");
    EXPECT_EQ(logMoment("2026-11-23  00:00"), "2026-11-23T00:00");
    EXPECT_EQ(logMoment("2026-11-23 23:59:59"), "2026-11-23T23:59:59");
}

TEST(LogMoments, AreNothingElse) {
    for (const char* text :
         {"", "yesterday", "2026-02-30", "2026-11-23 24:00", "2026-11-23 18:60",
          "2026-11-23 18:04:60", "2026-11-23 18", "2026-11-23 1:04", "2026-11-23 18.04",
          "2026-11-23 18:04:5", "2026-11-23 18:04 x", "2026-11-23 ab:04",
          "2026-11-23 "
          "18:0a"})
        EXPECT_FALSE(logMoment(text)) << text;
}

TEST(LogTimes, AreShownAsADayAndATime) {
    EXPECT_EQ(shownLogTime("2026-11-23T18:04:05.123+08:00"), "2026-11-23 18:04:05");
    EXPECT_EQ(shownLogTime("2026"), "2026");
    EXPECT_EQ(shownLogTime(""), "");
}

}  // namespace
}  // namespace chengheng::log_filter_test
