#include <QAbstractItemView>
#include <QComboBox>
#include <QScrollBar>

#include "data/tables/accounts.h"
#include "tests/support/recording_printer.h"
#include "tests/window/chart_fixture.h"

using namespace chengheng;

namespace {

std::vector<std::string> codesOf(const Report& report) {
    std::vector<std::string> codes;
    for (std::size_t row = 0; row < report.rowCount(); ++row)
        codes.push_back(report.cell(row, 1).value_or("-"));
    return codes;
}

class ChartChangesTest : public ChartTest {
  protected:
    void chooseInDesignation(int cash, int bank) {
        const NextModal dialog([=](QWidget& designation) {
            EXPECT_EQ(designation.windowTitle(), "指定科目");
            const auto lists = designation.findChildren<QComboBox*>();
            lists[0]->setCurrentIndex(cash);
            lists[1]->setCurrentIndex(bank);
            press(designation, "确定");
            if (designation.isVisible()) press(designation, "取消");
        });
        window->choose("指定科目");
    }
    static void press(QWidget& dialog, const QString& text) {
        for (auto* button : dialog.findChildren<QPushButton*>())
            if (button->text() == text) QTest::mouseClick(button, Qt::LeftButton);
    }
    void removeRow(int row, Answer answer = Answer::ok) {
        window->grid().setCurrentRow(row);
        books.messages().willAnswer(answer);
        window->press(Qt::Key_D, Qt::ControlModifier);
    }
};

}  // namespace

TEST_F(ChartChangesTest, DeletesTheCurrentAccountAndStaysAtItsPlace) {
    addSomeAccounts();
    open();
    removeRow(4);
    EXPECT_EQ(books.messages().questions()[0].text, "真的要删除科目:100202(  建设银行)吗?");
    EXPECT_EQ(books.messages().questions()[0].icon, MessageIcon::question);
    EXPECT_EQ(codes(), (Texts{"1001", "1002", "100201", "10020101", "2202"}));
    EXPECT_EQ(window->currentCode(), "2202");
    EXPECT_TRUE(window->grid().selectionModel()->isRowSelected(4));
    EXPECT_TRUE(window->hasLabel("科目个数:5"));
    removeRow(4);
    EXPECT_EQ(window->currentCode(), "10020101");
}

TEST_F(ChartChangesTest, DeletesNothingWhenTheOperatorThinksBetterOfIt) {
    addSomeAccounts();
    open();
    removeRow(4, Answer::cancel);
    EXPECT_EQ(codes().size(), 6);
    EXPECT_TRUE(books.hasAccount("100202"));
}

TEST_F(ChartChangesTest, SaysWhyAnAccountIsNotDeleted) {
    addSomeAccounts();
    books.addEmptySums("2202");
    change("1001", [](_CodeInfo& account) { account.bCash = account.bBank = 1; });
    open();
    const std::pair<int, const char*> refusals[] = {
        {1, "不能删除非末级科目!"},
        {0, "该科目已指定为银行科目,不能删除"},
        {5, "在[总帐]中已使用本科目或其下级科目"},
    };
    for (const auto& [row, text] : refusals) {
        removeRow(row);
        ASSERT_EQ(books.messages().notices().size(), 1);
        EXPECT_EQ(books.messages().notices()[0].text, text);
        books.messages().forget();
    }
    EXPECT_EQ(codes().size(), 6);
}

TEST_F(ChartChangesTest, ShowsABlankLineAfterTheLastAccountIsDeleted) {
    books.add("1001", "库存现金");
    open();
    removeRow(0);
    EXPECT_EQ(codes(), Texts{""});
    EXPECT_FALSE(window->isEnabled("删除"));
    EXPECT_TRUE(window->isEnabled("增加"));
}

TEST_F(ChartChangesTest, SaysThatTheAccountToDeleteIsGoneAlready) {
    addSomeAccounts();
    open();
    books.run("DELETE Code WHERE sCode = '2202'");
    removeRow(5);
    ASSERT_EQ(books.messages().notices().size(), 1);
    EXPECT_EQ(books.messages().notices()[0].text, "科目(2202)已经删除!");
    EXPECT_EQ(codes().size(), 5);
}

TEST_F(ChartChangesTest, ShowsWhereTheCurrentAccountIsUsed) {
    addSomeAccounts();
    open();
    const NextModal used([](QWidget& list) {
        EXPECT_EQ(list.windowTitle(), "科目使用情况");
        const auto labels = list.findChildren<QLabel*>();
        EXPECT_EQ(labels[0]->text(), "科目 1001 及其下级科目没有在任何地方使用。");
        EXPECT_TRUE(list.findChildren<QAbstractItemView*>().isEmpty());
        QTest::keyClick(&list, Qt::Key_Escape);
    });
    window->choose("使用情况");
}

TEST_F(ChartChangesTest, ShowsEveryFigureOfASumWithoutScrollingSideways) {
    addSomeAccounts();
    books.addEmptySums("1001");
    open();
    const NextModal used([](QWidget& list) {
        QCoreApplication::processEvents();
        const auto* grid = list.findChild<CVCF1*>();
        EXPECT_EQ(grid->model()->columnCount(), 5);
        EXPECT_EQ(grid->horizontalScrollBar()->maximum(), 0);
        QTest::keyClick(&list, Qt::Key_Escape);
    });
    window->choose("使用情况");
}

