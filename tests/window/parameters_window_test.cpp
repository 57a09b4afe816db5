#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include "books/logon/known_books.h"
#include "data/access/host_database.h"
#include "data/lookups/CGetData.h"
#include "data/lookups/cached_records.h"
#include "screen/books/books_parameters_window.h"
#include "screen/help/help_window.h"
#include "screen/message_boxes.h"
#include "session/host_messages.h"
#include "tests/support/parameters_books.h"
#include "tests/window/hub_fixture.h"
#include "tests/window/logon_fixture.h"
#include "tests/window/next_modal.h"

using namespace chengheng;

namespace {

constexpr const char* discardQuestion = "当前输入尚未保存,是否放弃?";
constexpr const char* companyQuestion =
    "将修改帐套参数:\n\n单位名称:“甲公司”改为“乙公司”\n    以后打印的页面用新的单位名称。\n"
    "\n是否修改?";

void retype(QWidget& window, const char* name, const QString& text) {
    auto* edit = window.findChild<QLineEdit*>(name);
    edit->selectAll();
    typeText(edit, text);
}

/// The window on books of its own, with keys alone.
class ParametersWindow : public testing::Test {
  protected:
    void SetUp() override { showActive(m_window); }
    QString text(const char* name) const { return m_window.findChild<QLineEdit*>(name)->text(); }
    QString focused() const { return focusedField(m_window); }
    void type(const char* name, const QString& typed) { retype(m_window, name, typed); }
    bool shows(const QString& hint) const {
        for (const QLabel* label : m_window.findChildren<QLabel*>())
            if (label->text() == hint) return true;
        return false;
    }

    ParametersBooks m_books{":memory:"};
    BooksParametersWindow m_window{m_books.registry, nullptr};
};

}  // namespace

TEST_F(ParametersWindow, ShowsWhatIsStoredAndWhatCanBeChanged) {
    EXPECT_EQ(m_window.windowTitle(), "帐套参数");
    EXPECT_EQ(text("name"), "甲帐套");
    EXPECT_EQ(text("company"), "甲公司");
    EXPECT_EQ(text("levelPattern"), "4222");
    EXPECT_TRUE(m_window.findChild<QCheckBox*>("foreignCurrency")->isChecked());
    EXPECT_EQ(m_window.findChild<QSpinBox*>("startMonth")->value(), 1);
    EXPECT_TRUE(shows("没有科目核算外币,可以取消"));
    EXPECT_TRUE(shows("没有余额和凭证时可以改;会计年度 2026 不能改"));
    EXPECT_EQ(focused(), "name");
}

TEST_F(ParametersWindow, EveryFieldHasALabelThatLeadsToIt) {
    QStringList led;
    for (const QLabel* label : m_window.findChildren<QLabel*>()) {
        if (label->buddy() == nullptr) continue;
        EXPECT_TRUE(label->text().contains('&')) << label->text().toStdString();
        led << label->buddy()->objectName();
    }
    led.sort();
    EXPECT_EQ(led, (QStringList{"company", "levelPattern", "name", "startMonth"}));
}

TEST_F(ParametersWindow, IsFilledInAndConfirmedWithKeysAlone) {
    QStringList order;
    typeText(QApplication::focusWidget(), "");
    for (int step = 0; step < 4; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        order << focused();
    }
    EXPECT_EQ(order, (QStringList{"company", "foreignCurrency", "levelPattern", "startMonth"}));
    type("company", "乙公司");
    m_books.messages.willAnswer(companyQuestion, Answer::yes);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(m_window.result(), QDialog::Accepted);
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_EQ(m_books.stored().sCompany, "乙公司");
}

TEST_F(ParametersWindow, WritesEveryField) {
    type("name", "丙帐套");
    type("company", "丙公司");
    type("levelPattern", "42223");
    QTest::keyClick(m_window.findChild<QCheckBox*>("foreignCurrency"), Qt::Key_Space);
    QTest::keyClick(m_window.findChild<QSpinBox*>("startMonth"), Qt::Key_Up);
    m_books.messages.willAnswer(Answer::yes);
    clickOn(m_window, "确定");
    EXPECT_EQ(m_books.stored(), (_zAccountMInfo{.lId = 1,
                                                .sName = "丙帐套",
                                                .sCompany = "丙公司",
                                                .dtStart = {2026, 2, 1},
                                                .sCodeLen = "42223",
                                                .bFgn = 0,
                                                .lYear = 2026}));
    EXPECT_EQ(m_books.listed()[0].name, "丙帐套");
}

TEST_F(ParametersWindow, StaysOpenOnNoAndKeepsWhatWasTyped) {
    type("company", "乙公司");
    m_books.messages.willAnswer(companyQuestion, Answer::no);
    clickOn(m_window, "确定");
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_EQ(text("company"), "乙公司");
    EXPECT_EQ(m_books.stored(), madeParameters());
}

