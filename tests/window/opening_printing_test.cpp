#include <QCheckBox>

#include "tests/support/recording_printer.h"
#include "tests/window/opening_fixture.h"

using namespace chengheng;

TEST_F(OpeningWindowTest, PrintsTheGridUnderTheAccountingYear) {
    make();
    addSomeAccounts();
    books->addRows("1001", 12, 1234.5);
    RecordingPrinter printer;
    const HostReportPrinter host(printer);
    open();
    {
        const NextModal asking([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        window->choose("打印预览");
        EXPECT_TRUE(asking.hasCome());
    }
    {
        const NextModal asking([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        window->press(Qt::Key_P, Qt::ControlModifier);
    }
    ASSERT_EQ(printer.outputs.size(), 2);
    EXPECT_EQ(printer.outputs[0].kind, ReportOutput::preview);
    EXPECT_EQ(printer.outputs[1].kind, ReportOutput::print);
    const Report& report = printer.outputs[0].report;
    EXPECT_EQ(report.title, "期初余额表");
    EXPECT_EQ(report.lines[0].left, "会计年度:2026");
    EXPECT_EQ(report.lines.size(), 1);
    EXPECT_TRUE(report.facts.day.isSet());
    EXPECT_TRUE(report.page.isPortrait);
    EXPECT_EQ(report.columns.size(), 5);
    ASSERT_EQ(report.rowCount(), 7);
    EXPECT_EQ(report.cell(0, 0), "1001");
    EXPECT_EQ(report.cell(0, 4), "1,234.50");
    EXPECT_EQ(report.cell(5, 1), "借方科目合计");
    EXPECT_EQ(report.cell(5, 2), "借");
    EXPECT_EQ(report.cell(5, 4), "1,234.50");
    EXPECT_EQ(report.cell(6, 1), "贷方科目合计");
    EXPECT_EQ(report.cell(6, 4), "0.00");
}

TEST_F(OpeningWindowTest, PrintsWithoutLinesOfZerosWhenThatIsChosenAndRemembersTheChoice) {
    make();
    addSomeAccounts();
    books->addRows("1001", 12, 1234.5);
    RecordingPrinter printer;
    const HostReportPrinter host(printer);
    open();
    {
        const NextModal asking([](QWidget& box) {
            EXPECT_EQ(box.windowTitle(), "期初余额表");
            EXPECT_EQ(box.findChild<QLabel*>()->text(), "共 5 行,其中 4 行没有金额和数量。");
            QTest::keyClick(box.findChild<QCheckBox*>(), Qt::Key_Space);
            QTest::keyClick(&box, Qt::Key_Return);
        });
        window->choose("打印");
    }
    ASSERT_EQ(printer.outputs.size(), 1);
    const Report& report = printer.outputs[0].report;
    ASSERT_EQ(report.rowCount(), 3);
    EXPECT_EQ(report.cell(0, 0), "1001");
    EXPECT_EQ(report.cell(1, 1), "借方科目合计");
    const NextModal asking([](QWidget& box) {
        EXPECT_TRUE(box.findChild<QCheckBox*>()->isChecked());
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    window->choose("打印");
    EXPECT_TRUE(asking.hasCome());
    EXPECT_EQ(printer.outputs.size(), 1) << "given up";
}

TEST_F(OpeningWindowTest, PrintsExtraLinesAndAllFourFiguresOnTurnedPages) {
    make(OpeningLayout::midYear);
    addSomeAccounts();
    books->change("1001", "bAmount = 1");
    RecordingPrinter printer;
    const HostReportPrinter host(printer);
    open();
    const NextModal asking([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
    window->choose("打印");
    ASSERT_EQ(printer.outputs.size(), 1);
    const Report& report = printer.outputs[0].report;
    EXPECT_FALSE(report.page.isPortrait);
    EXPECT_EQ(report.columns.size(), 8);
    EXPECT_EQ(report.columns[7].width, 20);
    EXPECT_EQ(report.columns[7].alignment, Alignment::right);
    EXPECT_EQ(report.rowCount(), 8);
    EXPECT_EQ(report.cell(1, 0), "");
}
