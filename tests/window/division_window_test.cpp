#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>

#include "base/system/workstation.h"
#include "session/rights/new_password_mark.h"
#include "tests/support/recording_printer.h"
#include "tests/window/division_fixture.h"

using namespace chengheng;

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(DivisionWindowTest, OpensWithTheFirstOperatorAndEverythingInItsPlace) {
    open();
    EXPECT_EQ(window->windowTitle(), "财务分工");
    EXPECT_EQ(window->templateNumber(), 123);
    EXPECT_EQ(current(), "张三");
    EXPECT_EQ(branch("张三"), "张三: 主管");
    EXPECT_EQ(branch("李明"), "李明: 个人往来 会计科目 出纳");
    EXPECT_EQ(branch("赵燕"), "赵燕:");
    EXPECT_TRUE(tree().hasFocus());
    EXPECT_EQ(tree().objectName(), "2302");
    EXPECT_EQ(tree().accessibleName(), "操作员");
    EXPECT_EQ(control<QLabel>("8050").text().toStdString(), "该用户" + systemUserName() + "已使用");
    EXPECT_TRUE(control<QLabel>("8050").isVisible());
    EXPECT_THAT(books.messages.texts(), IsEmpty());
}

TEST_F(DivisionWindowTest, HasItsCommandsWithTheirShortcuts) {
    open();
    EXPECT_EQ(command("增加").shortcut(), QKeySequence("Ctrl+N"));
    EXPECT_EQ(command("修改").shortcut(), QKeySequence("Ctrl+M"));
    EXPECT_EQ(command("删除").shortcut(), QKeySequence("Ctrl+D"));
    EXPECT_EQ(command("刷新").shortcut(), QKeySequence("F5"));
    EXPECT_EQ(command("套用权限...").shortcut(), QKeySequence("Ctrl+R"));
    choose("关于...");
    EXPECT_THAT(books.messages.onlyNotice().text, testing::StartsWith("澄恒财务软件\n基础设置"));
}

TEST_F(DivisionWindowTest, NumbersItsBoxesInOrderAndNamesThemByTheGroups) {
    open();
    EXPECT_EQ(box(1).text(), "个人往来");
    EXPECT_EQ(box(9).text(), "外币");
    EXPECT_EQ(box(10).text(), "凭证");
    EXPECT_EQ(box(18).text(), "报表");
    EXPECT_EQ(title(), "张三 的权限");
    for (int number = 1; number <= 18; ++number) {
        EXPECT_EQ(box(number).checkState(), Qt::Checked);
        EXPECT_FALSE(box(number).isEnabled());
    }
}

TEST_F(DivisionWindowTest, TitlesTheBoxesWithANameAsItIs) {
    books.insert("R&D");
    open();
    click("R&D");
    EXPECT_EQ(title(), "R&&D 的权限") << "one of two is shown";
}

TEST_F(DivisionWindowTest, ShowsTheThreeStatesOfGroups) {
    open();
    click("李明");
    EXPECT_EQ(box("个人往来").checkState(), Qt::PartiallyChecked);
    EXPECT_EQ(box("会计科目").checkState(), Qt::Checked);
    EXPECT_EQ(box("凭证").checkState(), Qt::Unchecked);
    EXPECT_TRUE(box("凭证").isEnabled());
}

TEST_F(DivisionWindowTest, OpensAGroupWithTheArrowsAndHidesTheBoxesItHasNot) {
    open();
    press(Qt::Key_Down);
    EXPECT_EQ(current(), "李明");
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(current(), "个人往来");
    EXPECT_EQ(title(), "李明 的权限:个人往来");
    EXPECT_EQ(box(1).text(), "个人往来目录");
    EXPECT_TRUE(box(1).isChecked());
    EXPECT_FALSE(box(2).isChecked());
    EXPECT_TRUE(box(7).isVisible());
    EXPECT_FALSE(box(8).isVisible());
    EXPECT_FALSE(box(18).isVisible());
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(current(), "李明");
    EXPECT_TRUE(box(18).isVisible());
}