TEST_F(ParametersWindow, ClosesWithoutAWordWhereNothingIsChanged) {
    clickOn(m_window, "确定");
    EXPECT_EQ(m_window.result(), QDialog::Accepted);
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_F(ParametersWindow, ShowsTheCodesOfAPatternWhileItIsTyped) {
    type("levelPattern", "42223");
    EXPECT_TRUE(
        shows("各级编码示例:1001 / 100101 / 10010101 / 1001010101 / 1001010101001\n"
              "只能在末尾增加级次,最多6级"));
    type("levelPattern", "4222222");
    EXPECT_TRUE(shows("1到6位数字,每位1到9,表示该级编码的位数"));
    clickOn(m_window, "确定");
    EXPECT_EQ(m_books.messages.onlyNotice().focusField, "levelPattern");
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(ParametersWindow, CutsATextThatIsTooLongAndSaysSo) {
    type("name", QString(41, QChar(0x5e10)));
    QCoreApplication::processEvents();
    EXPECT_EQ(text("name").size(), 40);
    EXPECT_EQ(m_books.messages.onlyNotice().text, "帐套名称最多 40 个字,超出的部分已截去。");
}

TEST_F(ParametersWindow, ShowsWhatAnotherWorkstationStoredBelowWhatWasTyped) {
    type("company", "乙公司");
    m_books.run("UPDATE zAccountM SET sName = '丁帐套' WHERE lId = 1");
    m_books.messages.willAnswer(companyQuestion, Answer::yes);
    clickOn(m_window, "确定");
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_EQ(text("name"), "丁帐套");
    EXPECT_EQ(text("company"), "乙公司");
    EXPECT_EQ(m_books.stored().sCompany, "甲公司");
}

TEST_F(ParametersWindow, EscapeAndTheFrameAskBeforeWhatWasTypedGoes) {
    type("company", "乙公司");
    m_books.messages.willAnswer(discardQuestion, Answer::no);
    QTest::keyClick(&m_window, Qt::Key_Escape);
    EXPECT_TRUE(m_window.isVisible());
    m_books.messages.willAnswer(discardQuestion, Answer::no);
    m_window.close();
    EXPECT_TRUE(m_window.isVisible());
    m_books.messages.willAnswer(discardQuestion, Answer::yes);
    m_window.close();
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_EQ(m_window.result(), QDialog::Rejected);
    EXPECT_EQ(m_books.stored(), madeParameters());
}

TEST_F(ParametersWindow, ItsButtonGivesUpWithoutAQuestion) {
    type("company", "乙公司");
    clickOn(m_window, "取消");
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_F(ParametersWindow, ShowsItsHelp) {
    QTest::keyClick(&m_window, Qt::Key_F1);
    auto* help = m_window.findChild<HelpWindow*>();
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->shownTitle(), "帐套参数");
}

TEST(ParametersWindowOfLostBooks, DoesNotOpenAndSaysWhy) {
    ParametersBooks books(":memory:");
    books.run("DELETE zAccountM WHERE lId > 0");
    BooksParametersWindow window(books.registry, nullptr);
    EXPECT_EQ(window.DoModal(), QDialog::Rejected);
    EXPECT_EQ(books.messages.onlyNotice().icon, MessageIcon::stop);
}

TEST(ParametersWindowOfTheProgram, PutsTheFocusOnTheFieldThatWasRefused) {
    ParametersBooks books(":memory:");
    MessageBoxes boxes;
    const HostMessages real(boxes);
    BooksParametersWindow window(books.registry, nullptr);
    showActive(window);
    retype(window, "levelPattern", "422");
    {
        const NextModal box([](QWidget& shown) { QTest::keyClick(&shown, Qt::Key_Return); });
        clickOn(window, "确定");
    }
    EXPECT_EQ(focusedField(window), "levelPattern");
}

TEST_F(HubTest, OpensTheParametersByTheirRightAndShowsTheNewName) {
    run("UPDATE zAccountM SET sName = '旧名', sCompany = '公司', lYear = 2026 WHERE lId = 1");
    OpenHub hub;
    hub.show();
    {
        NextModal operatorHands([](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), "帐套参数");
            retype(window, "name", "新名帐套");
            clickOn(window, "确定");
        });
        m_messages.willAnswer(Answer::yes);
        hub.PostCommand(33007);
        QCoreApplication::processEvents();
    }
    EXPECT_STREQ(g_lpszNbZwSetName, "新名帐套");
    EXPECT_EQ(hub.findChild<QLabel*>("statusValue0")->text(), "新名帐套");
}

TEST_F(HubTest, LetsForeignCurrencyBeSwitchedOnWhereTheRefusalSendsTheOperator) {
    m_parameters.bFgn = 0;
    OpenHub hub;
    hub.show();
    hub.clickRegion(200);
    m_messages.forget();
    {
        NextModal operatorHands([](QWidget& window) {
            QTest::keyClick(window.findChild<QCheckBox*>("foreignCurrency"), Qt::Key_Space);
            clickOn(window, "确定");
        });
        m_messages.willAnswer(Answer::yes);
        hub.PostCommand(33007);
        QCoreApplication::processEvents();
    }
    m_messages.forget();
    NextModal operatorHands(closeCurrencies);
    hub.clickRegion(200);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, OpensNoParametersWithoutTheirRight) {
    logOn(0);
    run(formatSql("INSERT UserAuth VALUES(5, 5, '%s')", std::string(255, 'N')));
    OpenHub hub;
    hub.show();
    hub.PostCommand(33007);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_messages.onlyNotice().text, "你没有[帐套参数调整]权限!");
}

