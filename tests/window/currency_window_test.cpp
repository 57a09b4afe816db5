#include "screen/help/help_window.h"
#include "screen/message_boxes.h"
#include "tests/window/currency_fixture.h"
#include "tests/window/next_modal.h"

using namespace chengheng;

TEST_F(CurrencyWindowTest, ShowsTheFirstCurrencyAndItsFixedRates) {
    books.insert("USD", "美元");
    books.insert("JPY", "日元");
    books.run("UPDATE ExchgFix SET dRate = 1234.5, dAdjustRate = 7.1 WHERE lId = 2");
    open();
    EXPECT_EQ(window->windowTitle(), "汇率管理");
    EXPECT_EQ(leaves(), (Texts{"美元", "日元"}));
    EXPECT_EQ(selectedLeaf(), "美元");
    EXPECT_EQ(shownInput(), "USD 美元 * 5 0") << "the maximum error in whole numbers";
    EXPECT_TRUE(fixedRate().isChecked());
    EXPECT_FALSE(month().isEnabled());
    EXPECT_EQ(month().currentText(), "2026.05");
    EXPECT_EQ(month().count(), 12);
    EXPECT_EQ(month().itemText(11), "2026.12");
    EXPECT_EQ(headers(), (Texts{"月份", "记帐汇率", "调整汇率"}));
    ASSERT_EQ(rows(), 12);
    EXPECT_EQ(cell(0, 0), "2026.01");
    EXPECT_EQ(cell(0, 1), "");
    EXPECT_EQ(cell(1, 1), "1,234.50000");
    EXPECT_EQ(cell(1, 2), "7.10000");
    EXPECT_TRUE(grid().isColumnHidden(3));
    EXPECT_EQ(cell(1, 3), "2");
    EXPECT_FALSE(ok().isEnabled());
    EXPECT_TRUE(canDelete());
    EXPECT_FALSE(isMarkedUsed());
}

TEST_F(CurrencyWindowTest, HasTheCaptionsOfItsFieldsMenusAndTools) {
    openWithTwo();
    EXPECT_EQ(symbol().maxLength() > 8, true) << "the limit is in characters, not in units";
    Texts menus;
    for (const QAction* menu : qobject_cast<QMenuBar*>(window->layout()->menuBar())->actions()) {
        menus.push_back(menu->text().toStdString());
        for (const QAction* item : menu->menu()->actions())
            menus.push_back(item->isSeparator() ? "-" : item->text().toStdString());
    }
    EXPECT_EQ(menus,
              (Texts{"文件(&F)", "打印预览", "打印",     "-",           "导入...",    "导出...",
                     "-",        "退出",     "编辑(&E)", "增加",        "删除",       "-",
                     "撤销",     "重做",     "-",        "粘贴汇率...", "下一个缺口", "补齐缺口...",
                     "帮助(&H)", "帮助主题", "搜索",     "-",           "关于..."}));
    Texts tools;
    for (const QAction* tool : window->findChild<QToolBar*>()->actions())
        if (!tool->isSeparator()) tools.push_back(tool->iconText().toStdString());
    EXPECT_EQ(tools, (Texts{"打印", "打印预览", "增加", "删除", "帮助", "退出"}));
    EXPECT_EQ(window->findChild<QGroupBox*>()->title(), "外币设置");
    Texts labels;
    for (const QLabel* label : window->findChild<QGroupBox*>()->findChildren<QLabel*>())
        if (label->buddy()) labels.push_back(label->text().toStdString());
    EXPECT_EQ(
        labels,
        (Texts{"币符(&U):", "币名(&M):", "汇率小数位(&X):", "外币最大误差(&R):", "折算方式:"}));
    EXPECT_EQ(control<QRadioButton>("multiplied").text(), "原币 * 汇率 = 本位币");
    EXPECT_EQ(divided().text(), "原币 / 汇率 = 本位币");
    EXPECT_EQ(fixedRate().text(), "固定汇率");
    EXPECT_EQ(floatingRate().text(), "浮动汇率");
}

TEST_F(CurrencyWindowTest, BeginsWithAnAdditionWhereThereIsNoCurrency) {
    open();
    EXPECT_EQ(shownInput(), "  * 5 0.00001");
    EXPECT_TRUE(symbol().hasFocus());
    EXPECT_FALSE(canDelete());
    EXPECT_FALSE(ok().isEnabled());
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(cell(0, 0), "");
}

