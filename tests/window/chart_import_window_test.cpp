#include <fstream>

#include "tests/support/engine_cases.h"
#include "tests/window/chart_fixture.h"
#include "tests/window/plan_hands.h"

using namespace chengheng;

namespace {

class ChartImportWindowTest : public ChartTest {
  protected:
    /// Imports a file, acting in the window that shows what would become of it.
    void import(const std::string& content, std::function<void(QWidget&)> act) {
        const std::string path = freshFolder() + "/chart.csv";
        std::ofstream(path) << content;
        std::optional<NextModal> preview;
        const NextModal chooser([&](QWidget& dialog) {
            giveFile(dialog, path);
            preview.emplace([&](QWidget& plan) {
                act(plan);
                if (plan.isVisible()) pressButton(plan, "取消");
            });
        });
        window->choose("导入...");
    }
};

}  // namespace

TEST_F(ChartImportWindowTest, ShowsWhatBecomesOfEachRowAndThenDoesIt) {
    addSomeAccounts();
    open();
    import("科目编码,科目名称,科目类型\n1001,现金,资产\n1122,应收帐款,资产\n2202,应付帐款,负债\n",
           [this](QWidget& plan) {
               EXPECT_TRUE(hasLabelText(plan, "新增 1 行,修改 1 行,不变 1 行,拒绝 0 行。"));
    EXPECT_EQ(planCell(plan, 0, 1), "修改");
    EXPECT_EQ(planCell(plan, 1, 1), "新增");
    EXPECT_EQ(planCell(plan, 1, 2), "1122");
    EXPECT_EQ(planCell(plan, 2, 1), "不变");
    EXPECT_FALSE(books.hasAccount("1122"));
    pressButton(plan, "导入");
});
EXPECT_EQ(books.messages().onlyNotice().text, "导入完成:新增 1 个科目,修改 1 个科目。");
EXPECT_EQ(books.account("1001").sName, "现金");
EXPECT_EQ(codes().size(), 7);
}

TEST_F(ChartImportWindowTest, ImportsNothingWhileARowIsRefused) {
    addSomeAccounts();
    open();
    import("科目编码,科目名称,科目类型\n1122,应收帐款,资产\n10010,错误,资产\n",
           [](QWidget& plan) {
               EXPECT_TRUE(hasLabelText(plan, "有被拒绝的行,整个文件不能导入。请改正文件后重试。"));
    EXPECT_EQ(plan.findChild<CVCF1*>()->currentRow(), 1);
    EXPECT_EQ(planCell(plan, 1, 3), "错误");
    EXPECT_EQ(planCell(plan, 1, 4), "A3 科目编码");
    EXPECT_EQ(planCell(plan, 1, 5), "不符合科目编码规则");
    EXPECT_FALSE(buttonOf(plan, "导入").isEnabled());
});
EXPECT_FALSE(books.hasAccount("1122"));
EXPECT_TRUE(books.messages().texts().empty());
}

TEST_F(ChartImportWindowTest, ImportsNothingWhenTheOperatorGivesItUp) {
    addSomeAccounts();
    open();
    import("科目编码,科目名称,科目类型\n1122,应收帐款,资产\n", [](QWidget& plan) {
        EXPECT_TRUE(hasLabelText(plan, "请核对后按“导入”,所有行将一次写入。"));
});
EXPECT_FALSE(books.hasAccount("1122"));
}

TEST_F(ChartImportWindowTest, WritesAFileThatChangesNothingWhenItIsReadBack) {
    addSomeAccounts();
    open();
    const std::string path = freshFolder() + "/chart.csv";
    {
        const NextModal chooser([&](QWidget& dialog) { giveFile(dialog, path); });
        window->choose("导出...");
    }
    EXPECT_EQ(books.messages().onlyNotice().text, "会计科目已导出到“" + path + "”。");
    std::ifstream file(path);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    import(content, [](QWidget& plan) {
        EXPECT_TRUE(hasLabelText(plan, "没有需要导入的内容。"));
    EXPECT_FALSE(buttonOf(plan, "导入").isEnabled());
});
}
