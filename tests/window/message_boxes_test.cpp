#include "screen/message_boxes.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QVBoxLayout>

#include "tests/window/next_modal.h"

using namespace chengheng;

namespace {

QStringList buttonTexts(QWidget& window) {
    QStringList texts;
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (button->isVisible()) texts << button->text();
    }
    texts.sort();
    return texts;
}

void click(QWidget& window, const char* caption) {
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (button->text() == QString::fromUtf8(caption)) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    ADD_FAILURE() << "no button " << caption;
}

Answer answerByKey(const Question& question, Qt::Key key) {
    NextModal operatorHands([&](QWidget& window) { QTest::keyClick(&window, key); });
    return MessageBoxes().ask(question);
}

}  // namespace

TEST(MessageBoxes, ShowANoticeAsPlainTextWithCaptionIconAndOneButton) {
    NextModal operatorHands([](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.windowTitle(), "澄恒财务软件");
        EXPECT_EQ(box.text(), "第一行\n<b>第二行</b>");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(buttonTexts(box), QStringList{"确定"});
        click(box, "确定");
    });
    MessageBoxes().tell({.text = "第一行\n<b>第二行</b>", .icon = MessageIcon::stop});
}

TEST(MessageBoxes, KeepTheDetailBehindAButtonThatLeavesThemOpen) {
    NextModal operatorHands([](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.text(), "没有打印。");
        EXPECT_EQ(box.informativeText(), "");
        EXPECT_EQ(buttonTexts(box), (QStringList{"确定", "详细(&D)"}));
        for (QAbstractButton* button : box.findChildren<QAbstractButton*>())
            if (button->text() == "详细(&D)") QTest::keyClick(button, Qt::Key_Space);
        EXPECT_TRUE(box.isVisible());
        EXPECT_EQ(box.informativeText(), "服务器不在\nserver closed the connection");
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_FALSE(box.isVisible());
    });
    MessageBoxes().tell(
        {.text = "没有打印。\n详细信息:server closed the connection", .detail = "服务器不在"});
    EXPECT_TRUE(operatorHands.hasCome());
    NextModal answering([](QWidget& window) {
        click(window, "详细(&D)");
        EXPECT_EQ(dynamic_cast<QMessageBox&>(window).informativeText(), "磁盘已满");
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_EQ(MessageBoxes().ask({.text = "是否仍然退出?", .detail = "磁盘已满"}), Answer::no);
}

TEST(MessageBoxes, HaveAStandardIconForEachKindOfNotice) {
    const std::pair<MessageIcon, QMessageBox::Icon> icons[] = {
        {MessageIcon::none, QMessageBox::NoIcon},
        {MessageIcon::information, QMessageBox::Information},
        {MessageIcon::warning, QMessageBox::Warning},
        {MessageIcon::stop, QMessageBox::Critical},
        {MessageIcon::question, QMessageBox::Question},
    };
    for (const auto& [icon, shown] : icons) {
        NextModal operatorHands([shown = shown](QWidget& window) {
            EXPECT_EQ(dynamic_cast<QMessageBox&>(window).icon(), shown);
            QTest::keyClick(&window, Qt::Key_Return);
        });
        MessageBoxes().tell({.text = "提示", .icon = icon, .caption = "备份"});
    }
}

TEST(MessageBoxes, OfferChineseButtonsForEachKindOfQuestion) {
    const std::pair<AnswerButtons, QStringList> kinds[] = {
        {AnswerButtons::yesNo, {"否", "是"}},
        {AnswerButtons::okCancel, {"取消", "确定"}},
        {AnswerButtons::yesNoCancel, {"取消", "否", "是"}},
    };
    for (const auto& [buttons, texts] : kinds) {
        QStringList wanted = texts;
        wanted.sort();
        NextModal operatorHands([&](QWidget& window) {
            EXPECT_EQ(buttonTexts(window), wanted);
            QTest::keyClick(&window, Qt::Key_Escape);
        });
        MessageBoxes().ask({.text = "继续吗?", .buttons = buttons});
    }
}

TEST(MessageBoxes, GiveTheAnswerOfTheButtonThatWasClicked) {
    for (const auto& [caption, answer] :
         {std::pair{"是", Answer::yes}, {"否", Answer::no}, {"取消", Answer::cancel}}) {
        NextModal operatorHands([caption = caption](QWidget& window) { click(window, caption); });
        EXPECT_EQ(MessageBoxes().ask({.text = "保存吗?", .buttons = AnswerButtons::yesNoCancel}),
                  answer);
    }
}

TEST(MessageBoxes, TakeEnterAsThePresetAnswer) {
    EXPECT_EQ(answerByKey({.text = "删除吗?", .preset = Answer::yes}, Qt::Key_Return), Answer::yes);
    EXPECT_EQ(answerByKey({.text = "删除吗?", .preset = Answer::no}, Qt::Key_Return), Answer::no);
}

TEST(MessageBoxes, TakeEnterAsTheCautiousAnswerWhereNoneIsPreset) {
    EXPECT_EQ(answerByKey({.text = "删除吗?"}, Qt::Key_Return), Answer::no);
    EXPECT_EQ(answerByKey({.text = "接受吗?", .buttons = AnswerButtons::okCancel}, Qt::Key_Return),
              Answer::cancel);
    EXPECT_EQ(
        answerByKey({.text = "保存吗?", .buttons = AnswerButtons::yesNoCancel}, Qt::Key_Return),
        Answer::cancel);
}

TEST(MessageBoxes, TakeEscapeAsTheCautiousAnswer) {
    EXPECT_EQ(answerByKey({.text = "删除吗?"}, Qt::Key_Escape), Answer::no);
    EXPECT_EQ(answerByKey({.text = "接受吗?", .buttons = AnswerButtons::okCancel}, Qt::Key_Escape),
              Answer::cancel);
    EXPECT_EQ(
        answerByKey({.text = "保存吗?", .buttons = AnswerButtons::yesNoCancel}, Qt::Key_Escape),
        Answer::cancel);
}

TEST(MessageBoxes, TakeTheCloseButtonOfTheFrameAsTheCautiousAnswer) {
    NextModal operatorHands([](QWidget& window) { window.close(); });
    EXPECT_EQ(MessageBoxes().ask({.text = "删除吗?"}), Answer::no);
}

TEST(MessageBoxes, AreAnsweredByTheLettersOfYesAndNo) {
    EXPECT_EQ(answerByKey({.text = "删除吗?", .preset = Answer::no}, Qt::Key_Y), Answer::yes);
    EXPECT_EQ(answerByKey({.text = "删除吗?"}, Qt::Key_N), Answer::no);
}

TEST(MessageBoxes, PutTheFocusOnTheFaultyFieldWithItsTextSelected) {
    QDialog dialog;
    QVBoxLayout layout(&dialog);
    QLineEdit code("1001");
    QLineEdit name("库存现金");
    code.setObjectName("sCode");
    name.setObjectName("sName");
    layout.addWidget(&code);
    layout.addWidget(&name);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    code.setFocus();
    NextModal operatorHands([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
    MessageBoxes().tell({.text = "名称重复!", .beep = true, .focusField = "sName"});
    EXPECT_EQ(dialog.focusWidget(), &name);
    EXPECT_EQ(name.selectedText(), "库存现金");
}
