#include <QLabel>
#include <QScreen>

#include "screen/current_dialog.h"
#include "screen/picture/hot_region.h"
#include "screen/resources.h"
#include "tests/window/hub_fixture.h"
#include "tests/window/next_modal.h"

using namespace chengheng;

namespace {

struct Place {
    int command;
    QRect rect;
    const char* caption;
};

const Place places[] = {
    {32776, {94, 83, 123, 29}, "财务分工"},   {32775, {94, 112, 123, 31}, "会计科目"},
    {200, {94, 143, 123, 32}, "外币汇率"},    {298, {94, 175, 123, 27}, "期初余额"},
    {32777, {260, 222, 122, 27}, "凭证类别"}, {32778, {260, 249, 122, 36}, "结算方式"},
    {32774, {482, 288, 72, 31}, "退出"},
};

/// Tells whether a window was ever on the screen.
class ShowWatcher : public QObject {
  public:
    explicit ShowWatcher(QObject& window) { window.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        wasShown = wasShown || event->type() == QEvent::Show;
        return false;
    }
    bool wasShown = false;
};

QStringList labelTexts(const QWidget& window) {
    QStringList texts;
    for (const QLabel* label : window.findChildren<QLabel*>()) texts << label->text();
    return texts;
}

}  // namespace

TEST_F(HubTest, HasItsSevenRegionsAtTheirPlacesUnderTheirNames) {
    OpenHub hub;
    hub.show();
    for (const Place& place : places) {
        const QAbstractButton* region = hub.region(place.command);
        ASSERT_NE(region, nullptr) << place.caption;
        EXPECT_EQ(region->geometry(), place.rect) << place.caption;
        EXPECT_EQ(region->text(), place.caption);
        EXPECT_EQ(region->accessibleName(), place.caption);
        EXPECT_TRUE(region->isVisible());
    }
    EXPECT_EQ(hub.findChildren<HotRegion*>().size(), 7);
}

TEST_F(HubTest, IsAsLargeAsItsBackgroundAndItsFrame) {
    OpenHub hub;
    hub.show();
    EXPECT_EQ(hub.size(), loadBitmap(130, 1).size() + QSize(6, 15));
    EXPECT_EQ(hub.minimumSize(), hub.maximumSize());
}

TEST_F(HubTest, StandsInTheMiddleOfTheScreenUnderItsTitle) {
    OpenHub hub;
    hub.show();
    EXPECT_EQ(hub.windowTitle(), "基础设置");
    const QPoint off = hub.pos() + hub.rect().center() - hub.screen()->availableGeometry().center();
    EXPECT_LE(std::abs(off.x()), 1);
    EXPECT_LE(std::abs(off.y()), 1);
}

TEST_F(HubTest, ShowsBooksOperatorAndDate) {
    OpenHub hub;
    hub.show();
    const QStringList texts = labelTexts(hub);
    for (const char* text : {"基础设置", "恒源商贸有限公司", "王芳(主管)", "2026-05-31"}) {
        EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
    }
}

TEST_F(HubTest, ShowsTheLastLogonAndWrongPasswordsSinceThenWithoutABox) {
    m_session.reset();
    m_session.emplace(SessionFacts{.history = {"2026-11-22 14:05", 2'000'000'000}});
    OpenHub hub;
    hub.show();
    const auto* label = hub.findChild<QLabel*>("logonHistory");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), "上次登录 2026-11-22 14:05,其间 2000000000 次口令错误");
    EXPECT_GE(label->width(), label->sizeHint().width());
    EXPECT_TRUE(m_messages.texts().empty());
    for (const auto* region : hub.findChildren<QAbstractButton*>())
        EXPECT_FALSE(label->geometry().intersects(region->geometry()));
}

TEST_F(HubTest, CutsALongNameOfBooksWithDotsAndKeepsItWholeForReaders) {
    m_session.reset();
    const std::string name(90, 'W');
    m_session.emplace(SessionFacts{.setName = name});
    OpenHub hub;
    hub.show();
    const auto* label = hub.findChild<QLabel*>("statusValue0");
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->text().endsWith(QChar(0x2026)));
    EXPECT_EQ(label->accessibleName().toStdString(), name);
}

TEST_F(HubTest, IsTheHostsCurrentWindowWhileItLives) {
    {
        OpenHub hub;
        EXPECT_EQ(g_pDlgWnd, &hub);
    }
    EXPECT_EQ(g_pDlgWnd, nullptr);
}

TEST_F(HubTest, ClosesAsOkByItsExitRegion) {
    OpenHub hub;
    NextModal operatorHands([&](QWidget&) { hub.clickRegion(32774); });
    EXPECT_EQ(hub.DoModal(), QDialog::Accepted);
    EXPECT_FALSE(hub.isVisible());
}

TEST_F(HubTest, IsCancelledByTheSystemsCloseCommand) {
    OpenHub hub;
    NextModal operatorHands([&](QWidget& window) { window.close(); });
    EXPECT_EQ(hub.DoModal(), QDialog::Rejected);
    EXPECT_FALSE(hub.isVisible());
}

