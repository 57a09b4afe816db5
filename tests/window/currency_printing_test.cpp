#include "tests/support/engine_cases.h"
#include "tests/support/made_books.h"
#include "tests/support/recording_printer.h"
#include "tests/support/report_rows.h"
#include "tests/window/currency_fixture.h"
#include "tests/window/next_modal.h"

using namespace chengheng;

namespace {

/// The window on made books, which have their print templates.
class CurrencyPrintingTest : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    void SetUp() override {
        m_books.emplace(makeBooks(freshLocation({"sqliteFile"})), false);
        m_lookups.emplace("books");
        m_books->run("DELETE Cyrency\nDELETE ExchgFix\nDELETE ExchgFlt");
    }
    void open() {
        m_window = std::make_unique<CurrencyWindow>();
        showActive(*m_window);
        QCoreApplication::processEvents();
    }
    void openWithDollars() {
        m_books->insert("USD", "美元");
        m_books->run(
            "UPDATE ExchgFix SET dRate = 7.1, dAdjustRate = 7.2 WHERE byPeroid = 1\n"
            "UPDATE ExchgFlt SET dRate = 7.3 WHERE dtDate = '2026/5/2'\n"
            "UPDATE ExchgFlt SET dRate = 7.4 WHERE dtDate = '2026/6/1'");
        open();
    }
    /// Prints, with the operator doing something in the dialog that asks.
    void print(const std::function<void(QWidget&)>& answer, int key = Qt::Key_P) {
        showActive(*m_window);
        NextModal operatorHands(answer);
        QTest::keyClick(m_window.get(), Qt::Key(key), Qt::ControlModifier);
        QCoreApplication::processEvents();
    }
    static void choose(QWidget& asking, const char* text) {
        for (auto* button : asking.findChildren<QAbstractButton*>())
            if (button->text() == QString::fromUtf8(text)) return button->click();
        ADD_FAILURE() << text;
    }
    const Report& onlyReport() {
        EXPECT_EQ(m_printer.outputs.size(), 1u);
        static const Report none;
        return m_printer.outputs.empty() ? none : m_printer.outputs.front().report;
    }

    std::optional<CurrencyBooks> m_books;
    std::optional<BookLookups> m_lookups;
    RecordingPrinter m_printer;
    HostReportPrinter m_installed{m_printer};
    std::unique_ptr<CurrencyWindow> m_window;
};

}  // namespace

TEST_F(CurrencyPrintingTest, AsksWhichListFirst) {
    openWithDollars();
    print([](QWidget& asking) {
        EXPECT_EQ(asking.windowTitle(), "选择范围");
        Texts choices;
        for (const auto* choice : asking.findChildren<QRadioButton*>())
            choices.push_back(choice->text().toStdString());
        EXPECT_EQ(choices, (Texts{"外币一览表", "汇率一览表"}));
        EXPECT_FALSE(asking.findChild<QCheckBox*>()->isVisible()) << "months are all of a year";
        choose(asking, "取消");
    });
    EXPECT_TRUE(m_printer.outputs.empty());
}

TEST_F(CurrencyPrintingTest, PrintsTheCurrencies) {
    openWithDollars();
    print([](QWidget& asking) { QTest::keyClick(&asking, Qt::Key_Return); });
    EXPECT_EQ(onlyReport().title, "外币一览表");
    EXPECT_EQ(rowTexts(onlyReport()), (Texts{"USD|美元|原币*汇率 = 本位币|5|0.00001"}));
    EXPECT_EQ(m_printer.outputs[0].kind, ReportOutput::print);
}

TEST_F(CurrencyPrintingTest, PrintsTheFixedRates) {
    openWithDollars();
    print([](QWidget& asking) {
        choose(asking, "汇率一览表");
        choose(asking, "确定");
    });
    EXPECT_EQ(onlyReport().title, "固定汇率一览表");
    ASSERT_EQ(onlyReport().rowCount(), 12u);
    EXPECT_EQ(rowTexts(onlyReport()).front(), "2026.01|7.10000|7.20000");
    EXPECT_EQ(onlyReport().lines.at(0).left, "外币:美元(USD)");
}

TEST_F(CurrencyPrintingTest, PrintsTheMonthOfFloatingRatesThatIsShownOrTheYear) {
    openWithDollars();
    m_window->findChild<QRadioButton*>("floatingRate")->click();
    for (const bool isYear : {false, true})
        print([isYear](QWidget& asking) {
            auto* year = asking.findChild<QCheckBox*>();
            EXPECT_EQ(year->text(), "全年");
            EXPECT_TRUE(year->isVisible());
            EXPECT_FALSE(year->isEnabled()) << "currencies have no year";
            choose(asking, "汇率一览表");
            EXPECT_TRUE(year->isEnabled());
            year->setChecked(isYear);
            choose(asking, "确定");
        });
    ASSERT_EQ(m_printer.outputs.size(), 2u);
    const Report& month = m_printer.outputs[0].report;
    EXPECT_EQ(month.title, "浮动汇率一览表");
    EXPECT_EQ(month.columns.at(0).heading, "日期");
    ASSERT_EQ(month.rowCount(), 31u);
    EXPECT_EQ(rowTexts(month)[1], "2026.05.02|7.30000|-");
    const Report& year = m_printer.outputs[1].report;
    ASSERT_EQ(year.rowCount(), 365u);
    EXPECT_EQ(rowTexts(year)[151], "2026.06.01|7.40000|-");
}

TEST_F(CurrencyPrintingTest, PrintsNoRatesOfOtherYears) {
    openWithDollars();
    m_books->run(
        "Insert ExchgFix Values(901, 1, '2025/1/1', 1, 6.5, 0.0)\n"
        "Insert ExchgFlt Values(901, 1, '2025/5/1', 5, 6.5, 0.0)");
    print([](QWidget& asking) {
        choose(asking, "汇率一览表");
        choose(asking, "确定");
    });
    m_window->findChild<QRadioButton*>("floatingRate")->click();
    print([](QWidget& asking) {
        choose(asking, "汇率一览表");
        choose(asking, "确定");
    });
    ASSERT_EQ(m_printer.outputs.size(), 2u);
    EXPECT_EQ(m_printer.outputs[0].report.rowCount(), 12u);
    EXPECT_EQ(m_printer.outputs[1].report.rowCount(), 31u);
}

TEST_F(CurrencyPrintingTest, TellsWhyNoRatesArePrintedWhileACurrencyIsAdded) {
    open();
    print([](QWidget& asking) {
        choose(asking, "汇率一览表");
        choose(asking, "确定");
    });
    EXPECT_EQ(m_books->messages.onlyNotice().text,
              "正在增加外币,还没有汇率可以打印。\n请先确定新增的外币,或在左边选择一种外币。");
    EXPECT_TRUE(m_printer.outputs.empty());
    print([](QWidget& asking) { choose(asking, "确定"); });
    EXPECT_EQ(onlyReport().rowCount(), 0u) << "the currencies can be, none of them";
}

TEST_F(CurrencyPrintingTest, PreviewsAsItPrints) {
    openWithDollars();
    NextModal operatorHands([](QWidget& asking) { choose(asking, "确定"); });
    for (auto* action : m_window->findChildren<QAction*>())
        if (action->text() == "打印预览") {
            action->trigger();
            break;
        }
    QCoreApplication::processEvents();
    ASSERT_EQ(m_printer.outputs.size(), 1u);
    EXPECT_EQ(m_printer.outputs[0].kind, ReportOutput::preview);
}
