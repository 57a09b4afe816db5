#include "directories/window/directory_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "session/host_messages.h"
#include "tests/support/entry_books.h"
#include "tests/window/next_modal.h"
#include "tests/window/typing.h"

namespace chengheng {
namespace {

using Lines = std::vector<std::string>;

/// A directory of books in memory, and the hands of its operator.
class DirectoryWindowTest : public testing::Test {
  protected:
    void open(DirectoryKind kind) {
        window = std::make_unique<DirectoryWindow>(directoryOf(kind), nullptr);
        showActive(*window);
        QCoreApplication::processEvents();
    }
    template <class Control>
    Control& control(const char* name) {
        return *window->findChild<Control*>(QLatin1String(name));
    }
    QLineEdit& code() { return control<QLineEdit>("sCode"); }
    QLineEdit& name() { return control<QLineEdit>("sName"); }
    QComboBox& group() { return control<QComboBox>("lGroup"); }
    QTreeView& tree() { return control<QTreeView>("Tree1"); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* focused = window->focusWidget();
        QTest::keyClick(focused ? focused : window.get(), Qt::Key(key), modifiers);
        QCoreApplication::processEvents();
    }
    void type(QLineEdit& field, const char* text) {
        field.setFocus();
        field.selectAll();
        typeText(&field, QString::fromUtf8(text));
    }
    void save() { press(Qt::Key_Return); }
    void select(int row) {
        tree().setFocus();
        tree().setCurrentIndex(tree().model()->index(row, 0));
        QCoreApplication::processEvents();
    }
    Lines leaves() {
        Lines texts;
        for (int row = 0; row < tree().model()->rowCount(); ++row)
            texts.push_back(tree().model()->index(row, 0).data().toString().toStdString());
        return texts;
    }
    void openGroups() {
        for (QPushButton* button : window->findChildren<QPushButton*>())
            if (button->accessibleName() == QString::fromUtf8("部门目录")) button->click();
    }
    void trigger(const char* text) {
        for (QAction* action : window->findChildren<QAction*>())
            if (action->text() == QString::fromUtf8(text)) {
                action->trigger();
                return QCoreApplication::processEvents();
            }
        FAIL() << text;
    }
    std::string usedMark() {
        const auto& mark = control<QLabel>("usedMark");
        return mark.isVisible() ? mark.text().toStdString() : "";
    }
    bool canDelete() {
        for (const QAction* action : window->findChildren<QAction*>())
            if (action->text() == QString::fromUtf8("删除")) return action->isEnabled();
        ADD_FAILURE();
        return false;
    }
    std::string said() {
        const auto texts = books.messages().texts();
        books.messages().forget();
        return texts.empty() ? "" : texts.back();
    }

    EntryBooks books{":memory:"};
    HostMessages installed{books.messages()};
    std::unique_ptr<DirectoryWindow> window;
};

TEST_F(DirectoryWindowTest, ShowsTheRecordsWithWhatTheyBelongTo) {
    open(DirectoryKind::person);
    EXPECT_EQ(window->windowTitle(), QString::fromUtf8("个人往来目录"));
    EXPECT_EQ(leaves(), (Lines{"P1 张三 (销售部)", "P2 李四 (生产部)"}));
    EXPECT_EQ(code().text(), "P1");
    EXPECT_EQ(name().text(), QString::fromUtf8("张三"));
    EXPECT_EQ(group().currentText(), QString::fromUtf8("D1 销售部"));
    EXPECT_EQ(window->findChild<QComboBox*>("byKind"), nullptr);
}

TEST_F(DirectoryWindowTest, AddsByKeysAloneAndStandsAtItsPlaceInTheList) {
    open(DirectoryKind::unit);
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(window->focusWidget(), &code());
    typeText(window->focusWidget(), "U15");
    press(Qt::Key_Return);
    EXPECT_EQ(window->focusWidget(), &name());
    typeText(window->focusWidget(), QString::fromUtf8("丙公司"));
    press(Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), &group());
    press(Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget()->accessibleName(), QString::fromUtf8("单位往来分类"));
    press(Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), &control<QComboBox>("byKind"));
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), &control<QPushButton>("ok"));
    save();
    EXPECT_EQ(said(), "");
    EXPECT_EQ(leaves(), (Lines{"U1 甲公司 (客户)", "U15 丙公司 (客户)", "U2 乙公司 (客户)"}));
    DirectoryService service(books.messages(), directoryOf(DirectoryKind::unit));
    EXPECT_EQ(service.readAll()->at(1).unitKind, UnitKind::customer);
    EXPECT_EQ(window->chosen()->record.code, "U15");
    EXPECT_EQ(window->chosen()->groupCode, "1");
}

