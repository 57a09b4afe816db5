#include "operationlog/screen/log_screen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "operationlog/listing/log_list.h"
#include "report/output/list_printing.h"
#include "tests/support/engine_cases.h"
#include "tests/support/logged_operator_books.h"
#include "tests/support/made_layout.h"

namespace chengheng::log_screen_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::unique_ptr<FaultyEngine> madeEngine(const EngineCase& engineCase) {
    auto engine = std::make_unique<FaultyEngine>(openForTest(freshLocation(engineCase)));
    makeLayout(*engine);
    return engine;
}

class LogScreens : public testing::TestWithParam<EngineCase> {
  protected:
    std::vector<std::int64_t> numbers() const {
        std::vector<std::int64_t> found;
        for (const LogEntry& entry : m_screen.entries()) found.push_back(entry.number);
        return found;
    }
    bool search(const LogFilter& filter) {
        const bool isFound = m_screen.look(filter);
        if (isFound) m_screen.showFound();
        return isFound;
    }
    bool open() {
        const bool isOpen = m_screen.open();
        if (isOpen) m_screen.showFound();
        return isOpen;
    }
    std::vector<std::string> changes() const {
        std::vector<std::string> lines;
        for (const LogChange& change : m_screen.changes())
            lines.push_back(change.table + ' ' + change.row + ' ' + change.column + ' ' +
                            change.before + '>' + change.after);
        return lines;
    }
    RecordingMessages& messages() { return m_books.books.messages; }

    LoggedOperatorBooks m_books{madeEngine(GetParam())};
    LogScreen m_screen{m_books.books.messages};
};

TEST_P(LogScreens, ShowTheNewestAndWhomTheyTellOf) {
    m_books.change("INSERT Settle VALUES( 1, '1', '支票', 0 )", "增加结算方式 1", 57);
    m_books.actAs("李明", 2);
    m_books.change("Update Settle Set sSettle = '现金'");
    ASSERT_TRUE(open());
    EXPECT_THAT(numbers(), ElementsAre(2, 1));
    EXPECT_THAT(m_screen.operators(), ElementsAre("张三", "李明"));
    EXPECT_THAT(m_screen.functions(), ElementsAre(0, 57));
    EXPECT_EQ(m_screen.countText(), "共 2 条");
    EXPECT_FALSE(m_screen.hasMore());
}

