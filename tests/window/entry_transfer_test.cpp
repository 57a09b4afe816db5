#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QToolBar>
#include <fstream>
#include <optional>

#include "auxiliary/window/auxiliary_window.h"
#include "data/lookups/cached_records.h"
#include "session/host_messages.h"
#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"
#include "tests/window/grid_window.h"
#include "tests/window/next_modal.h"
#include "tests/window/plan_hands.h"

namespace chengheng {
namespace {

/// Opening entries that come from other programs, with the keyboard on the list.
class EntryTransferTest : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    void open(bool isBrowsing = false) {
        window.emplace(member, accountCode(member), isBrowsing, nullptr);
        showActive(*window);
        settle();
        grid = window->findChild<CVCF1*>("entries");
    }
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        if (!window->isActiveWindow()) showActive(*window);
        QTest::keyClick(window->focusWidget(), key, modifiers);
        settle();
    }
    QAction* command(const char* text) const {
        for (QAction* action : window->findChildren<QAction*>())
            if (action->text() == QString::fromUtf8(text)) return action;
        return nullptr;
    }
    void choose(const char* text) {
        ASSERT_NE(command(text), nullptr) << text;
        command(text)->trigger();
        settle();
    }
    /// Pastes, acting in the window that shows what would become of each row.
    void paste(const char* text, std::function<void(QWidget&)> act) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        const NextModal preview(std::move(act));
        press(Qt::Key_V, Qt::ControlModifier);
    }
    Texts rows() const {
        Texts rows;
        for (int row = 0; row < grid->model()->rowCount(); ++row)
            rows.push_back(cell(row, 2) + "|" + cell(row, 3) + "|" + cell(row, 5));
        return rows;
    }
    std::string cell(int row, int column) const {
        return grid->model()->index(row, column).data().toString().toStdString();
    }

    EntryBooks books{":memory:"};
    HostMessages installed{books.messages()};
    BookLookups lookups{"books"};
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unit);
    std::optional<AuxiliaryWindow> window;
    CVCF1* grid = nullptr;
};

constexpr const char* someRows = "金额\t摘要\t单位\t备注\n1,000\ta\tU1\tx\n-5\tb\t乙公司\t\n";

}  // namespace

TEST_F(EntryTransferTest, ShowsWhatPastedRowsBecomeAndWritesThemAsOneStep) {
    open();
    paste(someRows, [](QWidget& plan) {
        EXPECT_EQ(plan.windowTitle(), "粘贴期初明细");
        EXPECT_TRUE(hasLabelText(plan, "新增 2 行,拒绝 0 行。"));
        EXPECT_TRUE(hasLabelText(plan, "未使用的列:备注"));
        EXPECT_TRUE(hasLabelText(plan, "请核对后按“导入”,所有行将一次写入。"));
        const Texts cells{"2", "新增", "a", "甲公司", "借", "1,000", "", ""};
        for (int column = 0; column < 8; ++column)
            EXPECT_EQ(planCell(plan, 0, column), cells[static_cast<std::size_t>(column)]);
        EXPECT_EQ(planCell(plan, 1, 3), "乙公司");
        pressButton(plan, "导入");
    });
    const Texts pasted{"a|甲公司|1,000.00", "b|乙公司|-5.00"};
    EXPECT_EQ(rows(), pasted);
    EXPECT_EQ(grid->currentRow(), 0);
    EXPECT_EQ(window->focusWidget(), grid);
    EXPECT_TRUE(books.agree(member));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rows(), Texts{});
    EXPECT_FALSE(command("撤销")->isEnabled());
    EXPECT_TRUE(books.agree(member));
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(rows(), pasted);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rows(), Texts{}) << "with the ids that they have now";
    EXPECT_EQ(books.messages().texts(), Texts{});
}

TEST_F(EntryTransferTest, WritesNothingWhenARowIsRefused) {
    open();
    paste("金额\t摘要\t单位\n1\ta\tU1\nx\tb\tU1\n2\tc\t丙\n", [](QWidget& plan) {
        EXPECT_FALSE(buttonOf(plan, "导入").isEnabled());
        EXPECT_TRUE(hasLabelText(plan, "新增 1 行,拒绝 2 行。"));
        EXPECT_EQ(plan.findChild<CVCF1*>()->currentRow(), 1);
        EXPECT_EQ(planCell(plan, 1, 1), "拒绝");
        EXPECT_EQ(planCell(plan, 1, 6), "A3 金额");
        EXPECT_EQ(planCell(plan, 1, 7), "金额输入无效");
        EXPECT_EQ(planCell(plan, 2, 3), "丙");
        EXPECT_EQ(planCell(plan, 2, 7), "该单位信息不存在");
        QTest::keyClick(&plan, Qt::Key_Escape);
    });
    EXPECT_EQ(rows(), Texts{});
    EXPECT_FALSE(command("撤销")->isEnabled());
}

