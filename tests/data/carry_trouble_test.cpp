#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "books/carrying/carry_repeat.h"
#include "tests/support/carry_books.h"
#include "tests/support/failing_disk.h"
#include "tests/support/ordinary_user.h"

namespace carry_troubles {
namespace {

using namespace chengheng;
using testing::HasSubstr;
using Texts = std::vector<std::string>;
namespace files = std::filesystem;

/// Two accounts of two years, in files.
struct TwoYears {
    TwoYears() {
        books.now().addAccounts({"1001"});
        books.now().addCredit("2001");
        books.mirror();
        books.close("1001", 5, 0, 0);
        books.close("2001", 5, 0, 0);
    }

    CarryBooks books{EngineCase{"sqliteFile"}};
};

/// Carries forward as somebody else: the text that is told, "done" where nothing is.
std::string carryElsewhere(const std::string& location, const BooksRegistry& registry) {
    OpeningTestBooks books(location, OpeningLayout::simple, false);
    std::vector<Notice> untold;
    const Outcome outcome = carryForward(registry, untold).outcome;
    return outcome == Outcome::done ? "done" : untold.empty() ? "untold" : untold.back().text;
}

TEST(CarryTrouble, NoneComesOfLastYearsBooksOnAMediumThatTakesNoWrites) {
    TwoYears years;
    const files::path last = years.books.lastLocation();
    const files::path now = years.books.location();
    const files::path list = years.books.registry().path();
    for (const files::path& each : {last, now, list}) {
        files::permissions(each.parent_path().parent_path(), files::perms(0755));
        files::permissions(each.parent_path(), files::perms(0777));
        for (const auto& file : files::directory_iterator(each.parent_path()))
            files::permissions(file.path(), files::perms(0666));
    }
    files::permissions(last, files::perms(0444));
    files::permissions(last.parent_path(), files::perms(0555));
    const Texts before = years.books.lastRows();
    EXPECT_EQ(asOrdinaryUser([&] {
                  return carryElsewhere(now.string(), years.books.registry()) == "done" ? 0 : 1;
              }),
              0);
    EXPECT_EQ(years.books.now().openings("1001"), allPeriods("5"));
    EXPECT_EQ(files::status(last).permissions(), files::perms(0444));
    EXPECT_EQ(files::status(last.parent_path()).permissions(), files::perms(0555));
    files::permissions(last.parent_path(), files::perms(0755));
    EXPECT_EQ(years.books.lastRows(), before);
}

TEST(CarryTrouble, OnADiskThatFillsUpLeavesTheBooksAsTheyWere) {
    FailingDisk disk;
    TwoYears years;
    ASSERT_EQ(years.books.now().work().refresh(), Outcome::done);
    int failures = 0;
    for (int room = 0;; ++room) {
        disk.fail(FailingDisk::Fault::full, room);
        std::vector<Notice> untold;
        const Outcome outcome = carryForward(years.books.registry(), untold).outcome;
        disk.repair();
        if (outcome == Outcome::done) break;
        ++failures;
        ASSERT_EQ(untold.size(), 1U) << room;
        EXPECT_THAT(untold[0].text, HasSubstr("磁盘")) << room;
        EXPECT_EQ(years.books.now().rows(), Texts{}) << room;
    }
    EXPECT_GT(failures, 0);
    EXPECT_EQ(years.books.now().rows().size(), 24U);
    EXPECT_EQ(years.books.now().books().faults(), Texts{});
    years.books.last("UPDATE AccSum SET mDebet = 1");
    failures = 0;
    for (int room = 0;; ++room) {
        RepeatPlan plan;
        std::vector<Notice> untold;
        ASSERT_EQ(lookAtRepeat(years.books.registry(), plan, untold), Outcome::done);
        disk.fail(FailingDisk::Fault::full, room);
        years.books.messages().forget();
        const Outcome outcome = repeatCarry(plan, years.books.messages());
        disk.repair();
        if (outcome == Outcome::done) break;
        ++failures;
        EXPECT_THAT(years.books.messages().onlyNotice().text, HasSubstr("磁盘")) << room;
        EXPECT_EQ(years.books.now().openings("1001"), allPeriods("5")) << room;
    }
    EXPECT_GT(failures, 0);
    EXPECT_EQ(years.books.now().openings("1001"), allPeriods("6"));
}

TEST(CarryTrouble, GivenUpWheneverItTellsOfItsWorkChangesNothing) {
    TwoYears years;
    ASSERT_EQ(years.books.now().work().refresh(), Outcome::done);
    for (int number = 1;; ++number) {
        int calls = 0;
        std::vector<Notice> untold;
        const auto progress = [&](std::size_t done, std::size_t total) {
            EXPECT_LE(done, total);
            return ++calls < number;
        };
        const Outcome outcome = carryForward(years.books.registry(), untold, progress).outcome;
        if (outcome == Outcome::done) {
            EXPECT_GT(number, 3) << "while both years are read and the rows are written";
            break;
        }
        EXPECT_EQ(outcome, Outcome::refused);
        EXPECT_EQ(calls, number);
        ASSERT_EQ(untold.size(), 1U);
        EXPECT_EQ(untold[0].text, "已取消,没有改动。");
        EXPECT_EQ(years.books.now().rows(), Texts{});
        EXPECT_EQ(years.books.now().database().selectedName(), "books");
    }
    EXPECT_EQ(years.books.now().rows().size(), 24U);
}

}  // namespace
}  // namespace carry_troubles
