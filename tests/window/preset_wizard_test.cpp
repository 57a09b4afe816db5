#include "vouchertype/window/preset_wizard.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "screen/help/help_window.h"
#include "tests/support/voucher_type_books.h"
#include "tests/window/typing.h"

using namespace chengheng;

namespace {

using Texts = std::vector<std::string>;

/// The wizard on books in memory, and the hands of its operator.
class PresetWizardTest : public testing::Test {
  protected:
    void SetUp() override {
        books.addAccounts();
        books.run(
            "UPDATE Code SET bCash = 1 WHERE sCode = '1001'\r\n"
            "UPDATE Code SET bBank = 1 WHERE sCode = '1002'");
        window = std::make_unique<PresetWizard>(nullptr);
        showActive(*window);
    }
    template <class Control>
    Control& control(const char* name) const {
        return *window->findChild<Control*>(QLatin1String(name));
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window->focusWidget() ? window->focusWidget() : window.get(), Qt::Key(key),
                        modifiers);
        QCoreApplication::processEvents();
    }
    /// A button's own key presses it for a moment before it acts.
    void pressButton(int key, const char* name) {
        QPushButton& button = control<QPushButton>(name);
        press(key, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&button] { return !button.isDown(); }));
    }
    std::string focused() const { return window->focusWidget()->objectName().toStdString(); }
    /// The captions of the choices on the page in front.
    Texts choices() const {
        Texts captions;
        for (const QRadioButton* choice : window->findChildren<QRadioButton*>())
            if (choice->isVisible()) captions.push_back(choice->text().toStdString());
        return captions;
    }
    /// The buttons that can be pressed.
    Texts buttons() const {
        Texts captions;
        for (const QPushButton* button : window->findChildren<QPushButton*>())
            if (button->isVisible() && button->isEnabled())
                captions.push_back(button->text().toStdString());
        return captions;
    }
    std::string preview() const { return control<QLabel>("preview").text().toStdString(); }

    VoucherTypeBooks books{":memory:"};
    std::unique_ptr<PresetWizard> window;
};

}  // namespace

TEST_F(PresetWizardTest, HasTwoPagesWithTheirCaptions) {
    EXPECT_EQ(window->windowTitle(), "凭证类别预置");
    EXPECT_EQ(window->findChild<QGroupBox*>()->title(), "是否分类");
    EXPECT_EQ(window->findChild<QGroupBox*>()->findChild<QLabel*>()->text(), "凭证是否分类:");
    EXPECT_EQ(choices(), (Texts{"分类", "不分类 (记帐凭证)"}));
    EXPECT_EQ(buttons(), (Texts{"下一步(&N)", "取消"}));
    press(Qt::Key_Return);
    EXPECT_EQ(choices(), (Texts{" 收款凭证 付款凭证 转帐凭证", " 现金凭证 银行凭证 转帐凭证",
                                " 现金收款凭证 银行收款凭证   现金付款凭证 银行付款凭证   转帐凭证",
                                "自定义"}));
    EXPECT_EQ(buttons(), (Texts{"上一步(&B)", "完成(&F)", "取消"}));
    const auto labels = window->findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) {
        return label->isVisible() && label->text() == "分类方式:";
    }));
}

TEST_F(PresetWizardTest, SetsUpReceiptsPaymentsAndTransfersWithTwoKeys) {
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), "receiptsAndPayments");
    press(Qt::Key_Return);
    EXPECT_EQ(window->result(), 0x3025);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(books.stored(), (Texts{"1 收 收款凭证 1 1001 1002", "2 付 付款凭证 2 1001 1002",
                                     "3 转 转帐凭证 3 1001 1002"}));
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(PresetWizardTest, FinishesOnTheFirstPageWithoutClassification) {
    EXPECT_EQ(focused(), "classified");
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "unclassified");
    EXPECT_EQ(buttons(), (Texts{"完成(&F)", "取消"}));
    press(Qt::Key_Up);
    EXPECT_EQ(buttons(), (Texts{"下一步(&N)", "取消"}));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(window->result(), 0x3025);
    EXPECT_EQ(books.stored(), Texts{"1 记 记帐凭证 0"});
}

TEST_F(PresetWizardTest, WritesTheWayThatIsChosen) {
    pressButton(Qt::Key_N, "next");
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "cashAndBank");
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "fiveKinds");
    pressButton(Qt::Key_F, "finish");
    EXPECT_EQ(window->result(), 0x3025);
    EXPECT_EQ(books.stored().size(), 5u);
    EXPECT_EQ(books.stored()[0], "1 01 现金收款凭证 1 1001");
}

TEST_F(PresetWizardTest, FinishesTypesOfTheOperatorsOwnWithoutWriting) {
    press(Qt::Key_Return);
    for (int time = 0; time < 3; ++time) press(Qt::Key_Down);
    EXPECT_EQ(focused(), "custom");
    EXPECT_EQ(preview(), "不建立凭证类别,请在“凭证类别”窗口中自行增加。");
    press(Qt::Key_Return);
    EXPECT_EQ(window->result(), 0x3025);
    EXPECT_EQ(books.stored(), Texts{});
}

TEST_F(PresetWizardTest, GoesBackWithTheChoiceAsItWas) {
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    pressButton(Qt::Key_B, "back");
    EXPECT_EQ(choices(), (Texts{"分类", "不分类 (记帐凭证)"}));
    EXPECT_EQ(focused(), "classified");
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), "cashAndBank");
}

TEST_F(PresetWizardTest, ShowsWhatItWillMake) {
    press(Qt::Key_Return);
    EXPECT_EQ(preview(),
              "收 收款凭证  借方必有 1001 或 1002\n付 付款凭证  贷方必有 1001 或 1002\n"
              "转 转帐凭证  借贷必无 1001 或 1002");
    press(Qt::Key_Down);
    EXPECT_EQ(preview(),
              "现 现金凭证  不限制\n银 银行凭证  不限制\n转 转帐凭证  借贷必无 1001 或 1002");
}

TEST_F(PresetWizardTest, ShowsWhyItCannotTellWhatItWillMake) {
    books.database.DBClose("books");
    press(Qt::Key_Return);
    EXPECT_NE(preview(), "");
    EXPECT_EQ(preview().find("没有指定"), std::string::npos);
}

TEST_F(PresetWizardTest, StaysWhereTypesHaveComeMeanwhile) {
    books.insert({"记 记帐凭证 0"});
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(books.messages.onlyNotice().text, "凭证类别已经被设置!");
    EXPECT_TRUE(books.holdsLocks());
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(books.messages.texts().size(), 2u);
    EXPECT_EQ(books.stored(), Texts{"1 记 记帐凭证 0"});
    window.reset();
    EXPECT_FALSE(books.holdsLocks());
}

TEST_F(PresetWizardTest, FreesItsLocksOnceItHasClosed) {
    books.insert({"记 记帐凭证 0"});
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(books.holdsLocks());
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    window.reset();
    EXPECT_FALSE(books.holdsLocks());
}

TEST_F(PresetWizardTest, IsGivenUpWithEscapeAndWritesNothing) {
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->result(), QDialog::Rejected);
    EXPECT_EQ(books.stored(), Texts{});
}

TEST_F(PresetWizardTest, OpensItsHelpWithF1) {
    press(Qt::Key_F1);
    auto* help = window->findChild<HelpWindow*>();
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->shownTitle(), "凭证类别");
}
