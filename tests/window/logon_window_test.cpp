#include "shell/logon_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStyleOptionButton>
#include <fstream>

#include "data/engines/place_beside.h"
#include "data/tables/schema.h"
#include "screen/message_boxes.h"
#include "session/failure_texts.h"
#include "shell/new_books_window.h"
#include "tests/support/older_books.h"
#include "tests/window/logon_fixture.h"
#include "tests/window/next_modal.h"

using namespace chengheng;

TEST(LogonWindow, OffersTheListedBooksLatestYearFirst) {
    Station station;
    NewBooks books = sampleBooks();
    station.make(books);
    books.year = 2027;
    station.make(books);
    station.open();
    const auto& list = station.field<QComboBox>("location");
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.itemText(0), "示例帐套 2027年度");
    EXPECT_EQ(list.itemText(1), "示例帐套 2026年度");
}

TEST(LogonWindow, EveryFieldHasALabelThatLeadsToIt) {
    Station station;
    LogonWindow& window = station.open();
    for (const char* name : {"location", "operatorName", "password", "date"}) {
        const auto* label = window.findChild<QLabel*>(QString(name) + "Label");
        ASSERT_NE(label, nullptr) << name;
        ASSERT_NE(label->buddy(), nullptr) << name;
        EXPECT_EQ(label->buddy()->objectName(), name);
        EXPECT_TRUE(label->text().contains('&')) << name;
    }
}

TEST(LogonWindow, LogsOnWithKeysAlone) {
    Station station;
    station.make();
    LogonWindow& window = station.open();
    EXPECT_EQ(focusedField(window), "operatorName");
    typeText(QApplication::focusWidget(), "王芳");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(focusedField(window), "password");
    typeText(QApplication::focusWidget(), "secret");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_TRUE(station.session.isLoggedOn());
    EXPECT_STREQ(g_lpszNbZwSetName, "示例帐套");
    EXPECT_TRUE(station.messages.texts().empty());
}

TEST(LogonWindow, TellsWhatSomebodyPutIntoTheBooks) {
    Station station;
    const std::string books = station.make().year.location;
    ASSERT_TRUE(
        openForTest(books, OpenMode::existing)->script("CREATE VIEW best AS SELECT * FROM Code"));
    LogonWindow& window = station.open();
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    window.accept();
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_THAT(station.messages.onlyNotice().text, testing::HasSubstr("视图“best”"));
}

TEST(LogonWindow, TabGoesThroughTheFieldsInTheirOrder) {
    Station station;
    station.make();
    LogonWindow& window = station.open();
    station.field<QComboBox>("location").setFocus();
    QStringList order{focusedField(window)};
    for (int step = 0; step < 9; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order << focusedField(window);
    }
    EXPECT_EQ(order,
              (QStringList{"location", "openOther", "makeNew", "makeNewYear", "parameters",
                           "ownPassword", "operationLog", "operatorName", "password", "date"}));
    EXPECT_TRUE(window.isVisible());
}

TEST(LogonWindow, WrongPasswordIsToldAndLeavesTheWindowOpen) {
    Station station;
    station.make();
    LogonWindow& window = station.open();
    station.type("operatorName", "王芳");
    station.type("password", "guess");
    window.accept();
    EXPECT_EQ(station.messages.texts(), std::vector<std::string>{"操作员姓名或口令不正确"});
    EXPECT_EQ(station.messages.notices().at(0).focusField, "password");
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(station.session.isLoggedOn());
}

namespace {

/// A log-on window on books of the first layout.
struct StationOfOlderBooks : Station {
    StationOfOlderBooks() {
        fillOlderBooks(*openForTest(books), 1);
        open({.books = books});
        type("operatorName", "王芳");
        type("password", "secret");
    }

    std::string books = freshFolder() + "/Nbzw.db";
};

}  // namespace

