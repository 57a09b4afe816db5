#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <future>

#include "tests/e2e/run_chbooks.h"
#include "tests/support/engine_tools.h"
#include "tests/support/made_books.h"

namespace {

using namespace chengheng;
using testing::HasSubstr;

class CarryCommand : public testing::TestWithParam<EngineCase> {};

TEST_P(CarryCommand, IsDoneByOneOfTwoWorkstationsThatBeginAtOnceAndTheOtherIsTold) {
    const std::string last = freshLocation(GetParam());
    const std::string books = freshLocation(GetParam());
    NewBooks facts = sampleBooks();
    facts.name = "两个工作站 " + GetParam().name;
    makeBooks(last, facts);
    runScript(*openForTest(last, OpenMode::existing),
              "INSERT INTO AccSum SELECT 1, lId, 12, 5, 2, 0, 0, 0, 0, 0, 0, 0 FROM Code "
              "WHERE sCode = '1001'");
    ASSERT_EQ(chbooks({"new-year", last, "--target", books}).exitCode, chbooks_exit::done);
    for (int time = 0; time < 6; ++time) {
        const auto carry = [&books] { return chbooks({"carry-forward", books}); };
        std::array both{std::async(std::launch::async, carry),
                        std::async(std::launch::async, carry)};
        std::array runs{both[0].get(), both[1].get()};
        if (runs[0].exitCode != chbooks_exit::done) std::swap(runs[0], runs[1]);
        EXPECT_EQ(runs[0].exitCode, chbooks_exit::done) << runs[0].err;
        EXPECT_EQ(runs[1].exitCode, chbooks_exit::wrongInput) << runs[1].err;
        EXPECT_THAT(runs[1].err, HasSubstr("结转上年余额不成功"));
        EXPECT_EQ(chbooks({"carry-forward", books, "--verify"}).exitCode, chbooks_exit::done);
        const auto engine = openForTest(books, OpenMode::existing);
        EXPECT_EQ(readCell(*engine, "SELECT Count(*) FROM AccSum WHERE mBegin = 7"), "12");
        EXPECT_EQ(readCell(*engine, "SELECT Count(*) FROM AccSum"), "12");
        runScript(*engine, "DELETE FROM AccSum");
    }
}

CHENGHENG_ON_SHARED_ENGINES(CarryCommand);

}  // namespace