TEST_F(CurrencyWindowTest, AddsACurrencyByKeysAloneAndShowsItsRates) {
    open();
    keys("usd");
    EXPECT_FALSE(ok().isEnabled()) << "the name is missing";
    press(Qt::Key_Return);
    EXPECT_TRUE(name().hasFocus());
    typeText(&name(), "美元 us");
    EXPECT_TRUE(ok().isEnabled());
    press(Qt::Key_Return);
    EXPECT_EQ(books.stored(), Texts{"1 1 USD 美元 US 1 5 1e-05"});
    EXPECT_EQ(leaves(), Texts{"美元 US"});
    EXPECT_EQ(selectedLeaf(), "美元 US");
    EXPECT_EQ(shownInput(), "USD 美元 US * 5 0");
    EXPECT_FALSE(ok().isEnabled());
    EXPECT_TRUE(canDelete());
    ASSERT_EQ(rows(), 12);
    EXPECT_EQ(cell(11, 3), "12");
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(CurrencyWindowTest, AddsInFixedRatesWhateverWasShown) {
    openWithTwo();
    use(1);
    floatingRate().click();
    EXPECT_EQ(rows(), 31);
    choose("增加");
    EXPECT_EQ(shownInput(), "  * 5 0.00001");
    EXPECT_TRUE(symbol().hasFocus());
    EXPECT_EQ(rows(), 1);
    EXPECT_TRUE(fixedRate().isChecked());
    EXPECT_FALSE(month().isEnabled());
    EXPECT_FALSE(canDelete());
    EXPECT_EQ(selectedLeaf(), "");
    EXPECT_FALSE(isMarkedUsed());
}

TEST_F(CurrencyWindowTest, TouchesNoRatesWhileACurrencyIsAdded) {
    openWithTwo();
    press(Qt::Key_N, Qt::ControlModifier);
    floatingRate().click();
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(headers()[0], "日期");
    month().setCurrentIndex(7);
    EXPECT_EQ(rows(), 1);
    stand(0, 1);
    keys("7");
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(books.filledRates("ExchgFix"), Texts{});
    EXPECT_EQ(books.filledRates("ExchgFlt"), Texts{});
}

TEST_F(CurrencyWindowTest, LeavesTheAdditionForTheLeafThatWasChosenBefore) {
    openWithTwo();
    press(Qt::Key_N, Qt::ControlModifier);
    clickLeaf(0);
    EXPECT_EQ(shownInput(), "USD 美元 * 5 0");
    EXPECT_EQ(rows(), 12);
    EXPECT_TRUE(canDelete());
}

TEST_F(CurrencyWindowTest, EnablesOkByAnyChangeWhileBothTextsAreFilled) {
    openWithTwo();
    type(decimals(), "4");
    EXPECT_TRUE(ok().isEnabled());
    type(symbol(), "");
    EXPECT_FALSE(ok().isEnabled());
    type(symbol(), " ");
    EXPECT_FALSE(ok().isEnabled()) << "a blank is nothing";
    type(symbol(), "USD");
    EXPECT_TRUE(ok().isEnabled());
    type(decimals(), "5");
    EXPECT_FALSE(ok().isEnabled());
    divided().click();
    EXPECT_TRUE(ok().isEnabled());
    control<QRadioButton>("multiplied").click();
    type(maxError(), "1");
    EXPECT_TRUE(ok().isEnabled());
    type(name(), "");
    EXPECT_FALSE(ok().isEnabled());
    books.messages.willAnswer(Answer::yes);
    window->close();
}

TEST_F(CurrencyWindowTest, TellsEachRefusalAndLetsItBeMended) {
    open();
    type(symbol(), "usd");
    type(name(), "美元");
    const std::tuple<QLineEdit*, const char*, const char*> refusals[] = {
        {&decimals(), "x", "汇率小数位只能是2-9之间的整数!"},
        {&maxError(), "abc", "最大误差应该输入正数或零,请重新输入。"},
        {&maxError(), "-1", "最大误差应该不小于0.0000001,请重新输入。"},
        {&maxError(), "100000.1", "最大误差应该不大于100000,请重新输入。"}};
    for (const auto& [field, text, told] : refusals) {
        type(*field, text);
        press(Qt::Key_Return);
        EXPECT_EQ(said(), told);
        EXPECT_EQ(books.messages.notices().back().focusField, field->objectName().toStdString());
        EXPECT_EQ(symbol().text(), "USD") << "in capitals even when it is refused";
        EXPECT_TRUE(ok().isEnabled());
        EXPECT_FALSE(canDelete());
        EXPECT_EQ(books.stored(), Texts{});
        type(*field, field == &decimals() ? "4" : "0.5");
    }
    press(Qt::Key_Return);
    EXPECT_EQ(books.stored(), Texts{"1 1 USD 美元 1 4 0.5"});
}

TEST_F(CurrencyWindowTest, PutsTheFocusOnTheFieldThatARealBoxSpokeOf) {
    openWithTwo();
    window.reset();
    MessageBoxes boxes;
    const HostMessages onTheScreen(boxes);
    open();
    type(name(), "日元");
    {
        NextModal operatorHands([](QWidget& box) {
            EXPECT_EQ(box.findChild<QLabel*>("qt_msgbox_label")->text(), "币名不唯一");
            QTest::keyClick(&box, Qt::Key_Return);
        });
        press(Qt::Key_Return);
    }
    EXPECT_EQ(window->focusWidget(), &name());
    EXPECT_EQ(name().selectedText(), "日元");
    type(name(), "美元");
    window->close();
}

TEST_F(CurrencyWindowTest, ModifiesInPlaceAndKeepsKindMonthAndMaximumError) {
    openWithTwo();
    books.run("UPDATE ExchgFlt SET dRate = 7.123456 WHERE lId = 33");
    floatingRate().click();
    month().setCurrentIndex(1);
    EXPECT_EQ(cell(1, 1), "7.12346");
    stand(20, 1);
    type(decimals(), "3");
    type(maxError(), "0.00001");
    type(name(), "美金");
    press(Qt::Key_Return);
    EXPECT_EQ(leaves(), (Texts{"美金", "日元"}));
    EXPECT_EQ(books.stored()[0], "1 1 USD 美金 1 3 1e-05");
    EXPECT_TRUE(floatingRate().isChecked());
    EXPECT_EQ(month().currentText(), "2026.02");
    EXPECT_EQ(cell(1, 1), "7.123");
    EXPECT_EQ(place(), "20 1");
    EXPECT_EQ(shownInput(), "USD 美金 * 3 0.00001");
    EXPECT_FALSE(ok().isEnabled());
    EXPECT_EQ(books.filledRates("ExchgFlt"), (Texts{"33 1 2026-02-02 2 7.123456 0"}))
        << "fewer decimals round nothing that is stored";
}

TEST_F(CurrencyWindowTest, StoresTheMaximumErrorAsItIsShownWithWhateverElseIsSaved) {
    openWithTwo();
    type(name(), "美金");
    press(Qt::Key_Return);
    EXPECT_EQ(books.stored()[0], "1 1 USD 美金 1 5 0");
}

TEST_F(CurrencyWindowTest, ShowsTheRatesOfTheKindAndMonthThatAreChosen) {
    books.insert("USD", "美元");
    books.insert("JPY", "日元");
    books.run("UPDATE ExchgFlt SET dRate = 7.5, dAdjustRate = 1 WHERE lId = 59");
    open();
    floatingRate().click();
    EXPECT_TRUE(month().isEnabled());
    EXPECT_EQ(headers(), (Texts{"日期", "记帐汇率", "调整汇率"}));
    ASSERT_EQ(rows(), 31);
    EXPECT_EQ(cell(0, 0), "2026.05.01");
    month().setFocus();
    for (int step = 0; step < 3; ++step) press(Qt::Key_Up);
    ASSERT_EQ(rows(), 28);
    EXPECT_EQ(cell(27, 0), "2026.02.28");
    EXPECT_EQ(cell(27, 1), "7.50000");
    EXPECT_EQ(cell(27, 2), "1.00000");
    clickLeaf(1);
    EXPECT_TRUE(fixedRate().isChecked()) << "another currency begins with its fixed rates";
    EXPECT_EQ(rows(), 12);
    EXPECT_EQ(month().currentText(), "2026.02");
    EXPECT_FALSE(month().isEnabled());
    EXPECT_EQ(cell(0, 3), "13");
}

TEST_F(CurrencyWindowTest, StaysAtWhatIsShownWhenRatesCannotBeRead) {
    openWithTwo();
    ASSERT_NE(books.database.DBClose("books"), 0);
    floatingRate().click();
    EXPECT_TRUE(fixedRate().isChecked());
    EXPECT_EQ(rows(), 12);
    EXPECT_FALSE(month().isEnabled());
    EXPECT_EQ(books.messages.notices().size(), 1u);
}

TEST_F(CurrencyWindowTest, DeletesDownToTheLastOneAndThenAdds) {
    openWithTwo();
    books.insert("GBP", "英镑");
    open();
    clickLeaf(2);
    books.messages.willAnswer("是否删除当前外币?\n\n币符:GBP\n币名:英镑", Answer::no);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(leaves().size(), 3u);
    books.messages.willAnswer(Answer::yes);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(selectedLeaf(), "美元") << "the first one";
    books.messages.willAnswer(Answer::yes);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(selectedLeaf(), "日元");
    EXPECT_EQ(books.stored(), (Texts{"2 2 JPY 日元 1 5 1e-05"}));
    books.messages.willAnswer(Answer::yes);
    choose("删除");
    EXPECT_EQ(leaves(), Texts{});
    EXPECT_EQ(books.rates("ExchgFix"), Texts{});
    EXPECT_EQ(books.rates("ExchgFlt"), Texts{});
    EXPECT_FALSE(canDelete());
    EXPECT_EQ(rows(), 1);
    EXPECT_TRUE(symbol().hasFocus());
    EXPECT_TRUE(books.messages.notices().empty());
}

TEST_F(CurrencyWindowTest, MarksAUsedCurrencyAndTellsWhyItIsNotDeleted) {
    books.insert("USD", "美元");
    use(1);
    open();
    EXPECT_TRUE(isMarkedUsed());
    EXPECT_TRUE(canDelete());
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(books.messages.onlyNotice().text, "外币已经使用,不能删除");
}

TEST_F(CurrencyWindowTest, MarksACurrencyThatCameIntoUseWhileItsDeletionWasAskedAbout) {
    openWithTwo();
    use(1);
    books.messages.willAnswer(Answer::yes);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(said(), "该外币已经使用,不能删除!");
    EXPECT_EQ(leaves().size(), 2u);
    EXPECT_TRUE(isMarkedUsed());
}

TEST_F(CurrencyWindowTest, GoesOnWithTheOthersWhenItsCurrencyIsGone) {
    openWithTwo();
    books.run("DELETE Cyrency WHERE lId = 1");
    stand(0, 1);
    keys("7");
    press(Qt::Key_Return);
    EXPECT_EQ(books.messages.texts(), Texts{"该外币已经被删除!"});
    EXPECT_EQ(leaves(), Texts{"日元"});
    EXPECT_EQ(shownInput(), "JPY 日元 * 5 0");
    EXPECT_EQ(books.filledRates("ExchgFix"), Texts{});
    books.run("DELETE Cyrency WHERE lId = 2");
    choose("删除");
    EXPECT_EQ(books.messages.texts().size(), 2u);
    EXPECT_EQ(leaves(), Texts{});
    EXPECT_EQ(rows(), 1);
}

TEST_F(CurrencyWindowTest, KeepsWhatWasTypedWhenItsCurrencyWasChangedOrDeletedElsewhere) {
    openWithTwo();
    books.run("UPDATE Cyrency SET byDecimal = 3 WHERE lId = 1");
    type(name(), "美金");
    press(Qt::Key_Return);
    EXPECT_TRUE(said().starts_with("该外币已被其他工作站修改,本次操作没有进行。")) << said();
    EXPECT_EQ(shownInput(), "USD 美金 * 3 0");
    EXPECT_TRUE(ok().isEnabled());
    books.run("DELETE Cyrency WHERE lId = 1");
    press(Qt::Key_Return);
    EXPECT_EQ(said(), "该外币已经被删除!");
    EXPECT_EQ(leaves(), Texts{"日元"});
    EXPECT_EQ(name().text(), "美金");
    books.messages.willAnswer(Answer::yes);
    window->close();
}

TEST_F(CurrencyWindowTest, AsksBeforeWhatWasTypedIntoTheFormIsGivenUp) {
    openWithTwo();
    type(name(), "美金");
    books.messages.willAnswer("当前输入尚未保存,是否放弃?", Answer::no);
    clickLeaf(1);
    EXPECT_EQ(selectedLeaf(), "美元");
    EXPECT_EQ(name().text(), "美金");
    books.messages.willAnswer(Answer::yes);
    clickLeaf(1);
    EXPECT_EQ(selectedLeaf(), "日元");
}

TEST_F(CurrencyWindowTest, ReadsTheHostsCacheAnewWhenItCloses) {
    openWithTwo();
    EXPECT_EQ(cachedCurrencies().size(), 0u);
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    window.reset();
    EXPECT_EQ(cachedCurrencies().size(), 2u);
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(CurrencyWindowTest, TellsWhenTheHostsCacheCannotBeReadAnew) {
    openWithTwo();
    choose("退出");
    ASSERT_NE(books.database.DBClose("books"), 0);
    window.reset();
    EXPECT_EQ(books.messages.notices().size(), 1u);
}

TEST_F(CurrencyWindowTest, OpensItsHelp) {
    openWithTwo();
    press(Qt::Key_F1);
    auto* help = window->findChild<HelpWindow*>();
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->shownTitle(), "汇率管理");
}
