#include <QApplication>
#include <QClipboard>
#include <QListView>
#include <fstream>

#include "tests/support/engine_cases.h"
#include "tests/window/opening_fixture.h"
#include "tests/window/plan_hands.h"

using namespace chengheng;

namespace {

/// Figures that come from and go to other programs, with the keyboard on the first one.
class OpeningTransferTest : public OpeningWindowTest {
  protected:
    void SetUp() override {
        make();
        addSomeAccounts();
    }
    /// Pastes, acting in the window that shows what would become of each cell.
    void paste(const char* text, std::function<void(QWidget&)> act) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        const NextModal preview(std::move(act));
        window->press(Qt::Key_V, Qt::ControlModifier);
    }
    Texts figures() const { return window->column(opening); }
};

const std::vector<std::string> zeros(5, "0.00");

}  // namespace

TEST_F(OpeningTransferTest, ShowsWhatAPastedColumnBecomesAndThenWritesIt) {
    open();
    paste("1,000\n77\n20\n\n(5)\n", [](QWidget& plan) {
        EXPECT_EQ(plan.windowTitle(), "粘贴期初余额");
        EXPECT_TRUE(hasLabelText(plan, "修改 3 格,不变 0 格,略过 1 格,拒绝 0 格。"));
        EXPECT_EQ(planCell(plan, 0, 0), "A1");
        EXPECT_EQ(planCell(plan, 0, 1), "期初余额");
        EXPECT_EQ(planCell(plan, 0, 4), "科目1001");
        EXPECT_EQ(planCell(plan, 0, 3), "1001");
        EXPECT_EQ(planCell(plan, 0, 6), "0.00");
        EXPECT_EQ(planCell(plan, 0, 7), "1,000.00");
        EXPECT_EQ(planCell(plan, 1, 2), "略过");
        EXPECT_EQ(planCell(plan, 1, 8), "上级科目由下级科目汇总");
        pressButton(plan, "写入");
    });
    const Texts pasted{"1,000.00", "20.00", "20.00", "0.00", "-5.00"};
    EXPECT_EQ(figures(), pasted);
    EXPECT_EQ(books->openings("2202").substr(0, 4), "1=-5");
    window->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(figures(), zeros);
    window->press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(figures(), pasted);
}

TEST_F(OpeningTransferTest, WritesNothingOfAPasteInWhichACellIsRefused) {
    open();
    paste("1\n2\n甲\n", [](QWidget& plan) {
        EXPECT_FALSE(buttonOf(plan, "写入").isEnabled());
        EXPECT_TRUE(hasLabelText(plan, "有被拒绝的单元格,全部不能写入。请改正后重试。"));
        EXPECT_EQ(planCell(plan, 2, 8), "不是数字");
        QTest::keyClick(&plan, Qt::Key_Escape);
    });
    EXPECT_EQ(figures(), zeros);
    EXPECT_FALSE(window->isEnabled("撤销"));
}

TEST_F(OpeningTransferTest, WritesNothingOfAPasteThatIsGivenUp) {
    open();
    paste("1\n2\n3\n", [](QWidget& plan) { pressButton(plan, "取消"); });
    EXPECT_EQ(figures(), zeros);
}

TEST_F(OpeningTransferTest, PastesASingleFigureWhereItStands) {
    open();
    QApplication::clipboard()->setText("12.345");
    window->press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(figures()[0], "12.35");
}

TEST_F(OpeningTransferTest, PastesFromTheFirstOfTheSelectedCellsOn) {
    open();
    window->stand(2, opening);
    window->press(Qt::Key_Down, Qt::ShiftModifier);
    paste("3\n4\n", [](QWidget& plan) { pressButton(plan, "写入"); });
    EXPECT_EQ(figures(), (Texts{"0.00", "7.00", "3.00", "4.00", "0.00"}));
}

TEST_F(OpeningTransferTest, SaysThatThereIsNothingToPaste) {
    open();
    QApplication::clipboard()->setText("");
    window->press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(messages().onlyNotice().text, "没有可以录入的内容。");
}

TEST_F(OpeningTransferTest, CopiesTheSelectedCells) {
    books->addRows("100201", 12, 1234.5);
    open();
    window->stand(2, opening);
    window->press(Qt::Key_Down, Qt::ShiftModifier);
    window->press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "1,234.50\n0.00\n");
}

TEST_F(OpeningTransferTest, CopiesABlockWithoutItsHiddenColumns) {
    books->addRows("100201", 12, 1234.5);
    open();
    window->stand(1, 0);
    window->press(Qt::Key_Down, Qt::ShiftModifier);
    window->press(Qt::Key_End, Qt::ShiftModifier);
    window->press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(),
              "1002\t科目1002\t借\t\t1,234.50\n100201\t 科目100201\t借\t\t1,234.50\n");
}

