#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <stdexcept>

#include "screen/help/help_window.h"
#include "screen/message_boxes.h"
#include "screen/picture/hot_region.h"
#include "tests/window/hub_fixture.h"
#include "tests/window/next_modal.h"

using namespace chengheng;

namespace {

void closeSettlementMethods(QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "结算方式");
    window.close();
}

QList<int> litCommands(const OpenHub& hub) {
    QList<int> commands;
    for (const HotRegion* region : hub.findChildren<HotRegion*>()) {
        if (region->isHighlighted()) commands << region->command();
    }
    return commands;
}

/// Moves the pointer to a point of the hub, as the system reports it to whatever lies there.
void movePointer(OpenHub& hub, QPoint point) {
    QTest::mouseMove(hub.windowHandle(), point);
    QCoreApplication::processEvents();
}

QMenu* menuOf(const OpenHub& hub) {
    const auto menus = hub.findChildren<QMenu*>();
    for (QMenu* menu : menus) {
        if (menu->isVisible()) return menu;
    }
    return nullptr;
}

void rightClick(OpenHub& hub, QPoint point) {
    QTest::mouseClick(&hub, Qt::RightButton, {}, point);
    QCoreApplication::processEvents();
}

}  // namespace

TEST_F(HubTest, RunsNothingOnEnterBeforeARegionWasChosen) {
    OpenHub hub;
    hub.showAndFocus();
    EXPECT_EQ(hub.focusWidget(), &hub);
    QTest::keyClick(hub.focusWidget(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, IsWalkedThroughWithTabInTheOrderOfItsRegions) {
    OpenHub hub;
    hub.showAndFocus();
    for (int command : {32776, 32775, 200, 298, 32777, 32778, 32774}) {
        QTest::keyClick(hub.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(hub.focusWidget(), hub.region(command)) << command;
    }
    QTest::keyClick(hub.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(hub.focusWidget(), hub.region(32778));
}

TEST_F(HubTest, OpensTheRegionInFocusWithEnterAndSpace) {
    OpenHub hub;
    hub.showAndFocus();
    hub.region(32778)->setFocus();
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        NextModal operatorHands(closeSettlementMethods);
        QTest::keyClick(hub.focusWidget(), key);
        QCoreApplication::processEvents();
        EXPECT_TRUE(hub.isVisible());
    }
}

TEST_F(HubTest, OpensItsRegionsWithTheDigits) {
    OpenHub hub;
    hub.showAndFocus();
    QTest::keyClick(hub.focusWidget(), '2');
    QCoreApplication::processEvents();
    EXPECT_EQ(m_messages.onlyNotice().text, "分类数据为空!");
    m_messages.forget();
    {
        NextModal operatorHands([](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), "财务分工");
            window.close();
        });
        QTest::keyClick(hub.focusWidget(), '1');
        QCoreApplication::processEvents();
    }
    hub.showAndFocus();
    {
        NextModal operatorHands(closeOpeningBalances);
        QTest::keyClick(hub.focusWidget(), '4');
        QCoreApplication::processEvents();
    }
    hub.showAndFocus();
    {
        NextModal operatorHands(closeCurrencies);
        QTest::keyClick(hub.focusWidget(), '3');
        QCoreApplication::processEvents();
    }
    hub.showAndFocus();
    {
        NextModal operatorHands(closePresets);
        QTest::keyClick(hub.focusWidget(), '5');
        QCoreApplication::processEvents();
    }
    hub.showAndFocus();
    {
        NextModal operatorHands(closeSettlementMethods);
        QTest::keyClick(hub.focusWidget(), '6');
        QCoreApplication::processEvents();
    }
    hub.showAndFocus();
    QTest::keyClick(hub.focusWidget(), '7');
    QCoreApplication::processEvents();
    EXPECT_FALSE(hub.isVisible());
}

TEST_F(HubTest, LightsUpTheRegionUnderThePointerAndNoOther) {
    OpenHub hub;
    hub.showAndFocus();
    movePointer(hub, {500, 200});
    EXPECT_EQ(litCommands(hub), QList<int>{});
    movePointer(hub, {150, 98});
    EXPECT_EQ(litCommands(hub), QList<int>{32776});
    movePointer(hub, {150, 128});
    EXPECT_EQ(litCommands(hub), QList<int>{32775});
    movePointer(hub, {500, 200});
    EXPECT_EQ(litCommands(hub), QList<int>{});
}

TEST_F(HubTest, PaintsRegionsAtRestLitPressedAndInFocusDifferently) {
    OpenHub hub;
    hub.showAndFocus();
    auto* region = dynamic_cast<HotRegion*>(hub.region(298));
    ASSERT_NE(region, nullptr);
    QList<QImage> looks;
    looks << region->grab().toImage();
    region->setHighlighted(true);
    looks << region->grab().toImage();
    region->setDown(true);
    looks << region->grab().toImage();
    region->setDown(false);
    region->setHighlighted(false);
    region->setFocus();
    looks << region->grab().toImage();
    for (int one = 0; one < looks.size(); ++one) {
        for (int other = 0; other < one; ++other) EXPECT_NE(looks[one], looks[other]);
    }
}

TEST_F(HubTest, RunsNoCommandWhenThePointerIsReleasedElsewhere) {
    OpenHub hub;
    hub.showAndFocus();
    QTest::mousePress(hub.region(298), Qt::LeftButton);
    EXPECT_TRUE(hub.region(298)->isDown());
    QTest::mouseRelease(hub.region(298), Qt::LeftButton, {}, QPoint(-40, -40));
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, OpensOneWindowForTwoPressesInARow) {
    OpenHub hub;
    hub.showAndFocus();
    NextModal operatorHands(closeOpeningBalances);
    QTest::mouseClick(hub.region(298), Qt::LeftButton);
    QTest::mouseClick(hub.region(32778), Qt::LeftButton);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(HubTest, HasAMenuOfItsFunctionsUnderTheRightButton) {
    OpenHub hub;
    hub.showAndFocus();
    rightClick(hub, {300, 40});
    const QMenu* menu = menuOf(hub);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->pos(), hub.mapToGlobal(QPoint(300, 40)));
    QStringList captions;
    for (const QAction* action : menu->actions()) {
        if (!action->isSeparator()) captions << action->text();
    }
    EXPECT_EQ(captions, (QStringList{"财务分工(&1)", "会计科目(&2)", "外币汇率(&3)", "期初余额(&4)",
                                     "凭证类别(&5)", "结算方式(&6)", "部门目录(&D)",
                                     "个人往来目录(&P)", "单位往来分类(&C)", "单位往来目录(&U)",
                                     "项目大类定义(&K)", "项目定义及目录(&I)", "帐套参数调整(&B)",
                                     "更改口令(&W)", "操作日志(&L)", "帮助(&H)", "退出(&7)"}));
}

TEST_F(HubTest, HasItsMenuOverARegionToo) {
    OpenHub hub;
    hub.showAndFocus();
    QTest::mouseClick(hub.windowHandle(), Qt::RightButton, {}, QPoint(150, 98));
    QCoreApplication::processEvents();
    EXPECT_NE(menuOf(hub), nullptr);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, HasItsMenuUnderTheMenuKey) {
    OpenHub hub;
    hub.showAndFocus();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {1, 1}, hub.mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&hub, &event);
    EXPECT_NE(menuOf(hub), nullptr);
}