TEST_F(DirectoryWindowTest, GoesBackToTheFieldOfARefusal) {
    open(DirectoryKind::department);
    press(Qt::Key_N, Qt::ControlModifier);
    type(code(), "D2");
    type(name(), "仓库");
    save();
    EXPECT_EQ(said(), "部门编码重复:已有“D2 生产部”");
    EXPECT_EQ(name().text(), QString::fromUtf8("仓库"));
    EXPECT_EQ(leaves().size(), 2u);
}

TEST_F(DirectoryWindowTest, NamesThePlacesWhereARecordIsUsedAndDeletesOthers) {
    books.books().run("INSERT INTO RegSub (lId, lEnterId, bBegin) VALUES (1, 1, 1)");
    open(DirectoryKind::unit);
    EXPECT_EQ(usedMark(), "已使用: [期初余额]");
    EXPECT_FALSE(canDelete());
    select(1);
    EXPECT_EQ(usedMark(), "");
    EXPECT_TRUE(canDelete());
    books.messages().willAnswer("是否删除当前单位?\n\n编码:U2\n名称:乙公司", Answer::yes);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(leaves(), Lines{"U1 甲公司 (客户)"});
}

TEST_F(DirectoryWindowTest, KeepsAnItemInItsClass) {
    open(DirectoryKind::projectItem);
    EXPECT_FALSE(group().isEnabled());
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(group().isEnabled());
    type(code(), "I0");
    type(name(), "三期");
    save();
    EXPECT_EQ(said(), "");
    EXPECT_EQ(leaves().front().substr(0, 9), "I0 三期");
    EXPECT_FALSE(group().isEnabled());
}

TEST_F(DirectoryWindowTest, TellsItemsOfTwoClassesApart) {
    DirectoryService classes(books.messages(), directoryOf(DirectoryKind::projectClass));
    DirectoryRecord other{.code = "02", .name = "研发"};
    ASSERT_EQ(classes.add(other), Outcome::done);
    DirectoryService items(books.messages(), directoryOf(DirectoryKind::projectItem));
    DirectoryRecord item{.group = other.id, .code = "I1", .name = "甲品"};
    ASSERT_EQ(items.add(item), Outcome::done);
    open(DirectoryKind::projectItem);
    ASSERT_EQ(leaves().size(), 3u);
    EXPECT_EQ(leaves().back(), "I1 甲品 (研发)");
    select(2);
    EXPECT_EQ(name().text(), QString::fromUtf8("甲品"));
    EXPECT_EQ(window->chosen()->record, item);
    EXPECT_EQ(window->chosen()->groupCode, "02");
    press(Qt::Key_N, Qt::ControlModifier);
    type(code(), "I2");
    type(name(), "乙品");
    save();
    EXPECT_EQ(leaves().back(), "I2 乙品 (研发)");
}

TEST_F(DirectoryWindowTest, OpensWhatItsRecordsBelongToAndTakesWhatIsChosenThere) {
    open(DirectoryKind::person);
    const NextModal departments([](QWidget& directory) {
        showActive(directory);
        EXPECT_EQ(directory.windowTitle(), QString::fromUtf8("部门目录"));
        for (QAction* action : directory.findChildren<QAction*>())
            if (action->text() == QString::fromUtf8("增加")) action->trigger();
        QCoreApplication::processEvents();
        typeText(directory.findChild<QLineEdit*>("sCode"), "D3");
        typeText(directory.findChild<QLineEdit*>("sName"), QString::fromUtf8("仓库"));
        QTest::keyClick(directory.focusWidget(), Qt::Key_Return);
        QTest::keyClick(&directory, Qt::Key_Escape);
    });
    openGroups();
    EXPECT_EQ(group().currentText(), QString::fromUtf8("D3 仓库"));
    EXPECT_EQ(code().text(), "P1");
    save();
    EXPECT_EQ(leaves().front(), "P1 张三 (仓库)");
}

