#include <QFileDialog>
#include <fstream>

#include "tests/support/engine_cases.h"
#include "tests/window/chart_fixture.h"

using namespace chengheng;

namespace {

class ChartImportWindowTest : public ChartTest {
  protected:
    static void press(QWidget& dialog, const QString& text) {
        for (auto* button : dialog.findChildren<QPushButton*>())
            if (button->text() == text) QTest::mouseClick(button, Qt::LeftButton);
    }
    static void give(QWidget& chooser, const std::string& path) {
        auto* dialog = qobject_cast<QFileDialog*>(&chooser);
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path));
        QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    }
    /// Imports a file, acting in the window that shows what would become of it.
    void import(const std::string& content, std::function<void(QWidget&)> act) {
        const std::string path = freshFolder() + "/chart.csv";
        std::ofstream(path) << content;
        std::optional<NextModal> preview;
        const NextModal chooser([&](QWidget& dialog) {
            give(dialog, path);
            preview.emplace([&](QWidget& plan) {
                act(plan);
                if (plan.isVisible()) press(plan, "取消");
            });
        });
        window->choose("导入...");
    }
    static std::string cell(QWidget& plan, int row, int column) {
        auto* model = plan.findChild<CVCF1*>()->model();
        return model->index(row, column).data().toString().toStdString();
    }
    static bool hasLabel(QWidget& plan, const QString& text) {
        for (const auto* label : plan.findChildren<QLabel*>())
            if (label->text() == text) return true;
        return false;
    }
    static QPushButton& button(QWidget& plan, const QString& text) {
        for (auto* candidate : plan.findChildren<QPushButton*>())
            if (candidate->text() == text) return *candidate;
        throw std::runtime_error("no such button");
    }
};

}  // namespace

TEST_F(ChartImportWindowTest, ShowsWhatBecomesOfEachRowAndThenDoesIt) {
    addSomeAccounts();
    open();
    import("科目编码,科目名称,科目类型\n1001,现金,资产\n1122,应收帐款,资产\n2202,应付帐款,负债\n",
           [this](QWidget& plan) {
               EXPECT_TRUE(hasLabel(plan, "新增 1 行,修改 1 行,不变 1 行,拒绝 0 行。"));
    EXPECT_EQ(cell(plan, 0, 1), "修改");
    EXPECT_EQ(cell(plan, 1, 1), "新增");
    EXPECT_EQ(cell(plan, 1, 2), "1122");
    EXPECT_EQ(cell(plan, 2, 1), "不变");
    EXPECT_FALSE(books.hasAccount("1122"));
    press(plan, "导入");
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
               EXPECT_TRUE(hasLabel(plan, "有被拒绝的行,整个文件不能导入。请改正文件后重试。"));
    EXPECT_EQ(plan.findChild<CVCF1*>()->currentRow(), 1);
    EXPECT_NE(cell(plan, 1, 4).find("不符合科目编码规则"), std::string::npos);
    EXPECT_FALSE(button(plan, "导入").isEnabled());
});
EXPECT_FALSE(books.hasAccount("1122"));
EXPECT_TRUE(books.messages().texts().empty());
}

TEST_F(ChartImportWindowTest, ImportsNothingWhenTheOperatorGivesItUp) {
    addSomeAccounts();
    open();
    import("科目编码,科目名称,科目类型\n1122,应收帐款,资产\n", [](QWidget& plan) {
        EXPECT_TRUE(hasLabel(plan, "请核对后按“导入”,所有行将一次写入。"));
});
EXPECT_FALSE(books.hasAccount("1122"));
}

TEST_F(ChartImportWindowTest, WritesAFileThatChangesNothingWhenItIsReadBack) {
    addSomeAccounts();
    open();
    const std::string path = freshFolder() + "/chart.csv";
    {
        const NextModal chooser([&](QWidget& dialog) { give(dialog, path); });
        window->choose("导出...");
    }
    EXPECT_EQ(books.messages().onlyNotice().text, "会计科目已导出到“" + path + "”。");
    std::ifstream file(path);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    import(content, [](QWidget& plan) {
        EXPECT_TRUE(hasLabel(plan, "没有需要导入的内容。"));
    EXPECT_FALSE(button(plan, "导入").isEnabled());
});
}
