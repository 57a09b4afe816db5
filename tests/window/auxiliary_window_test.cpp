#include "auxiliary/window/auxiliary_window.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>

#include "tests/window/auxiliary_fixture.h"
#include "tests/window/next_modal.h"

namespace chengheng {

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
