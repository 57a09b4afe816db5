#include "screen/window_commands.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QToolBar>
#include <QVBoxLayout>
#include <utility>
#include <vector>

#include "screen/dialog_frame.h"
#include "tests/window/typing.h"

using namespace chengheng;

namespace {

constexpr MenuItemResource fileItems[] = {{7, "打印\tCtrl+P"}, {0, ""}, {8, "退出"}};
constexpr MenuItemResource editItems[] = {{9, "增加\tCtrl+N"}};
constexpr WindowMenu menus[] = {{"文件(&F)", fileItems}, {"编辑(&E)", editItems}};
constexpr ToolButton buttons[] = {{0, ""}, {7, "print"}, {0, ""}, {9, "add"}};

class CommandWindow final : public DialogFrame {
  public:
    CommandWindow() : DialogFrame(nullptr) { new QVBoxLayout(this); }

    bool OnCommand(int command) override {
        received.push_back(command);
        return true;
    }
    std::vector<int> received;
};

struct WindowCommandsTest : testing::Test {
    WindowCommandsTest() { showActive(window); }

    QAction* action(int menu, int item) const {
        const auto* bar = qobject_cast<QMenuBar*>(window.layout()->menuBar());
        return bar->actions()[menu]->menu()->actions()[item];
    }
    std::vector<int> received() {
        QCoreApplication::processEvents();
        return std::exchange(window.received, {});
    }

    CommandWindow window;
    WindowCommands commands{window, menus};
};

using Numbers = std::vector<int>;

}  // namespace

TEST(DialogFrame, EnterPressesTheButtonWithTheFocusAndElseIsOk) {
    struct Frame final : DialogFrame {
        Frame() : DialogFrame(nullptr) {}
        void OnOK() override { ++confirmed; }
        int confirmed = 0;
    } frame;
    QPushButton button(&frame);
    QLineEdit edit(&frame);
    int pressed = 0;
    QObject::connect(&button, &QPushButton::clicked, [&pressed] { ++pressed; });
    button.setAutoDefault(false);
    showActive(frame);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        pressed = frame.confirmed = 0;
        button.setFocus();
        QTest::keyClick(&button, key);
        EXPECT_EQ(std::pair(pressed, frame.confirmed), std::pair(1, 0));
        edit.setFocus();
        QTest::keyClick(&edit, key);
        EXPECT_EQ(std::pair(pressed, frame.confirmed), std::pair(1, 1));
    }
}

TEST_F(WindowCommandsTest, MakeTheMenusAsTheyAreListed) {
    EXPECT_EQ(action(0, 0)->text(), "打印");
    EXPECT_EQ(action(0, 0)->shortcut(), QKeySequence("Ctrl+P"));
    EXPECT_TRUE(action(0, 1)->isSeparator());
    EXPECT_EQ(action(0, 2)->text(), "退出");
    EXPECT_EQ(action(1, 0)->text(), "增加");
}

TEST_F(WindowCommandsTest, ReachTheWindowFromMenuKeyAndToolBar) {
    QToolBar* bar = commands.makeToolBar("工具栏", buttons);
    window.layout()->addWidget(bar);
    action(0, 2)->trigger();
    EXPECT_EQ(received(), Numbers{8});
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(received(), Numbers{9});
    const QList<QAction*> shown = bar->actions();
    ASSERT_EQ(shown.size(), 4);
    EXPECT_TRUE(shown[0]->isSeparator());
    EXPECT_FALSE(shown[1]->icon().isNull());
    QTest::mouseClick(bar->widgetForAction(shown[1]), Qt::LeftButton);
    EXPECT_EQ(received(), Numbers{7});
}

TEST_F(WindowCommandsTest, DoNothingWhileTheyAreDisabled) {
    commands.setEnabled(9, false);
    EXPECT_FALSE(commands.isEnabled(9));
    EXPECT_TRUE(commands.isEnabled(7));
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(received(), Numbers{});
    commands.setEnabled(9, true);
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(received(), Numbers{9});
}

TEST_F(WindowCommandsTest, LeaveOutASecondOneBeforeTheFirstHasBegun) {
    action(1, 0)->trigger();
    action(0, 2)->trigger();
    EXPECT_EQ(received(), Numbers{9});
    action(0, 2)->trigger();
    EXPECT_EQ(received(), Numbers{8});
}

TEST_F(WindowCommandsTest, ReachNoWindowThatHasEnded) {
    action(1, 0)->trigger();
    window.reject();
    EXPECT_EQ(received(), Numbers{});
}

TEST(ToolPictures, AreThereForEveryNameInUse) {
    for (const char* name : {"print", "preview", "add", "delete", "modify", "designate", "copy",
                             "find", "help", "exit", "refresh", "save", "import", "export"}) {
        const QIcon icon = toolIcon(name);
        ASSERT_FALSE(icon.isNull()) << name;
        EXPECT_FALSE(icon.pixmap(44, 44).isNull()) << name;
    }
    EXPECT_TRUE(toolIcon("nothing").isNull());
}

TEST(Dialogs, OpenNoLargerThanTheScreen) {
    CommandWindow window;
    window.resize(4000, 3000);
    showActive(window);
    const QSize room = window.screen()->availableGeometry().size();
    EXPECT_LE(window.width(), room.width());
    EXPECT_LE(window.height(), room.height());
}
