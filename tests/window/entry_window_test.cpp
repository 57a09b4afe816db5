#include "auxiliary/window/entry_window.h"

#include <gtest/gtest.h>

#include "tests/window/auxiliary_fixture.h"
#include "tests/window/next_modal.h"

namespace chengheng {

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

TEST_F(AuxiliaryWindowTest, ShowsWhatASumComesToBesideItsField) {
    open();
    const NextModal dialog([](QWidget& record) {
        showActive(record);
        auto* money = record.findChild<QLineEdit*>("mMoney");
        ASSERT_NE(money, nullptr);
        money->setFocus();
        QTest::keyClicks(money, "=100*(1+13%)");
        const auto hints = record.findChildren<QLabel*>("sumHint");
        ASSERT_EQ(hints.size(), 1);
        EXPECT_EQ(hints.front()->text(), "= 113.00");
        EXPECT_TRUE(hints.front()->isVisible());
        // Without a display no field is told that it has lost the keyboard.
        QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(money, &left);
        EXPECT_FALSE(hints.front()->isVisible());
        money->clear();
        QTest::keyClick(&record, Qt::Key_Escape);
    });
    QTest::keyClick(window->focusWidget(), Qt::Key_N, Qt::ControlModifier);
    QCoreApplication::processEvents();
}

}  // namespace chengheng
