#include "books/logon/logon_choices.h"

#include <gtest/gtest.h>

namespace chengheng {
namespace {

TEST(LogonChoices, LatestYearOfEachSetStandsFirst) {
    const std::vector<BooksSet> sets{{1, "甲", "", {{2025, "/a"}, {2026, "/b"}}},
                                     {2, "乙", "", {{2026, "/c"}}}};
    EXPECT_EQ(logonChoices(sets), (std::vector<LogonChoice>{{"甲 2026年度", "/b", 2026},
                                                            {"甲 2025年度", "/a", 2025},
                                                            {"乙 2026年度", "/c", 2026}}));
}

TEST(LogonChoices, PlaceThatIsListedIsFound) {
    std::vector<LogonChoice> choices{{"甲", "/a", 2025}, {"乙", "/b", 2026}};
    EXPECT_EQ(choiceOf(choices, "/b"), 1U);
    EXPECT_EQ(choices.size(), 2U);
}

TEST(LogonChoices, OtherPlaceIsAddedWithoutItsPassword) {
    std::vector<LogonChoice> choices{{"甲", "/a", 2025}};
    const std::string address = "postgresql://li:geheim@db/books?schema=x";
    EXPECT_EQ(choiceOf(choices, address), 1U);
    EXPECT_EQ(choices[1], (LogonChoice{"postgresql://li@db/books?schema=x", address, 0}));
}

}  // namespace
}  // namespace chengheng
