#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <fstream>

#include "tests/support/engine_cases.h"
#include "tests/support/run_tool.h"
#include "tests/support/small_books.h"

namespace {

using namespace chengheng;

using nlohmann::json;
using testing::HasSubstr;

constexpr const char* receiptFile = "科目编码,借方,贷方\n1001,5,\n2202,,5\n";
constexpr const char* paymentFile = "科目编码,借方,贷方\n2202,5,\n1001,,5\n";

/// Small books whose types are 收, which requires 1001 or 1002 on the debit side, and 记, which
/// requires nothing.
class TestVoucherCommand : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        const auto engine = openForTest(m_books);
        fillSmallBooks(*engine);
        runScript(*engine, "INSERT INTO Sign (lId, sSign, sSignName) VALUES (2, '记', '记帐凭证')");
    }
    ToolRun run(const std::string& content, std::vector<std::string> options = {}) {
        const std::string file = m_folder + "/voucher.csv";
        std::ofstream(file) << content;
        std::vector<std::string> arguments{"test-voucher", m_books, file};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runInProcess(arguments);
    }

    std::string m_books = freshLocation(GetParam());
    std::string m_folder = freshFolder();
};

TEST_P(TestVoucherCommand, SaysOfEveryTypeWhetherTheVoucherMayBeOfIt) {
    const ToolRun allowed = run(receiptFile);
    EXPECT_EQ(allowed.code, toolDone);
    EXPECT_EQ(allowed.out,
              "可以   收 收款凭证  借方必有 1001 库存现金 或 1002 银行存款\n"
              "可以   记 记帐凭证  不限制\n");
    EXPECT_EQ(allowed.err, "");
    const ToolRun refused = run(paymentFile);
    EXPECT_EQ(refused.code, toolDone) << "记 takes it";
    EXPECT_EQ(refused.out,
              "不可以 收 收款凭证  借方必有 1001 库存现金 或 1002 银行存款:借方只有第 2 行 2202 "
              "应付账款\n"
              "可以   记 记帐凭证  不限制\n");
}

TEST_P(TestVoucherCommand, TriesTheOneTypeThatIsAskedFor) {
    EXPECT_EQ(run(receiptFile, {"--type", "收"}).code, toolDone);
    const ToolRun refused = run(paymentFile, {"--type", "收"});
    EXPECT_EQ(refused.code, toolFaultsFound);
    EXPECT_THAT(refused.out, HasSubstr("不可以 收"));
    EXPECT_THAT(refused.out, testing::Not(HasSubstr("记帐凭证")));
    const ToolRun unknown = run(receiptFile, {"--type", "付"});
    EXPECT_EQ(unknown.code, toolWrongInput);
    EXPECT_EQ(unknown.err, "没有凭证类别“付”。\n");
    EXPECT_EQ(unknown.out, "");
}

TEST_P(TestVoucherCommand, FailsAVoucherThatNoTypeTakes) {
    runScript(*openForTest(m_books, OpenMode::existing), "DELETE FROM Sign WHERE lId = 2");
    EXPECT_EQ(run(paymentFile).code, toolFaultsFound);
}

TEST_P(TestVoucherCommand, TellsWhatIsWrongWithTheLines) {
    const ToolRun told = run("1001,5,\n9999,,x\n");
    EXPECT_EQ(told.code, toolWrongInput);
    EXPECT_EQ(told.out, "第 2 行:没有科目“9999”\n第 2 行:“x”不是金额\n");
    EXPECT_EQ(run("科目编码,借方,贷方\n").code, toolWrongInput);
    EXPECT_EQ(run("科目编码,借方,贷方\n").out, "提示:没有分录\n");
    runScript(*openForTest(m_books, OpenMode::existing), "DELETE FROM Sign");
    EXPECT_EQ(run(receiptFile).out, "提示:还没有凭证类别\n");
    EXPECT_EQ(run(receiptFile).code, toolWrongInput);
}

TEST_P(TestVoucherCommand, TellsThatAVoucherDoesNotBalanceAndTriesItAllTheSame) {
    const ToolRun told = run("1001,借,6\n2202,贷,5\n", {"--type", "收"});
    EXPECT_EQ(told.code, toolDone);
    EXPECT_THAT(told.out, HasSubstr("提示:借方合计 6.00,贷方合计 5.00,不平\n"));
}

TEST_P(TestVoucherCommand, WritesJson) {
    const ToolRun run = this->run(paymentFile, {"--json"});
    const json told = json::parse(run.out);
    EXPECT_EQ(told["faults"], json::array());
    EXPECT_EQ(told["notes"], json::array());
    ASSERT_EQ(told["types"].size(), 2u);
    EXPECT_EQ(told["types"][0]["number"], "收");
    EXPECT_EQ(told["types"][0]["name"], "收款凭证");
    EXPECT_EQ(told["types"][0]["allowed"], false);
    EXPECT_THAT(told["types"][0]["reason"].get<std::string>(), HasSubstr("借方只有第 2 行"));
    EXPECT_EQ(told["types"][0]["lines"], json::array());
    EXPECT_EQ(told["types"][1]["allowed"], true);
    EXPECT_EQ(told["types"][1]["reason"], "");
    runScript(*openForTest(m_books, OpenMode::existing),
              "UPDATE Sign SET byLimit = 3 WHERE lId = 1");
    EXPECT_EQ(json::parse(this->run(paymentFile, {"--json"}).out)["types"][0]["lines"],
              json::array({3}));
    EXPECT_EQ(json::parse(this->run("9999,1,\n", {"--json"}).out)["faults"],
              json::array({"第 1 行:没有科目“9999”"}));
}

TEST_P(TestVoucherCommand, FailsWhereAFileOrTheBooksCannotBeRead) {
    EXPECT_EQ(runInProcess({"test-voucher", m_books, m_folder + "/none.csv"}).code, toolFailed);
    EXPECT_EQ(runInProcess({"test-voucher", m_folder + "/none.db", m_folder}).code, toolFailed);
    EXPECT_EQ(runInProcess({"test-voucher", m_books}).code, toolWrongUsage);
    const ToolRun twice = run("科目编码,借方,借方,贷方\n1001,5,,\n");
    EXPECT_EQ(twice.code, toolFailed);
    EXPECT_THAT(twice.err, HasSubstr("借方"));
    EXPECT_EQ(twice.out, "");
}

CHENGHENG_ON_SHARED_ENGINES(TestVoucherCommand);

}  // namespace