TEST_F(DivisionWindowTest, WritesEachClickAtOnceAndShowsTheLeaf) {
    open();
    click("李明");
    clickBox("外币");
    EXPECT_EQ(books.stored()[1], "2 李明 1 41 42 46 47 57");
    EXPECT_EQ(branch("李明"), "李明: 个人往来 会计科目 外币 出纳");
    EXPECT_TRUE(tree().isExpanded(item("李明")));
    EXPECT_EQ(current(), "李明");
    clickBox("外币");
    EXPECT_EQ(books.stored()[1], "2 李明 1 41 42 57");
    EXPECT_EQ(branch("李明"), "李明: 个人往来 会计科目 出纳");
}

TEST_F(DivisionWindowTest, APartlyCheckedBoxIsClearedByMouseSpaceBarAndScreenReader) {
    open();
    const std::function<void()> ways[] = {
        [&] { clickBox("个人往来"); }, [&] { QTest::keyClick(&box("个人往来"), Qt::Key_Space); },
        [&] {
            QAccessibleInterface* interface =
                QAccessible::queryAccessibleInterface(&box("个人往来"));
            interface->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        }};
    for (const auto& clear : ways) {
        books.run("UPDATE UserAuth SET sAuthId = 'NY' WHERE lUserId = 2");
        click("张三");
        press(Qt::Key_F5);
        click("李明");
        ASSERT_EQ(box("个人往来").checkState(), Qt::PartiallyChecked);
        clear();
        settle();
        EXPECT_EQ(box("个人往来").checkState(), Qt::Unchecked);
        EXPECT_EQ(books.stored()[1], "2 李明");
    }
}

TEST_F(DivisionWindowTest, SpaceBarAndArrowsGrantFunctionsOneByOne) {
    open();
    click("李明", "出纳");
    box(2).setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(books.stored()[1], "2 李明 1 41 42 57 58");
    press(Qt::Key_Return);
    EXPECT_TRUE(box(3).hasFocus()) << "Enter goes on and leaves the window open";
    press(Qt::Key_Space);
    EXPECT_EQ(books.stored()[1], "2 李明 1 41 42 57 58 59");
    EXPECT_TRUE(box(3).hasFocus());
}

TEST_F(DivisionWindowTest, GivesTheBoxBackWhenItCannotBeWritten) {
    open();
    click("李明");
    PatientWaiter impatient{std::chrono::milliseconds(0)};
    books.run("DELETE UserAuth WHERE lUserId = 2");
    clickBox("外币");
    EXPECT_EQ(said(), "系统安全出现故障!");
    EXPECT_EQ(box("外币").checkState(), Qt::Unchecked);
    clickBox("会计科目");
    EXPECT_EQ(box("会计科目").checkState(), Qt::Checked);
    EXPECT_EQ(branch("李明"), "李明: 个人往来 会计科目 出纳");
}

TEST_F(DivisionWindowTest, TakesAGroupAwayAndSelectsTheNextOne) {
    open();
    click("李明", "会计科目");
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(current(), "出纳");
    EXPECT_EQ(title(), "李明 的权限:出纳");
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(current(), "个人往来");
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(current(), "李明");
    EXPECT_EQ(books.stored()[1], "2 李明");
    EXPECT_THAT(books.messages.texts(), IsEmpty());
}

TEST_F(DivisionWindowTest, DisablesDeleteOnTheLeafOfASupervisor) {
    open();
    EXPECT_TRUE(canDelete());
    click("张三", "主管");
    EXPECT_FALSE(canDelete());
    EXPECT_FALSE(box(1).isEnabled());
    click("赵燕");
    EXPECT_TRUE(canDelete());
}

TEST_F(DivisionWindowTest, DeletesAnOperatorAndSelectsWhoeverIsLoggedOn) {
    open();
    click("李明");
    books.messages.willAnswer("是否删除操作员:李明?", Answer::yes);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(leaves(), (Texts{"张三", "赵燕"}));
    EXPECT_EQ(current(), "张三");
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(said(), "用户《 张三 》已经登录，不能删除！");
}

