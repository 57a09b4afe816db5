#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>

#include "tests/support/kept_log.h"
#include "tests/window/auxiliary_fixture.h"
#include "tests/window/chart_fixture.h"
#include "tests/window/currency_fixture.h"
#include "tests/window/division_fixture.h"
#include "tests/window/opening_fixture.h"
#include "tests/window/settle_fixture.h"

using namespace chengheng;

namespace {

using Texts = std::vector<std::string>;

/// "kind item before after" of each line of a history's grid.
Texts linesOf(QWidget& history) {
    constexpr int kind = 3;
    constexpr int after = 6;
    const QAbstractItemModel& model = *history.findChild<CVCF1*>()->model();
    Texts lines;
    for (int row = 0; row < model.rowCount(); ++row) {
        std::string line;
        for (int column = kind; column <= after; ++column)
            line += (column > kind ? "|" : "") +
                    model.index(row, column).data().toString().toStdString();
        lines.push_back(line);
    }
    return lines;
}

/// Opens the context menu of a grid by the keyboard, goes to its last command and runs it.
void chooseLast(QWidget& grid) {
    QTimer::singleShot(0, [] {
        QWidget* const menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        QTest::keyClick(menu, Qt::Key_Up);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, grid.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&grid, &event);
    QCoreApplication::processEvents();
}

/// What a history showed when it was chosen.
struct ShownHistory {
    bool hasCome = false;
    QString title;
    QStringList labels;
    Texts lines;
};

ShownHistory shownBy(const std::function<void()>& choose) {
    ShownHistory shown;
    const NextModal dialog([&shown](QWidget& history) {
        QCoreApplication::processEvents();
        shown.title = history.windowTitle();
        for (const auto* label : history.findChildren<QLabel*>()) shown.labels << label->text();
        shown.lines = linesOf(history);
        EXPECT_EQ(history.findChild<CVCF1*>()->horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(history.focusWidget(), history.findChild<CVCF1*>());
        QTest::keyClick(history.focusWidget(), Qt::Key_Escape);
    });
    choose();
    shown.hasCome = dialog.hasCome();
    return shown;
}

class HistoryOfAccountsTest : public ChartTest {};
class HistoryOfFiguresTest : public OpeningWindowTest {};
class HistoryOfMethodsTest : public SettleWindowTest {};
class HistoryOfCurrenciesTest : public CurrencyWindowTest {};
class HistoryOfOperatorsTest : public DivisionWindowTest {};
class HistoryOfEntriesTest : public AuxiliaryWindowTest {};

}  // namespace

TEST_F(HistoryOfAccountsTest, IsShownForTheCurrentAccountNewestFirst) {
    addSomeAccounts();
    const KeptLog log(books.database());
    change("1002", [](_CodeInfo& account) { account.sName = "银行"; });
    change("1002", [](_CodeInfo& account) { account.sName = "银行存款"; });
    change("1001", [](_CodeInfo& account) { account.sName = "现金"; });
    open();
    window->grid().setCurrentRow(1);
    const ShownHistory shown = shownBy([this] { chooseLast(*window->grid().viewport()); });
    ASSERT_TRUE(shown.hasCome);
    EXPECT_EQ(shown.title, "修改历史");
    EXPECT_EQ(shown.labels, QStringList{"1002 银行存款"});
    ASSERT_GE(shown.lines.size(), 2U);
    EXPECT_EQ(shown.lines[0], "修改|科目名称|银行|银行存款");
    EXPECT_EQ(shown.lines[1], "修改|科目名称|银行存款|银行");
}

TEST_F(HistoryOfAccountsTest, SaysWhereNothingIsTold) {
    const KeptLog log(books.database());
    ASSERT_TRUE(books.engine().script("INSERT INTO Code (lId, sCode) VALUES (1, '1001')"));
    open();
    EXPECT_EQ(shownBy([this] { window->choose("修改历史"); }).labels.last(),
              "操作日志中没有它的修改记录。");
}

TEST_F(HistoryOfAccountsTest, SaysThatBooksHaveNoLog) {
    addSomeAccounts();
    open();
    ASSERT_TRUE(books.engine().script("DROP TABLE IF EXISTS OperationLogPart"));
    ASSERT_TRUE(books.engine().script("DROP TABLE IF EXISTS OperationLog"));
    EXPECT_EQ(shownBy([this] { window->choose("修改历史"); }).labels.last(),
              "帐套没有操作日志,没有修改历史。");
}

TEST_F(HistoryOfAccountsTest, IsNotOfferedWithoutAnAccount) {
    open();
    EXPECT_FALSE(window->isEnabled("修改历史"));
}

TEST_F(HistoryOfAccountsTest, TellsAFailureToRead) {
    addSomeAccounts();
    const KeptLog log(books.database());
    open();
    books.engine().failCall(1, Failure::lost);
    window->choose("修改历史");
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    books.engine().failCall(0);
    EXPECT_EQ(books.messages().notices().size(), 1U);
}

TEST_F(HistoryOfFiguresTest, IsShownForTheCurrentFigureAlone) {
    make();
    addSomeAccounts();
    const KeptLog log(books->database());
    open();
    window->stand(0, opening);
    window->type("5\r8\r");
    window->stand(0, opening);
    window->type("7\r");
    window->stand(0, opening);
    const ShownHistory shown = shownBy([this] { chooseLast(*window->grid().viewport()); });
    ASSERT_TRUE(shown.hasCome);
    EXPECT_EQ(shown.labels, QStringList{"1001 科目1001 期初余额"});
    EXPECT_EQ(shown.lines.size(), 2U);
    EXPECT_TRUE(shown.lines[0].ends_with("|5|7")) << shown.lines[0];
    EXPECT_TRUE(shown.lines[1].ends_with("||5")) << shown.lines[1];
    window->stand(0, 1);
    EXPECT_EQ(shownBy([this] { window->choose("修改历史"); }).lines, shown.lines)
        << "of the opening, beside the figures";
}

TEST_F(HistoryOfMethodsTest, IsShownForTheSelectedMethod) {
    books.insert({"1 现金", "2 支票"});
    const KeptLog log(books.database);
    open();
    press(Qt::Key_Down);
    name().setFocus();
    name().selectAll();
    typeText(&name(), "转帐支票");
    press(Qt::Key_Return);
    const ShownHistory shown = shownBy([this] { chooseLast(*tree().viewport()); });
    ASSERT_TRUE(shown.hasCome);
    EXPECT_EQ(shown.labels, QStringList{"2 转帐支票"});
    ASSERT_FALSE(shown.lines.empty());
    EXPECT_TRUE(shown.lines[0].ends_with("|支票|转帐支票")) << shown.lines[0];
}

TEST_F(HistoryOfMethodsTest, IsNotOfferedWhileOneIsAdded) {
    open();
    QTimer::singleShot(0, [] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        EXPECT_FALSE(menu->actions().first()->isEnabled());
        QTest::keyClick(menu, Qt::Key_Escape);
    });
    emit tree().customContextMenuRequested({5, 5});
}

TEST_F(HistoryOfCurrenciesTest, IsShownForACurrencyAndForARate) {
    books.insert("USD", "美元");
    const KeptLog log(books.database);
    open();
    stand(2, 1);
    keys("7.1");
    press(Qt::Key_Return);
    stand(2, 1);
    const ShownHistory rate = shownBy([this] { chooseLast(*grid().viewport()); });
    ASSERT_TRUE(rate.hasCome);
    EXPECT_EQ(rate.labels, QStringList{"USD 美元 2026.03 记帐汇率"});
    ASSERT_FALSE(rate.lines.empty());
    EXPECT_TRUE(rate.lines[0].ends_with("|7.1")) << rate.lines[0];
    stand(2, 2);
    const ShownHistory adjustment = shownBy([this] { chooseLast(*grid().viewport()); });
    EXPECT_EQ(adjustment.labels.first(), "USD 美元 2026.03 调整汇率");
    for (const std::string& line : adjustment.lines) EXPECT_FALSE(line.starts_with("修改"));
    books.run("UPDATE Cyrency SET sExchName = '美金' WHERE lId = 1");
    const ShownHistory currency = shownBy([this] { chooseLast(*tree().viewport()); });
    ASSERT_TRUE(currency.hasCome);
    ASSERT_FALSE(currency.lines.empty());
    EXPECT_TRUE(currency.lines[0].ends_with("|美元|美金")) << currency.lines[0];
}

TEST_F(HistoryOfOperatorsTest, IsShownForTheSelectedOperator) {
    open();
    const KeptLog log(books.database);
    books.run("UPDATE Users SET sUserName = '李鸣' WHERE lUserId = 2");
    click("李明");
    const ShownHistory shown = shownBy([this] { chooseLast(*tree().viewport()); });
    ASSERT_TRUE(shown.hasCome);
    EXPECT_EQ(shown.labels, QStringList{"李明"});
    ASSERT_FALSE(shown.lines.empty());
    EXPECT_TRUE(shown.lines[0].ends_with("|李明|李鸣")) << shown.lines[0];
}

TEST_F(HistoryOfEntriesTest, IsShownForTheCurrentEntry) {
    const KeptLog log(books.database());
    add(1, 5);
    add(2, 7);
    open();
    const AuxiliaryEntry first = books.stored(member).front();
    window->entries().setCurrentRow(0);
    const ShownHistory shown = shownBy([this] { chooseLast(*window->entries().viewport()); });
    ASSERT_TRUE(shown.hasCome);
    EXPECT_EQ(shown.labels.size(), 1);
    EXPECT_TRUE(shown.labels[0].endsWith(QString::fromStdString(first.content.summary)));
    EXPECT_FALSE(shown.lines.empty());
    for (const std::string& line : shown.lines) EXPECT_TRUE(line.starts_with("增加|")) << line;
}
