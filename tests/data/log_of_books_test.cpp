#include <gmock/gmock.h>

#include "base/system/program_version.h"
#include "base/system/workstation.h"
#include "books/copying/books_transfer.h"
#include "session/failure_texts.h"
#include "tests/data/session_case.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/killed_process.h"
#include "tests/support/made_books.h"

namespace chengheng {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The log of books, from their making to their copies.
class LogOfBooks : public testing::TestWithParam<EngineCase> {
  protected:
    static std::vector<std::vector<std::string>> read(const std::string& location,
                                                      const std::string& columns) {
        const auto engine = openForTest(location, OpenMode::existing);
        return readSql(*engine, "SELECT " + columns + " FROM OperationLog ORDER BY lId");
    }
    /// "王芳 登录"
    std::vector<std::string> entries(const std::string& location) {
        std::vector<std::string> found;
        for (const auto& row : read(location, "sUser, sWords"))
            found.push_back(row[0] + " " + row[1]);
        return found;
    }
    std::vector<std::string> entries() { return entries(m_location); }

    std::string m_location = makeBooks(freshLocation(GetParam()));
    std::string m_system = systemUserName() + " ";
    std::string m_made = m_system + "建立帐套“示例帐套”";
};

TEST_P(LogOfBooks, BeginsWithTheirMaking) {
    EXPECT_THAT(entries(), ElementsAre(m_made));
    const auto rows = read(m_location, "lUserId, sStation, lProcess, sProgram, lFunction");
    EXPECT_THAT(rows.front(), ElementsAre("0", stationName(), std::to_string(processNumber()),
                                          programName() + " " + programVersion(), "0"));
}

TEST_P(LogOfBooks, TellsWhoLoggedOnAndOff) {
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    EXPECT_THAT(entries(), ElementsAre(m_made, "王芳 登录"));
    shell.session.logOff();
    EXPECT_THAT(entries(), ElementsAre(m_made, "王芳 登录", "王芳 退出"));
    EXPECT_THAT(read(m_location, "lUserId").back(), ElementsAre("1"));
}

TEST_P(LogOfBooks, TellsWhatIsChangedInTheNameOfWhoeverLoggedOn) {
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    ASSERT_EQ(shell.database.QRYExecuteSQL("INSERT Settle VALUES( 77, '77', '现金', 0 )"), 1);
    EXPECT_THAT(entries(), ElementsAre(m_made, "王芳 登录", "王芳 Settle 1"));
}

TEST_P(LogOfBooks, TellsOfRefusedLogOnsAndOfWhomTheyBore) {
    Shell shell;
    LogonRequest request = requestFor(m_location);
    request.operatorName = "外人";
    EXPECT_NE(shell.refusalOf(request), "");
    request = requestFor(m_location);
    request.password = "falsch";
    EXPECT_NE(shell.refusalOf(request), "");
    const std::string refused = " 登录被拒绝:操作员姓名或口令不正确";
    EXPECT_THAT(entries(), ElementsAre(m_made, "外人" + refused, "王芳" + refused));
    EXPECT_EQ(read(m_location, "lUserId"),
              (std::vector<std::vector<std::string>>{{"0"}, {"0"}, {"1"}}));
    for (const auto& row : read(m_location, "sWords"))
        EXPECT_EQ(row[0].find("falsch"), row[0].npos);
}

TEST_P(LogOfBooks, SaysNothingOfTriesThatWereNotLookedAt) {
    Shell shell;
    LogonRequest request = requestFor(m_location);
    request.password = "falsch";
    EXPECT_NE(shell.refusalOf(request), "");
    const auto before = entries();
    EXPECT_THAT(shell.refusalOf(request), HasSubstr("秒"));
    EXPECT_EQ(entries(), before);
}

TEST_P(LogOfBooks, TellsOfASessionThatNeverLoggedOff) {
    {
        const auto engine = openForTest(m_location, OpenMode::existing);
        ASSERT_TRUE(engine->script("INSERT INTO LoginInfoTbl VALUES (1, 1, '李明', '" +
                                   stationName() + "', " + std::to_string(endedProcess()) +
                                   ", '2026-01-01', 2)"));
    }
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    EXPECT_EQ(entries().back(), "王芳 登录;此前从本工作站登录而没有正常退出的有:李明");
}

TEST_P(LogOfBooks, ThatSomebodyChangedIsToldOnceToEachSupervisorAndKeepsNobodyOut) {
    {
        Shell shell;
        ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
        EXPECT_EQ(shell.session.warning(), "");
        ASSERT_EQ(shell.database.QRYExecuteSQL("UPDATE OperationLogHead SET lLastId = 1"), 1);
    }
    const std::string told =
        "操作日志被人在程序之外改动过。\n"
        "请用 chbooks log verify 核对是哪一条,并与封存的记录和备份比较。";
    for (const std::string& expected : {told, std::string()}) {
        Shell shell;
        ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
        EXPECT_EQ(shell.session.warning(), expected);
    }
    const auto engine = openForTest(m_location, OpenMode::existing);
    ASSERT_TRUE(engine->script("UPDATE OperationLogHead SET lLastId = 1000"));
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    EXPECT_EQ(shell.session.warning(), told);
}

TEST_P(LogOfBooks, GoesIntoABackupAndOnInTheBooks) {
    const std::string file = freshFolder() + "/b.db";
    ASSERT_FALSE(backUpBooks(m_location, file, Overwrite::refuse));
    EXPECT_THAT(entries(file), ElementsAre(m_made));
    EXPECT_THAT(entries(), ElementsAre(m_made, m_system + "备份到“" + file + "”"));
}

TEST_P(LogOfBooks, GoesIntoACopyAndOnInBoth) {
    const std::string copy = freshLocation(GetParam());
    ASSERT_FALSE(copyBooks(m_location, copy, Overwrite::refuse));
    const std::string from = shownLocation(m_location);
    EXPECT_THAT(entries(copy), ElementsAre(m_made, m_system + "由“" + from + "”复制而来"));
    EXPECT_THAT(entries(), ElementsAre(m_made, m_system + "复制到“" + shownLocation(copy) + "”"));
}

TEST_P(LogOfBooks, OfARestoreKeepsTheEndOfTheOneItReplaced) {
    const std::string file = freshFolder() + "/b.db";
    ASSERT_FALSE(backUpBooks(m_location, file, Overwrite::refuse));
    const auto end = read(m_location, "lId, sHash").back();
    ASSERT_FALSE(restoreBooks(file, m_location, Overwrite::replaceBooks));
    EXPECT_THAT(
        entries(),
        ElementsAre(m_made, m_system + "从备份“" + file +
                                "”恢复;被替换的帐套的操作日志止于第 2 条,散列值 " + end[1]));
}

TEST_P(LogOfBooks, ThatCannotTellOfABackupLeavesItStandingAndSaysSo) {
    const std::string file = freshFolder() + "/b.db";
    const auto other = openForTest(m_location, OpenMode::existing);
    ASSERT_TRUE(other->script("INSERT INTO OperationLog (lId) VALUES (2147483647)"));
    ASSERT_TRUE(other->script("INSERT INTO OperationLog (lId) VALUES (2)"));
    TransferRemarks remarks;
    ASSERT_FALSE(backUpBooks(m_location, file, Overwrite::refuse, &remarks));
    EXPECT_THAT(remarks.notLogged, HasSubstr("“" + file + "”已经写好,但没能记入“" +
                                             shownLocation(m_location) + "”的操作日志。\n"));
    EXPECT_THAT(entries(file), testing::SizeIs(3));
}

CHENGHENG_ON_SHARED_ENGINES(LogOfBooks);

}  // namespace
}  // namespace chengheng
