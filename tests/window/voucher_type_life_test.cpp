#include "screen/help/help_window.h"
#include "screen/message_boxes.h"
#include "tests/support/recording_printer.h"
#include "tests/support/report_rows.h"
#include "tests/window/next_modal.h"
#include "tests/window/voucher_type_fixture.h"

using namespace chengheng;

TEST_F(VoucherTypeWindowTest, SetsUpReceiptsPaymentsAndTransfersByKeysAlone) {
    open();
    const std::tuple<const char*, const char*, int> types[] = {
        {"收", "收款凭证", 0}, {"付", "付款凭证", 1}, {"转", "转帐凭证", 2}};
    for (const auto& [number, name, steps] : types) {
        press(Qt::Key_N, Qt::ControlModifier);
        typeText(window->focusWidget(), QString::fromUtf8(number));
        press(Qt::Key_Tab);
        typeText(window->focusWidget(), QString::fromUtf8(name));
        press(Qt::Key_Tab);
        press(Qt::Key_Space);
        press(Qt::Key_Tab);
        for (int step = 0; step < steps; ++step) press(Qt::Key_Right);
        press(Qt::Key_Tab);
        typeText(window->focusWidget(), "1001");
        press(Qt::Key_Tab);
        press(Qt::Key_Tab);
        enter("1002");
    }
    EXPECT_EQ(books.stored(), (Texts{"1 收 收款凭证 1 1001 1002", "2 付 付款凭证 2 1001 1002",
                                     "3 转 转帐凭证 3 1001 1002"}));
    EXPECT_EQ(leaves(), (Texts{"收 收款凭证", "付 付款凭证", "转 转帐凭证"}));
    EXPECT_EQ(selectedLeaf(), "转 转帐凭证");
    EXPECT_TRUE(books.messages.texts().empty());
    EXPECT_FALSE(books.holdsLocks());
}

TEST_F(VoucherTypeWindowTest, TellsEachRefusalInItsOrder) {
    open({receipt, "记 记帐凭证 0"});
    clickLeaf(1);
    const auto expectRefused = [this](const char* text, const char* field) {
        press(Qt::Key_Return);
        EXPECT_EQ(said(), text);
        EXPECT_EQ(books.messages.notices().back().focusField, field) << text;
        EXPECT_FALSE(books.holdsLocks());
        EXPECT_TRUE(ok().isEnabled()) << "nothing was saved";
    };
    books.run("INSERT RegMain (lId, sSign) VALUES(1, '记')");
    type(number(), "收");
    QTest::keyClick(&restricted(), Qt::Key_Space);
    expectRefused("凭证类别已使用,不能再修改!", "sSign");
    books.run("DELETE RegMain WHERE lId = 1");
    expectRefused("类别号重复，\n\n请重新输入。", "sSign");
    type(number(), "记");
    expectRefused("请输入限制科目", "sCode1");
    type(two(), "1001");
    expectRefused("非法科目", "sCode1");
    type(one(), "100201");
    expectRefused("非法科目", "sCode1");
    type(one(), "1001");
    type(two(), "");
    expectRefused("非法科目", "sCode2");
    type(two(), "1001");
    expectRefused("科目不能重复", "sCode2");
    EXPECT_EQ(books.stored()[1], "2 记 记帐凭证 0");
    type(two(), " 1012 ");
    type(number(), "1 ");
    press(Qt::Key_Return);
    EXPECT_EQ(books.stored()[1], "2 1 记帐凭证 1 1001 1012");
    EXPECT_EQ(shownInput(), "1 记帐凭证 限制 借方必有 1001 1012") << "without the blanks";
    EXPECT_EQ(selectedLeaf(), "1 记帐凭证");
}

TEST_F(VoucherTypeWindowTest, RenewsWhatWasLoadedWithEachSave) {
    open({receipt, "付 付款凭证 0"});
    type(number(), "入");
    press(Qt::Key_Return);
    EXPECT_EQ(leaves()[0], "入 收款凭证");
    type(number(), "收");
    EXPECT_TRUE(ok().isEnabled());
    books.run("INSERT RegMain (lId, sSign) VALUES(1, '入')");
    press(Qt::Key_Return);
    EXPECT_EQ(books.messages.onlyNotice().text, "凭证类别已使用,不能再修改!")
        << "the use of the number loaded last counts";
    type(number(), "入");
    EXPECT_FALSE(ok().isEnabled());
}

