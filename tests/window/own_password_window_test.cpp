#include "screen/books/own_password_window.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "data/access/row_lease.h"
#include "data/tables/operators.h"
#include "session/host_messages.h"
#include "session/rights/passwords.h"
#include "tests/support/engine_tools.h"
#include "tests/support/operator_books.h"
#include "tests/support/small_books.h"
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

namespace {

/// A log-on window of books whose supervisor 王芳 is to choose a new password.
struct NewPasswordStation : Station {
    NewPasswordStation() {
        const CreatedBooks made = make();
        location = made.year.location;
        runScript(*openForTest(location, OpenMode::existing),
                  "INSERT INTO LogonTries (lId, bNewPassword) VALUES (1, 1)");
        open();
        type("operatorName", "王芳");
        type("password", "secret");
    }

    std::string location;
    HostMessages installed{messages};
};

/// Types both fields, each ended by Enter.
void typeTwice(QWidget& dialog, const char* first, const char* second) {
    for (const char* text : {first, second}) {
        auto* edit = qobject_cast<QLineEdit*>(dialog.focusWidget());
        ASSERT_NE(edit, nullptr);
        EXPECT_EQ(edit->echoMode(), QLineEdit::Password);
        edit->selectAll();
        typeText(edit, QString::fromUtf8(text));
        QTest::keyClick(edit, Qt::Key_Return);
    }
}

}  // namespace

TEST(LogonPasswords, AreChosenAnewBeforeAnythingElseOpensWhenTheSupervisorWantsIt) {
    NewPasswordStation station;
    NextModal operatorHands([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "更改口令");
        EXPECT_EQ(dialog.findChild<QLabel*>("heading")->text(),
                  "主管要求操作员“王芳”先更改口令,再开始工作。");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("oldPassword"), nullptr) << "typed just now";
        EXPECT_FALSE(dialog.findChild<QPushButton*>()->isEnabled());
        EXPECT_FALSE(station.session.isLoggedOn());
        typeTwice(dialog, "neu", "Neu");
        EXPECT_EQ(station.messages.texts().back(), "两次输入的新口令不一致!");
        EXPECT_EQ(station.messages.notices().back().focusField, "confirmation");
        dialog.findChild<QLineEdit*>("sPassword")->setFocus();
        typeTwice(dialog, "secret", "secret");
        EXPECT_EQ(station.messages.texts().back(), "新口令不能与原口令相同!");
        EXPECT_EQ(station.messages.notices().back().focusField, "sPassword");
        EXPECT_TRUE(dialog.isVisible());
        dialog.findChild<QLineEdit*>("sPassword")->setFocus();
        typeTwice(dialog, "neu", "neu");
        EXPECT_FALSE(dialog.isVisible());
    });
    station.window->accept();
    EXPECT_EQ(station.window->result(), QDialog::Accepted);
    EXPECT_TRUE(station.session.isLoggedOn());
    const auto hash = readRows<_UsersInfo>(station.database, "lId = 1").front().sPassword;
    EXPECT_TRUE(isPasswordOf(hash, "neu"));
}

TEST(LogonPasswords, NotChosenMeansNotLoggedOn) {
    NewPasswordStation station;
    NextModal operatorHands([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    station.window->accept();
    EXPECT_TRUE(station.window->isVisible());
    EXPECT_FALSE(station.session.isLoggedOn());
    EXPECT_TRUE(station.messages.texts().empty());
    EXPECT_EQ(readCell(*openForTest(station.location, OpenMode::existing),
                       "SELECT bNewPassword FROM LogonTries WHERE lId = 1"),
              "1");
}

TEST(LogonPasswords, ChosenAnewAreNotAskedForOnceMoreByTheCommandThatChangesThem) {
    NewPasswordStation station;
    NextModal operatorHands([](QWidget& dialog) { typeTwice(dialog, "neu", "neu"); });
    clickOn(*station.window, "更改口令(&W)");
    EXPECT_EQ(station.messages.onlyNotice().text, "口令已更改,下次登录请用新口令。");
    EXPECT_FALSE(station.session.isLoggedOn());
    EXPECT_EQ(station.field<QLineEdit>("password").text(), "");
}

TEST(LogonPasswords, ChosenAnewStandInTheWindowThatStaysOpen) {
    NewPasswordStation station;
    runScript(*openForTest(station.location, OpenMode::existing),
              "UPDATE Users SET bManager = 0; UPDATE UserAuth SET sAuthId = 'N'");
    NextModal operatorHands([](QWidget& dialog) { typeTwice(dialog, "neu", "neu"); });
    clickOn(*station.window, "帐套参数(&C)");
    EXPECT_EQ(station.messages.onlyNotice().text, "你没有[帐套参数调整]权限!");
    EXPECT_EQ(station.field<QLineEdit>("password").text(), "neu");
}
