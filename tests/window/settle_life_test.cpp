#include "screen/help/help_window.h"
#include "screen/message_boxes.h"
#include "tests/support/recording_printer.h"
#include "tests/support/report_rows.h"
#include "tests/window/next_modal.h"
#include "tests/window/settle_fixture.h"

using namespace chengheng;

namespace {

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(SettleWindowTest, ServesFromTheFirstMethodToTheLastOneGone) {
    open();
    add("1", "现金");
    add("2", "支票");
    add("3", "汇兑");
    EXPECT_EQ(leaves(), (Texts{"1 现金", "2 支票", "3 汇兑"}));
    EXPECT_EQ(books.stored(), (Texts{"1 1 现金 0", "2 2 支票 0", "3 3 汇兑 0"}));
    EXPECT_TRUE(books.messages.texts().empty());

    add("1", "本票");
    EXPECT_EQ(said(), "结算方式号重复,不能添加!");
    EXPECT_EQ(books.messages.notices().back().focusField, "sStlId");
    EXPECT_EQ(shownInput(), "1 本票");
    type(number(), "2");
    press(Qt::Key_Return);
    EXPECT_EQ(said(), "结算方式号重复,不能增加!");
    type(number(), "4");
    type(name(), "现金");
    press(Qt::Key_Return);
    EXPECT_EQ(said(), "结算方式重复,不能添加!");
    type(name(), "汇兑");
    press(Qt::Key_Return);
    EXPECT_EQ(said(), "结算方式重复,不能增加!");
    EXPECT_FALSE(books.holdsLocks());
    books.messages.willAnswer(Answer::yes);
    clickLeaf(1);

    books.run("INSERT UnregSub (lId, sStlId) VALUES(1, '2')");
    type(name(), "转帐支票");
    press(Qt::Key_Return);
    EXPECT_EQ(leaves()[1], "2 转帐支票");
    EXPECT_TRUE(isMarkedUsed());
    type(number(), "5");
    press(Qt::Key_Return);
    EXPECT_EQ(said(), "结算方式已使用,不能再修改!");
    type(number(), "1");
    press(Qt::Key_Return);
    EXPECT_EQ(said(), "结算方式已使用,不能再修改!");
    type(number(), "2");
    books.run("DELETE UnregSub WHERE lId = 1");
    clickLeaf(0);

    for (const char* question : {"是否删除当前结算方式号?\n\n结算方式号:1\n结算方式名:现金",
                                 "是否删除当前结算方式号?\n\n结算方式号:2\n结算方式名:转帐支票",
                                 "是否删除当前结算方式号?\n\n结算方式号:3\n结算方式名:汇兑"}) {
        EXPECT_TRUE(canDelete());
        books.messages.willAnswer(question, Answer::yes);
        press(Qt::Key_D, Qt::ControlModifier);
    }
    EXPECT_EQ(books.stored(), Texts{});
    EXPECT_EQ(leaves(), Texts{});
    EXPECT_EQ(shownInput(), " ");
    EXPECT_FALSE(canDelete());
    EXPECT_TRUE(number().hasFocus());

    add("7", "承兑");
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    open();
    EXPECT_EQ(leaves(), Texts{"7 承兑"});
    EXPECT_EQ(shownInput(), "7 承兑");
}

TEST_F(SettleWindowTest, RefusesToRenumberAndDeleteAMethodThatCameIntoUseMeanwhile) {
    open({"1 现金 0"});
    EXPECT_TRUE(canDelete());
    books.run("INSERT RegSub (lId, sStlId) VALUES(1, '1')");
    books.messages.willAnswer(Answer::yes);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(said(), "该结算方式已使用, 不能删除!");
    EXPECT_EQ(books.stored(), Texts{"1 1 现金 0"});
}

TEST_F(SettleWindowTest, KeepsTheMethodWhenItsDeletionIsNotConfirmed) {
    open({"1 现金 0"});
    books.messages.willAnswer(Answer::no);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(leaves(), Texts{"1 现金"});
    EXPECT_EQ(books.stored(), Texts{"1 1 现金 0"});
}

TEST_F(SettleWindowTest, PutsTheFocusBackOnTheFieldThatARealBoxSpokeOf) {
    open({"1 现金 0"});
    window.reset();
    MessageBoxes boxes;
    const HostMessages onTheScreen(boxes);
    open();
    press(Qt::Key_N, Qt::ControlModifier);
    type(number(), "1");
    type(name(), "支票");
    {
        NextModal operatorHands([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        press(Qt::Key_Return);
    }
    EXPECT_EQ(window->focusWidget(), &number());
    EXPECT_EQ(number().selectedText(), "1");
    NextModal operatorHands([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Y); });
    window->close();
}

TEST_F(SettleWindowTest, PrintsAndPreviewsItsList) {
    RecordingPrinter printer;
    const HostReportPrinter installed(printer);
    books.run(
        "INSERT ZWPrintMain (lId, sTitle) VALUES(35, '结算方式')\r\n"
        "INSERT ZWPrintSub (lId, lTieId, sColName, byWidth) VALUES(1, 35, '方式号', 10)\r\n"
        "INSERT ZWPrintSub (lId, lTieId, sColName, byWidth) VALUES(2, 35, '方式名', 30)\r\n"
        "INSERT ZWPrintSub (lId, lTieId, sColName, byWidth) VALUES(3, 35, '支票', 10)");
    open({"1 现金 0", "2 支票 1"});
    press(Qt::Key_P, Qt::ControlModifier);
    command("打印预览").trigger();
    settle();
    ASSERT_EQ(printer.outputs.size(), 2u);
    EXPECT_EQ(printer.outputs[0].kind, ReportOutput::print);
    EXPECT_EQ(printer.outputs[1].kind, ReportOutput::preview);
    EXPECT_EQ(rowTexts(printer.outputs[0].report), (Texts{"1|现金|-", "2|支票|√"}));
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(SettleWindowTest, PrintsNothingWithoutTheDatabase) {
    RecordingPrinter printer;
    const HostReportPrinter installed(printer);
    open({"1 现金 0"});
    ASSERT_NE(books.database.DBClose("books"), 0);
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(said(), "Select DB Error!");
    EXPECT_TRUE(printer.outputs.empty());
}

TEST_F(SettleWindowTest, OpensItsHelpAndSearchesIt) {
    open();
    press(Qt::Key_F1);
    auto* help = window->findChild<HelpWindow*>();
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->shownTitle(), "结算方式");
    command("搜索").trigger();
    settle();
    EXPECT_NE(qobject_cast<QLineEdit*>(help->focusWidget()), nullptr);
    command("帮助主题").trigger();
    settle();
    EXPECT_EQ(window->findChildren<HelpWindow*>().size(), 1);
}

TEST_F(SettleWindowTest, SaysWhatProgramItIs) {
    open();
    command("关于...").trigger();
    settle();
    EXPECT_TRUE(said().starts_with("澄恒财务软件\n基础设置\n\n版本 "));
}
