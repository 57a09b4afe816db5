#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "auxiliary/screen/entry_form.h"
#include "auxiliary/window/entry_window.h"
#include "data/lookups/cached_records.h"
#include "directories/directory_service.h"
#include "screen/grid/CVCF1.h"
#include "session/host_messages.h"
#include "tests/support/entry_books.h"
#include "tests/window/next_modal.h"
#include "tests/window/typing.h"

namespace chengheng {
namespace {

/// The record dialog of a member, whose VIEW buttons show a directory.
class DirectoryPickerTest : public testing::Test {
  protected:
    void open(AuxiliaryKind kind) {
        const AuxiliaryMember& member = memberOf(kind);
        form.emplace(books.messages(), member, books.account(member));
        window.emplace(
            *form, [](const AuxiliaryEntry&) { return true; }, nullptr);
        showActive(*window);
    }
    static void press(QWidget& dialog, const QString& text) {
        for (auto* each : dialog.findChildren<QPushButton*>())
            if (each->text().startsWith(text)) return each->click();
        FAIL() << text.toStdString();
    }
    void view(const char* field) {
        for (auto* each : window->findChildren<QPushButton*>())
            if (each->accessibleName() == QStringLiteral("VIEW ") + QString::fromUtf8(field))
                return each->click();
        FAIL() << field;
    }
    static void addRecord(QWidget& directory, const char* code, const char* name) {
        showActive(directory);
        QCoreApplication::processEvents();
        typeText(directory.findChild<QLineEdit*>("sCode"), QString::fromUtf8(code));
        typeText(directory.findChild<QLineEdit*>("sName"), QString::fromUtf8(name));
        QTest::keyClick(directory.focusWidget(), Qt::Key_Return);
        QTest::keyClick(&directory, Qt::Key_Escape);
    }
    std::string field(const char* name) {
        return window->findChild<QLineEdit*>(QLatin1String(name))->text().toStdString();
    }

    EntryBooks books{":memory:"};
    HostMessages installed{books.messages()};
    BookLookups lookups{"books"};
    std::optional<EntryForm> form;
    std::optional<EntryWindow> window;
};

TEST_F(DirectoryPickerTest, PutsARecordThatWasAddedThereIntoTheField) {
    open(AuxiliaryKind::unit);
    {
        const NextModal picker([](QWidget& list) {
            const NextModal directory([](QWidget& units) { addRecord(units, "U3", "丙公司"); });
            press(list, "增加");
        });
        view("单位");
    }
    EXPECT_EQ(field("lEnterId"), "丙公司");
    EXPECT_EQ(window->focusWidget()->objectName(), "lEnterId");
}

TEST_F(DirectoryPickerTest, TakesARecordThatWasAddedThoughItIsNotWhatWasLookedFor) {
    open(AuxiliaryKind::unit);
    {
        const NextModal picker([](QWidget& list) {
            list.findChild<QLineEdit*>()->setText("乙");
            const NextModal directory([](QWidget& units) { addRecord(units, "U3", "丙公司"); });
            press(list, "增加");
        });
        view("单位");
    }
    EXPECT_EQ(field("lEnterId"), "丙公司");
}

TEST_F(DirectoryPickerTest, SelectsWhatWasLookedUpInTheDirectoryAndLetsOneChoose) {
    open(AuxiliaryKind::unit);
    {
        const NextModal picker([](QWidget& list) {
            list.findChild<QLineEdit*>()->setText("U1");
            {
                const NextModal directory([](QWidget& units) {
                    showActive(units);
                    units.findChild<QLineEdit*>("sName")->setText("乙方");
                    QTest::keyClick(units.findChild<QLineEdit*>("sName"), Qt::Key_Return);
                    QTest::keyClick(&units, Qt::Key_Escape);
                });
                press(list, "目录");
            }
            auto& grid = *list.findChild<CVCF1*>();
            EXPECT_EQ(grid.model()->rowCount(), 1);
            EXPECT_EQ(grid.model()->index(0, 1).data().toString(), "乙方");
            press(list, "确定");
        });
        view("单位");
    }
    EXPECT_EQ(field("lEnterId"), "乙方");
}

TEST_F(DirectoryPickerTest, SaysWhatToDoWhereTheDirectoryIsEmpty) {
    books.books().run("DELETE Enter WHERE lId > 0");
    open(AuxiliaryKind::unit);
    const NextModal picker([](QWidget& list) {
        const auto* words = list.findChild<QLabel*>("emptyWords");
        EXPECT_TRUE(words->isVisible());
        EXPECT_EQ(words->text(), "“单位往来目录”中还没有记录。\n按“增加”就地录入一条。");
        QTest::keyClick(&list, Qt::Key_Escape);
    });
    view("单位");
}

TEST_F(DirectoryPickerTest, LooksARecordUpAndKeepsItsPlace) {
    const std::pair<AuxiliaryKind, const char*> fields[] = {{AuxiliaryKind::unit, "单位"},
                                                            {AuxiliaryKind::project, "项目"}};
    for (const auto& [kind, name] : fields) {
        open(kind);
        const NextModal picker([](QWidget& list) {
            auto& grid = *list.findChild<CVCF1*>();
            grid.setCurrentRow(1);
            const QString code = grid.model()->index(1, 0).data().toString();
            {
                const NextModal directory([&code](QWidget& records) {
                    showActive(records);
                    EXPECT_EQ(records.findChild<QLineEdit*>("sCode")->text(), code);
                    QTest::keyClick(&records, Qt::Key_Escape);
                });
                press(list, "目录");
            }
            EXPECT_EQ(grid.currentRow(), 1);
            QTest::keyClick(&list, Qt::Key_Escape);
        });
        view(name);
    }
}

TEST_F(DirectoryPickerTest, FindsAnItemOfItsClassAmongThoseOfOthers) {
    DirectoryService classes(books.messages(), directoryOf(DirectoryKind::projectClass));
    DirectoryRecord other{.code = "02", .name = "研发"};
    ASSERT_EQ(classes.add(other), Outcome::done);
    books.books().run("DELETE ProjCodes WHERE lId > 0");
    DirectoryService items(books.messages(), directoryOf(DirectoryKind::projectItem));
    DirectoryRecord item{.group = other.id, .code = "I1", .name = "甲品"};
    ASSERT_EQ(items.add(item), Outcome::done);
    open(AuxiliaryKind::project);
    {
        const NextModal picker([](QWidget& list) {
            {
                const NextModal directory([](QWidget& projects) {
                    showActive(projects);
                    auto* tree = projects.findChild<QTreeView*>("Tree1");
                    tree->setCurrentIndex(tree->model()->index(2, 0));
                    QCoreApplication::processEvents();
                    QTest::keyClick(&projects, Qt::Key_Escape);
                });
                press(list, "目录");
            }
            press(list, "确定");
        });
        view("项目");
    }
    EXPECT_EQ(field("lItemId"), "甲品");
}

TEST_F(DirectoryPickerTest, AsksForTheRightToTheDirectory) {
    HostSession session({.database = &books.database(),
                         .databaseName = "books",
                         .logonUser = {2, 2, 0, 2, "李明"}});
    open(AuxiliaryKind::unit);
    {
        const NextModal picker([](QWidget& list) {
            press(list, "增加");
            EXPECT_EQ(list.findChild<CVCF1*>()->model()->rowCount(), 2);
            QTest::keyClick(&list, Qt::Key_Escape);
        });
        view("单位");
    }
    ASSERT_EQ(books.messages().texts().size(), 1u);
    EXPECT_NE(books.messages().texts().front().find("单位往来目录"), std::string::npos);
}

}  // namespace
}  // namespace chengheng