TEST_F(VoucherTypeWindowTest, PutsTheFocusOnTheFieldThatARealBoxSpokeOf) {
    open({receipt});
    window.reset();
    MessageBoxes boxes;
    const HostMessages onTheScreen(boxes);
    ListFormWindowTest::open();
    type(two(), "1001");
    {
        NextModal operatorHands([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        press(Qt::Key_Return);
    }
    EXPECT_EQ(window->focusWidget(), &two());
    EXPECT_EQ(two().selectedText(), "1001");
    NextModal operatorHands([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Y); });
    window->close();
}

TEST_F(VoucherTypeWindowTest, KeepsWhatWasTypedWhenTheTypeHasGone) {
    open({receipt, "付 付款凭证 0"});
    type(name(), "收入");
    books.run("DELETE Sign WHERE lId = 1");
    press(Qt::Key_Return);
    EXPECT_EQ(books.messages.onlyNotice().text,
              "该凭证类别已被其他工作站删除,列表已重新读入。\n"
              "输入已保留,再次确定将作为新的凭证类别增加。");
    EXPECT_EQ(leaves(), Texts{"付 付款凭证"});
    EXPECT_EQ(shownInput(), "收 收入 限制 借方必有 1001 1002");
    EXPECT_EQ(books.stored(), Texts{"2 付 付款凭证 0"});
    press(Qt::Key_Return);
    EXPECT_EQ(books.stored().back(), "3 收 收入 1 1001 1002");
}

TEST_F(VoucherTypeWindowTest, LeavesAStoredNumberWithBlanksAsItIsUntilItIsEdited) {
    books.run(
        "INSERT Sign (lId, sSign, sSignName) VALUES(1, ' 1', '收款')\r\n"
        "INSERT RegMain (lId, sSign) VALUES(1, ' 1')");
    open();
    type(name(), "收款凭证");
    press(Qt::Key_Return);
    EXPECT_EQ(books.messages.texts(), Texts{}) << "its vouchers keep it";
    EXPECT_EQ(books.stored(), Texts{"1  1 收款凭证 0"});
    type(number(), "1");
    press(Qt::Key_Return);
    EXPECT_EQ(books.messages.onlyNotice().text, "凭证类别已使用,不能再修改!");
    books.run("DELETE RegMain WHERE lId = 1");
    press(Qt::Key_Return);
    EXPECT_EQ(books.stored(), Texts{"1 1 收款凭证 0"});
}

TEST_F(VoucherTypeWindowTest, TakesTextsThatAStatementCouldTripOver) {
    open();
    for (const char* number : {"'", "%", "_", "Ａ", "''"}) {
        press(Qt::Key_N, Qt::ControlModifier);
        enter(number);
        enter("O'Neil 100%_");
    }
    EXPECT_EQ(leaves(), (Texts{"' O'Neil 100%_", "% O'Neil 100%_", "_ O'Neil 100%_",
                               "Ａ O'Neil 100%_", "'' O'Neil 100%_"}));
    press(Qt::Key_N, Qt::ControlModifier);
    enter("'");
    enter("x");
    EXPECT_EQ(books.messages.onlyNotice().text, "类别号重复，\n\n请重新输入。");
    books.messages.willAnswer(Answer::yes);
    clickLeaf(1);
    books.messages.willAnswer("是否删除当前凭证类别？\n\n类别:%\n\n名称:O'Neil 100%_", Answer::yes);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(leaves().size(), 4u);
    EXPECT_EQ(selectedLeaf(), "_ O'Neil 100%_");
}

TEST_F(VoucherTypeWindowTest, PrintsAndPreviewsItsList) {
    RecordingPrinter printer;
    const HostReportPrinter installed(printer);
    books.run(
        "INSERT ZWPrintMain (lId, sTitle) VALUES(5, '凭证类别')\r\n"
        "INSERT ZWPrintSub (lId, lTieId, sColName, byWidth) VALUES(1, 5, '类别', 10)\r\n"
        "INSERT ZWPrintSub (lId, lTieId, sColName, byWidth) VALUES(2, 5, '名称', 30)\r\n"
        "INSERT ZWPrintSub (lId, lTieId, sColName, byWidth) VALUES(3, 5, '限制', 10)\r\n"
        "INSERT ZWPrintSub (lId, lTieId, sColName, byWidth) VALUES(4, 5, '科目一', 10)\r\n"
        "INSERT ZWPrintSub (lId, lTieId, sColName, byWidth) VALUES(5, 5, '科目二', 10)");
    open({receipt, "记 记帐凭证 0", "特 特种凭证 7 1001 1002"});
    press(Qt::Key_P, Qt::ControlModifier);
    choose("打印预览");
    ASSERT_EQ(printer.outputs.size(), 2u);
    EXPECT_EQ(printer.outputs[0].kind, ReportOutput::print);
    EXPECT_EQ(printer.outputs[1].kind, ReportOutput::preview);
    EXPECT_EQ(rowTexts(printer.outputs[0].report),
              (Texts{"收|收款凭证|借方必有|1001|1002", "记|记帐凭证|-|-|-",
                     "特|特种凭证|限制方式不明|1001|1002"}));
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(VoucherTypeWindowTest, PreviewsTheUseOfItsTypes) {
    RecordingPrinter printer;
    const HostReportPrinter installed(printer);
    books.run(
        "INSERT UnregMain (lId, byPeroid, dtDate, sSign, lNumber) "
        "VALUES(1, 1, '2026/1/5', '收', 2)");
    open({receipt});
    choose("使用情况(&Y)...");
    ASSERT_EQ(printer.outputs.size(), 1u);
    EXPECT_EQ(printer.outputs[0].kind, ReportOutput::preview);
    EXPECT_EQ(rowTexts(printer.outputs[0].report),
              (Texts{"收|收款凭证|全年|1|1|-|2026-01-05|-|2026-01-05|缺 1 号",
                     "收|收款凭证|1 月|1|1|2|2026-01-05|2|2026-01-05|缺 1"}));
}

TEST_F(VoucherTypeWindowTest, OpensItsHelp) {
    open();
    press(Qt::Key_F1);
    auto* help = window->findChild<HelpWindow*>();
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->shownTitle(), "凭证类别");
}