TEST(LogonWindow, AsksBeforeItUpgradesBooksAndLeavesThemAloneOnNo) {
    StationOfOlderBooks station;
    station.messages.willAnswer(Answer::no);
    station.window->accept();
    const std::string question = station.messages.texts().at(0);
    EXPECT_TRUE(question.starts_with("帐套“旧帐”(" + station.books + ")由较早版本的程序建立"));
    EXPECT_TRUE(question.find("先备份到“") != std::string::npos);
    EXPECT_TRUE(question.ends_with("现在升级吗?"));
    EXPECT_TRUE(station.window->isVisible());
    EXPECT_FALSE(station.session.isLoggedOn());
    EXPECT_EQ(layoutAt(station.books), 1);
}

TEST(LogonWindow, UpgradesBooksOnYesAndLogsOn) {
    StationOfOlderBooks station;
    station.messages.willAnswer(Answer::yes);
    station.window->accept();
    EXPECT_EQ(station.messages.texts().size(), 1u);
    EXPECT_EQ(station.window->result(), QDialog::Accepted);
    EXPECT_TRUE(station.session.isLoggedOn());
    station.session.logOff();
    EXPECT_EQ(layoutAt(station.books), booksFormatVersion);
}

TEST(LogonWindow, TellsWhereTheBackupLiesWhenItsPlaceWasTakenMeanwhile) {
    StationOfOlderBooks station;
    const auto placeAt = [&station](const char* suffix) {
        return placeBeside(station.books, suffix);
    };
    station.messages.whileShown([&](const std::string& text) {
        if (text.ends_with("现在升级吗?")) std::ofstream(placeAt("_format1")) << "another's";
    });
    station.messages.willAnswer(Answer::yes);
    station.window->accept();
    EXPECT_THAT(station.messages.texts(),
                testing::ElementsAre(testing::HasSubstr("先备份到“" + placeAt("_format1") + "”"),
                                     "升级前的备份在“" + placeAt("_format1_2") + "”。"));
    EXPECT_EQ(layoutAt(placeAt("_format1_2")), 1);
}

TEST(LogonWindow, WaitsForWhoIsAtWorkAndTellsWhenTheWaitIsGivenUp) {
    StationOfOlderBooks station;
    const auto colleague = openForTest(station.books, OpenMode::existing);
    ASSERT_TRUE(colleague->script(
        "INSERT INTO LoginInfoTbl VALUES (1, 1, '李明', 'PC1', 1, '2026-01-01')"));
    station.messages.willAnswer(Answer::yes);
    QString shown;
    NextModal operatorHands([&shown](QWidget& box) {
        for (const QLabel* label : box.findChildren<QLabel*>()) shown += label->text();
        clickOn(box, "取消");
    });
    station.window->accept();
    EXPECT_TRUE(shown.contains("操作员:李明")) << shown.toStdString();
    EXPECT_TRUE(shown.contains("工作站:PC1")) << shown.toStdString();
    EXPECT_TRUE(station.messages.texts().at(1).find("没有升级,什么都没有改变") !=
                std::string::npos);
    EXPECT_TRUE(station.window->isVisible());
    EXPECT_EQ(layoutAt(station.books), 1);
}