TEST_P(LogScreens, SayThatNothingFits) {
    ASSERT_TRUE(open());
    EXPECT_EQ(m_screen.countText(), "没有符合条件的操作日志");
    m_screen.select(0);
    EXPECT_EQ(m_screen.heading(), "");
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_P(LogScreens, ReadMoreWhenItIsScrolledTo) {
    m_books.flood(205);
    ASSERT_TRUE(open());
    EXPECT_THAT(m_screen.entries(), SizeIs(200));
    EXPECT_EQ(m_screen.countText(), "已读入 200 条,往下滚动继续读入");
    ASSERT_TRUE(m_screen.hasMore());
    m_screen.add(m_screen.readMore());
    EXPECT_THAT(m_screen.entries(), SizeIs(205));
    EXPECT_EQ(numbers().back(), 1);
    EXPECT_FALSE(m_screen.hasMore());
    EXPECT_THAT(m_screen.readMore(), IsEmpty());
}

TEST_P(LogScreens, ShowWhatTheSelectedEntryDid) {
    m_books.change("INSERT Settle VALUES( 1, '1', '支票', 0 )", "增加结算方式 1", 57);
    m_books.change("Update Settle Set sSettle = '现金', bNote = 1");
    m_books.change("DELETE Settle");
    ASSERT_TRUE(open());
    m_screen.select(1);
    EXPECT_THAT(changes(), ElementsAre("结算方式  方式名 支票>现金", "结算方式  支票登记簿 否>是"));
    EXPECT_THAT(m_screen.heading(), HasSubstr("第 2 条  "));
    EXPECT_THAT(m_screen.heading(),
                HasSubstr("  张三(编号 1)  财务1(进程 4711)  chengheng 1.0\nSettle 1"));
    m_screen.select(2);
    EXPECT_THAT(changes(),
                ElementsAre("结算方式 1 支票 编号 >1", "结算方式 1 支票 方式号 >1",
                            "结算方式 1 支票 方式名 >支票", "结算方式 1 支票 支票登记簿 >否"));
    m_screen.select(0);
    EXPECT_EQ(changes()[2], "结算方式 1 现金 方式名 现金>");
    m_screen.select(7);
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_P(LogScreens, ReadTheRowsOfALargeEntryPartByPart) {
    m_books.change("INSERT Settle VALUES( 1, '1', '支票', 0 );INSERT Dept VALUES( 1, '01', '部' )");
    ASSERT_TRUE(open());
    m_screen.select(0);
    EXPECT_THAT(m_screen.changes(), SizeIs(3)) << "of one table";
    ASSERT_TRUE(m_screen.hasMoreChanges());
    m_screen.add(m_screen.readMoreChanges());
    EXPECT_THAT(m_screen.changes(), SizeIs(7));
    EXPECT_THAT(m_screen.readMoreChanges(), IsEmpty());
    EXPECT_FALSE(m_screen.hasMoreChanges());
}

TEST_P(LogScreens, LookForWhatWasTyped) {
    m_books.change("INSERT Settle VALUES( 1, '1', '支票', 0 )", "增加结算方式 1", 57);
    m_books.actAs("李明", 2);
    m_books.change("DELETE Settle", "删除结算方式 1", 57);
    ASSERT_TRUE(open());
    ASSERT_TRUE(search({.operatorName = "李明", .from = " 2020/1/1 ", .text = "删除"}));
    EXPECT_THAT(numbers(), ElementsAre(2));
    EXPECT_EQ(m_screen.filter().from, "2020-01-01");
    ASSERT_TRUE(search({.to = "2020-01-01", .account = " 1001 "}));
    EXPECT_THAT(numbers(), IsEmpty());
    EXPECT_EQ(m_screen.filter().account, "1001");
    ASSERT_TRUE(search({.from = "  "}));
    EXPECT_THAT(numbers(), ElementsAre(2, 1));
}

TEST_P(LogScreens, TellWhatIsNoTimeAndStay) {
    m_books.change("INSERT Settle VALUES( 1, '1', '支票', 0 )");
    ASSERT_TRUE(open());
    EXPECT_FALSE(search({.from = "昨天"}));
    EXPECT_EQ(messages().onlyNotice().focusField, "from");
    EXPECT_EQ(messages().onlyNotice().text,
              "“昨天”不是日期。请输入如 2026-11-23 的日期,后面可以加时间,如 2026-11-23 18:04。");
    EXPECT_FALSE(search({.to = "2026-02-30"}));
    EXPECT_EQ(messages().notices().back().focusField, "to");
    EXPECT_THAT(numbers(), ElementsAre(1));
}

TEST_P(LogScreens, CutWhatIsLong) {
    m_books.change("INSERT Settle VALUES( 1, '1', '" + std::string(500, 'x') + "', 0 )",
                   std::string(500, 'y'));
    ASSERT_TRUE(open());
    m_screen.select(0);
    EXPECT_EQ(m_screen.changes()[2].after, std::string(400, 'x') + "…");
    EXPECT_THAT(m_screen.heading(), testing::EndsWith("\n" + std::string(400, 'y') + "…"));
}

TEST_P(LogScreens, TellThatMoreCannotBeRead) {
    m_books.flood(205);
    ASSERT_TRUE(open());
    m_books.faulty->failCall(2, Failure::lost);
    EXPECT_THAT(m_screen.readMore(), IsEmpty());
    EXPECT_FALSE(m_screen.hasMore()) << "not asked again and again";
    EXPECT_THAT(messages().texts(), IsEmpty());
    m_screen.tellFailure();
    EXPECT_THAT(messages().texts(), SizeIs(1));
    m_screen.tellFailure();
    EXPECT_THAT(messages().texts(), SizeIs(1)) << "once";
    m_books.faulty->failCall(0);
    ASSERT_TRUE(search({}));
    EXPECT_TRUE(m_screen.hasMore());
}

TEST_P(LogScreens, FailWhereNothingCanBeRead) {
    m_books.change("INSERT Settle VALUES( 1, '1', '支票', 0 )");
    for (int call = 2; call < 6; ++call) {
        messages().forget();
        m_books.faulty->failCall(call);
        const bool isOpen = m_screen.open();
        m_books.faulty->failCall(0);
        EXPECT_EQ(messages().texts().size(), isOpen ? 0u : 1u) << call;
        EXPECT_FALSE(isOpen && call < 4) << call;
    }
}

TEST_P(LogScreens, PrintWhatTheFilterLetsThrough) {
    m_books.change("INSERT Settle VALUES( 1, '1', '支票', 0 )", "增加结算方式 1", 57);
    m_books.actAs("李明", 2);
    m_books.change("DELETE Settle", "删除结算方式 1", 57);
    Report report;
    ASSERT_FALSE(makeListReport(logList({.operatorName = "李明"}), report));
    EXPECT_EQ(report.title, "操作日志");
    ASSERT_EQ(report.rowCount(), 1u);
    EXPECT_EQ(report.cell(0, 0), "2");
    EXPECT_EQ(report.cell(0, 2), "李明");
    EXPECT_EQ(report.cell(0, 5), "删除结算方式 1");
    ASSERT_THAT(report.lines, testing::Not(IsEmpty()));
    EXPECT_EQ(report.lines[0].left, "操作员:李明");
}

CHENGHENG_ON_ALL_ENGINES(LogScreens);

}  // namespace
}  // namespace chengheng::log_screen_test
