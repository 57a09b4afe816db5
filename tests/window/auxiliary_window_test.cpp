#include "auxiliary/window/auxiliary_window.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QToolBar>
#include <optional>

#include "data/lookups/cached_records.h"
#include "session/host_messages.h"
#include "tests/support/entry_books.h"
#include "tests/window/grid_window.h"
#include "tests/window/next_modal.h"

namespace chengheng {
namespace {

using EntryTexts = std::vector<std::string>;

/// The window of a member, whose inside a test can reach.
class OpenAuxiliary : public AuxiliaryWindow {
  public:
    using AuxiliaryWindow::AuxiliaryWindow;

    CVCF1& entries() const { return *findChild<CVCF1*>("entries"); }
    CVCF1& totals() const { return *findChild<CVCF1*>("totals"); }
    QLineEdit& filter() const { return *findChild<QLineEdit*>("filter"); }
    QComboBox& accounts() const { return *findChild<QComboBox*>("lCodeId"); }
    std::string label(const char* name) const {
        return findChild<QLabel*>(QString::fromUtf8(name))->text().toStdString();
    }
    QAction& command(const char* text) const {
        for (QAction* action : findChild<QToolBar*>()->actions())
            if (action->text() == QString::fromUtf8(text)) return *action;
        throw std::runtime_error(text);
    }
    void choose(const char* text) {
        command(text).trigger();
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
};

EntryTexts rowsOf(const CVCF1& grid) {
    EntryTexts rows;
    for (int row = 0; row < grid.model()->rowCount(); ++row) {
        std::string& text = rows.emplace_back();
        for (int column = 0; column < grid.model()->columnCount(); ++column)
            text += (column > 0 ? "|" : "") +
                    grid.model()->index(row, column).data().toString().toStdString();
    }
    return rows;
}

/// Puts a text into a field of a dialog and leaves it.
void enter(QWidget& dialog, const char* field, const char* text) {
    auto* edit = dialog.findChild<QLineEdit*>(QString::fromLatin1(field));
    ASSERT_NE(edit, nullptr) << field;
    edit->setFocus();
    edit->selectAll();
    edit->insert(QString::fromUtf8(text));
}

void click(QWidget& dialog, const char* button) {
    for (auto* each : dialog.findChildren<QPushButton*>())
        if (each->text() == QString::fromUtf8(button)) return each->click();
    FAIL() << button;
}

class AuxiliaryWindowTest : public testing::Test {
  protected:
    void add(int which, double money) {
        AuxiliaryEntry entry = EntryBooks::entry(member, which, money);
        ASSERT_EQ(books.service(member).add(books.account(member), entry), Outcome::done);
    }
    void open(bool isBrowsing = false) {
        window.emplace(member, accountCode(member), isBrowsing, nullptr);
        showActive(*window);
        QCoreApplication::processEvents();
    }
    EntryTexts rows() const { return rowsOf(window->entries()); }