TEST_F(OpeningTransferTest, PastesABlockOfBooksThatBeginMidYear) {
    make(OpeningLayout::midYear);
    addSomeAccounts();
    open();
    paste("100\t20\t5\t115\n\n1\t2\t3\t0\n", [](QWidget& plan) {
        EXPECT_TRUE(hasLabelText(plan, "修改 7 格,不变 1 格,略过 0 格,拒绝 0 格。"));
        EXPECT_EQ(planCell(plan, 3, 0), "D1");
        pressButton(plan, "写入");
    });
    EXPECT_EQ(window->cell(0, 4), "100.00");
    EXPECT_EQ(window->cell(0, 7), "115.00");
    EXPECT_EQ(window->cell(2, 7), "0.00");
    EXPECT_EQ(window->cell(1, 6), "3.00");
    window->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->column(7), zeros);
}

TEST_F(OpeningTransferTest, ExportsAFileThatImportsAgain) {
    books->addRows("1001", 12, 1234.5);
    const std::string path = freshFolder() + "/openings.csv";
    open();
    {
        const NextModal chooser([&](QWidget& dialog) { giveFile(dialog, path); });
        window->choose("导出...");
    }
    EXPECT_EQ(messages().onlyNotice().text, "期初余额已导出到“" + path + "”。");
    messages().forget();
    window->press(Qt::Key_Delete);
    EXPECT_EQ(figures()[0], "0.00");
    std::optional<NextModal> preview;
    {
        const NextModal chooser([&](QWidget& dialog) {
            giveFile(dialog, path);
            preview.emplace([&](QWidget& plan) {
                EXPECT_EQ(plan.windowTitle(), "导入期初余额");
                EXPECT_TRUE(hasLabelText(plan, QString::fromStdString("文件:" + path)));
                pressButton(plan, "写入");
            });
        });
        window->choose("导入...");
    }
    preview.reset();
    EXPECT_EQ(figures()[0], "1,234.50");
}

TEST_F(OpeningTransferTest, TellsWhyAFileCannotBeImported) {
    const std::string path = freshFolder() + "/other.csv";
    std::ofstream(path) << "甲,乙\n1,2\n";
    open();
    const NextModal chooser([&](QWidget& dialog) { giveFile(dialog, path); });
    window->choose("导入...");
    EXPECT_EQ(messages().onlyNotice().icon, MessageIcon::warning);
    EXPECT_EQ(figures(), zeros);
}

TEST_F(OpeningTransferTest, ListsWhyBooksMayNotBalanceAndGoesToTheAccount) {
    books->addRows("100202", 12, 500);
    open();
    const NextModal causes([](QWidget& list) {
        EXPECT_EQ(list.windowTitle(), "不平衡的可能原因");
        EXPECT_TRUE(hasLabelText(list, "差额为 500.00,可能的原因(仅供参考):"));
        const auto* rows = list.findChild<QListView*>()->model();
        EXPECT_EQ(rows->index(0, 0).data().toString(),
                  "100202 科目100202:余额 500.00 正好等于差额,可能重复录入,或者对方科目漏录了。");
        pressButton(list, "转到科目");
    });
    window->choose("不平衡的可能原因");
    EXPECT_EQ(window->grid().currentRow(), 3);
    EXPECT_EQ(window->grid().currentIndex().column(), opening);
}

TEST_F(OpeningTransferTest, SaysOfBooksThatBalanceThatThereIsNothingToExplain) {
    open();
    const NextModal causes([](QWidget& list) {
        EXPECT_TRUE(hasLabelText(list, "期初余额借贷平衡,没有差额。"));
        EXPECT_EQ(list.findChild<QListView*>()->model()->rowCount(), 0);
        pressButton(list, "关闭");
    });
    window->choose("不平衡的可能原因");
}

TEST_F(OpeningTransferTest, OffersTheCausesBesideATrialBalanceThatDoesNotBalance) {
    books->addRows("100202", 12, 500);
    open();
    std::optional<NextModal> causes;
    {
        const NextModal result([&](QWidget& dialog) {
            pressButton(dialog, "可能原因(&C)...");
            causes.emplace([](QWidget& list) {
                EXPECT_EQ(list.windowTitle(), "不平衡的可能原因");
                pressButton(list, "关闭");
            });
        });
        window->choose("试算平衡");
    }
    causes.reset();
}

TEST_F(OpeningTransferTest, LeavesBooksForBrowsingAsTheyAre) {
    books->addVoucher();
    open();
    EXPECT_FALSE(window->isEnabled("粘贴"));
    EXPECT_FALSE(window->isEnabled("导入..."));
    EXPECT_TRUE(window->isEnabled("导出..."));
    QApplication::clipboard()->setText("5");
    window->press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(figures(), zeros);
}
