#include <QApplication>
#include <QClipboard>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

#include "screen/help/help_window.h"
#include "tests/support/told_failures.h"
#include "tests/window/chart_fixture.h"
#include "tests/window/wait_watch.h"

using namespace chengheng;

namespace {

/// Types into the find dialog that is coming up and ends it as `end` does.
NextModal find(const QString& wanted, std::function<void(QWidget&)> end) {
    return NextModal([wanted, end = std::move(end)](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "查找科目");
        auto* field = window.findChild<QLineEdit*>();
        field->setText(wanted);
        end(window);
    });
}

void pressEnter(QWidget& window) {
    QTest::keyClick(window.findChild<QLineEdit*>(), Qt::Key_Return);
}

void cancel(QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }

}  // namespace

TEST_F(ChartTest, ListsAllAccountsInCodeOrderIndentedByLevel) {
    addSomeAccounts();
    open();
    EXPECT_EQ(window->windowTitle(), "会计科目");
    EXPECT_EQ(codes(), (Texts{"1001", "1002", "100201", "10020101", "100202", "2202"}));
    EXPECT_EQ(window->column(0), (Texts{"1", "1", "2", "3", "2", "1"}));
    EXPECT_EQ(window->column(2), (Texts{"库存现金", "银行存款", "  工商银行", "    人民币户",
                                        "  建设银行", "应付帐款"}));
    EXPECT_EQ(window->column(3), (Texts{"", "", "", "", "美元", ""}));
    EXPECT_EQ(window->column(4), (Texts{"", "", "", "", "", "单位往来"}));
    EXPECT_EQ(window->grid().currentRow(), 0);
    EXPECT_TRUE(window->hasLabel("科目级长:4222"));
    EXPECT_TRUE(window->hasLabel("科目个数:6"));
}

TEST_F(ChartTest, HasTheHeadersOfItsFiveColumns) {
    open();
    Texts headers;
    for (int column = 0; column < window->grid().model()->columnCount(); ++column)
        headers.push_back(
            window->grid().model()->headerData(column, Qt::Horizontal).toString().toStdString());
    EXPECT_EQ(headers, (Texts{"级\n次", "科目编码", "科目名称 ", "外币币种", "辅助核算"}));
}

TEST_F(ChartTest, DoesNotOpenWithoutAccountClasses) {
    books.run("DELETE zCodeClass");
    OpenChart chart;
    EXPECT_EQ(chart.DoModal(), QDialog::Rejected);
    EXPECT_FALSE(chart.isVisible());
    const Notice notice = books.messages().onlyNotice();
    EXPECT_EQ(notice.text, "分类数据为空!");
}

TEST_F(ChartTest, SaysWhenTheAccountsCannotBeLoadedAnewAtItsEnd) {
    addSomeAccounts();
    open();
    books.engine().failCall(1, Failure::full);
    window->OnCommand(chart_command::exit);
    EXPECT_TRUE(books.engine().hasFailed());
    EXPECT_THAT(books.messages().onlyNotice().text, tellsOf(Failure::full));
    EXPECT_EQ(CGetData::GetCODEINFOByCode("1001"), nullptr);
}

TEST_F(ChartTest, HasOneBoxForADatabaseThatDoesNotAnswer) {
    books.messages().whileShown([&](const std::string&) { books.engine().failCall(1); });
    books.engine().failCall(1);
    OpenChart chart;
    EXPECT_EQ(chart.DoModal(), QDialog::Rejected);
    EXPECT_TRUE(books.engine().hasFailed()) << "the accounts are loaded anew all the same";
    EXPECT_THAT(books.messages().onlyNotice().text, tellsOf(Failure::full));
}

