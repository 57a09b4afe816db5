
#include "data/access/unit_of_work.h"
#include "tests/window/settle_fixture.h"

using namespace chengheng;

namespace {

using Texts = std::vector<std::string>;

constexpr const char* discard = "当前输入尚未保存,是否放弃?";

std::string textOf(const QAction& action) { return action.text().toStdString(); }

}  // namespace

Texts numberedMethods(int first, int end) {
    Texts methods;
    for (int each = first; each < end; ++each)
        methods.push_back(std::to_string(each) + " 方式" + std::to_string(each) + " 0");
    return methods;
}

TEST_F(SettleWindowTest, SaysHowToAddTheFirstMethod) {
    open();
    EXPECT_TRUE(control<QLabel>("emptyWords").isVisible());
    EXPECT_EQ(control<QLabel>("emptyWords").text(), "还没有记录。\n按 Ctrl+N 增加第一条。");
    add("1", "现金");
    EXPECT_FALSE(control<QLabel>("emptyWords").isVisible());
}

TEST_F(SettleWindowTest, OpensWithTheFirstMethodInItsForm) {
    open({"1 现金 0", "2 支票 1"});
    EXPECT_EQ(window->windowTitle(), "结算方式");
    EXPECT_EQ(leaves(), (Texts{"1 现金", "2 支票"}));
    EXPECT_EQ(selectedLeaf(), "1 现金");
    EXPECT_EQ(shownInput(), "1 现金");
    EXPECT_FALSE(ok().isEnabled());
    EXPECT_TRUE(canDelete());
    EXPECT_FALSE(isMarkedUsed());
    EXPECT_TRUE(tree().hasFocus());
}

