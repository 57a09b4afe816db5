#include <QApplication>
#include <QFrame>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTimer>

#include "screen/CBalanceTableDlg.h"
#include "screen/help/help_window.h"
#include "tests/support/carry_books.h"
#include "tests/support/environment.h"
#include "tests/window/opening_fixture.h"
#include "tests/window/wait_watch.h"

using namespace chengheng;

namespace {

QStringList menuTexts(const OpenOpenings& window, int menu) {
    QStringList texts;
    for (const QAction* item : window.findChild<QMenuBar*>()->actions()[menu]->menu()->actions())
        texts.append(item->isSeparator() ? "|" : item->text());
    return texts;
}

}  // namespace

TEST_F(OpeningWindowTest, ListsTheChartWithItsFiguresInCodeOrder) {
    make();
    addSomeAccounts();
    books->addRows("100201", 12, 1234.5);
    open();
    EXPECT_EQ(window->windowTitle(), "期初余额录入");
    EXPECT_EQ(window->column(0), (Texts{"1001", "1002", "100201", "100202", "2202"}));
    EXPECT_EQ(window->column(1),
              (Texts{"科目1001", "科目1002", " 科目100201", " 科目100202", "科目2202"}));
    EXPECT_EQ(window->column(2), (Texts{"借", "借", "借", "借", "贷"}));
    EXPECT_EQ(window->column(opening), (Texts{"0.00", "1,234.50", "1,234.50", "0.00", "0.00"}));
    EXPECT_EQ(window->mode(), "");
    EXPECT_EQ(window->grid().font().pointSize(), 9);
}

TEST_F(OpeningWindowTest, DrawsNoBoxForAStateThatIsNone) {
    make();
    addSomeAccounts();
    open();
    EXPECT_FALSE(window->findChild<QLineEdit*>("mode")->isVisible());
    books->addVoucher();
    window->choose("刷新");
    EXPECT_TRUE(window->findChild<QLineEdit*>("mode")->isVisible());
}

TEST_F(OpeningWindowTest, BeginsOnTheFirstAccountThatTakesAFigure) {
    make();
    books->addAccounts({"1001", "1002", "100201"});
    books->change("1001", "sAssBook = 'B'");
    open();
    EXPECT_EQ(window->grid().currentRow(), 2);
    EXPECT_EQ(window->grid().currentIndex().column(), opening);
    window->type("5");
    EXPECT_TRUE(window->isEditing());
    window->press(Qt::Key_Escape);
}

TEST_F(OpeningWindowTest, KeepsItsWidthHoweverLongTheNameOfAnAccountIs) {
    make(OpeningLayout::midYear);
    books->addAccounts({"1001"});
    const std::string name(200, 'W');
    books->change("1001", "sName = '" + name + "'");
    open();
    EXPECT_EQ(window->label("account"), "1001 " + name);
    EXPECT_LT(window->minimumSizeHint().width(), 800);
    EXPECT_LE(window->width(), window->screen()->availableGeometry().width());
    EXPECT_LE(window->height(), window->screen()->availableGeometry().height());
}

TEST_F(OpeningWindowTest, HasItsMenusInTheStatedOrder) {
    make();
    open();
    QStringList captions;
    for (const QAction* menu : window->findChild<QMenuBar*>()->actions()) captions << menu->text();
    EXPECT_EQ(captions, (QStringList{"文件(&F)", "编辑(&E)", "查看(&V)", "帮助(&H)"}));
    EXPECT_EQ(menuTexts(*window, 0).mid(0, 3), (QStringList{"打印预览", "打印", "|"}));
    EXPECT_EQ(menuTexts(*window, 0).last(), "退出");
    EXPECT_EQ(menuTexts(*window, 1).mid(0, 3), (QStringList{"调余额方向", "|", "结转上年余额"}));
    EXPECT_EQ(menuTexts(*window, 2).mid(0, 4), (QStringList{"刷新", "试算平衡", "|", "查找"}));
    EXPECT_EQ(menuTexts(*window, 3), (QStringList{"帮助主题", "搜索", "|", "关于..."}));
    EXPECT_EQ(window->action("打印")->shortcut(), QKeySequence("Ctrl+P"));
    EXPECT_EQ(window->action("查找")->shortcut(), QKeySequence("Ctrl+K"));
}

