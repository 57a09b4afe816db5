#include "tests/support/engine_cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace chengheng {
namespace {

bool isAmong(const std::vector<EngineCase>& cases, const std::string& name) {
    return std::ranges::find(cases, name, &EngineCase::name) != cases.end();
}

TEST(EngineCases, RunOnPostgresWhenTheEnvironmentNamesAServer) {
    if (std::getenv("CHENGHENG_TEST_POSTGRES") == nullptr)
        GTEST_SKIP() << "CHENGHENG_TEST_POSTGRES names no server: nothing here ran on PostgreSQL";
    EXPECT_TRUE(isAmong(allEngineCases(), "postgres"));
    EXPECT_TRUE(isAmong(sharedEngineCases(), "postgres"));
}

TEST(EngineCases, AlwaysRunOnSqlite) {
    EXPECT_TRUE(isAmong(allEngineCases(), "sqliteMemory"));
    EXPECT_TRUE(isAmong(allEngineCases(), "sqliteFile"));
    EXPECT_FALSE(isAmong(sharedEngineCases(), "sqliteMemory"));
}

}  // namespace
}  // namespace chengheng
