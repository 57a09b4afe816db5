#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QShortcutEvent>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <thread>

#include "books/making/books_creation.h"
#include "screen/background_work.h"
#include "screen/window_memory.h"
#include "session/failure_texts.h"
#include "session/host_globals.h"
#include "session/last_failure.h"
#include "shell/connection_loss.h"
#include "shell/lock_wait_box.h"
#include "shell/program.h"
#include "tests/support/engine_cases.h"
#include "tests/support/environment.h"
#include "tests/support/made_books.h"
#include "tests/support/other_workstation.h"
#include "tests/support/private_postgres.h"
#include "tests/support/recording_messages.h"
#include "tests/window/next_modal.h"
#include "tests/window/typing.h"

using namespace chengheng;
using namespace std::chrono_literals;

namespace {

LockHolder someHolder() {
    return {"Code", "王芳", "会计科目", "前台二号", std::chrono::system_clock::now()};
}

std::string passwordFile(const char* password = "secret") {
    const std::string path = freshFolder() + "/password";
    std::ofstream(path) << password << '\n';
    return path;
}

LaunchOptions completeOptions() {
    return {.books = makeBooks(freshFolder() + "/Nbzw.db"),
            .operatorName = "王芳",
            .passwordFile = passwordFile(),
            .date = Date{2026, 5, 31},
            .launchArgument = {}};
}

QDialog* shownDialog() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

}  // namespace

TEST(Shell, WithCompleteOptionsGoesToWorkWithoutAnyWindow) {
    bool wasAtWork = false;
    const ProgramExit exit = runShell(completeOptions(), [&] {
        wasAtWork = true;
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        ASSERT_NE(g_lpLogonUserInfo, nullptr);
        EXPECT_EQ(g_lpLogonUserInfo->sUserName, "王芳");
        EXPECT_EQ(g_tmLogonTime.day, (Date{2026, 5, 31}));
    });
    EXPECT_TRUE(wasAtWork);
    EXPECT_EQ(exit, ProgramExit::done);
    EXPECT_EQ(g_pDB, nullptr);
}

TEST(Shell, WithoutAnyWindowTellsWhatSomebodyPutIntoTheBooks) {
    LaunchOptions options = completeOptions();
    ASSERT_TRUE(openForTest(options.books, OpenMode::existing)
                    ->script("CREATE VIEW best AS SELECT * FROM Code"));
    testing::internal::CaptureStderr();
    EXPECT_EQ(runShell(options, [] {}), ProgramExit::done);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("视图“best”"));
}

TEST(Shell, RefusedLogonEndsWithItsOwnExitCode) {
    const auto exitFor = [](const LaunchOptions& options) {
        return runShell(options, [] { ADD_FAILURE() << "nobody was to log on"; });
    };
    LaunchOptions options = completeOptions();
    options.books += ".gone";
    EXPECT_EQ(exitFor(options), ProgramExit::notOpened);
    options = completeOptions();
    options.passwordFile = passwordFile("guess");
    EXPECT_EQ(exitFor(options), ProgramExit::logonRefused);
    options.passwordFile = "/no such file";
    EXPECT_EQ(exitFor(options), ProgramExit::logonRefused);
    options = completeOptions();
    options.date = Date{2027, 1, 1};
    EXPECT_EQ(exitFor(options), ProgramExit::logonRefused);
}