TEST_F(DivisionWindowTest, AddsAnOperatorByKeysAlone) {
    open();
    NextModal hands([](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "增加操作员");
        auto& confirm = *dialog.findChild<QPushButton*>();
        EXPECT_FALSE(confirm.isEnabled());
        for (const char* text : {"王芳", "pw", "pw"}) {
            typeText(dialog.focusWidget(), QString::fromUtf8(text));
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        }
    });
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(leaves(), (Texts{"张三", "李明", "赵燕", "王芳"}));
    EXPECT_EQ(current(), "王芳");
    EXPECT_EQ(title(), "王芳 的权限");
    EXPECT_TRUE(isPasswordOf(books.hashOf(4), "pw"));
    EXPECT_THAT(books.messages.texts(), IsEmpty());
}

TEST_F(DivisionWindowTest, KeepsTheDialogOpenWithWhatWasTypedAfterARefusal) {
    open();
    NextModal hands([&](QWidget& dialog) {
        typeOperator(dialog, "李明", "one", "two");
        auto& confirm = *dialog.findChild<QPushButton*>();
        EXPECT_EQ(confirm.text(), "确 认");
        QTest::mouseClick(&confirm, Qt::LeftButton);
        EXPECT_EQ(said(), "操作员口令和确认口令不匹配!");
        typeOperator(dialog, "李明", "one", "one");
        QTest::mouseClick(&confirm, Qt::LeftButton);
        EXPECT_EQ(said(), "操作员: 李明 已经存在！");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.findChild<QLineEdit*>("sUserName")->text(), "李明");
        clickOn(dialog, "放 弃");
    });
    choose("增加");
    EXPECT_EQ(books.stored().size(), 3u);
}

TEST_F(DivisionWindowTest, LabelsAndHidesTheFieldsOfTheDialog) {
    open();
    NextModal hands([&](QWidget& dialog) {
        Texts labels;
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            if (label->buddy() != nullptr)
                labels.push_back(label->text().toStdString() + ' ' +
                                 label->buddy()->objectName().toStdString());
        EXPECT_THAT(labels, ElementsAre("操作员姓名: sUserName", "操作员口令: sPassword",
                                        "确认口令: confirmation"));
        for (const char* field : {"sPassword", "confirmation"})
            EXPECT_EQ(dialog.findChild<QLineEdit*>(QLatin1String(field))->echoMode(),
                      QLineEdit::Password);
        const auto& note = *dialog.findChild<QLabel*>("note");
        EXPECT_EQ(note.text(), "没有口令:任何人都能用这个姓名登录。");
        EXPECT_TRUE(note.isVisible());
        typeOperator(dialog, "王芳", "x", "");
        EXPECT_FALSE(note.isVisible());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    choose("增加");
}

TEST_F(DivisionWindowTest, ModifiesTheOperatorOfTheSelectedLeaf) {
    open();
    click("李明", "出纳");
    NextModal hands([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "修改操作员姓名、口令");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("sUserName")->text(), "李明");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("sPassword")->text(), "");
        EXPECT_FALSE(dialog.findChild<QPushButton*>()->isEnabled());
        typeOperator(dialog, "李小明", "", "");
        clickOn(dialog, "确 认");
    });
    press(Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(branch("李小明"), "李小明: 个人往来 会计科目 出纳");
    EXPECT_EQ(current(), "出纳");
    EXPECT_TRUE(tree().isExpanded(item("李小明"))) << "what was opened stays so";
}

