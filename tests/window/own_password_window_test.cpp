#include "screen/books/own_password_window.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "session/host_messages.h"
#include "tests/support/operator_books.h"
#include "tests/window/hub_fixture.h"
#include "tests/window/logon_fixture.h"
#include "tests/window/next_modal.h"

using namespace chengheng;

namespace {

/// Types the old password and twice the new one, each ended by Enter, as a person would.
void typePasswords(QWidget& dialog, const char* old, const char* wanted) {
    EXPECT_EQ(dialog.windowTitle(), "更改口令");
    for (const char* text : {old, wanted, wanted}) {
        auto* edit = qobject_cast<QLineEdit*>(dialog.focusWidget());
        ASSERT_NE(edit, nullptr);
        EXPECT_EQ(edit->echoMode(), QLineEdit::Password);
        edit->clear();
        typeText(edit, QString::fromUtf8(text));
        QTest::keyClick(edit, Qt::Key_Return);
    }
}

}  // namespace

TEST(OwnPasswordWindows, ChangeThePasswordAndTellThatItIsDone) {
    OperatorBooks books(":memory:");
    OwnPasswordWindow window(nullptr);
    showActive(window);
    auto& confirm = *window.findChild<QPushButton*>();
    EXPECT_FALSE(confirm.isEnabled());
    EXPECT_EQ(window.findChild<QLabel*>("note")->text(), "没有口令:任何人都能用这个姓名登录。");
    typePasswords(window, "wrong", "neu");
    EXPECT_EQ(books.messages.onlyNotice().text, "原口令不正确!");
    EXPECT_TRUE(window.isVisible());
    books.messages.forget();
    books.run("DELETE LogonTries WHERE lId > 0");
    window.findChild<QLineEdit*>("oldPassword")->setFocus();
    typePasswords(window, "", "neu");
    EXPECT_EQ(books.messages.onlyNotice().text, "口令已更改,下次登录请用新口令。");
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(isPasswordOf(books.hashOf(1), "neu"));
}

TEST_F(HubTest, OpensTheOwnPasswordForEverybody) {
    logOn(0);
    OpenHub hub;
    hub.show();
    NextModal operatorHands([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "更改口令");
        window.close();
    });
    hub.PostCommand(33008);
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST(LogonPasswords, AreChangedFromTheLogOnWindowWhichStaysOpen) {
    Station station;
    station.make();
    const HostMessages installed(station.messages);
    station.open();
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    {
        NextModal operatorHands([](QWidget& window) { typePasswords(window, "secret", "neu"); });
        clickOn(*station.window, "更改口令(&W)");
    }
    EXPECT_EQ(station.messages.texts().back(), "口令已更改,下次登录请用新口令。");
    EXPECT_TRUE(station.window->isVisible());
    EXPECT_FALSE(station.session.isLoggedOn());
    EXPECT_EQ(station.field<QLineEdit>("password").text(), "");
    EXPECT_EQ(focusedField(*station.window), "password");
    station.type("password", "neu");
    station.window->accept();
    EXPECT_EQ(station.window->result(), QDialog::Accepted);
}