TEST(Shell, KeepsWindowsBesideTheRegistryUntilItEnds) {
    const std::string home = freshFolder();
    const EnvironmentSetting setting("CHENGHENG_HOME", home);
    NextModal operatorHands([](QWidget& window) {
        rememberOfWindows("some/shape", 7);
        EXPECT_EQ(rememberedOfWindows("some/shape").toInt(), 7);
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_EQ(runShell({}, [] { ADD_FAILURE() << "nobody logged on"; }), ProgramExit::done);
    EXPECT_TRUE(std::filesystem::exists(home + "/windows.ini"));
    rememberOfWindows("other/shape", 8);
    EXPECT_FALSE(rememberedOfWindows("some/shape").isValid());
    EXPECT_FALSE(rememberedOfWindows("other/shape").isValid());
}

TEST(Shell, GivingUpTheLogonIsANormalEnd) {
    const EnvironmentSetting home("CHENGHENG_HOME", freshFolder());
    NextModal operatorHands([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "登录");
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_EQ(runShell({}, [] { ADD_FAILURE() << "nobody logged on"; }), ProgramExit::done);
}

TEST(LockWaitBox, LeavesShortWaitsAlone) {
    LockWaitBox box;
    EXPECT_TRUE(box.keepWaiting(someHolder(), 600ms));
    EXPECT_EQ(shownDialog(), nullptr);
    box.waitEnded();
}

TEST(LockWaitBox, NamesTheHolderAndGoesWhenTheWaitEnds) {
    LockWaitBox box;
    EXPECT_TRUE(box.keepWaiting(someHolder(), 61s));
    QDialog* shown = shownDialog();
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->windowTitle(), "等待其他工作站");
    QString texts;
    for (const QLabel* label : shown->findChildren<QLabel*>()) texts += label->text() + "\n";
    for (const char* wanted : {"“会计科目”", "王芳", "前台二号", "已等待 1 分 01 秒"})
        EXPECT_TRUE(texts.contains(wanted)) << wanted;
    box.waitEnded();
    EXPECT_EQ(shownDialog(), nullptr);
}

TEST(LockWaitBox, CancelAndEscapeGiveTheWaitUp) {
    for (const bool isByKey : {false, true}) {
        LockWaitBox box;
        EXPECT_TRUE(box.keepWaiting(someHolder(), 1s));
        QDialog* shown = shownDialog();
        ASSERT_NE(shown, nullptr);
        if (isByKey)
            QTest::keyClick(shown, Qt::Key_Escape);
        else
            QTest::mouseClick(shown->findChild<QPushButton*>(), Qt::LeftButton);
        EXPECT_FALSE(box.keepWaiting(someHolder(), 1100ms));
        box.waitEnded();
        EXPECT_TRUE(box.keepWaiting(someHolder(), 1s)) << "the next wait is a new one";
    }
}

TEST(LockWaitBox, BesideThePaintingNobodyGivesUpButItsPatience) {
    LockWaitBox box;
    EXPECT_EQ(box.givenUpAs(), Failure::cancelled);
    runBesidePainting([&box] {
        EXPECT_TRUE(box.keepWaiting(someHolder(), 4s));
        EXPECT_FALSE(box.keepWaiting(someHolder(), 5s));
        EXPECT_EQ(box.givenUpAs(), Failure::busy);
    });
    EXPECT_EQ(shownDialog(), nullptr);
}

TEST(LastFailure, ThatSomebodyWantedIsNotTold) {
    const std::string path = makeBooks(freshFolder() + "/Nbzw.db");
    OtherWorkstation other(path);
    ASSERT_TRUE(other.lock("Code", LockMode::exclusive));
    CNbCwDB database;
    g_pDB = &database;
    NbCwDBInfo info;
    ASSERT_NE(database.DBOpen(info, path.c_str(), "books", 1), 0);
    ASSERT_NE(database.DBSelect("books"), 0);
    EXPECT_EQ(database.SQLLock("Code", 2, 0), 0);
    ASSERT_TRUE(lastFailureNotice().has_value());
    EXPECT_EQ(lastFailureNotice()->text, lastFailureText());
    LockWaitBox box;
    database.setLockWaiter(&box);
    const NextModal operatorHands([](QWidget& window) { clickOn(window, "取消"); });
    EXPECT_EQ(database.SQLLock("Code", 2, 1), 0);
    EXPECT_FALSE(lastFailureNotice().has_value());
    g_pDB = nullptr;
}

TEST(LockWaitBox, StandsWhileAnotherWorkstationHoldsTheLock) {
    const std::string path = makeBooks(freshFolder() + "/Nbzw.db");
    OtherWorkstation other(path);
    ASSERT_TRUE(other.lock("Code", LockMode::exclusive));
    CNbCwDB database;
    LockWaitBox box;
    database.setLockWaiter(&box);
    NbCwDBInfo info;
    ASSERT_NE(database.DBOpen(info, path.c_str(), "books", 1), 0);
    ASSERT_NE(database.DBSelect("books"), 0);
    NextModal operatorHands([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "等待其他工作站");
        QTest::mouseClick(window.findChild<QPushButton*>(), Qt::LeftButton);
    });
    EXPECT_EQ(database.SQLLock("Code", 2, 1), 0);
    EXPECT_EQ(database.lastStatus().failure, Failure::cancelled);
    EXPECT_EQ(shownDialog(), nullptr);
}

TEST(BackgroundWork, LetsTimersRunAndGivesBackWhatWasThrown) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(5);
    runBesidePainting([] { std::this_thread::sleep_for(100ms); });
    EXPECT_GT(ticks, 2);
    EXPECT_THROW(runBesidePainting([] { throw std::runtime_error("x"); }), std::runtime_error);
}