TEST_F(ChartTest, HasATabForAllAndForEachOfAtMostFiveClasses) {
    int id = 3;
    for (const char* name : {"共同", "权益", "成本", "损益", "表外"}) {
        books.run(formatSql("INSERT zCodeClass (lId, lNum, sClsName) VALUES(%d, %d, '%s')", id, id,
                            name));
        ++id;
    }
    open();
    EXPECT_EQ(window->tabs().count(), 6);
    EXPECT_EQ(window->tabs().tabText(0), "全部");
    EXPECT_EQ(window->tabs().tabText(1), "资产");
    EXPECT_EQ(window->tabs().currentIndex(), 0);
}

TEST_F(ChartTest, ListsOnlyTheAccountsOfTheTabThatIsClicked) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(4);
    QTest::mouseClick(&window->tabs(), Qt::LeftButton, {}, window->tabs().tabRect(2).center());
    EXPECT_EQ(codes(), Texts{"2202"});
    EXPECT_EQ(window->grid().currentRow(), 0);
    EXPECT_TRUE(window->hasLabel("科目个数:1"));
    QTest::keyClick(&window->tabs(), Qt::Key_Left);
    EXPECT_EQ(codes().size(), 5);
    window->OnCommand(chart_command::allAccounts);
    EXPECT_EQ(codes().size(), 6);
    EXPECT_EQ(window->tabs().currentIndex(), 0);
}

TEST_F(ChartTest, ShowsOneBlankLineAndOnlyAddAndDesignateOnAnEmptyChart) {
    open();
    EXPECT_EQ(codes(), Texts{""});
    EXPECT_TRUE(window->hasLabel("科目个数:0"));
    for (const char* text : {"打印", "打印预览", "删除", "修改", "复制", "查找", "使用情况"})
        EXPECT_FALSE(window->isEnabled(text)) << text;
    for (const char* text : {"增加", "指定科目", "刷新", "退出"})
        EXPECT_TRUE(window->isEnabled(text)) << text;
    window->press(Qt::Key_Return);
    QTest::mouseDClick(window->grid().viewport(), Qt::LeftButton, {}, {60, 5});
    QTest::mouseRelease(window->grid().viewport(), Qt::LeftButton, {}, {60, 5});
    QCoreApplication::processEvents();
    EXPECT_TRUE(books.messages().texts().empty());
}

TEST_F(ChartTest, HasItsToolBarInTheStatedOrder) {
    open();
    QStringList texts;
    for (const QAction* action : window->findChild<QToolBar*>()->actions())
        texts.append(action->isSeparator() ? "|" : action->text());
    EXPECT_EQ(texts.join(" "),
              "| 打印 打印预览 | 增加 删除 修改 指定科目 | 复制 查找 | 帮助主题 退出 |");
}

TEST_F(ChartTest, FindsAWholeCodeTypedWithBlanksBeforeIt) {
    addSomeAccounts();
    open();
    const NextModal dialog = find("  100202", pressEnter);
    window->press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(window->currentCode(), "100202");
    EXPECT_TRUE(window->grid().selectionModel()->isRowSelected(4));
}

TEST_F(ChartTest, FindsAnIndentedNameInAnyCaseOnTheTabOfAllAccounts) {
    addSomeAccounts();
    books.add("10020102", "usd户");
    open();
    window->OnCommand(chart_command::allAccounts + 2);
    const NextModal dialog = find("USD户", pressEnter);
    window->choose("查找");
    EXPECT_EQ(window->tabs().currentIndex(), 0);
    EXPECT_EQ(window->currentCode(), "10020102");
}

TEST_F(ChartTest, SaysThatNoAccountIsCalledSo) {
    addSomeAccounts();
    open();
    for (const char* wanted : {"10", "现金", ""}) {
        const NextModal dialog = find(wanted, pressEnter);
        window->choose("查找");
        const Notice notice = books.messages().onlyNotice();
        EXPECT_EQ(notice.text, "非法的科目!");
        EXPECT_EQ(notice.icon, MessageIcon::warning);
        books.messages().forget();
    }
}

