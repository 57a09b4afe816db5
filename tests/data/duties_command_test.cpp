#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/made_books.h"
#include "tests/support/operator_books.h"
#include "tests/support/run_tool.h"
#include "tests/support/small_books.h"

namespace {

using namespace chengheng;

using testing::HasSubstr;
using testing::Not;

class DutiesCommand : public testing::TestWithParam<EngineCase> {
  protected:
    DutiesCommand() {
        OperatorBooks books(m_location, false);
        books.insert("李明", {48, 49, 59});
        books.insert("赵燕", {58, 59});
    }

    std::string m_location = makeBooks(freshLocation(GetParam()));
};

TEST_P(DutiesCommand, TellsOfIncompatibleDutiesWithoutCallingThemFaults) {
    const ToolRun run = runInProcess({"check", m_location, "--duties"});
    EXPECT_EQ(run.code, toolDone);
    EXPECT_THAT(run.out, HasSubstr("[不相容职务] 操作员 李明:出纳不得兼任稽核(审核)\n"));
    EXPECT_THAT(run.out, HasSubstr("[不相容职务] 操作员 李明:制单人不得审核凭证\n"));
    EXPECT_THAT(run.out, Not(HasSubstr("赵燕")));
    EXPECT_THAT(run.out, Not(HasSubstr("王芳"))) << "the supervisor";
    const ToolRun json = runInProcess({"check", m_location, "--duties", "--json"});
    EXPECT_THAT(json.out, HasSubstr("\"sound\": true"));
    EXPECT_THAT(json.out, HasSubstr("操作员 李明:制单人不得审核凭证"));
}

TEST_P(DutiesCommand, SaysNothingOfThemUnlessItIsAsked) {
    EXPECT_THAT(runInProcess({"check", m_location}).out, Not(HasSubstr("不相容职务")));
}

TEST_P(DutiesCommand, FailsWhereOperatorsAndRightsAreNotOneToOne) {
    {
        const auto engine = openForTest(m_location, OpenMode::existing);
        runScript(*engine, "DELETE FROM UserAuth WHERE lUserId = 2");
    }
    const ToolRun run = runInProcess({"check", m_location, "--duties"});
    EXPECT_EQ(run.code, toolFailed);
    EXPECT_THAT(run.err, HasSubstr("系统安全出现故障!"));
}

CHENGHENG_ON_SHARED_ENGINES(DutiesCommand);

}  // namespace
