#include <gtest/gtest.h>

#include "operationlog/listing/log_list.h"
#include "session/rights_list.h"

namespace chengheng::log_filter_text_test {
namespace {

TEST(LogFilterTexts, NameEachCondition) {
    EXPECT_EQ(filterText({}), "");
    EXPECT_EQ(filterText({.operatorName = "李明"}), "操作员:李明");
    EXPECT_EQ(filterText({.from = "2026-11-23"}), "时间:2026-11-23 至 …");
    EXPECT_EQ(filterText({.to = "2026-11-23T18:04"}), "时间:… 至 2026-11-23 18:04");
    EXPECT_EQ(filterText({.function = 0}), "功能:(无)");
    EXPECT_EQ(filterText({.operatorName = "李明",
                          .from = "2026-11-23",
                          .to = "2026-11-24",
                          .function = 35,
                          .text = "结算",
                          .account = "1001"}),
              std::string("操作员:李明  时间:2026-11-23 至 2026-11-24  功能:") +
                  functionName(35) + "  操作含“结算”  科目:1001");
}

}  // namespace
}  // namespace chengheng::log_filter_text_test