    EntryBooks books{":memory:"};
    HostMessages installed{books.messages()};
    BookLookups lookups{"books"};
    const AuxiliaryMember& member = memberOf(AuxiliaryKind::unit);
    std::optional<OpenAuxiliary> window;
};

}  // namespace

TEST_F(AuxiliaryWindowTest, ShowsTheEntriesOfTheAccountAndWhatTheyAddUpTo) {
    add(1, 1234.5);
    add(2, 100);
    open();
    EXPECT_EQ(window->windowTitle().toStdString(), "单位往来期初");
    EXPECT_EQ(rows(), (EntryTexts{"2025-12-31|记-0007|期初|甲公司|借|1,234.50||",
                                  "2025-12-31|记-0007|期初|乙公司|借|100.00||"}));
    EXPECT_EQ(window->label("count"), "共 2 笔");
    EXPECT_EQ(window->label("sums"), "合计:1,334.50  外币合计:0.00  数量合计:0.00000");
    EXPECT_EQ(window->label("posted"), "科目期初余额:1,334.50  外币合计:0.00  数量合计:0.00000");
    EXPECT_EQ(window->label("difference"), "");
    EXPECT_EQ(window->entries().currentRow(), 0);
    EXPECT_TRUE(window->entries().hasFocus());
    EXPECT_EQ(window->accounts().currentText().toStdString(), "2007  科目2007");
}

TEST_F(AuxiliaryWindowTest, ShowsADifferenceFromTheAccountInRed) {
    add(1, 100);
    books.books().run("UPDATE AccSum SET mBegin = 90");
    open();
    EXPECT_TRUE(window->label("difference").starts_with("差额:10.00"));
}

TEST_F(AuxiliaryWindowTest, HasAToolBarOfTenButtons) {
    open();
    EntryTexts texts;
    for (const QAction* action : window->findChild<QToolBar*>()->actions())
        if (!action->isSeparator()) texts.push_back(action->text().toStdString());
    EXPECT_EQ(texts, (EntryTexts{"增加", "修改", "删除", "撤销", "重做", "查找", "刷新", "打印",
                                 "打印预览", "退出"}));
}

TEST_F(AuxiliaryWindowTest, AddsAnEntryByTheKeyboard) {
    open();
    {
        const NextModal dialog([](QWidget& record) {
            EXPECT_EQ(record.windowTitle().toStdString(), "单位期初——添加记录");
            showActive(record);
            EXPECT_EQ(record.focusWidget()->objectName(), "dtDate");
            for (const char* text : {"", "", "", "货款", "U2", "88.5"}) {
                QWidget* field = record.focusWidget();
                if (std::string_view(text) == "货款")
                    qobject_cast<QLineEdit*>(field)->insert(QString::fromUtf8(text));
                else
                    QTest::keyClicks(field, QString::fromLatin1(text));
                QTest::keyClick(field, Qt::Key_Return);
            }
            auto* unit = record.findChild<QLineEdit*>("lEnterId");
            // Without a display no field is told that it has lost the keyboard.
            QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason);
            QApplication::sendEvent(unit, &left);
            EXPECT_EQ(unit->text().toStdString(), "乙公司");
            EXPECT_EQ(record.focusWidget()->objectName(), "mFgn");
            QTest::keyClick(record.focusWidget(), Qt::Key_Return);
            QTest::keyClick(record.focusWidget(), Qt::Key_Return);
        });
        QTest::keyClick(window->focusWidget(), Qt::Key_N, Qt::ControlModifier);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(rows(), (EntryTexts{"2025-12-31||货款|乙公司|借|88.50||"}));
    EXPECT_TRUE(window->label("posted").starts_with("科目期初余额:88.50"));
    EXPECT_TRUE(books.messages().texts().empty());
    EXPECT_TRUE(books.agree(member));
}

TEST_F(AuxiliaryWindowTest, GoesThroughTheRecordByTheTabKey) {
    open();
    const NextModal dialog([](QWidget& record) {
        showActive(record);
        QStringList names;
        for (int step = 0; step < 12 && !names.contains(QStringLiteral("dAmt")); ++step) {
            QWidget* focused = record.focusWidget();
            auto* button = qobject_cast<QAbstractButton*>(focused);
            names << (button ? button->text() : focused->objectName());
            QTest::keyClick(focused, Qt::Key_Tab);
        }
        // Only where no display tells a button of the keyboard is the unchosen one a stop, too.
        names.removeAll(QString::fromUtf8("贷方"));
        EXPECT_EQ(names.join(' ').toStdString(),
                  "dtDate DATE sSign lNumber sDigest lEnterId VIEW 借方 mMoney mFgn dAmt");
        click(record, "取消");
    });
    window->choose("增加");
}

TEST_F(AuxiliaryWindowTest, KeepsARefusedEntryOpenAtItsField) {
    open();
    books.messages().whileShown([](const std::string&) {});
    {
        const NextModal dialog([](QWidget& record) {
            click(record, "确定");
            EXPECT_EQ(record.focusWidget()->objectName(), "mMoney");
            enter(record, "mMoney", "5");
            click(record, "确定");
            EXPECT_EQ(record.focusWidget()->objectName(), "sDigest");
            enter(record, "sDigest", "期初");
            enter(record, "lEnterId", "无名公司");
            click(record, "确定");
            EXPECT_EQ(record.focusWidget()->objectName(), "lEnterId");
            click(record, "取消");
        });
        window->choose("增加");
    }
    EXPECT_EQ(books.messages().texts(),
              (EntryTexts{"金额不能为空", "摘要不能为空", "该单位信息不存在"}));
    EXPECT_TRUE(rows().empty());
}

TEST_F(AuxiliaryWindowTest, ChoosesFromTheDirectoryByItsButton) {
    open();
    {
        const NextModal dialog([](QWidget& record) {
            enter(record, "mMoney", "5");
            enter(record, "sDigest", "期初");
            {
                const NextModal picker([](QWidget& list) {
                    EXPECT_EQ(rowsOf(*list.findChild<CVCF1*>()),
                              (EntryTexts{"U1|甲公司", "U2|乙公司"}));
                    auto* wanted = list.findChild<QLineEdit*>();
                    for (const auto& [typed, rows] :
                         {std::pair{"jgs", EntryTexts{"U1|甲公司"}},
                          std::pair{"u2", EntryTexts{"U2|乙公司"}},
                          std::pair{"司", EntryTexts{"U1|甲公司", "U2|乙公司"}},
                          std::pair{"zgs", EntryTexts{}},
                          std::pair{"YG", EntryTexts{"U2|乙公司"}}}) {
                        wanted->setText(QString::fromUtf8(typed));
                        EXPECT_EQ(rowsOf(*list.findChild<CVCF1*>()), rows) << typed;
                    }
                    click(list, "确定");
                });
                click(record, "VIEW");
            }
            EXPECT_EQ(record.findChild<QLineEdit*>("lEnterId")->text().toStdString(), "乙公司");
            click(record, "确定");
        });
        window->choose("增加");
    }
    EXPECT_EQ(rows(), (EntryTexts{"2025-12-31||期初|乙公司|借|5.00||"}));
}

TEST_F(AuxiliaryWindowTest, OpensNoEmptyListWhenTheDirectoryCannotBeRead) {
    open();
    {
        const NextModal dialog([this](QWidget& record) {
            books.books().engine().failCall(2);
            click(record, "VIEW");
            books.books().engine().failCall(0);
            click(record, "取消");
        });
        window->choose("增加");
    }
    EXPECT_EQ(books.messages().texts().size(), 1u);
}

TEST_F(AuxiliaryWindowTest, StaysInTheFieldWhosePickWasGivenUp) {
    books.books().run("UPDATE Enter SET sEnterName = '甲公司' WHERE lId = 2");
    open();
    {
        const NextModal dialog([](QWidget& record) {
            enter(record, "mMoney", "5");
            enter(record, "sDigest", "期初");
            enter(record, "lEnterId", "甲公司");
            record.findChild<QLineEdit*>("mFgn")->setFocus();
            {
                const NextModal picker([](QWidget& list) { click(list, "取消"); });
                click(record, "确定");
            }
            EXPECT_EQ(record.focusWidget()->objectName(), "lEnterId");
            click(record, "取消");
        });
        window->choose("增加");
    }
    EXPECT_EQ(books.messages().texts(), EntryTexts{});
}

TEST_F(AuxiliaryWindowTest, ModifiesTheEntryUnderADoubleClickAndUndoesIt) {
    add(1, 10);
    add(2, 20);
    open();
    window->entries().setCurrentRow(1);
    {
        const NextModal dialog([](QWidget& record) {
            EXPECT_EQ(record.windowTitle().toStdString(), "单位期初——修改记录");
            EXPECT_EQ(record.findChild<QLineEdit*>("mMoney")->text().toStdString(), "20.00000");
            enter(record, "mMoney", "25");
            for (auto* direction : record.findChildren<QRadioButton*>())
                if (direction->text() == QString::fromUtf8("贷方")) direction->click();
            click(record, "确定");
        });
        QTest::keyClick(&window->entries(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(rows()[1], "2025-12-31|记-0007|期初|乙公司|贷|25.00||");
    EXPECT_EQ(window->entries().currentRow(), 1);
    EXPECT_EQ(books.auxiliary(member, 2), allPeriods("-25"));
    window->choose("撤销");
    EXPECT_EQ(rows()[1], "2025-12-31|记-0007|期初|乙公司|借|20.00||");
    EXPECT_FALSE(window->command("撤销").isEnabled());
    window->choose("重做");
    EXPECT_EQ(books.auxiliary(member, 2), allPeriods("-25"));
}

TEST_F(AuxiliaryWindowTest, WritesWhatWasTypedByASecondConfirmAfterAnothersChangeWasTold) {
    add(1, 10);
    open();
    const AuxiliaryEntry entry = books.stored(member).at(0);
    AuxiliaryEntry theirs = entry;
    theirs.content.money = 11;
    ASSERT_EQ(books.service(member).modify(books.account(member), entry, theirs), Outcome::done);
    {
        const NextModal dialog([this](QWidget& record) {
            enter(record, "mMoney", "25");
            click(record, "确定");
            EXPECT_EQ(books.messages().onlyNotice().text,
                      "该记录已被其他工作站修改,本次操作没有进行,列表已重新读入。");
            EXPECT_EQ(record.findChild<QLineEdit*>("mMoney")->text().toStdString(), "25.00000");
            click(record, "确定");
        });
        window->choose("修改");
    }
    EXPECT_EQ(rows(), (EntryTexts{"2025-12-31|记-0007|期初|甲公司|借|25.00||"}));
    EXPECT_EQ(books.auxiliary(member, 1), allPeriods("25"));
}

TEST_F(AuxiliaryWindowTest, DeletesAfterAskingAndStandsOnTheNextEntry) {
    add(1, 10);
    add(2, 20);
    open();
    books.messages().willAnswer("确定删除吗?", Answer::yes);
    window->choose("删除");
    EXPECT_EQ(rows(), (EntryTexts{"2025-12-31|记-0007|期初|乙公司|借|20.00||"}));
    EXPECT_EQ(window->entries().currentRow(), 0);
    books.messages().willAnswer("确定删除吗?", Answer::yes);
    window->choose("删除");
    books.messages().forget();
    window->choose("删除");
    EXPECT_EQ(books.messages().onlyNotice().text, "请先选中要删除的行");
    books.messages().forget();
    window->choose("修改");
    EXPECT_EQ(books.messages().onlyNotice().text, "请先选择要修改的行!");
}

TEST_F(AuxiliaryWindowTest, KeepsStoredTextsWholeThatAreLongerThanAField) {
    const std::string summary(70, 'x');
    const std::string name(65, 'y');
    add(1, 10);
    books.books().run(formatSql("UPDATE Enter SET sEnterName = '%s' WHERE lId = 1", name));
    books.books().run(formatSql("UPDATE RegSub SET sDigest = '%s'", summary));
    open();
    {
        const NextModal dialog([&](QWidget& record) {
            EXPECT_EQ(record.findChild<QLineEdit*>("sDigest")->text().toStdString(), summary);
            EXPECT_EQ(record.findChild<QLineEdit*>("lEnterId")->text().toStdString(), name);
            enter(record, "mMoney", "25");
            click(record, "确定");
        });
        window->choose("修改");
    }
    EXPECT_EQ(rows(), (EntryTexts{"2025-12-31|记-0007|" + summary + "|" + name + "|借|25.00||"}));
    EXPECT_TRUE(books.messages().texts().empty());
}

TEST_F(AuxiliaryWindowTest, SaysWhatItCutsAndCutsNoDateNumberOrAmount) {
    open();
    {
        const NextModal dialog([this](QWidget& record) {
            enter(record, "sDigest", std::string(61, 'x').c_str());
            QCoreApplication::processEvents();
            EXPECT_EQ(record.findChild<QLineEdit*>("sDigest")->text().size(), 60);
            EXPECT_EQ(books.messages().onlyNotice().text, "摘要最多 60 个字,超出的部分已截去。");
            EXPECT_EQ(books.messages().onlyNotice().focusField, "sDigest");
            books.messages().forget();
            enter(record, "lEnterId", std::string(61, 'y').c_str());
            QCoreApplication::processEvents();
            EXPECT_EQ(books.messages().onlyNotice().text, "单位最多 60 个字,超出的部分已截去。");
            books.messages().forget();
            enter(record, "lEnterId", "甲公司");
            enter(record, "dtDate", "   2025-12-31   ");
            enter(record, "lNumber", "   7   ");
            enter(record, "mMoney", "                    1,000,000.25                    ");
            click(record, "确定");
        });
        window->choose("增加");
    }
    EXPECT_TRUE(books.messages().texts().empty());
    EXPECT_EQ(rows(), (EntryTexts{"2025-12-31|0007|" + std::string(60, 'x') +
                                  "|甲公司|借|1,000,000.25||"}));
    const NextModal dialog([this](QWidget& find) {
        enter(find, "sDigest", std::string(61, 'x').c_str());
        QCoreApplication::processEvents();
        EXPECT_EQ(books.messages().onlyNotice().text, "摘要最多 60 个字,超出的部分已截去。");
        enter(find, "mMoney", "                    1,000,000.25                    ");
        click(find, "确定");
    });
    window->choose("查找");
    EXPECT_EQ(window->entries().currentRow(), 0);
    EXPECT_EQ(books.messages().texts().size(), 1u);
}

TEST_F(AuxiliaryWindowTest, FiltersAndSortsByAnyColumn) {
    add(1, 30);
    add(2, 20);
    add(1, 10);
    open();
    window->entries().setCurrentRow(2);
    window->filter().insert(QString::fromUtf8("甲"));
    EXPECT_EQ(rows().size(), 2u);
    EXPECT_EQ(window->entries().currentRow(), 1);
    EXPECT_EQ(window->label("count"), "显示 2 笔,共 3 笔");
    EXPECT_TRUE(window->label("sums").starts_with("显示的合计:40.00"));
    window->filter().clear();
    const int money = 5;
    window->entries().horizontalHeader()->setSortIndicator(money, Qt::AscendingOrder);
    EXPECT_EQ(rows()[0], "2025-12-31|记-0007|期初|甲公司|借|10.00||");
    window->entries().horizontalHeader()->setSortIndicator(money, Qt::DescendingOrder);
    EXPECT_EQ(rows()[0], "2025-12-31|记-0007|期初|甲公司|借|30.00||");
}

TEST_F(AuxiliaryWindowTest, ListsATotalForEachUnitAndGoesToItsEntries) {
    add(1, 30);
    add(2, 20);
    add(1, 10);
    open();
    EXPECT_EQ(rowsOf(window->totals()),
              (EntryTexts{"甲公司|2|40.00|0.00|0.00000", "乙公司|1|20.00|0.00|0.00000"}));
    emit window->totals().doubleClicked(window->totals().model()->index(1, 0));
    EXPECT_EQ(rows(), (EntryTexts{"2025-12-31|记-0007|期初|乙公司|借|20.00||"}));
    EXPECT_EQ(window->findChild<QTabWidget*>()->currentIndex(), 0);
}

TEST_F(AuxiliaryWindowTest, KeepsThePlaceInBothListsWhenTheyAreReadAnew) {
    for (int count = 0; count < 60; ++count) add(1, 100 + count);
    for (int unit = 3; unit < 60; ++unit)
        books.books().run(formatSql(
            "INSERT INTO Enter (lId, lClassId, sEnterCode, sEnterName) VALUES (%d, 1, 'U%d', "
            "'单位%d')",
            unit, unit, unit));
    for (int unit = 3; unit < 60; ++unit) {
        AuxiliaryEntry entry = EntryBooks::entry(member, 1, unit);
        entry.content.of.unit = unit;
        entry.names.unit = "单位" + std::to_string(unit);
        ASSERT_EQ(books.service(member).add(books.account(member), entry), Outcome::done);
    }
    open();
    CVCF1& entries = window->entries();
    CVCF1& totals = window->totals();
    entries.setCurrentRow(80);
    entries.verticalScrollBar()->setValue(entries.verticalScrollBar()->value() + 5);
    window->findChild<QTabWidget*>()->setCurrentIndex(1);
    QCoreApplication::processEvents();
    totals.setCurrentRow(40);
    totals.verticalScrollBar()->setValue(totals.verticalScrollBar()->value() + 5);
    const int scrolled = entries.verticalScrollBar()->value();
    const int totalsScrolled = totals.verticalScrollBar()->value();
    // Another workstation deletes the first one of two entries above.
    const auto stored = books.stored(member);
    ASSERT_EQ(books.service(member).remove(books.account(member), stored.at(0)), Outcome::done);
    ASSERT_EQ(books.service(member).remove(books.account(member), stored.at(60)), Outcome::done);
    window->choose("刷新");
    EXPECT_EQ(entries.currentRow(), 78);
    EXPECT_EQ(entries.verticalScrollBar()->value(), scrolled - 2);
    EXPECT_EQ(totals.currentRow(), 39);
    EXPECT_EQ(totals.verticalScrollBar()->value(), totalsScrolled - 1);
    EXPECT_EQ(window->findChild<QTabWidget*>()->currentIndex(), 1);
}

TEST_F(AuxiliaryWindowTest, AddsUpTheTotalsOnlyWhenEntriesChange) {
    add(1, 30);
    add(2, 20);
    open();
    window->totals().setCurrentRow(1);
    const QSignalSpy resets(window->totals().model(), &QAbstractItemModel::modelReset);
    window->filter().insert(QString::fromUtf8("甲"));
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(window->totals().currentRow(), 1);
    books.messages().willAnswer("确定删除吗?", Answer::yes);
    window->choose("删除");
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(rowsOf(window->totals()), EntryTexts{"乙公司|1|20.00|0.00|0.00000"});
    EXPECT_EQ(window->totals().currentRow(), 0);
}

TEST_F(AuxiliaryWindowTest, FindsEntriesByWhatTheFindDialogHolds) {
    add(1, 30);
    add(2, 20);
    open();
    {
        const NextModal dialog([](QWidget& find) {
            EXPECT_EQ(find.windowTitle().toStdString(), "单位期初——查找");
            enter(find, "lEnterId", "乙");
            click(find, "确定");
        });
        window->choose("查找");
    }
    EXPECT_EQ(window->entries().currentRow(), 1);
    const NextModal dialog([](QWidget& find) {
        EXPECT_EQ(find.findChild<QLineEdit*>("lEnterId")->text().toStdString(), "乙");
        enter(find, "mMoney", "21");
        click(find, "确定");
    });
    window->choose("查找");
    EXPECT_EQ(books.messages().onlyNotice().text, "没有符合条件的数据!");
}

TEST_F(AuxiliaryWindowTest, OnlyLooksWhileBrowsing) {
    add(1, 30);
    open(true);
    EXPECT_EQ(window->findChild<QLineEdit*>("mode")->text().toStdString(), "浏览、只读");
    for (const char* text : {"增加", "修改", "删除", "撤销", "重做"})
        EXPECT_FALSE(window->command(text).isEnabled()) << text;
    for (const char* text : {"查找", "刷新", "打印", "打印预览", "退出"})
        EXPECT_TRUE(window->command(text).isEnabled()) << text;
    QTest::keyClick(&window->entries(), Qt::Key_Return);
    QTest::keyClick(&window->entries(), Qt::Key_Delete);
    QCoreApplication::processEvents();
    EXPECT_EQ(rows().size(), 1u);
    EXPECT_TRUE(books.messages().texts().empty());
}

TEST_F(AuxiliaryWindowTest, ChangesTheAccountWithoutLeaving) {
    books.opening().addAccounts({"3001"});
    books.opening().change("3001", "sAssBook = 'B'");
    add(1, 30);
    open();
    EXPECT_EQ(window->accounts().count(), 2);
    window->accounts().setCurrentIndex(1);
    emit window->accounts().activated(1);
    EXPECT_TRUE(rows().empty());
    EXPECT_EQ(window->label("posted"), "科目期初余额:0.00");
}

}  // namespace chengheng