TEST_F(HubTest, RunsTheFunctionChosenInItsMenu) {
    OpenHub hub;
    hub.showAndFocus();
    rightClick(hub, {300, 40});
    NextModal operatorHands(closeOpeningBalances);
    QTest::keyClick(menuOf(hub), '4');
    QCoreApplication::processEvents();
    EXPECT_EQ(menuOf(hub), nullptr);
}

TEST_F(HubTest, OpensItsHelpPageWithF1AndOnlyOneHelpWindow) {
    OpenHub hub;
    hub.showAndFocus();
    QTest::keyClick(&hub, Qt::Key_F1);
    auto* help = hub.findChild<HelpWindow*>();
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(help->shownTitle(), "基础设置");
    QTest::keyClick(&hub, Qt::Key_F1);
    EXPECT_EQ(hub.findChildren<HelpWindow*>().size(), 1);
}

TEST_F(HubTest, OpensItsHelpFromARegionAndFromItsMenu) {
    OpenHub hub;
    hub.showAndFocus();
    hub.region(200)->setFocus();
    QTest::keyClick(hub.focusWidget(), Qt::Key_F1);
    auto* help = hub.findChild<HelpWindow*>();
    ASSERT_NE(help, nullptr);
    help->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    rightClick(hub, {300, 40});
    QTest::keyClick(menuOf(hub), 'h');
    QCoreApplication::processEvents();
    EXPECT_NE(hub.findChild<HelpWindow*>(), nullptr);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, HasHelpThatCanBeUsedWhileItRunsModally) {
    OpenHub hub;
    NextModal operatorHands([&](QWidget& window) {
        QTest::keyClick(&window, Qt::Key_F1);
        auto* help = hub.findChild<HelpWindow*>();
        ASSERT_NE(help, nullptr);
        EXPECT_FALSE(help->isModal());
        EXPECT_NE(QApplication::activeModalWidget(), help);
        QTest::keyClick(help, Qt::Key_Escape);
        EXPECT_TRUE(hub.isVisible());
        hub.close();
    });
    hub.DoModal();
}

namespace {

class FailingHub : public OpenHub {
  protected:
    void DoDataExchange(bool isSaving) override {
        if (isSaving) throw std::runtime_error("disk is gone");
        OpenHub::DoDataExchange(isSaving);
    }
};

class HubThatCannotOpen : public OpenHub {
  protected:
    bool OnInitDialog() override { throw 1; }
};

}  // namespace

TEST_F(HubTest, TellsWhatFailedWhenAHandlerThrowsAndLivesOn) {
    FailingHub hub;
    hub.showAndFocus();
    QTest::keyClick(&hub, Qt::Key_Return);
    const Notice notice = m_messages.onlyNotice();
    EXPECT_EQ(notice.icon, MessageIcon::stop);
    EXPECT_EQ(notice.text,
              "“基础设置”中发生意外错误:disk is gone\n\n"
              "本次操作没有完成,此前已保存的数据不受影响。");
    EXPECT_TRUE(hub.isVisible());
}

TEST_F(HubTest, IsCancelledWithAStopBoxWhenItCannotOpen) {
    HubThatCannotOpen hub;
    EXPECT_EQ(hub.DoModal(), QDialog::Rejected);
    EXPECT_EQ(m_messages.onlyNotice().icon, MessageIcon::stop);
}