namespace {

/// The log-on window with listed books and an operator filled in.
struct ListedBooks {
    ListedBooks() {
        location = station.make().year.location;
        station.open();
        station.type("operatorName", "王芳");
        station.type("password", "secret");
    }
    _zAccountMInfo stored() const {
        _zAccountMInfo parameters;
        EXPECT_FALSE(readBooks(location, parameters).has_value());
        return parameters;
    }

    Station station;
    HostMessages installed{station.messages};
    std::string location;
};

}  // namespace

TEST(LogonParameters, ChangeTheChosenBooksAndTheirNameInTheList) {
    ListedBooks books;
    books.station.messages.willAnswer(Answer::yes);
    {
        NextModal operatorHands([](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), "帐套参数");
            retype(window, "name", "新名帐套");
            clickOn(window, "确定");
        });
        clickOn(*books.station.window, "帐套参数(&C)");
    }
    EXPECT_EQ(books.stored().sName, "新名帐套");
    EXPECT_EQ(books.station.field<QComboBox>("location").currentText(), "新名帐套 2026年度");
    EXPECT_FALSE(books.station.session.isLoggedOn());
    EXPECT_EQ(g_pDB, nullptr);
    EXPECT_TRUE(books.station.window->isVisible());
    EXPECT_EQ(books.station.field<QLineEdit>("password").text(), "secret");
    books.station.window->accept();
    EXPECT_EQ(books.station.window->result(), QDialog::Accepted);
}

TEST(LogonParameters, NeedAnOperatorAndAPasswordBeforeAnythingIsCounted) {
    ListedBooks books;
    books.station.type("password", "");
    books.station.field<QLineEdit>("password").clear();
    clickOn(*books.station.window, "帐套参数(&C)");
    EXPECT_EQ(books.station.messages.onlyNotice().text, "请先填好操作员和口令,再修改帐套参数");
    EXPECT_EQ(books.station.messages.onlyNotice().focusField, "password");
    books.station.messages.forget();
    books.station.field<QLineEdit>("operatorName").clear();
    clickOn(*books.station.window, "帐套参数(&C)");
    EXPECT_EQ(books.station.messages.onlyNotice().focusField, "operatorName");
}

TEST(LogonParameters, AreRefusedWithAWrongPassword) {
    ListedBooks books;
    books.station.type("password", "guess");
    clickOn(*books.station.window, "帐套参数(&C)");
    EXPECT_EQ(books.station.messages.onlyNotice().text, "操作员姓名或口令不正确");
    EXPECT_FALSE(books.station.session.isLoggedOn());
}

TEST(LogonParameters, AreRefusedWithoutTheirRight) {
    ListedBooks books;
    {
        auto engine = openForTest(books.location, OpenMode::existing);
        ASSERT_TRUE(engine->script("UPDATE Users SET bManager = 0"));
        ASSERT_TRUE(engine->script("UPDATE UserAuth SET sAuthId = 'N'"));
    }
    clickOn(*books.station.window, "帐套参数(&C)");
    EXPECT_EQ(books.station.messages.onlyNotice().text, "你没有[帐套参数调整]权限!");
    EXPECT_FALSE(books.station.session.isLoggedOn());
}

TEST(LogonParameters, TellOfWrongPasswordsThatTheLogOnAfterwardsWouldNotKnow) {
    ListedBooks books;
    books.station.type("password", "guess");
    books.station.window->accept();
    books.station.messages.forget();
    QTest::qWait(1100);  // as long as one wrong password keeps everybody waiting
    books.station.type("password", "secret");
    {
        NextModal operatorHands([](QWidget& window) { window.close(); });
        clickOn(*books.station.window, "帐套参数(&C)");
    }
    const Notice told = books.station.messages.onlyNotice();
    EXPECT_NE(told.text.find("1 次口令错误"), std::string::npos) << told.text;
    EXPECT_EQ(told.icon, MessageIcon::warning);
}

TEST(LogonWindow, ListsBooksByTheNameThatAnotherWorkstationGaveThem) {
    ListedBooks books;
    {
        auto engine = openForTest(books.location, OpenMode::existing);
        ASSERT_TRUE(engine->script("UPDATE zAccountM SET sName = '别处改名'"));
    }
    books.station.window->accept();
    EXPECT_EQ(books.station.window->result(), QDialog::Accepted);
    std::vector<BooksSet> sets;
    ASSERT_TRUE(books.station.registry.read(sets));
    EXPECT_EQ(sets.at(0).name, "别处改名");
}
