#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/e2e/run_chbooks.h"
#include "tests/support/engine_cases.h"

namespace {

using chengheng::chbooks;
using chengheng::ProgramRun;
using namespace chengheng::chbooks_exit;

TEST(JsonOutput, OfTheTrialBalanceHoldsNumbers) {
    const std::string books = chengheng::freshFolder() + "/n.db";
    ASSERT_EQ(chbooks({"demo", books}).exitCode, done);
    const ProgramRun run = chbooks({"trial-balance", books, "--json"});
    EXPECT_EQ(run.exitCode, done);
    const auto balance = nlohmann::json::parse(run.out);
    EXPECT_EQ(balance["balanced"], true);
    EXPECT_EQ(balance["difference"], 0);
    EXPECT_EQ(balance["debitTotal"], 1515450.45);
    EXPECT_EQ(balance["creditTotal"], 1515450.45);
    double debits = 0;
    double credits = 0;
    for (const auto& each : balance["classes"]) {
        ASSERT_TRUE(each["sum"].is_number());
        EXPECT_FALSE(each["name"].get<std::string>().empty());
        (each["side"] == "debit" ? debits : credits) += each["sum"].get<double>();
    }
    EXPECT_NEAR(debits, 1515450.45, 1e-6);
    EXPECT_NEAR(credits, 1515450.45, 1e-6);
}

TEST(JsonOutput, OfWhatFailsIsJsonToo) {
    const std::string missing = chengheng::freshFolder() + "/none.db";
    for (const char* command : {"info", "check", "trial-balance"}) {
        const ProgramRun words = chbooks({command, missing});
        const ProgramRun run = chbooks({command, missing, "--json"});
        EXPECT_EQ(run.exitCode, failed);
        EXPECT_EQ(run.out, "");
        const auto told = nlohmann::json::parse(run.err);
        EXPECT_EQ(told["error"].get<std::string>() + "\n", words.err) << command;
        EXPECT_EQ(told["exitCode"], failed);
    }
}

TEST(JsonOutput, OfAWrongCommandLineIsJsonToo) {
    const ProgramRun run = chbooks({"info", "--json"});
    EXPECT_EQ(run.exitCode, wrongUsage);
    EXPECT_EQ(nlohmann::json::parse(run.err)["exitCode"], wrongUsage);
}

}  // namespace
