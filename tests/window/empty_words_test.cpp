#include "screen/grid/empty_words.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QStringListModel>
#include <QTest>
#include <QTreeView>

#include "screen/grid/picker_window.h"
#include "session/host_messages.h"
#include "tests/support/recording_messages.h"
#include "tests/window/typing.h"

namespace chengheng {
namespace {

/// What is read in the place of the rows; empty where rows are.
QString wordsIn(const QWidget& window) {
    const auto* words = window.findChild<EmptyWords*>();
    return words != nullptr && words->isVisible() ? words->text() : QString();
}

struct EmptyPicker : testing::Test {
    RecordingMessages messages;
    HostMessages installed{messages};
};

}  // namespace

TEST(EmptyWords, AreReadOnlyWhereThereAreNoRows) {
    QStringListModel model;
    QTreeView view;
    view.setModel(&model);
    EmptyWords words(view, "还没有记录");
    showActive(view);
    QCoreApplication::processEvents();
    EXPECT_TRUE(words.isVisible());
    EXPECT_EQ(words.geometry(), view.viewport()->rect());
    model.setStringList({"一"});
    EXPECT_FALSE(words.isVisible());
    model.removeRows(0, 1);
    EXPECT_TRUE(words.isVisible());
    view.resize(view.size() + QSize(50, 60));
    QCoreApplication::processEvents();
    EXPECT_EQ(words.geometry(), view.viewport()->rect());
}

TEST_F(EmptyPicker, SaysWhyAndWhatToDo) {
    PickerWindow picker("单位", std::vector<PickerRow>{}, nullptr);
    showActive(picker);
    EXPECT_EQ(wordsIn(picker), "还没有可选的记录。");
    picker.setWordsWhenEmpty("还没有外币。");
    EXPECT_EQ(wordsIn(picker), "还没有外币。");
}

TEST_F(EmptyPicker, SaysThatASearchFindsNothing) {
    PickerWindow picker("单位", {{"01", "甲公司"}}, nullptr);
    picker.setWordsWhenEmpty("还没有外币。");
    showActive(picker);
    EXPECT_EQ(wordsIn(picker), "");
    auto* wanted = picker.findChild<QLineEdit*>();
    wanted->setFocus();
    QTest::keyClicks(wanted, "zz");
    EXPECT_EQ(wordsIn(picker),
              "没有编码、名称或拼音首字母含有所查文字的记录。\n清空“查找”可看到全部记录。");
    QTest::keyClick(wanted, Qt::Key_Backspace);
    QTest::keyClick(wanted, Qt::Key_Backspace);
    EXPECT_EQ(wordsIn(picker), "");
}

}  // namespace chengheng