TEST_F(ChartTest, DoesNothingWhenFindingIsGivenUp) {
    addSomeAccounts();
    open();
    window->OnCommand(chart_command::allAccounts + 1);
    const NextModal dialog = find("2202", cancel);
    window->choose("查找");
    EXPECT_EQ(window->tabs().currentIndex(), 1);
    EXPECT_EQ(window->currentCode(), "1001");
    EXPECT_TRUE(books.messages().texts().empty());
}

TEST_F(ChartTest, SwallowsTheKeyThatComesUpAfterFinding) {
    addSomeAccounts();
    open();
    {
        const NextModal dialog = find("1002", pressEnter);
        window->choose("查找");
    }
    QTest::keyRelease(&window->grid(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    const NextModal dialog([](QWidget& modify) {
        EXPECT_EQ(modify.windowTitle(), "会计科目_修改");
        cancel(modify);
    });
    window->press(Qt::Key_Return);
}

TEST_F(ChartTest, TakesAnEnterPressedInAWindowThatHasClosedForNothing) {
    addSomeAccounts();
    open();
    QTest::keyRelease(&window->grid(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ChartTest, ModifiesTheAccountThatIsDoubleClicked) {
    addSomeAccounts();
    open();
    const NextModal dialog([](QWidget& modify) {
        EXPECT_EQ(modify.windowTitle(), "会计科目_修改");
        EXPECT_EQ(modify.findChild<QLineEdit*>("sCode")->text(), "100201");
        cancel(modify);
    });
    const QPoint place = window->grid().visualRect(window->grid().model()->index(2, 1)).center();
    QTest::mouseClick(window->grid().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(window->grid().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(window->grid().viewport(), Qt::LeftButton, {}, place);
    QCoreApplication::processEvents();
    EXPECT_EQ(window->currentCode(), "100201");
}

TEST_F(ChartTest, SaysThatAnAccountIsGoneAndListsTheChartAgain) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(4);
    books.run("DELETE Code WHERE sCode = '100202'");
    window->choose("修改");
    EXPECT_EQ(books.messages().onlyNotice().text, "科目(100202)已经删除!");
    EXPECT_EQ(codes().size(), 5);
    EXPECT_EQ(window->currentCode(), "2202");
}

TEST_F(ChartTest, ReadsTheTabAgainAndGoesToItsTop) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(3);
    books.add("1003", "其他货币资金");
    const WaitWatch watch;
    window->choose("刷新");
    EXPECT_EQ(watch.text(), "正在刷新期初数据,请稍侯.....");
    EXPECT_EQ(codes().size(), 7);
    EXPECT_EQ(window->grid().currentRow(), 0);
}

TEST_F(ChartTest, KeepsABlankLineAndTellsWhyWhenTheAccountsCannotBeRead) {
    addSomeAccounts();
    open();
    for (const int call : {1, 2}) {
        books.engine().failCall(call, Failure::full);
        window->OnCommand(chart_command::allAccounts);
        EXPECT_TRUE(books.engine().hasFailed());
        books.engine().failCall(0);
        EXPECT_EQ(codes(), Texts{""});
        EXPECT_FALSE(window->isEnabled("修改"));
        EXPECT_FALSE(books.messages().onlyNotice().text.empty());
        books.messages().forget();
    }
}

TEST_F(ChartTest, JumpsToWhatIsTypedIntoTheSearch) {
    addSomeAccounts();
    open();
    QTest::keyClicks(&window->searchField(), "1002");
    EXPECT_EQ(window->currentCode(), "1002");
    EXPECT_TRUE(window->hasLabel("1/4"));
    QTest::keyClick(&window->searchField(), Qt::Key_Return);
    EXPECT_EQ(window->currentCode(), "1002") << "the match that is shown";
    QTest::keyClick(&window->searchField(), Qt::Key_Return);
    QTest::keyClick(&window->searchField(), Qt::Key_Down);
    EXPECT_EQ(window->currentCode(), "10020101");
    EXPECT_TRUE(window->hasLabel("3/4"));
    QTest::keyClick(&window->searchField(), Qt::Key_Up);
    EXPECT_EQ(window->currentCode(), "100201");
    window->searchField().setText("银行");
    EXPECT_TRUE(window->hasLabel("2/3"));
    window->searchField().setText("yfz");
    EXPECT_EQ(window->currentCode(), "2202");
    EXPECT_TRUE(window->grid().model()->index(5, 1).data(Qt::BackgroundRole).isValid());
    window->searchField().setText("没有");
    EXPECT_TRUE(window->hasLabel("没有匹配的科目"));
    QTest::keyClick(&window->grid(), Qt::Key_Up);
    EXPECT_FALSE(window->hasLabel("没有匹配的科目"));
    QTest::keyClick(&window->searchField(), Qt::Key_Escape);
    EXPECT_EQ(window->searchField().text(), "");
    EXPECT_TRUE(window->grid().hasFocus());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(ChartTest, StaysOpenOnEscapeAndEnterAndClosesByItsCommand) {
    addSomeAccounts();
    open();
    for (QWidget* place : {static_cast<QWidget*>(&window->grid()), static_cast<QWidget*>(&*window)})
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Enter, Qt::Key_Escape}) {
            if (place == &window->grid() && key == Qt::Key_Enter) continue;
            QTest::keyClick(place, key);
            QCoreApplication::processEvents();
            EXPECT_TRUE(window->isVisible());
        }
    EXPECT_TRUE(books.messages().texts().empty());
    window->OnCommand(chart_command::exit);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ChartTest, SearchesForWhatIsTypedIntoTheGrid) {
    addSomeAccounts();
    open();
    QTest::keyClicks(&window->grid(), "2");
    EXPECT_TRUE(window->searchField().hasFocus());
    EXPECT_EQ(window->searchField().text(), "2");
    EXPECT_EQ(window->currentCode(), "2202");
}

TEST_F(ChartTest, PassesTheTabKeyFromTheGridToTheSearchAndTheClassesAndBack) {
    addSomeAccounts();
    open();
    ASSERT_TRUE(window->grid().hasFocus());
    QTest::keyClick(&window->grid(), Qt::Key_Tab);
    EXPECT_TRUE(window->searchField().hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(window->findChild<QTabBar*>()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(window->grid().hasFocus());
}

TEST_F(ChartTest, NamesTheAccountsAboveTheOneUnderThePointer) {
    addSomeAccounts();
    open();
    const auto tipAt = [this](int x) {
        const QPoint place(x, window->grid().rowViewportPosition(3) + 5);
        QTest::mouseMove(window->grid().viewport(), place);
        QCoreApplication::processEvents();
        return window->grid().viewport()->toolTip();
    };
    EXPECT_EQ(tipAt(60), "银行存款 / 工商银行 / 人民币户");
    EXPECT_EQ(tipAt(20), "");
}

TEST_F(ChartTest, OpensHelpAboutItself) {
    open();
    window->choose("帮助主题");
    auto* help = window->findChild<HelpWindow*>();
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->shownTitle(), "会计科目");
    window->choose("搜索");
    EXPECT_TRUE(help->findChild<QLineEdit*>()->hasFocus());
    window->choose("关于...");
    EXPECT_TRUE(books.messages().texts().empty());
}

TEST_F(ChartTest, ShowsAnEmptyBoxForTheCommandWithoutAMenu) {
    open();
    window->OnMenuOutput();
    EXPECT_EQ(books.messages().onlyNotice().text, "");
}

TEST_F(ChartTest, ClosesOnExitAndLoadsTheHostsAccountsAnew) {
    addSomeAccounts();
    open();
    EXPECT_EQ(CGetData::GetCODEINFOByCode("1001"), nullptr);
    window->choose("退出");
    EXPECT_FALSE(window->isVisible());
    EXPECT_NE(CGetData::GetCODEINFOByCode("1001"), nullptr);
}
