#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QTest>
#include <QTreeView>
#include <fstream>

#include "directories/directory_service.h"
#include "directories/window/directory_window.h"
#include "session/host_messages.h"
#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"
#include "tests/window/next_modal.h"
#include "tests/window/plan_hands.h"
#include "tests/window/typing.h"

namespace chengheng {
namespace {

using Lines = std::vector<std::string>;

/// The window of a directory whose operator imports and exports files.
class DirectoryFilesTest : public testing::Test {
  protected:
    void open(DirectoryKind kind) {
        window = std::make_unique<DirectoryWindow>(directoryOf(kind), nullptr);
        showActive(*window);
        QCoreApplication::processEvents();
    }
    static QAction* command(QWidget& of, const char* text) {
        for (QAction* action : of.findChildren<QAction*>())
            if (action->text() == QString::fromUtf8(text)) return action;
        return nullptr;
    }
    void choose(const char* text) {
        QAction* action = command(*window, text);
        ASSERT_NE(action, nullptr);
        action->trigger();
        QCoreApplication::processEvents();
    }
    /// Imports a file, acting in the window that shows what would become of it.
    void import(const std::string& content, std::function<void(QWidget&)> act) {
        const std::string path = freshFolder() + "/directory.csv";
        std::ofstream(path) << content;
        std::optional<NextModal> preview;
        const NextModal chooser([&](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QString::fromUtf8("导入") + window->windowTitle());
            giveFile(dialog, path);
            preview.emplace([&](QWidget& plan) {
                act(plan);
                if (plan.isVisible()) pressButton(plan, "取消");
            });
        });
        choose("导入...");
    }
    QTreeView& tree() { return *window->findChild<QTreeView*>("Tree1"); }
    QLineEdit& field(const char* name) {
        return *window->findChild<QLineEdit*>(QLatin1String(name));
    }
    std::string selected() { return tree().currentIndex().data().toString().toStdString(); }
    Lines leaves() {
        Lines texts;
        for (int row = 0; row < tree().model()->rowCount(); ++row)
            texts.push_back(tree().model()->index(row, 0).data().toString().toStdString());
        return texts;
    }
    void select(int row) {
        tree().setFocus();
        tree().setCurrentIndex(tree().model()->index(row, 0));
        QCoreApplication::processEvents();
    }

    EntryBooks books{":memory:"};
    HostMessages installed{books.messages()};
    std::unique_ptr<DirectoryWindow> window;
};

TEST_F(DirectoryFilesTest, ShowsWhatBecomesOfEachRowThenDoesItAndStaysAtItsPlace) {
    open(DirectoryKind::person);
    select(1);
    import("编码,名称,所属部门\nP0,王五,销售部\nP2,赵六,\n", [this](QWidget& plan) {
        EXPECT_EQ(plan.windowTitle(), QString::fromUtf8("导入个人往来目录"));
    EXPECT_TRUE(hasLabelText(plan, "新增 1 行,修改 1 行,不变 0 行,拒绝 0 行。"));
    EXPECT_EQ(planCell(plan, 0, 1), "新增");
    EXPECT_EQ(planCell(plan, 0, 2), "P0");
    EXPECT_EQ(planCell(plan, 1, 3), "赵六");
    EXPECT_EQ(leaves().size(), 2u);
    pressButton(plan, "导入");
});
EXPECT_EQ(books.messages().onlyNotice().text, "导入完成:新增 1 个个人,修改 1 个。");
EXPECT_EQ(leaves(), (Lines{"P0 王五 (销售部)", "P1 张三 (销售部)", "P2 赵六 (生产部)"}));
EXPECT_EQ(selected(), "P2 赵六 (生产部)");
EXPECT_EQ(field("sName").text(), QString::fromUtf8("赵六"));
}  // namespace

TEST_F(DirectoryFilesTest, ImportsNothingWhileARowIsRefusedOrTheOperatorGivesItUp) {
    open(DirectoryKind::department);
    import("编码,名称\nD3,仓库\nD4,销售部\n", [](QWidget& plan) {
        EXPECT_EQ(planCell(plan, 1, 4), "B3 名称");
    EXPECT_EQ(planCell(plan, 1, 5), "部门名称重复:已有“D1 销售部”");
    EXPECT_FALSE(buttonOf(plan, "导入").isEnabled());
});
import("编码,名称\nD3,仓库\n", [](QWidget&){});
EXPECT_EQ(leaves(), (Lines{"D1 销售部", "D2 生产部"}));
EXPECT_TRUE(books.messages().texts().empty());
}  // namespace chengheng

TEST_F(DirectoryFilesTest, AsksBeforeUnsavedInputIsGivenUpForAnImport) {
    open(DirectoryKind::department);
    field("sName").selectAll();
    typeText(&field("sName"), QString::fromUtf8("市场部"));
    books.messages().willAnswer("当前输入尚未保存,是否放弃?", Answer::no);
    choose("导入...");
    EXPECT_EQ(window->focusWidget(), &field("sName"));
    EXPECT_EQ(field("sName").text(), QString::fromUtf8("市场部"));
    books.messages().willAnswer("当前输入尚未保存,是否放弃?", Answer::yes);
    import("编码,名称\nD3,仓库\n", [](QWidget&){});
    EXPECT_EQ(field("sName").text(), QString::fromUtf8("市场部")) << "nothing was imported";
    books.messages().willAnswer("当前输入尚未保存,是否放弃?", Answer::yes);
    import("编码,名称\nD3,仓库\n", [](QWidget& plan) { pressButton(plan, "导入");
});
EXPECT_EQ(field("sName").text(), QString::fromUtf8("销售部"));
EXPECT_EQ(leaves().size(), 3u);
}

TEST_F(DirectoryFilesTest, GoesOnAddingAfterAnImportUnlessThereWasNothingElseToDo) {
    open(DirectoryKind::department);
    choose("增加");
    import("编码,名称\nD0,仓库\n", [](QWidget& plan) { pressButton(plan, "导入");
});
EXPECT_EQ(field("sCode").text(), "");
EXPECT_FALSE(tree().currentIndex().isValid());
window.reset();
books.books().run("DELETE FROM Dept");
open(DirectoryKind::department);
EXPECT_EQ(field("sCode").text(), "");
    import("编码,名称\nD0,仓库\n", [](QWidget& plan) { pressButton(plan, "导入");
    });
    EXPECT_EQ(field("sCode").text(), "D0");
    }