TEST_F(HubTest, StaysOpenOnEnterAndEscape) {
    OpenHub hub;
    NextModal operatorHands([&](QWidget& window) {
        for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            QTest::keyClick(&window, key);
            QCoreApplication::processEvents();
            EXPECT_TRUE(hub.isVisible());
            EXPECT_FALSE(hub.isEnded());
        }
        window.close();
    });
    hub.DoModal();
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, StaysOpenOnEscapeInARegion) {
    OpenHub hub;
    hub.showAndFocus();
    hub.region(32776)->setFocus();
    QTest::keyClick(hub.region(32776), Qt::Key_Escape);
    EXPECT_TRUE(hub.isVisible());
}

TEST_F(HubTest, ReadsWhatItShowsAgainOnEscape) {
    OpenHub hub;
    hub.showAndFocus();
    logOn(0);
    QTest::keyClick(&hub, Qt::Key_Escape);
    EXPECT_TRUE(labelTexts(hub).contains("王芳"));
}

TEST_F(HubTest, CanBeRunBesideOtherWindows) {
    OpenHub hub;
    hub.show();
    hub.clickRegion(32774);
    EXPECT_FALSE(hub.isVisible());
    EXPECT_EQ(hub.result(), QDialog::Accepted);
    EXPECT_EQ(g_pDlgWnd, nullptr);
}

TEST_F(HubTest, OpensOnlyTheOpeningBalancesWithTheirLaunchArgument) {
    for (const char* argument : {"-ERPCONSOLE", "-ERPSINGLE", "-erpsingle"}) {
        logOn(1, argument);
        OpenHub hub;
        ShowWatcher watcher(hub);
        const NextModal operatorHands(closeOpeningBalances);
        EXPECT_EQ(hub.DoModal(), QDialog::Rejected);
        EXPECT_FALSE(watcher.wasShown);
        EXPECT_TRUE(hub.findChildren<HotRegion*>().isEmpty());
        EXPECT_TRUE(hub.windowTitle().isEmpty());
        EXPECT_TRUE(m_messages.texts().empty());
    }
}

TEST_F(HubTest, OpensNothingAtAllWithTheLaunchArgumentWhenTheRightIsRefused) {
    logOn(0, "-erpsingle");
    run(formatSql("INSERT UserAuth VALUES(5, 5, '%s')", std::string(255, 'N')));
    OpenHub hub;
    ShowWatcher watcher(hub);
    EXPECT_EQ(hub.DoModal(), QDialog::Rejected);
    EXPECT_FALSE(watcher.wasShown);
    EXPECT_EQ(m_messages.onlyNotice().text, "你没有[期初余额录入]权限!");
}

TEST_F(HubTest, DoesNotAppearWithTheLaunchArgumentWhenShownBesideOthers) {
    logOn(1, "-ERPSINGLE");
    OpenHub hub;
    const NextModal operatorHands(closeOpeningBalances);
    hub.show();
    EXPECT_FALSE(hub.isVisible());
    EXPECT_EQ(hub.result(), QDialog::Rejected);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, SharesOneBackgroundBrushWithAllHubs) {
    OpenHub first;
    first.show();
    const QBrush brush = first.OnCtlColor(4);
    EXPECT_EQ(brush.style(), Qt::TexturePattern);
    OpenHub second;
    second.show();
    EXPECT_EQ(second.OnCtlColor(4).texture().cacheKey(), brush.texture().cacheKey());
}

TEST_F(HubTest, LeavesOtherKindsOfControlsTheirUsualBrush) {
    OpenHub hub;
    hub.show();
    for (int kind : {0, 1, 2, 3, 5, 6}) EXPECT_EQ(hub.OnCtlColor(kind), hub.palette().window());
}

TEST_F(HubTest, DrawsAnAttachedPictureUprightOverTheWholeClient) {
    OpenHub hub;
    QImage picture(2, 2, QImage::Format_RGB32);
    // Rows are kept from the bottom up: the lower half of the window is red.
    picture.fill(Qt::blue);
    picture.setPixelColor(0, 0, Qt::red);
    picture.setPixelColor(1, 0, Qt::red);
    hub.m_pPicture = &picture;
    hub.show();
    const QImage shown = hub.grab().toImage();
    EXPECT_EQ(shown.pixelColor(2, 2), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(shown.width() - 3, shown.height() - 3), QColor(Qt::red));
}

TEST_F(HubTest, PaintsItsBackgroundWithNoPictureAttached) {
    OpenHub hub;
    hub.show();
    EXPECT_EQ(hub.grab().toImage().pixelColor(450, 320),
              loadBitmap(130, 1).toImage().pixelColor(450, 320));
}

TEST_F(HubTest, HasNoSeamWhereTheBackgroundRepeats) {
    const QImage background = loadBitmap(130, 1).toImage();
    const QColor edge = background.pixelColor(0, 0);
    for (int x = 0; x < background.width(); ++x) {
        for (int y = 0; y < 15; ++y) ASSERT_EQ(background.pixelColor(x, y), edge) << x << ' ' << y;
    }
    for (int y = 0; y < background.height(); ++y) {
        for (int x = 0; x < 6; ++x) ASSERT_EQ(background.pixelColor(x, y), edge) << x << ' ' << y;
    }
}
