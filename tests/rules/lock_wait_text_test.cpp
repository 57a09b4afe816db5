#include "session/lock_wait_text.h"

#include <gtest/gtest.h>

#include <ctime>

namespace chengheng {
namespace {

using namespace std::chrono_literals;

LockHolder someHolder() {
    std::tm moment{};
    moment.tm_year = 126;
    moment.tm_mon = 4;
    moment.tm_mday = 31;
    moment.tm_hour = 9;
    moment.tm_min = 5;
    moment.tm_isdst = -1;
    return {"Code", "王芳", "会计科目", "前台二号",
            std::chrono::system_clock::from_time_t(std::mktime(&moment))};
}

TEST(LockWaitText, NamesHolderStationTimeAndFunction) {
    EXPECT_EQ(lockWaitText(someHolder()),
              "“会计科目”正被其他人使用,请稍候。\n\n操作员:王芳\n工作站:前台二号\n"
              "开始时间:2026-05-31 09:05:00\n正在使用的功能:会计科目");
}

TEST(LockWaitText, LeavesOutAFunctionThatWasNotTold) {
    LockHolder holder = someHolder();
    holder.function.clear();
    EXPECT_EQ(lockWaitText(holder).find("功能"), std::string::npos);
}

TEST(LockWaitText, KnowsALockInAnyCaseAndShowsAnUnknownOneAsItIs) {
    LockHolder holder = someHolder();
    holder.lockName = "ACCSUM";
    EXPECT_TRUE(lockWaitText(holder).starts_with("“科目余额”"));
    holder.lockName = "Elsewhere";
    EXPECT_TRUE(lockWaitText(holder).starts_with("“Elsewhere”"));
    holder.lockName = "ProjItems07";
    EXPECT_TRUE(lockWaitText(holder).starts_with("“项目”"));
}

TEST(LockWaitText, SaysWhenTheHolderIsNotKnown) {
    LockHolder holder = someHolder();
    holder.operatorName.clear();
    EXPECT_NE(lockWaitText(holder).find("操作员:(未知)"), std::string::npos);
}

TEST(LockWaitText, ReadsWellWhereNothingIsKnownOfTheHolder) {
    LockHolder holder;
    holder.lockName = "Code";
    EXPECT_EQ(lockWaitText(holder), "“会计科目”正被其他人使用,请稍候。\n暂时还不知道使用者是谁。");
}

TEST(LockWaitText, SpeaksOfTheBooksWhereTheFileItselfIsHeld) {
    EXPECT_EQ(lockWaitText({}), "帐套正被其他程序占用,请稍候。");
}

TEST(LockWaitText, CountsTheWaitInMinutesAndSeconds) {
    EXPECT_EQ(waitedText(900ms), "0 秒");
    EXPECT_EQ(waitedText(59999ms), "59 秒");
    EXPECT_EQ(waitedText(185s), "3 分 05 秒");
}

}  // namespace
}  // namespace chengheng