TEST_F(ChartChangesTest, DesignatesCashAndBankAndShowsTheirNewBooks) {
    addSomeAccounts();
    change("1001", [](_CodeInfo& account) { account.sAssBook = "A"; });
    open();
    EXPECT_EQ(window->cell(0, 4), "个人往来");
    window->grid().setCurrentRow(2);
    books.messages().willAnswer("确定设置(1001)为现金总帐科目, (1002)为银行总帐科目吗?",
                                Answer::ok);
    chooseInDesignation(0, 1);
    EXPECT_EQ(books.account("1001").sAssBook, "R");
    EXPECT_EQ(books.account("10020101").sAssBook, "RE");
    EXPECT_EQ(window->cell(0, 4), "");
    EXPECT_EQ(window->currentCode(), "100201");
}

TEST_F(ChartChangesTest, KeepsTheDesignationOpenForTheSameAccountTwice) {
    addSomeAccounts();
    open();
    chooseInDesignation(1, 1);
    EXPECT_EQ(books.messages().onlyNotice().text, "银行、现金科目不能重复");
    EXPECT_EQ(books.account("1002").bBank, 0);
}

TEST_F(ChartChangesTest, OffersTheTopLevelAndWhatIsDesignatedNow) {
    addSomeAccounts();
    change("2202", [](_CodeInfo& account) { account.bBank = 1; });
    open();
    const NextModal dialog([](QWidget& designation) {
        const auto lists = designation.findChildren<QComboBox*>();
        EXPECT_EQ(lists[0]->count(), 3);
        EXPECT_EQ(lists[0]->itemText(0), "1001   库存现金");
        EXPECT_EQ(lists[0]->currentIndex(), -1);
        EXPECT_EQ(lists[1]->currentText(), "2202   应付帐款");
        for (auto* button : designation.findChildren<QPushButton*>())
            EXPECT_EQ(button->isVisible(), button->text() != "显示说明");
        press(designation, "取消");
    });
    window->choose("指定科目");
}

TEST_F(ChartChangesTest, PrintsAndPreviewsTheAccountsOfARange) {
    books.run("INSERT ZWPrintMain VALUES(36, '会计科目一览表', 9, 1)");
    int id = 1;
    for (const char* field : {"byGrade", "sCode", "sName", "byExchId", "sAssBook"}) {
        books.run(formatSql("INSERT ZWPrintSub VALUES(%d, 36, '%s', '%s', 10)", id, field, field));
        ++id;
    }
    addSomeAccounts();
    RecordingPrinter printer;
    const HostReportPrinter host(printer);
    open();
    {
        const NextModal range([](QWidget& dialog) { press(dialog, "确定"); });
        window->press(Qt::Key_P, Qt::ControlModifier);
    }
    ASSERT_EQ(printer.outputs.size(), 1);
    EXPECT_EQ(printer.outputs[0].kind, ReportOutput::print);
    const Report printed = printer.outputs[0].report;
    EXPECT_EQ(printed.title, "会计科目一览表");
    EXPECT_EQ(codesOf(printed), codes());
    EXPECT_EQ(printed.cell(3, 2), "    人民币户");
    EXPECT_EQ(printed.cell(4, 3), "美元");
    EXPECT_EQ(printed.cell(5, 4), "单位往来");
    {
        const NextModal range([](QWidget& dialog) {
            const auto fields = dialog.findChildren<QLineEdit*>();
            fields[0]->setText("1002");
            fields[1]->setText("1002");
            QTest::keyClick(dialog.findChild<QWidget*>("lastLevel"), Qt::Key_Down);
            QTest::keyClick(dialog.findChild<QWidget*>("lastLevel"), Qt::Key_Down);
            press(dialog, "确定");
        });
        window->choose("打印预览");
    }
    ASSERT_EQ(printer.outputs.size(), 2);
    EXPECT_EQ(printer.outputs[1].kind, ReportOutput::preview);
    EXPECT_EQ(codesOf(printer.outputs[1].report), (Texts{"1002", "100201", "100202"}));
}

TEST_F(ChartChangesTest, PrintsNothingWhenTheRangeIsGivenUpOrReversed) {
    addSomeAccounts();
    RecordingPrinter printer;
    const HostReportPrinter host(printer);
    open();
    const NextModal range([](QWidget& dialog) {
        QTest::keyClick(dialog.findChild<QWidget*>("firstLevel"), Qt::Key_Up);
        auto* last = dialog.findChild<QWidget*>("lastLevel");
        for (int level = 4; level > 1; --level) QTest::keyClick(last, Qt::Key_Down);
        press(dialog, "确定");
        EXPECT_TRUE(dialog.isVisible());
        press(dialog, "取消");
    });
    window->choose("打印");
    EXPECT_EQ(books.messages().onlyNotice().text, "终止级次不能小于起始级次!");
    EXPECT_TRUE(printer.outputs.empty());
}
