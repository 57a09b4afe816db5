#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "data/connection/database.h"
#include "tests/support/engine_cases.h"

namespace chengheng {

/// Books whose changes are logged.
class LoggedBooks {
  public:
    explicit LoggedBooks(const std::string& location);

    const std::string& location() const { return m_location; }
    Database& database() { return *m_database; }
    Engine& engine() { return m_database->engine(); }
    /// Who is at work from here on.
    void actAs(const std::string& operatorName, int id = 7);
    /// Changes rows as one unit of work; throws when that fails.
    void change(std::string_view batch, const std::string& words = "", int function = 0);
    /// Changes rows behind the log's back, those of the log itself, too; throws when that fails.
    void tamper(std::string_view script);

  private:
    std::string m_location;
    std::unique_ptr<Database> m_database;
};

/// The same for tests on each kind of database.
class LoggedBooksTest : public testing::TestWithParam<EngineCase> {
  protected:
    LoggedBooks m_books{freshLocation(GetParam())};
};

}  // namespace chengheng
