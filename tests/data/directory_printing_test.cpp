#include <gtest/gtest.h>

#include "directories/directory_list.h"
#include "directories/directory_service.h"
#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"

namespace {

using namespace chengheng;

class DirectoryPrinting : public testing::TestWithParam<EngineCase> {
  protected:
    /// The title, the headings and a line for each record.
    std::vector<std::string> printed(DirectoryKind kind) {
        Report report;
        const auto refusal = makeListReport(directoryList(directoryOf(kind)), report);
        EXPECT_FALSE(refusal) << refusal->notice.text;
        std::vector<std::string> lines{report.title};
        std::string line;
        for (const ReportColumn& column : report.columns) line += column.heading + "|";
        lines.push_back(line);
        for (std::size_t at = 0; at < report.cells.size(); ++at) {
            if (at % report.columns.size() == 0) lines.emplace_back();
            lines.back() += report.cells[at].value_or("") + "|";
        }
        return lines;
    }

    EntryBooks m_books{freshLocation(GetParam())};
};

using Printed = std::vector<std::string>;

TEST_P(DirectoryPrinting, ListsEveryRecordWithItsGroupInBooksWithoutATemplateForIt) {
    m_books.books().run("UPDATE Enter SET byKind = 2 WHERE lId = 2");
    EXPECT_EQ(printed(DirectoryKind::department),
              (Printed{"部门一览表", "编码|名称|", "D1|销售部|", "D2|生产部|"}));
    EXPECT_EQ(printed(DirectoryKind::person),
              (Printed{"个人一览表", "编码|姓名|所属部门|", "P1|张三|销售部|", "P2|李四|生产部|"}));
    EXPECT_EQ(printed(DirectoryKind::unitClass),
              (Printed{"单位分类一览表", "编码|名称|", "1|客户|"}));
    EXPECT_EQ(printed(DirectoryKind::unit),
              (Printed{"单位一览表", "编码|名称|单位分类|性质|", "U1|甲公司|客户|客户兼供应商|",
                       "U2|乙公司|客户|供应商|"}));
    const Printed items = printed(DirectoryKind::projectItem);
    ASSERT_EQ(items.size(), 4u);
    EXPECT_EQ(items[1], "项目大类|编码|名称|");
    EXPECT_TRUE(items[3].ends_with("|I2|二期|"));
}

TEST_P(DirectoryPrinting, TakesTheTemplateOfTheBooksWhereThereIsOne) {
    m_books.books().run(
        "INSERT INTO ZWPrintMain (lId, sTitle, byPage, bPortrait) VALUES (37, '本公司部门', 9, "
        "1)\r\n"
        "INSERT INTO ZWPrintSub (lId, lTieId, sColName, sFiled, byWidth) "
        "VALUES (900, 37, '部门', 'sName', 30)");
    EXPECT_EQ(printed(DirectoryKind::department),
              (Printed{"本公司部门", "部门|", "销售部|", "生产部|"}));
}

TEST_P(DirectoryPrinting, SaysThatAListCannotBeRead) {
    Report report;
    // The second list is what people are grouped by.
    int refused = 0;
    for (int call = 1;; ++call) {
        m_books.books().engine().failCall(call, Failure::damaged);
        const auto refusal =
            makeListReport(directoryList(directoryOf(DirectoryKind::person)), report);
        const bool hasFailed = m_books.books().engine().hasFailed();
        m_books.books().engine().failCall(0);
        if (!hasFailed) break;
        EXPECT_TRUE(refusal) << call;
        ++refused;
    }
    EXPECT_GT(refused, 4);
}

CHENGHENG_ON_ALL_ENGINES(DirectoryPrinting);

}  // namespace