TEST_F(SettleWindowTest, OpensForAnAdditionWithoutMethods) {
    open();
    EXPECT_EQ(shownInput(), " ");
    EXPECT_FALSE(ok().isEnabled());
    EXPECT_FALSE(canDelete());
    EXPECT_TRUE(number().hasFocus());
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(SettleWindowTest, TellsWhyTheListCannotBeReadAndAdds) {
    ASSERT_NE(books.database.DBClose("books"), 0);
    open();
    constexpr const char* notOpen = "帐套文件“books”没有打开。\n请先打开帐套。";
    EXPECT_EQ(books.messages.onlyNotice().text, notOpen);
    EXPECT_FALSE(canDelete());
    EXPECT_TRUE(number().hasFocus());
    window.reset();
    EXPECT_EQ(books.messages.texts(), (Texts{notOpen, notOpen})) << "the cache cannot be read";
}

TEST_F(SettleWindowTest, HasTheMenusAndTheToolBarOfItsSisters) {
    open();
    Texts menus;
    for (const QAction* menu : qobject_cast<QMenuBar*>(window->layout()->menuBar())->actions()) {
        menus.push_back(textOf(*menu));
        for (const QAction* action : menu->menu()->actions()) menus.push_back(textOf(*action));
    }
    EXPECT_EQ(menus, (Texts{"文件(&F)", "打印预览", "打印", "", "退出", "编辑(&E)", "增加", "删除",
                            "帮助(&H)", "帮助主题", "搜索", "", "关于..."}));
    EXPECT_EQ(command("打印").shortcut(), QKeySequence("Ctrl+P"));
    EXPECT_EQ(command("增加").shortcut(), QKeySequence("Ctrl+N"));
    EXPECT_EQ(command("删除").shortcut(), QKeySequence("Ctrl+D"));
    Texts buttons;
    for (const QAction* action : window->findChild<QToolBar*>()->actions()) {
        if (!action->isSeparator()) buttons.push_back(action->iconText().toStdString());
    }
    EXPECT_EQ(buttons, (Texts{"打印", "打印预览", "增加", "删除", "帮助", "退出"}));
}

TEST_F(SettleWindowTest, LabelsLeadToTheirFields) {
    open();
    const std::pair<const char*, QWidget*> labels[] = {{"方式号(&U):", &number()},
                                                       {"方式名(&M):", &name()}};
    for (const auto& [text, field] : labels) {
        bool isThere = false;
        for (const QLabel* label : window->findChildren<QLabel*>())
            isThere = isThere || (label->text() == text && label->buddy() == field);
        EXPECT_TRUE(isThere) << text;
    }
    EXPECT_EQ(box().text(), "使用支票登记簿");
    EXPECT_EQ(ok().text(), "确定");
    EXPECT_EQ(tree().accessibleName(), "结算方式");
}

TEST_F(SettleWindowTest, TabGoesFromTheTreeThroughTheFieldsToTheButton) {
    open({"1 现金 0"});
    type(name(), "现款");
    tree().setFocus();
    QStringList order;
    for (int step = 0; step < 5; ++step) {
        order << window->focusWidget()->objectName();
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(order, (QStringList{"Tree1", "sStlId", "sSettle", "bNote", "ok"}));
    books.messages.willAnswer(discard, Answer::yes);
    window->close();
}

TEST_F(SettleWindowTest, EnablesItsButtonWhileSomethingCompleteIsChanged) {
    open({"1 现金 0"});
    type(name(), "现款");
    EXPECT_TRUE(ok().isEnabled());
    type(name(), "现金");
    EXPECT_FALSE(ok().isEnabled());
    type(number(), "");
    EXPECT_FALSE(ok().isEnabled());
    type(number(), "2");
    EXPECT_TRUE(ok().isEnabled());
    type(number(), "1");
    QTest::mouseClick(&box(), Qt::LeftButton, {}, QPoint(8, box().height() / 2));
    EXPECT_TRUE(ok().isEnabled());
    QTest::keyClick(&box(), Qt::Key_Space);
    EXPECT_FALSE(ok().isEnabled());
}

TEST_F(SettleWindowTest, EnablesItsButtonForAnAdditionWithNumberAndName) {
    books.run("INSERT RegSub (lId, sStlId) VALUES(1, '1')");
    open({"1 现金 1"});
    EXPECT_TRUE(isMarkedUsed());
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(shownInput(), " ") << "the box is cleared, too";
    EXPECT_FALSE(isMarkedUsed());
    EXPECT_TRUE(number().hasFocus());
    EXPECT_FALSE(canDelete());
    EXPECT_EQ(selectedLeaf(), "");
    type(number(), "2");
    EXPECT_FALSE(ok().isEnabled());
    type(name(), " ");
    EXPECT_FALSE(ok().isEnabled()) << "blanks are no name";
    type(name(), "支票");
    EXPECT_TRUE(ok().isEnabled());
    QTest::mouseClick(&ok(), Qt::LeftButton);
    EXPECT_EQ(leaves(), (Texts{"1 现金", "2 支票"}));
    EXPECT_EQ(selectedLeaf(), "2 支票");
    EXPECT_TRUE(canDelete());
    EXPECT_FALSE(ok().isEnabled());
}

TEST_F(SettleWindowTest, SelectsWithMouseAndArrows) {
    open({"1 现金 0", "2 支票 1", "3 汇兑 2"});
    clickLeaf(1);
    EXPECT_EQ(shownInput(), "2 支票 支票");
    press(Qt::Key_Down);
    EXPECT_EQ(shownInput(), "3 汇兑");
    press(Qt::Key_Home);
    EXPECT_EQ(shownInput(), "1 现金");
    EXPECT_TRUE(tree().hasFocus());
}

TEST_F(SettleWindowTest, MarksAUsedMethodAndDeletesItNot) {
    books.run("INSERT RecpBank (lId, sNoteMethod) VALUES(1, '2')");
    open({"1 现金 0", "2 支票 1"});
    clickLeaf(1);
    EXPECT_TRUE(isMarkedUsed());
    EXPECT_EQ(control<QLabel>("usedMark").text(), "已使用");
    EXPECT_FALSE(canDelete());
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(books.messages.texts().empty());
    clickLeaf(0);
    EXPECT_FALSE(isMarkedUsed());
    EXPECT_TRUE(canDelete());
}

TEST_F(SettleWindowTest, AsksBeforeAnotherLeafIsSelectedAndReturnsToTheInput) {
    open({"1 现金 0", "2 支票 1"});
    type(name(), "现款");
    books.messages.willAnswer(discard, Answer::no);
    clickLeaf(1);
    EXPECT_EQ(shownInput(), "1 现款");
    EXPECT_EQ(selectedLeaf(), "1 现金");
    EXPECT_TRUE(name().hasFocus());
    books.messages.willAnswer(discard, Answer::yes);
    clickLeaf(1);
    EXPECT_EQ(shownInput(), "2 支票 支票");
    EXPECT_EQ(selectedLeaf(), "2 支票");
}

TEST_F(SettleWindowTest, AsksBeforeAnAdditionIsLeft) {
    open({"1 现金 0"});
    press(Qt::Key_N, Qt::ControlModifier);
    type(number(), "2");
    books.messages.willAnswer(discard, Answer::no);
    clickLeaf(0);
    EXPECT_EQ(shownInput(), "2 ");
    EXPECT_EQ(selectedLeaf(), "");
    books.messages.willAnswer(discard, Answer::no);
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(shownInput(), "2 ");
    type(name(), "支票");
    books.messages.willAnswer(discard, Answer::yes);
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(shownInput(), " ");
    EXPECT_TRUE(number().hasFocus());
}

TEST_F(SettleWindowTest, AsksBeforeItClosesOverUnsavedInput) {
    open({"1 现金 0"});
    type(name(), "现款");
    for (const auto& close : std::initializer_list<std::function<void()>>{
             [&] { press(Qt::Key_Escape); }, [&] { window->close(); },
             [&] {
                 command("退出").trigger();
                 settle();
             }}) {
        books.messages.willAnswer(discard, Answer::no);
        close();
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(shownInput(), "1 现款");
        EXPECT_TRUE(name().hasFocus());
    }
    books.messages.willAnswer(discard, Answer::yes);
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(books.stored(), Texts{"1 1 现金 0"});
}

TEST_F(SettleWindowTest, ClosesWithoutAWordWhenNothingIsLost) {
    open({"1 现金 0"});
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(SettleWindowTest, WantsALeafToBeSelectedForDeletion) {
    open({"1 现金 0"});
    clickLeaf(0, Qt::ControlModifier);
    ASSERT_EQ(selectedLeaf(), "");
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(books.messages.onlyNotice().text, "请选择要删除的结算方式");
    EXPECT_EQ(books.stored(), Texts{"1 1 现金 0"});
}

TEST_F(SettleWindowTest, EnterMovesOnUntilThereIsSomethingToSave) {
    open();
    press(Qt::Key_Return);
    EXPECT_TRUE(name().hasFocus());
    press(Qt::Key_Return);
    EXPECT_TRUE(box().hasFocus());
    press(Qt::Key_Return);
    EXPECT_TRUE(box().hasFocus());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(SettleWindowTest, RefusesFurtherKeysInAFullFieldWithoutAWord) {
    open();
    number().setFocus();
    QTest::keyClicks(&number(), "123");
    EXPECT_EQ(number().text(), "12");
    typeText(&name(), QString(24, QChar(0x652F)));
    typeText(&name(), "票");
    EXPECT_EQ(name().text(), QString(24, QChar(0x652F)));
    settle();
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(SettleWindowTest, CutsAPastedTextThatIsTooLongAndSaysSo) {
    open();
    type(number(), "9");
    number().home(false);
    number().insert("𠮷野家");
    settle();
    EXPECT_EQ(number().text().toStdString(), "𠮷9");
    const Notice notice = books.messages.onlyNotice();
    EXPECT_EQ(notice.text, "方式号最多 2 个字,超出的部分已截去。");
    EXPECT_EQ(notice.focusField, "sStlId");
}

TEST_F(SettleWindowTest, TakesAPastedCellWithItsLineEnd) {
    open();
    number().insert("07\r\n");
    settle();
    EXPECT_EQ(number().text(), "07");
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(SettleWindowTest, ShowsAStoredNameThatIsTooLongAsItIs) {
    const std::string longName(30, 'x');
    open({"1 " + longName + " 0"});
    EXPECT_EQ(name().text().toStdString(), longName);
    EXPECT_FALSE(ok().isEnabled());
    name().setFocus();
    press(Qt::Key_End);
    press(Qt::Key_Backspace);
    QTest::keyClicks(&name(), "yz");
    EXPECT_EQ(name().text().size(), 29);
}

TEST_F(SettleWindowTest, OffersAFilterFromTwentyMethodsOn) {
    open(numberedMethods(10, 29));
    auto& filter = control<QLineEdit>("filter");
    EXPECT_FALSE(filter.isVisible());
    add("aa", "Visa卡");
    EXPECT_TRUE(filter.isVisible());
    filter.setFocus();
    QTest::keyClicks(&filter, "zz");
    EXPECT_TRUE(control<QLabel>("emptyWords").isVisible());
    EXPECT_EQ(control<QLabel>("emptyWords").text(),
              "没有含有所筛选文字的记录。\n清空“筛选”可看到全部记录。");
    filter.clear();
    EXPECT_FALSE(control<QLabel>("emptyWords").isVisible());
    QTest::keyClicks(&filter, "VISA");
    EXPECT_EQ(leaves(), Texts{"aa Visa卡"});
    filter.clear();
    QTest::keyClicks(&filter, "7");
    EXPECT_EQ(leaves(), (Texts{"17 方式17", "27 方式27"}));
    EXPECT_EQ(shownInput(), "aa Visa卡") << "the form stays";
    EXPECT_EQ(selectedLeaf(), "");
    clickLeaf(1);
    EXPECT_EQ(shownInput(), "27 方式27");
}

TEST_F(SettleWindowTest, EnterAndDownLeadFromTheFilterIntoItsList) {
    open(numberedMethods(10, 40));
    auto& filter = control<QLineEdit>("filter");
    for (const auto& [key, wanted, shown] :
         {std::tuple{Qt::Key_Return, "27", "27 方式27"}, {Qt::Key_Down, "31", "31 方式31"}}) {
        filter.setFocus();
        filter.selectAll();
        QTest::keyClicks(&filter, wanted);
        press(key);
        EXPECT_EQ(window->focusWidget(), &tree());
        EXPECT_EQ(shownInput(), shown);
    }
}

TEST_F(SettleWindowTest, DownFromTheFilterKeepsALeafThatIsSelectedAlready) {
    open(numberedMethods(10, 40));
    auto& filter = control<QLineEdit>("filter");
    filter.setFocus();
    QTest::keyClicks(&filter, "7");
    clickLeaf(1);
    filter.setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(window->focusWidget(), &tree());
    EXPECT_EQ(selectedLeaf(), "27 方式27");
}

TEST_F(SettleWindowTest, LeavesOutACommandThatComesWhileItAsks) {
    open({"1 现金 0", "2 支票 1"});
    type(name(), "现款");
    books.messages.willAnswer(discard, Answer::no);
    books.messages.whileShown([this](const std::string&) {
        command("增加").trigger();
        settle();
    });
    clickLeaf(1);
    EXPECT_EQ(shownInput(), "1 现款");
    EXPECT_EQ(books.messages.texts(), Texts{discard});
    books.messages.whileShown({});
    type(name(), "现金");
}

TEST_F(SettleWindowTest, GoesThroughTheTreeWithTabWhileAddingWithoutSelecting) {
    open({"1 现金 0"});
    press(Qt::Key_N, Qt::ControlModifier);
    type(number(), "2");
    press(Qt::Key_Backtab);
    EXPECT_EQ(window->focusWidget(), &tree());
    EXPECT_EQ(shownInput(), "2 ");
    press(Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), &number());
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(SettleWindowTest, ReadsItsListAgainWhenAMethodHasGone) {
    open({"1 现金 0", "2 支票 1", "3 汇兑 0"});
    books.run("DELETE Settle WHERE lId = 2");
    clickLeaf(1);
    EXPECT_EQ(said(), "该结算方式已被其他工作站删除,列表已重新读入。");
    EXPECT_EQ(leaves(), (Texts{"1 现金", "3 汇兑"}));
    EXPECT_EQ(selectedLeaf(), "1 现金");
    EXPECT_EQ(shownInput(), "1 现金");
}

TEST_F(SettleWindowTest, ShowsWhatAnotherWorkstationMadeOfTheMethod) {
    open({"1 现金 0", "2 支票 1"});
    type(name(), "现款");
    books.run("UPDATE Settle SET sSettle = '库存' WHERE lId = 1");
    press(Qt::Key_Return);
    EXPECT_EQ(said(),
              "该结算方式已被其他工作站修改,本次操作没有进行。\n\n现在的内容:1 库存\n"
              "输入的内容:1 现款\n\n输入已保留,核对后可以再次确定。");
    EXPECT_EQ(leaves(), (Texts{"1 库存", "2 支票"}));
    EXPECT_EQ(shownInput(), "1 现款");
}

TEST_F(SettleWindowTest, ReadsTheHostsCacheAgainWhenItGoes) {
    open({"1 现金 0"});
    EXPECT_TRUE(cachedSettles().empty());
    window.reset();
    ASSERT_EQ(cachedSettles().size(), 1u);
    EXPECT_EQ(cachedSettles().front(), (_SettleInfo{1, "1", "现金", 0}));
}

TEST_F(SettleWindowTest, OpensTenThousandMethods) {
    {
        UnitOfWork unit(books.database);
        for (int each = 0; each < 10000; ++each)
            books.insert({std::to_string(each) + " 方式" + std::to_string(each) + " 0"});
        ASSERT_TRUE(unit.commit());
    }
    open();
    tree().grab();
    EXPECT_EQ(tree().model()->rowCount(), 10000);
    press(Qt::Key_End);
    EXPECT_EQ(shownInput(), "9999 方式9999");
}