TEST_F(OpeningWindowTest, ExplainsItsColoursInALegend) {
    make();
    books->addAccounts({"1001", "1002", "100201"});
    books->change("1001", "sAssBook = 'B'");
    open();
    const QColor auxiliary(0, 255, 255);
    const QColor parent(0xe0, 0xff, 0xe0);
    EXPECT_EQ(window->colour(0, 0), auxiliary);
    EXPECT_EQ(window->colour(1, opening), parent);
    EXPECT_EQ(window->colour(2, opening), QColor(Qt::white));
    QStringList texts;
    for (const QLabel* label : window->findChildren<QLabel*>()) texts << label->text();
    for (const char* text : {"非末级科目", "末级科目", "辅助科目"})
        EXPECT_TRUE(texts.contains(text)) << text;
    QList<QColor> samples;
    for (const QFrame* frame : window->findChildren<QFrame*>())
        if (frame->autoFillBackground() && frame->metaObject() == &QFrame::staticMetaObject &&
            frame->isVisible())
            samples << frame->palette().color(QPalette::Window);
    EXPECT_EQ(samples, (QList<QColor>{parent, Qt::white, auxiliary}));
}

TEST_F(OpeningWindowTest, ExplainsTheColourOfFiguresThatDisagreeInBooksThatBeginMidYear) {
    for (const OpeningLayout layout : {OpeningLayout::simple, OpeningLayout::midYear}) {
        make(layout);
        books->addAccounts({"1001"});
        open();
        const auto* entry = window->findChild<QWidget*>("disagreeing");
        EXPECT_EQ(entry->isVisible(), layout == OpeningLayout::midYear);
        EXPECT_EQ(entry->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly)->text(),
                  "期初不符");
    }
}

TEST_F(OpeningWindowTest, IsOnlyForBrowsingOnceThereIsAVoucher) {
    make();
    addSomeAccounts();
    books->addVoucher();
    open();
    EXPECT_EQ(window->mode(), "浏览,只读");
    EXPECT_TRUE(window->findChild<QLineEdit*>("mode")->isReadOnly());
    EXPECT_FALSE(window->isEnabled("清零"));
    EXPECT_FALSE(window->isEnabled("调余额方向"));
    EXPECT_FALSE(window->isEnabled("结转上年余额"));
    window->stand(0, opening);
    window->type("5");
    EXPECT_FALSE(window->isEditing());
    window->press(Qt::Key_F2);
    EXPECT_FALSE(window->isEditing());
    EXPECT_TRUE(books->rows().empty());
}

TEST_F(OpeningWindowTest, BecomesOneForBrowsingByARefreshAfterAVoucherCame) {
    make();
    addSomeAccounts();
    open();
    books->addVoucher();
    window->choose("刷新");
    EXPECT_EQ(window->mode(), "浏览,只读");
}

TEST_F(OpeningWindowTest, ShowsWhatWasCarriedForwardAndOffersItNoMore) {
    CarryBooks carried({"sqliteFile"});
    const EnvironmentSetting home("CHENGHENG_HOME", carried.registry().folder());
    installed.emplace(carried.messages());
    carried.now().addAccounts({"1001"});
    carried.now().addCredit("2202");
    carried.mirror();
    carried.close("1001", 7, 1, 3);
    open();
    window->choose("结转上年余额");
    EXPECT_TRUE(carried.messages().texts().empty());
    EXPECT_EQ(window->cell(0, opening), "5.00");
    EXPECT_EQ(window->label("remark"), "已结转 1 个科目,借方合计 5.00,贷方合计 0.00。");
    EXPECT_EQ(window->findChild<QLabel*>("remark")->palette().color(QPalette::WindowText),
              window->palette().color(QPalette::WindowText));
    EXPECT_FALSE(window->isEnabled("结转上年余额"));
    window.reset();
}

