#include "screen/window_shape.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "screen/dialog_frame.h"
#include "screen/grid/picker_window.h"
#include "screen/help/help_window.h"
#include "session/host_messages.h"
#include "tests/support/recording_messages.h"
#include "tests/window/kept_windows.h"
#include "tests/window/typing.h"

namespace chengheng {
namespace {

/// A dialog without rows of its own.
class PlainDialog final : public DialogFrame {
  public:
    PlainDialog() : DialogFrame(nullptr) {
        auto* rows = new QVBoxLayout(this);
        auto* box = new QComboBox;
        box->addItems({"一", "二"});
        box->view()->setObjectName("droppingDown");
        rows->addWidget(box);
        rows->addWidget(new QLineEdit);
    }
};

struct WindowShape : testing::Test {
    std::unique_ptr<PickerWindow> openRows() {
        auto window = std::make_unique<PickerWindow>(
            "单位", std::vector<PickerRow>{{"01", "甲公司"}}, nullptr);
        showActive(*window);
        return window;
    }

    RecordingMessages messages;
    HostMessages installed{messages};
};

}  // namespace

TEST_F(WindowShape, LetsWhateverShowsRowsBeMaximised) {
    const auto rows = openRows();
    EXPECT_TRUE(rows->windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_TRUE(rows->isSizeGripEnabled());
    HelpWindow help(nullptr);
    showActive(help);
    EXPECT_TRUE(help.windowFlags() & Qt::WindowMaximizeButtonHint);
}

TEST_F(WindowShape, LeavesADialogWithoutRowsAsItIs) {
    const KeptWindows kept;
    QSize usual;
    {
        PlainDialog plain;
        showActive(plain);
        usual = plain.size();
        EXPECT_FALSE(plain.windowFlags() & Qt::WindowMaximizeButtonHint);
        EXPECT_FALSE(plain.isSizeGripEnabled());
        plain.resize(usual + QSize(90, 70));
        plain.hide();
    }
    PlainDialog again;
    showActive(again);
    EXPECT_EQ(again.size(), usual);
}

TEST_F(WindowShape, KeepsSizeAndPlaceOfAWindowWithRows) {
    const KeptWindows kept;
    {
        const auto rows = openRows();
        rows->setGeometry(60, 40, 510, 440);
        QTest::keyClick(rows.get(), Qt::Key_Escape);
        ASSERT_FALSE(rows->isVisible());
    }
    EXPECT_EQ(openRows()->geometry(), QRect(60, 40, 510, 440));
}

TEST_F(WindowShape, LeavesButtonsAtTheEdgeOfALargerWindow) {
    const auto rows = openRows();
    auto& button = *rows->findChild<QPushButton*>();
    const auto fromCorner = [&] {
        return rows->rect().bottomRight() - button.mapTo(rows.get(), button.rect().bottomRight());
    };
    const QPoint before = fromCorner();
    const int grid = rows->findChild<QAbstractItemView*>()->height();
    rows->resize(rows->size() + QSize(300, 200));
    QCoreApplication::processEvents();
    EXPECT_EQ(fromCorner(), before);
    EXPECT_EQ(rows->findChild<QAbstractItemView*>()->height(), grid + 200);
}

TEST_F(WindowShape, GivesBackTheUsualSize) {
    const KeptWindows kept;
    QSize usual;
    {
        const auto rows = openRows();
        usual = rows->size();
        rows->resize(700, 500);
        rows->hide();
    }
    const auto again = openRows();
    ASSERT_EQ(again->size(), QSize(700, 500));
    resetShape(*again);
    EXPECT_EQ(again->size(), usual);
    again->hide();
    EXPECT_EQ(openRows()->size(), usual);
}

TEST_F(WindowShape, KeepsNothingWithoutAFile) {
    QSize usual;
    {
        const auto rows = openRows();
        usual = rows->size();
        rows->resize(700, 500);
        rows->hide();
    }
    EXPECT_EQ(openRows()->size(), usual);
}

}  // namespace chengheng
