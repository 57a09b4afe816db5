#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <atomic>
#include <filesystem>
#include <fstream>

#include "screen/cancellable_work.h"
#include "screen/help/help_window.h"
#include "session/host_messages.h"
#include "shell/new_year_window.h"
#include "tests/support/engine_tools.h"
#include "tests/support/recording_messages.h"
#include "tests/support/small_books.h"
#include "tests/window/logon_fixture.h"
#include "tests/window/next_modal.h"

using namespace chengheng;

namespace {

namespace files = std::filesystem;

/// The log-on window with books of 2026 and their supervisor filled in.
struct EndingBooks {
    EndingBooks() {
        location = station.make().year.location;
        station.open();
        station.type("operatorName", "王芳");
        station.type("password", "secret");
    }
    QString next() const {
        return QString::fromStdString(station.registry.folder() + "/001/2027/Nbzw.db");
    }
    bool isMade() const { return files::exists(next().toStdString()); }
    QString chosen() { return station.field<QComboBox>("location").currentText(); }
    std::string question(const std::string& carried = {}) const {
        return "帐套“示例帐套”的2027年度已建立,存放在:\n" + next().toStdString() + "\n" + carried +
               "\n操作员和口令与上年相同。现在登录新年度吗?";
    }

    Station station;
    HostMessages installed{station.messages};
    std::string location;
};

void inNewYearWindow(EndingBooks& books, const std::function<void(QWidget&)>& hands) {
    const NextModal operatorHands([&hands](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "建立新年度");
        hands(window);
    });
    clickOn(*books.station.window, "建立新年度(&Y)");
}

}  // namespace

TEST(NewYearWindow, MakesTheNextYearWithKeysAloneAndLogsOnToIt) {
    EndingBooks books;
    books.station.messages.willAnswer(books.question(), Answer::yes);
    inNewYearWindow(books, [](QWidget& window) {
        EXPECT_EQ(focusedField(window), "target");
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_EQ(focusedField(window), "lastRates");
        QTest::keyClick(window.focusWidget(), Qt::Key_Space);
        EXPECT_TRUE(window.findChild<QCheckBox*>("lastRates")->isChecked());
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_EQ(focusedField(window), "carry");
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    });
    EXPECT_TRUE(books.isMade());
    EXPECT_EQ(books.station.window->result(), QDialog::Accepted);
    EXPECT_EQ(books.station.session.shownLocation(), books.next().toStdString());
}

TEST(NewYearWindow, ShowsWhatIsTakenOverAndWhere) {
    EndingBooks books;
    inNewYearWindow(books, [&books](QWidget& window) {
        EXPECT_EQ(window.findChild<QLabel*>("headingHint")->text(),
                  "由帐套“示例帐套”的2026年度建立2027年度");
        EXPECT_EQ(window.findChild<QLineEdit*>("target")->placeholderText(),
                  "不填时存放在 " + books.next());
        const auto* content = window.findChild<QLabel*>("content");
        EXPECT_TRUE(content->text().startsWith("带入:会计科目 "));
        EXPECT_LE(window.width(), window.fontMetrics().horizontalAdvance("帐") * 48);
        EXPECT_GE(content->height(), content->heightForWidth(content->width()));
        EXPECT_TRUE(content->text().contains("新年度各月、各日的汇率为空"));
        window.findChild<QCheckBox*>("lastRates")->setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Space);
        EXPECT_TRUE(content->text().contains("上年最后一个汇率作为新年度的第一个汇率"));
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_FALSE(books.isMade());
    EXPECT_FALSE(books.station.session.isLoggedOn());
    EXPECT_EQ(books.chosen(), "示例帐套 2026年度");
    EXPECT_EQ(books.station.field<QLineEdit>("password").text(), "secret");
}

TEST(NewYearWindow, LeavesTheNewYearChosenWhenNobodyWantsToLogOnYet) {
    EndingBooks books;
    books.station.messages.willAnswer(books.question(), Answer::no);
    inNewYearWindow(books, [](QWidget& window) { clickOn(window, "建立"); });
    EXPECT_TRUE(books.isMade());
    EXPECT_TRUE(books.station.window->isVisible());
    EXPECT_EQ(books.chosen(), "示例帐套 2027年度");
    EXPECT_FALSE(books.station.session.isLoggedOn());
    EXPECT_EQ(focusedField(*books.station.window), "password");
}

TEST(NewYearWindow, CarriesTheBalancesForwardAtOnceWhereThatIsWanted) {
    EndingBooks books;
    {
        const auto engine = openForTest(books.location, OpenMode::existing);
        runScript(*engine,
                  "INSERT INTO AccSum SELECT 1, lId, 12, 5, 2, 0, 0, 0, 0, 0, 0, 0 FROM Code "
                  "WHERE sCode = '1001'");
    }
    books.station.messages.willAnswer(
        books.question("已结转 1 个科目,借方合计 7.00,贷方合计 0.00。\n"), Answer::no);
    inNewYearWindow(books, [](QWidget& window) {
        window.findChild<QCheckBox*>("carry")->setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Space);
        EXPECT_TRUE(window.findChild<QCheckBox*>("carry")->isChecked());
        EXPECT_TRUE(
            window.findChild<QLabel*>("content")->text().contains("建立后随即结转期初余额。"));
        clickOn(window, "建立");
    });
    EXPECT_FALSE(books.station.session.isLoggedOn());
    EXPECT_EQ(books.chosen(), "示例帐套 2027年度");
    const auto engine = openForTest(books.next().toStdString(), OpenMode::existing);
    EXPECT_EQ(readCell(*engine, "SELECT Count(*) FROM AccSum WHERE mBegin = 7"), "12");
}