    TEST_F(DirectoryFilesTest, KeepsTheSelectedRecordAsHighInTheListAsItWas) {
        std::string batch;
        std::string csv = "编码,名称,单位分类\n";
        for (int id = 100; id < 300; ++id) {
            batch +=
                formatSql("INSERT INTO Enter VALUES (%d, 1, 'U%d', '客户%d', 0)\r\n", id, id, id);
            csv += "A" + std::to_string(id) + ",新客户" + std::to_string(id) + ",1\n";
        }
        books.books().run(batch);
        books.books().run("UPDATE ABIdTable SET lLastId = 300 WHERE sTable = 'Enter'");
        open(DirectoryKind::unit);
        select(150);
        const std::string before = selected();
        const int height = tree().visualRect(tree().currentIndex()).top();
    import(csv, [](QWidget& plan) { pressButton(plan, "导入");
    });
    EXPECT_EQ(leaves().size(), 402u);
    EXPECT_EQ(selected(), before);
    EXPECT_EQ(tree().visualRect(tree().currentIndex()).top(), height);
    }

    TEST_F(DirectoryFilesTest, AsksOnceForTheNamesThatWouldBeShared) {
        open(DirectoryKind::unit);
        books.messages().willAnswer("有 1 行需要确认,全部接受并导入吗?", Answer::cancel);
    import("编码,名称,单位分类\nU3,甲公司,1\n", [](QWidget& plan) {
        EXPECT_EQ(planCell(plan, 0, 5), "已有同名的单位“U1 甲公司”");
    pressButton(plan, "导入");
    EXPECT_TRUE(plan.isVisible());
    });
    EXPECT_EQ(leaves().size(), 2u);
    }

    TEST_F(DirectoryFilesTest, WritesAFileThatChangesNothingWhenItIsReadBack) {
        for (const Directory& each : directories()) {
            open(each.kind);
            const std::string path = freshFolder() + "/directory.csv";
            {
                const NextModal chooser([&](QWidget& dialog) { giveFile(dialog, path); });
                choose("导出...");
            }
            EXPECT_EQ(books.messages().onlyNotice().text,
                      std::string(each.title) + "已导出到“" + path + "”。");
            books.messages().forget();
            std::ifstream file(path);
        import({std::istreambuf_iterator<char>(file), {}}, [](QWidget& plan) {
            EXPECT_TRUE(hasLabelText(plan, "没有需要导入的内容。"));
        EXPECT_FALSE(buttonOf(plan, "导入").isEnabled());
        });
    }
    }

    TEST_F(DirectoryFilesTest, TellsWhatFileItCannotRead) {
        open(DirectoryKind::department);
        const std::string path = freshFolder() + "/directory.csv";
        std::ofstream(path) << "名称\n仓库\n";
        {
            const NextModal chooser([&](QWidget& dialog) { giveFile(dialog, path); });
            choose("导入...");
        }
        EXPECT_EQ(books.messages().onlyNotice().text,
                  "没有读入文件“" + path + "”。\n第 1 行:没有标题行。标题行中应有“编码”。");
    }

    }  // namespace
    }  // namespace chengheng