TEST_F(DirectoryWindowTest, OpensWhatARecordBelongsToAtItAndChangesNothingByLooking) {
    open(DirectoryKind::person);
    select(1);
    const NextModal departments([](QWidget& directory) {
        showActive(directory);
        EXPECT_EQ(directory.findChild<QLineEdit*>("sCode")->text(), "D2");
        QTest::keyClick(&directory, Qt::Key_Escape);
    });
    openGroups();
    EXPECT_EQ(group().currentText(), QString::fromUtf8("D2 生产部"));
    EXPECT_FALSE(control<QPushButton>("ok").isEnabled());
}

TEST_F(DirectoryWindowTest, ShowsTheNewNameOfAGroupInTheListAndKeepsWhatWasTyped) {
    open(DirectoryKind::person);
    type(name(), "张山");
    const auto rename = [](QWidget& directory) {
        showActive(directory);
        typeText(directory.findChild<QLineEdit*>("sName"), QString::fromUtf8("一"));
        QTest::keyClick(directory.findChild<QLineEdit*>("sName"), Qt::Key_Return);
        QTest::keyClick(&directory, Qt::Key_Escape);
    };
    {
        const NextModal departments(rename);
        openGroups();
    }
    EXPECT_EQ(leaves().front(), "P1 张三 (销售部一)");
    EXPECT_EQ(name().text(), QString::fromUtf8("张山"));
    books.messages().willAnswer("当前输入尚未保存,是否放弃?", Answer::yes);
    trigger("增加");
    type(code(), "P3");
    const NextModal departments(rename);
    openGroups();
    EXPECT_EQ(leaves().front(), "P1 张三 (销售部一一)");
    EXPECT_EQ(code().text(), "P3");
    EXPECT_EQ(group().currentText(), QString::fromUtf8("D1 销售部一一"));
}

TEST_F(DirectoryWindowTest, FindsByCodeNameAndInitials) {
    std::string batch;
    for (int id = 3; id < 30; ++id)
        batch += formatSql(
            "INSERT INTO Enter (lId, lClassId, sEnterCode, sEnterName) VALUES (%d, 1, 'U%d', "
            "'客户%d')\r\n",
            id, 100 + id, id);
    books.books().run(batch);
    open(DirectoryKind::unit);
    auto& filter = control<QLineEdit>("filter");
    type(filter, "ygs");
    EXPECT_EQ(leaves(), Lines{"U2 乙公司 (客户)"});
    type(filter, "u129");
    EXPECT_EQ(leaves(), Lines{"U129 客户29 (客户)"});
    type(filter, "甲公");
    EXPECT_EQ(leaves(), Lines{"U1 甲公司 (客户)"});
}

TEST_F(DirectoryWindowTest, KeepsWhatWasTypedWhenAnotherWorkstationWasFirst) {
    open(DirectoryKind::person);
    books.books().run("UPDATE Person SET sPersonCode = 'P9' WHERE lId = 1");
    type(name(), "张山");
    save();
    EXPECT_NE(said(), "");
    EXPECT_EQ(code().text(), "P9");
    EXPECT_EQ(name().text(), QString::fromUtf8("张山"));
    save();
    EXPECT_EQ(said(), "");
    EXPECT_EQ(leaves().back(), "P9 张山 (销售部)");
}

TEST_F(DirectoryWindowTest, AsksBeforeWhatWasTypedIsGivenUp) {
    open(DirectoryKind::person);
    group().setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(group().currentText(), QString::fromUtf8("D2 生产部"));
    books.messages().willAnswer("当前输入尚未保存,是否放弃?", Answer::no);
    press(Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    books.messages().willAnswer("当前输入尚未保存,是否放弃?", Answer::yes);
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(DirectoryWindowTest, BeginsWithAnAdditionWhereThatIsWanted) {
    window = std::make_unique<DirectoryWindow>(directoryOf(DirectoryKind::unit), nullptr);
    window->startWithAddition();
    showActive(*window);
    EXPECT_EQ(window->focusWidget(), &code());
    EXPECT_EQ(code().text(), "");
    EXPECT_FALSE(window->chosen());
}

}  // namespace
}  // namespace chengheng
