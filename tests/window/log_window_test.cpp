#include "screen/log/log_window.h"

#include <QClipboard>
#include <QComboBox>
#include <QScrollBar>

#include "data/engines/open_engine.h"
#include "data/layout/layout.h"
#include "screen/grid/CVCF1.h"
#include "screen/help/help_window.h"
#include "tests/support/engine_cases.h"
#include "tests/support/logged_operator_books.h"
#include "tests/support/recording_printer.h"
#include "tests/window/hub_fixture.h"
#include "tests/window/list_form_fixture.h"
#include "tests/window/logon_fixture.h"
#include "tests/window/next_modal.h"

namespace chengheng::log_window_test {
namespace {

struct WindowBooks : LoggedOperatorBooks {
    explicit WindowBooks(const char*) : LoggedOperatorBooks(madeEngine()) {}
    static std::unique_ptr<FaultyEngine> madeEngine() {
        auto engine = openForTest(":memory:");
        EXPECT_TRUE(createLayout(*engine));
        return std::make_unique<FaultyEngine>(std::move(engine));
    }
    void run(const std::string& batch) { books.run(batch); }
    RecordingMessages& messages = books.messages;
};

/// The window on books where 张三 and 李明 changed methods of settlement.
class LogWindowTest : public ListFormWindowTest<WindowBooks, LogWindow> {
  protected:
    void SetUp() override {
        ListFormWindowTest::SetUp();
        books.change("INSERT Settle VALUES( 1, '1', '支票', 0 )", "增加结算方式 1 支票", 57);
        books.actAs("李明", 2);
        books.change("Update Settle Set sSettle = '现金', bNote = 1 Where lId = 1",
                     "修改结算方式 1", 57);
        books.change("DELETE Settle Where lId = 1");
    }
    CVCF1& entries() const { return control<CVCF1>("entries"); }
    CVCF1& changes() const { return control<CVCF1>("changes"); }
    static std::string cell(const CVCF1& grid, int row, int column) {
        return grid.model()->index(row, column).data().toString().toStdString();
    }
    static Texts column(const CVCF1& grid, int column) {
        Texts texts;
        for (int row = 0; row < grid.model()->rowCount(); ++row)
            texts.push_back(cell(grid, row, column));
        return texts;
    }
    std::string count() const { return control<QLabel>("count").text().toStdString(); }
    std::string heading() const { return control<QLabel>("heading").text().toStdString(); }
    QLineEdit& field(const char* name) const { return control<QLineEdit>(name); }
};

TEST_F(LogWindowTest, ShowsTheNewestFirstAndWhatItDid) {
    open();
    EXPECT_EQ(window->windowTitle(), "操作日志");
    // The parameters of the books were put in by the fixture.
    EXPECT_EQ(column(entries(), 0), (Texts{"4", "3", "2", "1"}));
    EXPECT_EQ(column(entries(), 2), (Texts{"李明", "李明", "张三", "张三"}));
    EXPECT_EQ(cell(entries(), 1, 4), "修改结算方式 1");
    EXPECT_EQ(entries().currentRow(), 0);
    EXPECT_EQ(count(), "共 4 条");
    EXPECT_EQ(column(changes(), 0), (Texts{"−", "−", "−", "−"}));
    EXPECT_EQ(column(changes(), 4), (Texts{"1", "1", "现金", "是"}));
    EXPECT_TRUE(entries().hasFocus());
}

TEST_F(LogWindowTest, FollowsTheRowAndMarksWhatDiffersBySignAndColour) {
    open();
    press(Qt::Key_Down);
    EXPECT_EQ(column(changes(), 0), (Texts{"≠", "≠"}));
    EXPECT_EQ(column(changes(), 1), (Texts{"结算方式", "结算方式"}));
    EXPECT_EQ(column(changes(), 3), (Texts{"方式名", "支票登记簿"}));
    EXPECT_EQ(column(changes(), 4), (Texts{"支票", "否"}));
    EXPECT_EQ(column(changes(), 5), (Texts{"现金", "是"}));
    const QAbstractItemModel& model = *changes().model();
    EXPECT_TRUE(model.index(0, 4).data(Qt::BackgroundRole).isValid());
    EXPECT_TRUE(model.index(0, 5).data(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(model.index(0, 3).data(Qt::BackgroundRole).isValid());
    EXPECT_NE(heading().find("李明(编号 2)  财务2(进程 9)  chbooks 1.0\n修改结算方式 1"),
              std::string::npos)
        << heading();
    press(Qt::Key_Down);
    EXPECT_EQ(column(changes(), 0), (Texts{"+", "+", "+", "+"}));
    EXPECT_FALSE(model.index(0, 5).data(Qt::BackgroundRole).isValid());
}

TEST_F(LogWindowTest, GoesToWhatAnEntryDidAndBackWithEnter) {
    open();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(changes().hasFocus());
    EXPECT_EQ(changes().currentRow(), 0);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "≠\t结算方式\t编号 1\t方式名\t支票\t现金\n");
    press(Qt::Key_Return);
    EXPECT_TRUE(entries().hasFocus());
    EXPECT_EQ(entries().currentRow(), 1);
}

TEST_F(LogWindowTest, LooksForWhatIsTypedWithEnter) {
    open();
    field("text").setFocus();
    typeText(&field("text"), "修改");
    press(Qt::Key_Return);
    EXPECT_EQ(column(entries(), 0), (Texts{"3"}));
    EXPECT_EQ(count(), "共 1 条");
    EXPECT_EQ(column(changes(), 5), (Texts{"现金", "是"}));
    EXPECT_TRUE(field("text").hasFocus());
    clickOn(*window, "全部显示(&A)");
    EXPECT_EQ(field("text").text(), "");
    EXPECT_EQ(entries().model()->rowCount(), 4);
}

TEST_F(LogWindowTest, OffersTheOperatorsAndFunctionsOfTheLog) {
    open();
    auto& operators = control<QComboBox>("operator");
    ASSERT_EQ(operators.count(), 3);
    EXPECT_EQ(operators.itemText(0), "(全部)");
    operators.setCurrentText("张三");
    clickOn(*window, "查询(&S)");
    EXPECT_EQ(column(entries(), 0), (Texts{"2", "1"}));
    auto& functions = control<QComboBox>("function");
    ASSERT_EQ(functions.count(), 3);
    EXPECT_EQ(functions.itemText(1), "(无)");
    functions.setCurrentIndex(1);
    clickOn(*window, "查询(&S)");
    EXPECT_EQ(column(entries(), 0), (Texts{"1"}));
    operators.setCurrentIndex(0);
    functions.setCurrentIndex(2);
    clickOn(*window, "查询(&S)");
    EXPECT_EQ(column(entries(), 0), (Texts{"3", "2"}));
}

TEST_F(LogWindowTest, ShowsThatNothingFits) {
    open();
    type(field("to"), "2020-01-01");
    press(Qt::Key_Return);
    EXPECT_EQ(entries().model()->rowCount(), 0);
    EXPECT_EQ(changes().model()->rowCount(), 0);
    EXPECT_EQ(heading(), "");
    EXPECT_EQ(count(), "没有符合条件的操作日志");
}

TEST_F(LogWindowTest, KeepsItsPlaceWhereATimeIsNone) {
    open();
    press(Qt::Key_Down);
    type(field("from"), "昨天");
    press(Qt::Key_Return);
    EXPECT_EQ(books.messages.onlyNotice().focusField, "from");
    EXPECT_EQ(entries().currentRow(), 1);
    EXPECT_EQ(changes().model()->rowCount(), 2);
}

TEST_F(LogWindowTest, ReadsWhatIsNewAndStaysOnItsEntry) {
    open();
    press(Qt::Key_Down);
    ASSERT_EQ(cell(entries(), entries().currentRow(), 0), "3");
    books.change("INSERT Settle VALUES( 2, '2', '汇票', 0 )");
    press(Qt::Key_F5);
    EXPECT_EQ(column(entries(), 0), (Texts{"5", "4", "3", "2", "1"}));
    EXPECT_EQ(cell(entries(), entries().currentRow(), 0), "3");
    EXPECT_EQ(column(changes(), 5), (Texts{"现金", "是"}));
}

TEST_F(LogWindowTest, ReadsMoreAsItIsScrolled) {
    books.flood(450);
    open();
    EXPECT_EQ(entries().model()->rowCount(), 200);
    EXPECT_EQ(count(), "已读入 200 条,往下滚动继续读入");
    press(Qt::Key_End);
    EXPECT_EQ(entries().model()->rowCount(), 400);
    EXPECT_EQ(entries().currentRow(), 199);
    entries().verticalScrollBar()->setValue(entries().verticalScrollBar()->maximum());
    settle();
    EXPECT_EQ(entries().model()->rowCount(), 454);
    EXPECT_EQ(count(), "共 454 条");
}

TEST_F(LogWindowTest, TellsThatMoreCannotBeRead) {
    books.flood(205);
    open();
    books.faulty->failCall(2);
    entries().verticalScrollBar()->setValue(entries().verticalScrollBar()->maximum());
    settle();
    books.faulty->failCall(0);
    EXPECT_EQ(books.messages.texts().size(), 1u);
    EXPECT_EQ(entries().model()->rowCount(), 200);
}

TEST_F(LogWindowTest, PrintsWhatItShows) {
    RecordingPrinter printer;
    const HostReportPrinter installed(printer);
    open();
    type(field("text"), "结算");
    press(Qt::Key_Return);
    choose("打印预览");
    ASSERT_EQ(printer.outputs.size(), 1u);
    EXPECT_EQ(printer.outputs[0].report.title, "操作日志");
    EXPECT_EQ(printer.outputs[0].report.rowCount(), 2u);
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(printer.outputs.size(), 2u);
}

TEST_F(LogWindowTest, HasAPageOfHelp) {
    open();
    press(Qt::Key_F1);
    auto* help = window->findChild<HelpWindow*>();
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->shownTitle(), "操作日志");
}

TEST_F(LogWindowTest, GoesThroughItsFieldsWithTab) {
    open();
    control<QComboBox>("operator").setFocus();
    QStringList order;
    for (int step = 0; step < 8; ++step) {
        order << window->focusWidget()->objectName();
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, (QStringList{"operator", "from", "to", "function", "text", "account", "search",
                                  "clear"}));
    EXPECT_TRUE(entries().hasFocus());
}

TEST_F(LogWindowTest, ClosesWithEscape) {
    open();
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(HubTest, OpensTheOperationLogForSupervisorsOnly) {
    OpenHub hub;
    hub.show();
    {
        const NextModal operatorHands([](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), "操作日志");
            window.close();
        });
        hub.PostCommand(33009);
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(m_messages.texts().empty());
    logOn(0);
    hub.PostCommand(33009);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_messages.onlyNotice().icon, MessageIcon::stop);
}

TEST(LogonOperationLog, IsShownFromTheLogOnWindowWhichStaysOpen) {
    Station station;
    station.make();
    const HostMessages installed(station.messages);
    station.open();
    clickOn(*station.window, "操作日志(&L)");
    EXPECT_EQ(station.messages.texts().back(), "请先填好操作员和口令,再查看操作日志");
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    {
        const NextModal operatorHands([](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), "操作日志");
            window.close();
        });
        clickOn(*station.window, "操作日志(&L)");
    }
    EXPECT_TRUE(station.window->isVisible());
    EXPECT_FALSE(station.session.isLoggedOn());
}

}  // namespace
}  // namespace chengheng::log_window_test