TEST_F(DivisionWindowTest, WantsANewPasswordOfSomebodyElseAtTheNextLogOn) {
    open();
    click("李明");
    const auto isWanted = [this] {
        bool isMarked = false;
        EXPECT_TRUE(readNewPasswordMark(books.database, 2, isMarked).isDone());
        return isMarked;
    };
    for (const bool expected : {true, false}) {
        NextModal hands([&](QWidget& dialog) {
            auto& box = *dialog.findChild<QCheckBox*>("wantsNewPassword");
            EXPECT_EQ(box.text(), "下次登录时须更改口令(&N)");
            EXPECT_TRUE(box.isEnabled());
            EXPECT_EQ(box.isChecked(), !expected) << "as it is stored";
            EXPECT_FALSE(dialog.findChild<QPushButton*>()->isEnabled());
            box.setFocus();
            QTest::keyClick(&box, Qt::Key_Space);
            EXPECT_TRUE(dialog.findChild<QPushButton*>()->isEnabled());
            clickOn(dialog, "确 认");
        });
        choose("修改");
        EXPECT_EQ(isWanted(), expected);
    }
    click("张三");
    NextModal hands([](QWidget& dialog) {
        EXPECT_FALSE(dialog.findChild<QCheckBox*>("wantsNewPassword")->isEnabled()) << "the own";
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    choose("修改");
}

TEST_F(DivisionWindowTest, GoesThroughTheFieldsOfTheDialogInTheirOrder) {
    open();
    NextModal hands([](QWidget& dialog) {
        Texts names;
        for (int step = 0; step < 4; ++step) {
            names.push_back(dialog.focusWidget()->objectName().toStdString());
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        }
        EXPECT_THAT(names,
                    ElementsAre("sUserName", "sPassword", "confirmation", "wantsNewPassword"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    choose("增加");
}

TEST_F(DivisionWindowTest, ListsNobodyAndAllowsNothingAfterASafetyFault) {
    books.insert("李明");
    books.run("DELETE UserAuth WHERE lUserId = 2");
    ListFormWindowTest::open();
    EXPECT_EQ(books.messages.onlyNotice().text, "系统安全出现故障!");
    EXPECT_EQ(leaves(), Texts{});
    for (const char* text : {"增加", "修改", "删除"}) EXPECT_FALSE(command(text).isEnabled());
    for (int number = 1; number <= 18; ++number) EXPECT_FALSE(box(number).isEnabled());
    books.run("INSERT UserAuth VALUES( 2, 2, '' )");
    press(Qt::Key_F5);
    EXPECT_EQ(leaves(), (Texts{"张三", "李明"}));
    EXPECT_TRUE(command("增加").isEnabled());
}

TEST_F(DivisionWindowTest, ReadsAnewAndKeepsWhatIsOpenedAndSelected) {
    open();
    click("李明", "出纳");
    books.insert("王芳", {82});
    books.run("UPDATE UserAuth SET sAuthId = '" + rightsText({43, 57}) + "' WHERE lUserId = 2");
    press(Qt::Key_F5);
    EXPECT_EQ(leaves(), (Texts{"张三", "李明", "赵燕", "王芳"}));
    EXPECT_EQ(branch("李明"), "李明: 期初余额 出纳");
    EXPECT_EQ(current(), "出纳");
    EXPECT_TRUE(tree().isExpanded(item("李明")));
    EXPECT_TRUE(tree().hasFocus());
}

TEST_F(DivisionWindowTest, LeavesOutACommandThatComesWhileItAsks) {
    open();
    click("李明");
    books.messages.whileShown([this](const std::string&) {
        command("删除").trigger();
        clickBox("外币");
    });
    books.messages.willAnswer("是否删除操作员:李明?", Answer::no);
    press(Qt::Key_D, Qt::ControlModifier);
    books.messages.whileShown({});
    EXPECT_EQ(books.messages.texts().size(), 1u);
    EXPECT_EQ(books.stored()[1], "2 李明 1 41 42 57");
    EXPECT_EQ(box("外币").checkState(), Qt::Unchecked);
}

TEST_F(DivisionWindowTest, MakesAnOperatorASupervisorAndBack) {
    open();
    EXPECT_FALSE(command("设为主管...").isEnabled());
    click("李明", "出纳");
    EXPECT_FALSE(command("取消主管...").isEnabled());
    books.messages.willAnswer(Answer::yes);
    choose("设为主管...");
    EXPECT_EQ(branch("李明"), "李明: 主管");
    EXPECT_EQ(current(), "李明");
    EXPECT_FALSE(box(1).isEnabled());
    EXPECT_FALSE(command("设为主管...").isEnabled());
    books.messages.willAnswer(Answer::yes);
    choose("取消主管...");
    EXPECT_EQ(branch("李明"), "李明: 个人往来 会计科目 出纳");
    EXPECT_TRUE(box(1).isEnabled());
}

TEST_F(DivisionWindowTest, ShowsIncompatibleDutiesInALine) {
    open();
    EXPECT_FALSE(control<QLabel>("duties").isVisible());
    click("李明");
    clickBox("凭证");
    EXPECT_TRUE(control<QLabel>("duties").isVisible());
    EXPECT_EQ(control<QLabel>("duties").text(), "不相容职务:制单人不得审核凭证");
    click("赵燕");
    EXPECT_FALSE(control<QLabel>("duties").isVisible());
    EXPECT_THAT(books.messages.texts(), IsEmpty());
}

TEST_F(DivisionWindowTest, GivesThePresetThatIsChosenAfterAPreview) {
    open();
    EXPECT_FALSE(command("套用权限...").isEnabled()) << "a supervisor";
    click("赵燕");
    {
        NextModal hands([](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "套用权限:赵燕");
            auto& choice = *dialog.findChild<QComboBox*>("source");
            EXPECT_EQ(choice.currentText(), "会计主管");
            QTest::keyClick(&choice, Qt::Key_End);
            EXPECT_EQ(choice.currentText(), "与“李明”相同");
            EXPECT_EQ(dialog.findChild<QLabel*>("preview")->text(),
                      "增加 4 项:个人往来(个人往来目录);会计科目(全部);出纳(结算方式设置)\n");
            QTest::keyClick(&choice, Qt::Key_Escape);
        });
        choose("套用权限...");
    }
    EXPECT_EQ(books.stored()[2], "3 赵燕");
    NextModal hands([](QWidget& dialog) {
        QTest::keyClick(dialog.findChild<QComboBox*>("source"), Qt::Key_End);
        clickOn(dialog, "确定");
    });
    choose("套用权限...");
    EXPECT_EQ(books.stored()[2], "3 赵燕 1 41 42 57");
    EXPECT_EQ(branch("赵燕"), "赵燕: 个人往来 会计科目 出纳");
}

TEST_F(DivisionWindowTest, FindsAFunctionByItsNameOrInitialsAndShowsWhoMayUseIt) {
    open();
    NextModal hands([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "谁能使用");
        const auto& operators = *dialog.findChild<QLabel*>("operators");
        const auto& list = *dialog.findChild<QAbstractItemView*>("functions");
        EXPECT_EQ(list.model()->rowCount(), 82);
        EXPECT_EQ(operators.text(), "能使用“个人往来目录”的操作员:张三(主管)、李明");
        auto* search = dialog.findChild<QLineEdit*>("search");
        EXPECT_EQ(dialog.focusWidget(), search);
        typeText(search, "结算方式");
        ASSERT_EQ(list.model()->rowCount(), 1);
        EXPECT_EQ(list.model()->index(0, 0).data().toString(), "57 出纳 · 结算方式设置");
        EXPECT_EQ(operators.text(), "能使用“结算方式设置”的操作员:张三(主管)、李明");
        search->clear();
        QTest::keyClicks(search, "bbbz");
        EXPECT_EQ(operators.text(), "能使用“报表编制”的操作员:张三(主管)");
        QTest::keyClicks(search, "xyz");
        EXPECT_EQ(operators.text(), "");
        search->clear();
        QTest::keyClick(search, Qt::Key_Return);
        EXPECT_EQ(dialog.focusWidget(), &list);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        EXPECT_EQ(operators.text(), "能使用“个人往来期初浏览”的操作员:张三(主管)");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    press(Qt::Key_F, Qt::ControlModifier);
}

TEST_F(DivisionWindowTest, PrintsTheDivisionOfWorkAndShowsTheMatrix) {
    open();
    RecordingPrinter printer;
    const HostReportPrinter installed(printer);
    press(Qt::Key_P, Qt::ControlModifier);
    choose("打印预览");
    choose("权限对照表...");
    ASSERT_EQ(printer.outputs.size(), 3u);
    EXPECT_EQ(printer.outputs[0].kind, ReportOutput::print);
    EXPECT_EQ(printer.outputs[0].report.title, "财务分工一览表");
    EXPECT_EQ(printer.outputs[1].kind, ReportOutput::preview);
    EXPECT_EQ(printer.outputs[1].report.title, "财务分工一览表");
    EXPECT_EQ(printer.outputs[2].kind, ReportOutput::preview);
    EXPECT_EQ(printer.outputs[2].report.title, "操作员权限对照表");
}

TEST_F(DivisionWindowTest, ClosesWithEscape) {
    open();
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}