/// Somebody logged on at a server that can be stopped.
struct ConnectionLossTest : testing::Test {
    void SetUp() override {
        if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
        server.emplace();
        const std::string address = makeBooks(server->address() + "?schema=zw001_2026");
        askServer(server->address(), "CHECKPOINT");
        ASSERT_FALSE(
            session.logOn({.location = address, .operatorName = "王芳", .password = "secret"})
                .has_value());
    }
    /// An action that says nothing, and all it calls.
    void actInSilence() {
        EXPECT_EQ(database.DBSelect(g_lpszNbZwDBName), 0);
        EXPECT_EQ(database.DBSelect(g_lpszNbZwDBName), 0);
        QTest::qWait(20);
    }
    std::string lossWords() { return failureText(database.lastStatus(), session.shownLocation()); }

    std::optional<PrivatePostgres> server;
    CNbCwDB database;
    WrongTries tries;
    BooksSession session{database, tries};
    RecordingMessages messages;
    ConnectionLoss loss{database, session, messages};
};

TEST_F(ConnectionLossTest, IsToldOnceForAllFailuresOfAnAction) {
    server->stop();
    actInSilence();
    ASSERT_EQ(messages.texts().size(), 1U);
    EXPECT_NE(messages.texts()[0].find(session.shownLocation()), std::string::npos);
    server->startAgain();
    EXPECT_NE(database.DBSelect(g_lpszNbZwDBName), 0);
    QTest::qWait(20);
    EXPECT_EQ(messages.texts().size(), 1U);
}

TEST_F(ConnectionLossTest, IsToldByTheBoxOfTheActionAlone) {
    server->stop();
    EXPECT_EQ(database.DBSelect(g_lpszNbZwDBName), 0);
    loss.tell({.text = lossWords()});
    EXPECT_EQ(database.DBSelect(g_lpszNbZwDBName), 0);
    loss.tell({.text = lossWords()});
    QTest::qWait(20);
    EXPECT_THAT(messages.texts(), testing::SizeIs(1));
}

TEST_F(ConnectionLossTest, IsTheDetailOfABoxThatDoesNotNameIt) {
    server->stop();
    EXPECT_EQ(database.DBSelect(g_lpszNbZwDBName), 0);
    loss.tell({.text = "Select DB Error!"});
    QTest::qWait(20);
    EXPECT_EQ(messages.onlyNotice().text, "Select DB Error!");
    EXPECT_EQ(messages.onlyNotice().detail, lossWords());
}

TEST_F(ConnectionLossTest, IsTheDetailOfAQuestion) {
    server->stop();
    EXPECT_EQ(database.DBSelect(g_lpszNbZwDBName), 0);
    messages.willAnswer(Answer::no);
    EXPECT_EQ(loss.ask({.text = "是否仍然退出?"}), Answer::no);
    QTest::qWait(20);
    EXPECT_THAT(messages.texts(), testing::ElementsAre("是否仍然退出?"));
    EXPECT_EQ(messages.questions().front().detail, lossWords());
}

TEST_F(ConnectionLossTest, IsToldAnewForTheNextActionAndNotForWhatFollowsTheFirst) {
    server->stop();
    actInSilence();
    actInSilence();
    EXPECT_THAT(messages.texts(), testing::SizeIs(1));
    QWidget window;
    QTest::keyClick(&window, Qt::Key_F5);
    actInSilence();
    EXPECT_THAT(messages.texts(), testing::SizeIs(2));
    QTest::mouseClick(&window, Qt::LeftButton);
    actInSilence();
    EXPECT_THAT(messages.texts(), testing::SizeIs(3));
    QCloseEvent frame;
    QSpontaneKeyEvent::setSpontaneous(&frame);
    qApp->notify(&window, &frame);
    actInSilence();
    EXPECT_THAT(messages.texts(), testing::SizeIs(4));
    QShortcutEvent shortcut(QKeySequence(Qt::CTRL | Qt::Key_N), 1);
    qApp->notify(&window, &shortcut);
    actInSilence();
    EXPECT_THAT(messages.texts(), testing::SizeIs(5));
}

TEST_F(ConnectionLossTest, IsNotToldBehindABoxThatTellsIt) {
    server->stop();
    messages.whileShown([this](const std::string&) { actInSilence(); });
    actInSilence();
    QTest::qWait(20);
    EXPECT_THAT(messages.texts(), testing::SizeIs(1));
}