TEST_F(EntryTransferTest, PastesWhatItsOwnListCopies) {
    AuxiliaryEntry entry = EntryBooks::entry(member, 2, 1234.5, false);
    entry.content.foreign = 3;
    ASSERT_EQ(books.service(member).add(books.account(member), entry), Outcome::done);
    open();
    press(Qt::Key_C, Qt::ControlModifier);
    const std::string copied = QApplication::clipboard()->text().toStdString();
    EXPECT_EQ(copied, "2025-12-31\t记-0007\t期初\t乙公司\t贷\t1,234.50\t3.00\t\n");
    paste(copied.c_str(), [](QWidget& plan) {
        EXPECT_TRUE(
            hasLabelText(plan, "有 1 行与科目中已有的明细完全相同,可能是重复导入,请核对。"));
        EXPECT_EQ(planCell(plan, 0, 7), "与已有的明细相同");
        pressButton(plan, "导入");
    });
    const auto stored = books.stored(member);
    ASSERT_EQ(stored.size(), 2u);
    EXPECT_EQ(stored[0].content, stored[1].content);
    EXPECT_EQ(grid->currentRow(), 1);
}

TEST_F(EntryTransferTest, PastesIntoTheFilterAsIntoAnyField) {
    open();
    auto* filter = window->findChild<QLineEdit*>("filter");
    filter->setFocus();
    QApplication::clipboard()->setText(QString::fromUtf8("甲"));
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(filter->text().toStdString(), "甲");
    EXPECT_EQ(books.messages().texts(), Texts{});
}

TEST_F(EntryTransferTest, ShowsAddedEntriesWhateverTheFilterHides) {
    open();
    window->findChild<QLineEdit*>("filter")->setText("zzz");
    grid->setFocus();
    paste(someRows, [](QWidget& plan) { pressButton(plan, "导入"); });
    EXPECT_EQ(rows().size(), 2u);
}

TEST_F(EntryTransferTest, SaysThatThereIsNothingToPaste) {
    open();
    QApplication::clipboard()->setText("");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(books.messages().onlyNotice().text, "没有可以导入的内容。");
}

TEST_F(EntryTransferTest, ExportsAFileThatImportsAgain) {
    for (const int which : {2, 1, 2}) {
        AuxiliaryEntry entry = EntryBooks::entry(member, which, 10.5 * which);
        ASSERT_EQ(books.service(member).add(books.account(member), entry), Outcome::done);
    }
    const std::string path = freshFolder() + "/entries.csv";
    open();
    window->findChild<QLineEdit*>("filter")->setText("乙");
    {
        const NextModal chooser([&](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "导出期初明细");
            giveFile(dialog, path);
        });
        choose("导出...");
    }
    EXPECT_EQ(books.messages().onlyNotice().text, "期初明细已导出到“" + path + "”。");
    books.messages().forget();
    std::size_t listed = 0;
    books.messages().whileShown([&](const std::string&) { listed = rows().size(); });
    std::optional<NextModal> preview;
    {
        const NextModal chooser([&](QWidget& dialog) {
            giveFile(dialog, path);
            preview.emplace([&](QWidget& plan) {
                EXPECT_EQ(plan.windowTitle(), "导入期初明细");
                EXPECT_TRUE(hasLabelText(plan, QString::fromStdString("文件:" + path)));
                pressButton(plan, "导入");
            });
        });
        choose("导入...");
    }
    preview.reset();
    EXPECT_EQ(books.messages().onlyNotice().text, "导入完成:新增 2 笔期初明细。");
    EXPECT_EQ(listed, rows().size()) << "the list shows them before that is said";
    EXPECT_EQ(books.stored(member).size(), 5u) << "those that the filter showed";
    EXPECT_TRUE(books.agree(member));
}

TEST_F(EntryTransferTest, TellsWhyAFileCannotBeImported) {
    const std::string path = freshFolder() + "/other.csv";
    std::ofstream(path) << "甲,乙\n1,2\n";
    open();
    const NextModal chooser([&](QWidget& dialog) { giveFile(dialog, path); });
    choose("导入...");
    EXPECT_EQ(books.messages().onlyNotice().icon, MessageIcon::warning);
    EXPECT_EQ(rows(), Texts{});
}

TEST_F(EntryTransferTest, LeavesBooksForBrowsingAsTheyAre) {
    open(true);
    EXPECT_FALSE(command("粘贴")->isEnabled());
    EXPECT_FALSE(command("导入...")->isEnabled());
    EXPECT_TRUE(command("导出...")->isEnabled());
    QApplication::clipboard()->setText(QString::fromUtf8(someRows));
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(rows(), Texts{});
    EXPECT_EQ(books.messages().texts(), Texts{});
}

}  // namespace chengheng
