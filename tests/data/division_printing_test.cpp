#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "operators/division_list.h"
#include "tests/support/engine_cases.h"
#include "tests/support/operator_books.h"
#include "tests/support/report_rows.h"

namespace {

using namespace chengheng;

using testing::ElementsAre;
using testing::HasSubstr;

/// Books made by an earlier program, without templates for these lists.
class DivisionPrinting : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.insert("李明", {41, 42, 57, 60, 82});
        m_books.insert("赵燕");
    }
    static Report printed(const PrintedList& list) {
        Report report;
        const auto refusal = makeListReport(list, report);
        EXPECT_FALSE(refusal) << refusal->notice.text;
        return report;
    }

    OperatorBooks m_books{freshLocation(GetParam())};
};

TEST_P(DivisionPrinting, ListsOperatorsWithTheirRightsInWordsAndRoomForASignature) {
    const Report report = printed(divisionList());
    EXPECT_EQ(report.title, "财务分工一览表");
    EXPECT_EQ(report.layoutFile, "DivideW.rpn");
    EXPECT_EQ(report.facts.operatorName, "张三");
    EXPECT_THAT(columnTexts(report), ElementsAre("操作员 14", "身份 8", "权限 96", "签字 16"));
    EXPECT_THAT(rowTexts(report),
                ElementsAre("张三|主管|全部功能|-",
                            "李明|操作员|会计科目(全部);出纳(结算方式设置、资金日报);报表(全部)|-",
                            "赵燕|操作员|无|-"));
}

TEST_P(DivisionPrinting, ShowsEveryFunctionWithAMarkForEachOperatorWhoHasIt) {
    const Report report = printed(rightsMatrix());
    EXPECT_EQ(report.title, "操作员权限对照表");
    EXPECT_EQ(report.layoutFile, "Normal.rpn");
    EXPECT_THAT(columnTexts(report),
                ElementsAre("编号 6", "权限组 14", "功能 24", "张三 6", "李明 6", "赵燕 6"));
    const auto rows = rowTexts(report);
    ASSERT_EQ(rows.size(), 82u);
    EXPECT_EQ(rows[0], "1|个人往来|个人往来目录|√|-|-");
    EXPECT_EQ(rows[40], "41|会计科目|会计科目设置|√|√|-");
    EXPECT_EQ(rows[81], "82|报表|报表编制|√|√|-");
}

TEST_P(DivisionPrinting, TakesTheTemplatesOfTheBooksWhereThereAreAny) {
    m_books.run(
        "INSERT INTO ZWPrintMain (lId, sTitle, byPage, bPortrait) VALUES (44, '权限', 9, 0)\r\n"
        "INSERT INTO ZWPrintSub (lId, lTieId, sColName, sFiled, byWidth) "
        "VALUES (900, 44, '功能名', 'sName', 30)");
    const Report report = printed(rightsMatrix());
    EXPECT_THAT(columnTexts(report), ElementsAre("功能名 30", "张三 6", "李明 6", "赵燕 6"));
    EXPECT_EQ(rowTexts(report)[81], "报表编制|√|√|-");
}

TEST_P(DivisionPrinting, IsNotMadeOfOperatorsAndRightsThatAreNotOneToOne) {
    m_books.run("DELETE UserAuth WHERE lUserId = 3");
    for (const PrintedList& list : {divisionList(), rightsMatrix()}) {
        Report report;
        const auto refusal = makeListReport(list, report);
        ASSERT_TRUE(refusal);
        EXPECT_EQ(refusal->notice.text, "无法读取要打印的资料,没有打印。\n系统安全出现故障!");
    }
}

TEST_P(DivisionPrinting, TellsWhyTheOperatorsCannotBeRead) {
    m_books.run("DELETE UserAuth WHERE lUserId = 3");
    ASSERT_NE(m_books.database.DBClose("books"), 0);
    Report report;
    const auto refusal = makeListReport(divisionList(), report);
    ASSERT_TRUE(refusal);
    EXPECT_THAT(refusal->notice.detail, HasSubstr("没有打开"));
}

CHENGHENG_ON_ALL_ENGINES(DivisionPrinting);

}  // namespace
