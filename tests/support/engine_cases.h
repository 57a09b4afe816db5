#pragma once

#include <gtest/gtest.h>

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "data/engines/open_engine.h"

namespace chengheng {

/// A kind of database that a test runs on.
struct EngineCase {
    std::string name;  ///< "sqliteMemory", "sqliteFile" or "postgres"
};

void PrintTo(const EngineCase& engineCase, std::ostream* stream);

/// Every kind that is to be had here. PostgreSQL is one of them when the environment names
/// a private server; when it does not, one skipped test says so.
std::vector<EngineCase> allEngineCases();

/// The kinds whose databases several connections can meet in.
std::vector<EngineCase> sharedEngineCases();

/// A place where no database is yet, another one with each call; gone when the program ends.
std::string freshLocation(const EngineCase& engineCase);

/// A folder of its own for files, another one with each call; gone when the program ends.
std::string freshFolder();

/// Opens a database that must open; throws when it does not.
std::unique_ptr<Engine> openForTest(const std::string& location, OpenMode mode = OpenMode::create);

/// Names a parametrised test after its case.
std::string engineCaseName(const testing::TestParamInfo<EngineCase>& info);

/// Instantiates a parametrised suite for every kind of database, or for the shared ones.
#define CHENGHENG_ON_ALL_ENGINES(suite)                                                 \
    INSTANTIATE_TEST_SUITE_P(On, suite, testing::ValuesIn(chengheng::allEngineCases()), \
                             chengheng::engineCaseName)
#define CHENGHENG_ON_SHARED_ENGINES(suite)                                                 \
    INSTANTIATE_TEST_SUITE_P(On, suite, testing::ValuesIn(chengheng::sharedEngineCases()), \
                             chengheng::engineCaseName)

}  // namespace chengheng
