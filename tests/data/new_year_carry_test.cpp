#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <nlohmann/json.hpp>

#include "session/rights/passwords.h"
#include "tests/data/new_year_case.h"
#include "tests/support/environment.h"
#include "tests/support/operator_books.h"
#include "tests/support/run_tool.h"

namespace new_year_carry {
namespace {

using namespace chengheng;
using testing::EndsWith;
using testing::HasSubstr;
namespace files = std::filesystem;

constexpr const char* carriedText = "已结转 1 个科目,借方合计 7.00,贷方合计 0.00。";

/// Books of 2026 whose cash closes with 7.
struct ClosedYear : EndingYear {
    explicit ClosedYear(const EngineCase& kind) : EndingYear(kind) { close(books, 7); }

    static void close(const std::string& location, int cash) {
        runScript(*openForTest(location, OpenMode::existing),
                  "DELETE FROM AccSum; DELETE FROM AssAcc;"
                  "INSERT INTO AccSum SELECT 1, lId, 12, " +
                      std::to_string(cash) +
                      ", 0, 0, 0, 0, 0, 0, 0, 0 FROM Code WHERE sCode = '1001'");
    }
    ToolRun run(std::vector<std::string> more) const {
        std::vector<std::string> arguments{"new-year", books};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return runInProcess(arguments);
    }
    static std::string rowsOpeningWith(const std::string& location, int cash) {
        return readCell(*openForTest(location, OpenMode::readable),
                        "SELECT Count(*) FROM AccSum WHERE mBegin = " + std::to_string(cash));
    }

    EnvironmentSetting home{"CHENGHENG_HOME", registry.folder()};
};

class NewYearCarry : public testing::TestWithParam<EngineCase> {
  protected:
    ClosedYear m_year{GetParam()};
    std::string m_target = freshLocation(GetParam());
};

TEST_P(NewYearCarry, CarriesTheBalancesIntoTheBooksJustMade) {
    const ToolRun run = m_year.run({"--target", m_target, "--carry"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(run.out, HasSubstr("的2027年度已建立:"));
    EXPECT_THAT(run.out, EndsWith(std::string("\n") + carriedText + "\n"));
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(ClosedYear::rowsOpeningWith(m_target, 7), "12");
    EXPECT_EQ(runInProcess({"carry-forward", m_target, "--verify"}).code, toolDone);
    EXPECT_EQ(runInProcess({"check", m_target}).code, toolDone);
}

TEST_P(NewYearCarry, TellsProgramsOfBoth) {
    const ToolRun run = m_year.run({"--target", m_target, "--carry", "--json"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(run.err, "");
    const auto json = nlohmann::json::parse(run.out);
    EXPECT_EQ(json.at("made"), true);
    EXPECT_EQ(json.at("balances").at("carried"), true);
    EXPECT_EQ(json.at("balances").at("text"), carriedText);
}

TEST_P(NewYearCarry, KeepsTheNewYearAndSaysWhyNothingWasCarried) {
    runScript(*openForTest(m_year.books, OpenMode::existing), "DELETE FROM Code");
    const std::string reason = "没有结转上年余额,原因:上年和本年都没有可以结转的科目,没有改动。";
    ToolRun run = m_year.run({"--target", m_target, "--carry"});
    EXPECT_EQ(run.code, toolFaultsFound);
    EXPECT_THAT(run.out, HasSubstr("的2027年度已建立:"));
    EXPECT_EQ(run.err, reason + "\n");
    EXPECT_EQ(readCell(*openForTest(m_target, OpenMode::readable), "SELECT lYear FROM zAccountM"),
              "2027");
    run = m_year.run({"--unlisted", "--target", freshLocation(GetParam()), "--carry", "--json"});
    EXPECT_EQ(run.code, toolFaultsFound);
    const auto json = nlohmann::json::parse(run.out);
    EXPECT_EQ(json.at("made"), true);
    EXPECT_EQ(json.at("balances").at("carried"), false);
    EXPECT_EQ(json.at("balances").at("text"), reason);
    EXPECT_EQ(nlohmann::json::parse(run.err).at("error"), reason);
}

TEST_P(NewYearCarry, CarriesNothingWhereTheNewYearIsNotMade) {
    ASSERT_EQ(m_year.run({"--target", m_target}).code, toolDone);
    const ToolRun run = m_year.run({"--target", m_target, "--carry"});
    EXPECT_EQ(run.code, toolTargetExists);
    EXPECT_EQ(ClosedYear::rowsOpeningWith(m_target, 7), "0");
}

TEST_P(NewYearCarry, IsNothingThatADryRunShows) {
    EXPECT_EQ(m_year.run({"--target", m_target, "--carry", "--dry-run"}).code, toolWrongUsage);
}

TEST_P(NewYearCarry, IsRefusedToAnOperatorWithoutTheRightWhoMadeTheNewYear) {
    const std::string password = freshFolder() + "/password";
    std::ofstream(password) << "pw";
    files::permissions(password, files::perms::owner_read);
    const auto rights = [this](std::initializer_list<int> functions) {
        runScript(*openForTest(m_year.books, OpenMode::existing),
                  "DELETE FROM Users WHERE lId = 9; DELETE FROM UserAuth WHERE lId = 9;"
                  "INSERT INTO Users VALUES (9, 9, '李明', 0, '" +
                      hashPassword("pw", PasswordCost::least) +
                      "'); INSERT INTO UserAuth VALUES (9, 9, '" + rightsText(functions) + "')");
    };
    const auto run = [&](const std::string& target) {
        return m_year.run({"--unlisted", "--target", target, "--carry", "--operator", "李明",
                           "--password-file", password});
    };
    rights({35});
    const ToolRun refused = run(m_target);
    EXPECT_EQ(refused.code, toolFaultsFound) << refused.err;
    EXPECT_THAT(refused.err, HasSubstr("没有结转上年余额,原因:"));
    EXPECT_THAT(refused.err, HasSubstr("权限"));
    EXPECT_EQ(ClosedYear::rowsOpeningWith(m_target, 7), "0");
    rights({35, 45});
    const std::string other = freshLocation(GetParam());
    const ToolRun done = run(other);
    EXPECT_EQ(done.code, toolDone) << done.err;
    EXPECT_EQ(ClosedYear::rowsOpeningWith(other, 7), "12");
    EXPECT_EQ(
        readCell(*openForTest(other, OpenMode::readable), "SELECT Count(*) FROM LoginInfoTbl"),
        "0");
}

CHENGHENG_ON_SHARED_ENGINES(NewYearCarry);

TEST(NewYearCarryOfFiles, TakesTheBalancesOfTheBooksGivenThoughOthersLieBeside) {
    const ClosedYear year(EngineCase{"sqliteFile"});
    const files::path folder = freshFolder();
    for (const char* each : {"2026", "2027"}) files::create_directories(folder / each);
    const std::string other = folder / "2026" / "Nbzw.db";
    files::copy_file(year.books, other);
    ClosedYear::close(other, 9);
    const std::string target = folder / "2027" / "Nbzw.db";
    const ToolRun run = year.run({"--unlisted", "--target", target, "--carry"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(ClosedYear::rowsOpeningWith(target, 7), "12");
    EXPECT_EQ(ClosedYear::rowsOpeningWith(target, 9), "0");
}

}  // namespace
}  // namespace new_year_carry
