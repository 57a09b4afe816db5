#include "session/log_notes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "data/access/unit_of_work.h"
#include "data/connection/database.h"
#include "report/output/report_printer.h"
#include "session/CCheckAuth.h"
#include "session/host_messages.h"
#include "settle/settle_service.h"
#include "sheets/files/sheet_export.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/kept_log.h"
#include "tests/support/recording_printer.h"

namespace log_notes {
namespace {

using namespace chengheng;
using testing::ElementsAre;
using testing::IsEmpty;

/// Books of 张三, who is no supervisor any more and has no right, with a log.
class LogNotes : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.run("UPDATE Users SET bManager = 0 WHERE lUserId = 1");
        HostSession::setSupervisor(false);
        m_log.emplace(m_books.database());
    }
    Outcome addMethod() {
        _SettleInfo method{0, "1", "现金", 0};
        return SettleService(m_books.messages()).add(method, {});
    }
    std::string target(const char* name) { return m_folder + "/" + name; }
    Outcome exported(const std::string& path) {
        const Sheet sheet{.name = "会计科目", .rows = {{Cell::of("1001")}}};
        return exportSheet(m_books.messages(), sheet, path, Overwrite::refuse);
    }

    AccountBooks m_books{freshLocation(GetParam())};
    HostMessages m_installed{m_books.messages()};
    std::optional<KeptLog> m_log;
    std::string m_folder = freshFolder();
};

TEST_P(LogNotes, TellOfAChangeThatWasRefusedForWantOfARight) {
    EXPECT_EQ(addMethod(), Outcome::refused);
    EXPECT_THAT(m_log->news(), ElementsAre("57 拒绝:你没有[结算方式设置]权限!"));
    EXPECT_TRUE(writeRefusal(WriteRight::supervisor).has_value());
    EXPECT_THAT(m_log->news(), ElementsAre("0 拒绝:你没有[主管]权限!"));
}

TEST_P(LogNotes, TellOfAFunctionThatWasNotOpened) {
    EXPECT_FALSE(CCheckAuth(41, 1, nullptr));
    EXPECT_THAT(m_log->news(), ElementsAre("41 拒绝:你没有[会计科目设置]权限!"));
    m_books.run("UPDATE Users SET bManager = 1 WHERE lUserId = 1");
    m_log->news();
    EXPECT_TRUE(CCheckAuth(41, 1, nullptr));
    EXPECT_THAT(m_log->news(), IsEmpty());
}

TEST_P(LogNotes, TellNothingOfRightsThatCouldNotBeRead) {
    m_books.engine().failCall(1, Failure::lost);
    EXPECT_TRUE(writeRefusal(WriteRight::settlement).has_value());
    m_books.engine().failCall(0);
    ASSERT_TRUE(m_books.database().selectedDatabase()->ensureConnected());
    EXPECT_THAT(m_log->news(), IsEmpty());
}

TEST_P(LogNotes, TellWhatWasExportedAndWhereTo) {
    EXPECT_EQ(exported(target("a.csv")), Outcome::done);
    EXPECT_THAT(m_log->news(), ElementsAre("0 导出 会计科目 到“" + target("a.csv") + "”"));
    EXPECT_EQ(exported(target("a.csv")), Outcome::failed) << "it is there already";
    EXPECT_THAT(m_log->news(), IsEmpty());
}

TEST_P(LogNotes, TellWhatWasPrintedAndPreviewed) {
    RecordingPrinter printer;
    Report report;
    report.title = "结算方式一览表";
    printer.put(report, ReportOutput::print);
    printer.put(report, ReportOutput::preview);
    EXPECT_THAT(m_log->news(), ElementsAre("0 打印 结算方式一览表", "0 预览 结算方式一览表"));
}

TEST_P(LogNotes, ThatCannotBeWrittenAreNoFailureOfWhatTheyTellOf) {
    m_books.engine().failCall(1, Failure::full);
    EXPECT_EQ(exported(target("a.csv")), Outcome::done);
    m_books.engine().failCall(0);
    EXPECT_TRUE(std::filesystem::exists(target("a.csv")));
    EXPECT_TRUE(m_books.messages().texts().empty());
    ASSERT_TRUE(m_books.database().selectedDatabase()->ensureConnected());
    EXPECT_FALSE(m_books.database().selectedDatabase()->isInUnit());
    EXPECT_THAT(m_log->news(), IsEmpty());
}

TEST_P(LogNotes, LeaveTheWordsOfAnOpenUnitAlone) {
    UnitOfWork unit(m_books.database(), {57, [] { return std::string("单元"); }});
    m_books.run("INSERT Settle VALUES( 9, '9', '支票', 0 )");
    noteInLog(1, [] { return std::string("便条"); });
    ASSERT_TRUE(unit.commit());
    EXPECT_THAT(m_log->news(), ElementsAre("57 单元"));
}

TEST_P(LogNotes, AreLongestWhereWordsAre) {
    noteInLog(1, [] { return std::string(3 * mostWords, 'x'); });
    EXPECT_THAT(m_log->news(), ElementsAre("1 " + std::string(mostWords, 'x') + "…"));
}

CHENGHENG_ON_SHARED_ENGINES(LogNotes);

}  // namespace
}  // namespace log_notes