TEST(NewYearWindow, TellsWhyNothingWasCarriedAndKeepsTheNewYear) {
    EndingBooks books;
    {
        const auto engine = openForTest(books.location, OpenMode::existing);
        runScript(*engine, "DELETE FROM Code");
    }
    books.station.messages.willAnswer(
        books.question("没有结转上年余额,原因:上年和本年都没有可以结转的科目,没有改动。\n"),
        Answer::no);
    inNewYearWindow(books, [](QWidget& window) {
        window.findChild<QCheckBox*>("carry")->setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Space);
        EXPECT_TRUE(window.findChild<QCheckBox*>("carry")->isChecked());
        clickOn(window, "建立");
    });
    EXPECT_TRUE(books.isMade());
}

TEST(NewYearWindow, StaysOpenWhereThePlaceIsTakenAndTakesAnother) {
    EndingBooks books;
    const std::string taken = freshFolder() + "/Nbzw.db";
    std::ofstream(taken) << "x";
    const std::string free = freshFolder() + "/a.db";
    books.station.messages.willAnswer(Answer::no);
    inNewYearWindow(books, [&](QWidget& window) {
        typeText(window.findChild<QLineEdit*>("target"), QString::fromStdString(taken));
        clickOn(window, "建立");
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(books.station.messages.onlyNotice().text,
                  "“" + taken + "”已经存在,没有改动它。\n请换一个路径或地址。");
        EXPECT_EQ(books.station.messages.onlyNotice().focusField, "target");
        books.station.messages.forget();
        window.findChild<QLineEdit*>("target")->selectAll();
        typeText(window.findChild<QLineEdit*>("target"), QString::fromStdString(free));
        clickOn(window, "建立");
    });
    EXPECT_EQ(readCell(*openForTest(free, OpenMode::readable), "SELECT lYear FROM zAccountM"),
              "2027");
}

TEST(NewYearWindow, DoesNotComeUpForAYearThatIsListed) {
    EndingBooks books;
    books.station.messages.willAnswer(Answer::no);
    inNewYearWindow(books, [](QWidget& window) { clickOn(window, "建立"); });
    books.station.messages.forget();
    books.station.field<QComboBox>("location").setCurrentIndex(1);
    ASSERT_EQ(books.chosen(), "示例帐套 2026年度");
    clickOn(*books.station.window, "建立新年度(&Y)");
    EXPECT_EQ(
        books.station.messages.onlyNotice().text,
        "帐套“示例帐套”的2027年度已经存在:\n" + books.next().toStdString() + "\n没有改动它。");
    EXPECT_EQ(books.chosen(), "示例帐套 2026年度");
}

TEST(NewYearWindow, NeedsAnOperatorAndAPassword) {
    EndingBooks books;
    books.station.field<QLineEdit>("password").clear();
    clickOn(*books.station.window, "建立新年度(&Y)");
    EXPECT_EQ(books.station.messages.onlyNotice().text, "请先填好操作员和口令,再建立新年度");
    EXPECT_EQ(books.station.messages.onlyNotice().focusField, "password");
}

TEST(NewYearWindow, NeedsTheRight) {
    EndingBooks books;
    runScript(*openForTest(books.location, OpenMode::existing),
              "UPDATE Users SET bManager = 0; UPDATE UserAuth SET sAuthId = 'N'");
    clickOn(*books.station.window, "建立新年度(&Y)");
    EXPECT_EQ(books.station.messages.onlyNotice().text, "你没有[重建帐]权限!");
    EXPECT_FALSE(books.station.session.isLoggedOn());
    EXPECT_FALSE(books.isMade());
}

TEST(NewYearWindow, ShowsItsHelp) {
    EndingBooks books;
    inNewYearWindow(books, [](QWidget& window) {
        QTest::keyClick(&window, Qt::Key_F1);
        const auto* help = window.findChild<HelpWindow*>();
        EXPECT_NE(help, nullptr);
        if (help != nullptr) {
            EXPECT_EQ(help->shownTitle(), "建立新年度");
        }
        QTest::keyClick(&window, Qt::Key_Escape);
    });
}

TEST(CancellableWork, ThatIsShortShowsNoBox) {
    bool hasRun = false;
    runCancellable("正在工作", nullptr, [&](const WorkTold& told) { hasRun = told(1, 1); });
    EXPECT_TRUE(hasRun);
}

TEST(CancellableWork, ShowsHowMuchIsDoneAndIsGivenUpWithEscape) {
    std::atomic<bool> wasGivenUp = false;
    const NextModal operatorHands([](QWidget& box) {
        EXPECT_EQ(box.windowTitle(), "澄恒财务软件");
        auto& bar = dynamic_cast<QProgressDialog&>(box);
        EXPECT_EQ(bar.labelText(), "正在工作");
        EXPECT_TRUE(QTest::qWaitFor([&bar] { return bar.value() * 4 == bar.maximum(); }));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    runCancellable("正在工作", nullptr, [&](const WorkTold& told) {
        while (told(1, 4)) std::this_thread::sleep_for(std::chrono::milliseconds(5));
        wasGivenUp = true;
    });
    EXPECT_TRUE(wasGivenUp);
}

TEST(CancellableWork, ThatThrowsThrowsHere) {
    EXPECT_THROW(runCancellable("正在工作", nullptr,
                                [](const WorkTold&) { throw std::runtime_error("broken"); }),
                 std::runtime_error);
}
