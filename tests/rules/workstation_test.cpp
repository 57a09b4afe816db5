#include "base/system/workstation.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/killed_process.h"

namespace chengheng {
namespace {

TEST(Workstation, KnowsItsOwnProgramFromOthersAndFromEndedOnes) {
    EXPECT_TRUE(isOwnProgramAlive(ownProcess()));
    EXPECT_FALSE(isOwnProgramAlive(endedProcess()));
    EXPECT_FALSE(isOwnProgramAlive(1));
    EXPECT_FALSE(isOwnProgramAlive(0));
}

TEST(Workstation, FindsTheHomeOfTheBooks) {
    setenv("CHENGHENG_HOME", "/own/place", 1);
    EXPECT_EQ(booksHome(), "/own/place");
    unsetenv("CHENGHENG_HOME");
    setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(booksHome(), "/data/chengheng");
    setenv("XDG_DATA_HOME", "relative", 1);
    setenv("HOME", "/users/li", 1);
    EXPECT_EQ(booksHome(), "/users/li/.local/share/chengheng");
    unsetenv("XDG_DATA_HOME");
}

}  // namespace
}  // namespace chengheng