TEST(LogonWindow, FocusReturnsToTheFaultyField) {
    Station station;
    station.make();
    MessageBoxes boxes;
    LogonWindow window(station.session, station.registry, boxes, station.secrets, {});
    showActive(window);
    window.findChild<QLineEdit*>("password")->setFocus();
    NextModal operatorHands([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
    window.accept();
    EXPECT_EQ(focusedField(window), "operatorName");
}

TEST(LogonWindow, SuggestsADayOfTheChosenAccountingYear) {
    Station station;
    NewBooks books = sampleBooks();
    books.year = 1999;
    station.make(books);
    station.open();
    EXPECT_EQ(station.field<QDateEdit>("date").date(), QDate(1999, 12, 31));
}

TEST(LogonWindow, RefusesADayOutsideTheYearWithTheFieldInFocus) {
    Station station;
    station.make();
    LogonWindow& window = station.open();
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    station.field<QDateEdit>("date").setDate(QDate(2030, 1, 1));
    window.accept();
    const Notice notice = station.messages.onlyNotice();
    EXPECT_EQ(notice.text,
              "登录日期2030-01-01不在本帐套的会计年度内,请输入2026-01-01到2026-12-31之间的日期");
    EXPECT_EQ(notice.focusField, "date");
}

TEST(LogonWindow, ShowsWhatTheCommandLineGave) {
    Station station;
    station.make();
    const std::string other = makeBooks(freshFolder() + "/Nbzw.db");
    station.open(
        {.books = other, .operatorName = "李明", .date = Date{2026, 2, 3}, .launchArgument = "-e"});
    EXPECT_EQ(station.field<QComboBox>("location").currentText(), QString::fromStdString(other));
    EXPECT_EQ(station.field<QLineEdit>("operatorName").text(), "李明");
    EXPECT_EQ(station.field<QDateEdit>("date").date(), QDate(2026, 2, 3));
    EXPECT_EQ(focusedField(*station.window), "password");
}

TEST(LogonWindow, RemembersBooksAndOperatorButNoPassword) {
    Station station;
    NewBooks books = sampleBooks();
    station.make(books);
    books.name = "另一帐套";
    station.make(books);
    station.open();
    station.field<QComboBox>("location").setCurrentIndex(1);
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    station.window->accept();
    ASSERT_TRUE(station.session.isLoggedOn());
    station.session.logOff();
    station.open();
    EXPECT_EQ(station.field<QComboBox>("location").currentText(), "另一帐套 2026年度");
    EXPECT_EQ(station.field<QLineEdit>("operatorName").text(), "王芳");
    EXPECT_EQ(station.field<QLineEdit>("password").text(), "");
    EXPECT_EQ(focusedField(*station.window), "password");
    std::ifstream memory(station.registry.folder() + "/shell.ini");
    const std::string text((std::istreambuf_iterator<char>(memory)), {});
    EXPECT_EQ(text.find("secret"), std::string::npos);
}

TEST(LogonWindow, TellsOfADamagedListAndOpensAllTheSame) {
    Station station;
    std::ofstream(station.registry.path()) << "{";
    station.open();
    QTest::qWait(10);
    EXPECT_TRUE(station.messages.onlyNotice().text.starts_with("帐套列表文件“"));
    EXPECT_TRUE(station.window->isVisible());
}

TEST(LogonWindow, WithoutBooksLeadsToMakingSome) {
    Station station;
    LogonWindow& window = station.open();
    EXPECT_EQ(focusedField(window), "makeNew");
    window.accept();
    EXPECT_EQ(station.messages.texts(),
              std::vector<std::string>{"请选择帐套,或输入帐套的路径或服务器地址"});
}

TEST(LogonWindow, ShowsWhereTheFocusIsAtTheFirstStart) {
    Station station;
    LogonWindow& window = station.open();
    auto* makeNew = window.findChild<QPushButton*>("makeNew");
    QStyleOptionButton drawn;
    drawn.initFrom(makeNew);
    EXPECT_TRUE(drawn.state.testFlag(QStyle::State_HasFocus));
    EXPECT_TRUE(drawn.state.testFlag(QStyle::State_KeyboardFocusChange));
}

TEST(LogonWindow, EnterPressesTheButtonThatHasTheFocus) {
    Station station;
    LogonWindow& window = station.open();
    {
        const NextModal making([](QWidget& box) {
            EXPECT_TRUE(qobject_cast<NewBooksWindow*>(&box));
            box.close();
        });
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(making.hasCome());
    }
    EXPECT_THAT(station.messages.texts(), testing::IsEmpty());
    window.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->setFocus();
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result(), QDialog::Rejected);
    EXPECT_THAT(station.messages.texts(), testing::IsEmpty());
}

TEST(LogonWindow, EscapeGivesUp) {
    Station station;
    LogonWindow& window = station.open();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result(), QDialog::Rejected);
}