TEST_F(OpeningWindowTest, CarriesForwardOnlyIntoBooksWithoutSums) {
    make();
    addSomeAccounts();
    open();
    EXPECT_TRUE(window->isEnabled("结转上年余额"));
    window->choose("结转上年余额");
    EXPECT_EQ(messages().onlyNotice().text, "上年帐套不存在");
    EXPECT_TRUE(window->isEnabled("结转上年余额"));
    books->addRows("1001", 12, 5);
    window->choose("刷新");
    EXPECT_FALSE(window->isEnabled("结转上年余额"));
    EXPECT_TRUE(window->isEnabled("调余额方向"));
}

TEST_F(OpeningWindowTest, AnswersTheKeysOfCalendarAndCalculator) {
    make();
    addSomeAccounts();
    open();
    window->press(Qt::Key_F8);
    EXPECT_TRUE(messages().texts().empty());
    window->press(Qt::Key_F7);
    window->press(Qt::Key_F9);
    EXPECT_EQ(messages().texts(), (Texts{"调用会记日历", "调用计算器"}));
    for (const Notice& notice : messages().notices()) {
        EXPECT_EQ(notice.icon, MessageIcon::information);
        EXPECT_EQ(notice.caption, "澄恒财务软件");
    }
}

TEST_F(OpeningWindowTest, KeepsTheKeyF8ToItself) {
    make();
    addSomeAccounts();
    open();
    const auto isTaken = [this](Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&*window, &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(isTaken(Qt::Key_F8));
    EXPECT_FALSE(isTaken(Qt::Key_F6));
    EXPECT_TRUE(messages().texts().empty());
}

TEST_F(OpeningWindowTest, ShowsTheTrialBalanceInFiveTexts) {
    make();
    addSomeAccounts();
    books->addRows("1001", 12, 100);
    books->addRows("2202", 12, 100);
    open();
    Texts texts;
    const NextModal result([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "试算平衡");
        for (const QPlainTextEdit* field : dialog.findChildren<QPlainTextEdit*>())
            texts.push_back(field->toPlainText().toStdString());
        for (const QPushButton* button : dialog.findChildren<QPushButton*>())
            EXPECT_NE(button->text(), "可能原因(&C)...");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    window->choose("试算平衡");
    EXPECT_EQ(texts, (Texts{"资产 = 借\t100.00\n\n", "负债 = 贷\t100.00\n\n", "合计 = 借\t100.00",
                            "合计 = 贷\t100.00", "试算结果平衡"}));
}

TEST_F(OpeningWindowTest, TurnsTheDirectionOfATopLevelAccountAfterAsking) {
    make();
    addSomeAccounts();
    open();
    window->stand(2, opening);
    window->choose("调余额方向");
    EXPECT_EQ(messages().onlyNotice().text, "只能在总帐科目调整余额方向!");
    messages().forget();
    window->stand(1, opening);
    messages().willAnswer("是否调整 科目1002(1002) 科目的余额方向?\n\t    借--->贷", Answer::no);
    window->choose("调余额方向");
    EXPECT_EQ(window->column(2), (Texts{"借", "借", "借", "借", "贷"}));
    messages().willAnswer(Answer::yes);
    window->choose("调余额方向");
    EXPECT_EQ(window->column(2), (Texts{"借", "贷", "贷", "贷", "贷"}));
    EXPECT_EQ(messages().questions()[0].caption, "调整余额方向");
}

namespace {

/// Looks at the title of an auxiliary window and closes it.
std::function<void(QWidget&)> closesAuxiliary(const char* title) {
    return [title](QWidget& auxiliary) {
        EXPECT_EQ(auxiliary.windowTitle().toStdString(), title);
        QTest::keyClick(&auxiliary, Qt::Key_Escape);
    };
}

}  // namespace

TEST_F(OpeningWindowTest, ChecksTheDirectoriesBeforeAnAuxiliaryWindow) {
    make();
    books->addAccounts({"1001"});
    books->change("1001", "sAssBook = 'A'");
    open();
    auto middle = window->grid().visualRect(window->grid().model()->index(0, 1));
    const auto doubleClick = [&] {
        QTest::mouseClick(window->grid().viewport(), Qt::LeftButton, {}, middle.center());
        QTest::mouseDClick(window->grid().viewport(), Qt::LeftButton, {}, middle.center());
        // Else the next test finds the button still down.
        QTest::mouseRelease(window->grid().viewport(), Qt::LeftButton, {}, middle.center());
        QCoreApplication::processEvents();
    };
    doubleClick();
    EXPECT_TRUE(messages().texts().empty());
    middle = window->grid().visualRect(window->grid().model()->index(0, opening));
    doubleClick();
    EXPECT_EQ(messages().onlyNotice().text, "请先定义个人目录");
    messages().forget();
    books->books().run("INSERT Person (lId) VALUES(1)\r\nINSERT Dept (lId) VALUES(1)");
    {
        const NextModal opened(closesAuxiliary("个人往来期初"));
        doubleClick();
    }
    const NextModal opened(closesAuxiliary("个人往来期初"));
    window->press(Qt::Key_F2);
    EXPECT_TRUE(messages().texts().empty());
}

TEST_F(OpeningWindowTest, OpensAuxiliaryFiguresWhileBrowsingAndSavesNothingAfterwards) {
    make();
    books->addAccounts({"1001", "1002", "100201"});
    books->change("100201", "sAssBook = 'C'");
    books->addRows("100201", 12, 5);
    books->books().run("INSERT Dept (lId) VALUES(1)");
    books->addVoucher();
    open();
    window->stand(2, opening);
    const NextModal opened([](QWidget& auxiliary) {
        EXPECT_EQ(auxiliary.windowTitle(), "部门核算期初");
        EXPECT_EQ(auxiliary.findChild<QLineEdit*>("mode")->text(), "浏览、只读");
        QTest::keyClick(&auxiliary, Qt::Key_Escape);
    });
    window->choose("录入辅助期初");
    EXPECT_TRUE(messages().texts().empty());
    EXPECT_EQ(books->openings("1002"), "");
}

TEST_F(OpeningWindowTest, SavesAfterAnAuxiliaryWindow) {
    make();
    books->addAccounts({"1002", "100201"});
    books->change("100201", "sAssBook = 'C'");
    books->books().run("INSERT Dept (lId) VALUES(1)");
    open();
    books->addRows("100201", 12, 5);
    window->stand(1, opening);
    const NextModal opened(closesAuxiliary("部门核算期初"));
    window->choose("录入辅助期初");
    EXPECT_EQ(window->column(opening), (Texts{"5.00", "5.00"}));
    EXPECT_EQ(books->openings("1002").substr(0, 7), "1=5 2=5");
}

TEST_F(OpeningWindowTest, OpensTheAuxiliaryFiguresOfTheCurrentAccountFromItsMenusToo) {
    make();
    books->addAccounts({"1001", "1002"});
    books->change("1002", "sAssBook = 'C'");
    open();
    EXPECT_FALSE(window->isEnabled("录入辅助期初"));
    window->stand(1, 1);
    EXPECT_TRUE(window->isEnabled("录入辅助期初"));
    window->choose("录入辅助期初");
    EXPECT_EQ(messages().onlyNotice().text, "请先定义部门目录");
}

TEST_F(OpeningWindowTest, OffersItsCommandsOnARightClick) {
    make();
    addSomeAccounts();
    open();
    QStringList texts;
    QTimer::singleShot(50, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (const QAction* item : menu->actions())
            texts << (item->isSeparator() ? "|" : item->text() + (item->isEnabled() ? "" : "-"));
        menu->close();
    });
    emit window->grid().customContextMenuRequested({50, 50});
    EXPECT_EQ(texts, (QStringList{"撤销-", "重做-", "|", "复制", "粘贴", "清零", "|",
                                  "录入辅助期初-", "调余额方向", "|", "查找", "刷新", "试算平衡",
                                  "不平衡的可能原因", "|", "修改历史"}));
}

TEST_F(OpeningWindowTest, KeepsTheSelectionThatARightClickFallsOn) {
    make();
    addSomeAccounts();
    open();
    window->stand(2, opening);
    window->press(Qt::Key_Down, Qt::ShiftModifier);
    const auto middle = [&](int row) {
        return window->grid().visualRect(window->grid().model()->index(row, opening)).center();
    };
    const auto selected = [&] { return window->grid().selectionModel()->selectedIndexes().size(); };
    QTest::mouseClick(window->grid().viewport(), Qt::RightButton, {}, middle(2));
    EXPECT_EQ(selected(), 2);
    QTest::mouseClick(window->grid().viewport(), Qt::RightButton, {}, middle(4));
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(window->grid().currentRow(), 4);
}

TEST_F(OpeningWindowTest, OpensHelpAboutItself) {
    make();
    open();
    const auto shownTitle = [this] {
        const auto* help = window->findChild<HelpWindow*>();
        return help == nullptr ? QString() : help->shownTitle();
    };
    window->press(Qt::Key_F1);
    EXPECT_EQ(shownTitle(), "期初余额录入");
    window->findChild<HelpWindow*>()->close();
    OpenOpenings::letEventsTurn();
    window->choose("帮助主题");
    EXPECT_EQ(shownTitle(), "期初余额录入");
    window->choose("搜索");
    EXPECT_TRUE(window->findChild<HelpWindow*>()->findChild<QLineEdit*>()->hasFocus());
}

TEST_F(OpeningWindowTest, SaysThatItReadsTheFiguresAgain) {
    make();
    addSomeAccounts();
    open();
    const WaitWatch watch;
    window->choose("刷新");
    EXPECT_EQ(watch.text(), "正在刷新期初数据,请稍候.....");
}

TEST_F(OpeningWindowTest, SaysWhichProgramItBelongsTo) {
    make();
    open();
    window->choose("关于...");
    EXPECT_EQ(messages().onlyNotice().text.substr(0, 18), "澄恒财务软件");
}

TEST_F(OpeningWindowTest, FindsAccountsByCodeOrNameFromWhereItStands) {
    make();
    addSomeAccounts();
    open();
    window->press(Qt::Key_K, Qt::ControlModifier);
    ASSERT_EQ(window->focusWidget(), &window->searchField());
    typeText(&window->searchField(), "1002");
    EXPECT_EQ(window->grid().currentRow(), 1);
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->grid().currentRow(), 1) << "the match that is shown";
    window->press(Qt::Key_Return);
    EXPECT_EQ(window->grid().currentRow(), 2);
    window->press(Qt::Key_Up);
    EXPECT_EQ(window->grid().currentRow(), 1);
    window->press(Qt::Key_Up);
    EXPECT_EQ(window->grid().currentRow(), 3);
    window->searchField().selectAll();
    typeText(&window->searchField(), "没有");
    EXPECT_EQ(window->label("searchResult"), "没有匹配的科目");
    window->grid().setCurrentIndex(window->grid().model()->index(0, opening));
    EXPECT_EQ(window->label("searchResult"), "");
    typeText(&window->searchField(), "x");
    EXPECT_EQ(window->label("searchResult"), "没有匹配的科目");
    window->searchField().clear();
    EXPECT_EQ(window->label("searchResult"), "");
    window->press(Qt::Key_Escape);
    EXPECT_EQ(window->focusWidget(), &window->grid());
    EXPECT_EQ(window->grid().currentIndex().column(), opening);
}

TEST_F(OpeningWindowTest, DoesNotOpenOnBooksThatCannotBeRead) {
    make();
    books->books().engine().failCall(1, Failure::lost);
    OpenOpenings unopened;
    EXPECT_EQ(unopened.DoModal(), QDialog::Rejected);
    EXPECT_EQ(messages().texts().size(), 1);
}
