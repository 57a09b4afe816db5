#include <gtest/gtest.h>

#include "accounts/printing/chart_list.h"
#include "data/tables/accounts.h"

namespace chengheng {
namespace {

bool holds(const ChartRange& range, const std::string& code, int grade = 1) {
    _CodeInfo account;
    account.sCode = code;
    account.byGrade = static_cast<std::uint8_t>(grade);
    return range.holds(account);
}

TEST(ChartRanges, HoldEveryAccountUnlessTheySaySo) {
    for (int grade = 1; grade <= 6; ++grade) EXPECT_TRUE(holds({}, "1001", grade)) << grade;
    EXPECT_FALSE(holds({}, "1001", 0));
    EXPECT_FALSE(holds({}, "1001", 7));
}

TEST(ChartRanges, BeginWithTheirFirstCode) {
    const ChartRange range{.firstCode = "1002"};
    EXPECT_FALSE(holds(range, "1001"));
    EXPECT_FALSE(holds(range, "100101"));
    for (const char* code : {"1002", "100201", "1003"}) EXPECT_TRUE(holds(range, code)) << code;
}

TEST(ChartRanges, EndWithAllBelowTheirLastCode) {
    const ChartRange range{.lastCode = "1002"};
    for (const char* code : {"1001", "1002", "100201", "10029999"})
        EXPECT_TRUE(holds(range, code)) << code;
    EXPECT_FALSE(holds(range, "1003"));
}

TEST(ChartRanges, HoldTheirFirstAndLastLevel) {
    const ChartRange range{.firstLevel = 2, .lastLevel = 3};
    for (int grade = 1; grade <= 4; ++grade)
        EXPECT_EQ(holds(range, "1001", grade), grade == 2 || grade == 3) << grade;
}

}  // namespace
}  // namespace chengheng
