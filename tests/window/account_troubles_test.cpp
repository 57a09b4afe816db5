#include <QApplication>
#include <QListView>
#include <QTimer>

#include "tests/support/told_failures.h"
#include "tests/window/account_fixture.h"

using namespace chengheng;

TEST_F(AccountWindowTest, OpensWhereAnAccountIsUsedAfterARefusalBecauseOfIt) {
    addSomeAccounts();
    books.use(UsePlace::posted, "1001");
    open();
    in("增加", [&](const Hands& hands) {
        EXPECT_FALSE(hands.button("usedButton").isVisible());
        hands.add("100101", "人民币");
        expectRefusal("科目 1001 在[已记帐凭证]中已使用,不能增加下级科目!");
        ASSERT_TRUE(hands.button("usedButton").isVisible());
        const NextModal used([](QWidget& list) {
            EXPECT_EQ(list.windowTitle(), "科目使用情况");
            auto* places = list.findChild<QListView*>();
            EXPECT_EQ(places->model()->index(0, 0).data().toString(), "已记帐凭证 (1)");
            EXPECT_EQ(list.findChild<CVCF1*>()->model()->rowCount(), 1);
            QTest::keyClick(&list, Qt::Key_Escape);
        });
        hands.click("usedButton");
        hands.add("1122", "应收帐款");
        EXPECT_FALSE(hands.button("usedButton").isVisible());
    });
}

TEST_F(AccountWindowTest, ClosesWhenTheAccountWasDeletedElsewhereAndListsTheChartAgain) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(4);
    in("修改", [&](const Hands& hands) {
        books.run("DELETE Code WHERE sCode = '100202'");
        hands.type("sName", "中信银行");
        hands.click("confirm");
        EXPECT_FALSE(hands.isOpen());
    });
    EXPECT_EQ(books.messages().onlyNotice().text, "科目(100202)已经删除!");
    EXPECT_EQ(codes().size(), 5);
}

TEST_F(AccountWindowTest, KeepsWhatWasTypedOverAnAccountThatWasChangedElsewhere) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(4);
    in("修改", [&](const Hands& hands) {
        hands.type("sName", "中信银行");
        books.run("UPDATE Code SET sName = '中行', sHelp = 'ZH' WHERE sCode = '100202'");
        hands.click("confirm");
        EXPECT_EQ(books.messages().onlyNotice().text,
                  "科目(100202)已被其他操作员修改,没有保存。\n\n"
                  "科目名称:现在是“中行”,您输入的是“中信银行”\n助记码:现在是“ZH”\n\n"
                  "输入已保留,核对后可以再次确定。");
        ASSERT_TRUE(hands.isOpen());
        EXPECT_EQ(hands.text("sName"), "中信银行");
        EXPECT_EQ(hands.text("sHelp"), "ZH");
        books.messages().forget();
        hands.click("confirm");
        EXPECT_FALSE(hands.isOpen());
    });
    EXPECT_TRUE(books.messages().texts().empty());
    EXPECT_EQ(books.account("100202").sName, "中信银行");
    EXPECT_EQ(books.account("100202").sHelp, "ZH");
}

/// Closes the dialog that comes up where none should, so that the test ends, and fails it.
class NoModal {
  public:
    NoModal() {
        QObject::connect(&m_timer, &QTimer::timeout, [before = QApplication::activeModalWidget()] {
            QWidget* const opened = QApplication::activeModalWidget();
            if (opened == nullptr || opened == before || !opened->isVisible()) return;
            ADD_FAILURE() << "came up: " << opened->windowTitle().toStdString();
            opened->close();
        });
        m_timer.start(2);
    }

  private:
    QTimer m_timer;
};

TEST_F(AccountWindowTest, TellsOnceWhyItDoesNotOpenWhicheverReadingFails) {
    addSomeAccounts();
    open();
    for (const char* command : {"增加", "修改", "复制"}) {
        in(command, [](const Hands&) {});  // which leaves its statements prepared
        books.engine().failCall(0);
        int calls = 0;
        in(command, [&](const Hands&) { calls = books.engine().calls(); });
        ASSERT_GE(calls, 6);
        const NoModal nothing;
        for (int call = 1; call <= calls; ++call) {
            books.engine().failCall(call, Failure::full);
            window->choose(command);
            EXPECT_TRUE(books.engine().hasFailed());
            books.engine().failCall(0);
            EXPECT_THAT(books.messages().onlyNotice().text, tellsOf(Failure::full))
                << command << call;
            books.messages().forget();
        }
    }
}

TEST_F(AccountWindowTest, SaysOnceUntilItCanReadAgainThatItProposesNothing) {
    addSomeAccounts();
    open();
    in("增加", [&](const Hands& hands) {
        hands.edit("sCode").clear();
        for (const char* field : {"sCode", "sName"}) {
            const auto typeWhileNothingIsRead = [&] {
                books.engine().failCall(1, Failure::full);
                QTest::keyClick(&hands.edit(field), Qt::Key_2);
                EXPECT_TRUE(books.engine().hasFailed());
                books.engine().failCall(0);
            };
            typeWhileNothingIsRead();
            EXPECT_THAT(books.messages().onlyNotice().text, tellsOf(Failure::full));
            typeWhileNothingIsRead();
            EXPECT_EQ(books.messages().notices().size(), 1);
            QTest::keyClick(&hands.edit(field), Qt::Key_2);
            typeWhileNothingIsRead();
            EXPECT_EQ(books.messages().notices().size(), 2);
            QTest::keyClick(&hands.edit(field), Qt::Key_2);
            books.messages().forget();
        }
        EXPECT_EQ(hands.text("sHelp"), "22222");
    });
}

TEST_F(AccountWindowTest, ProposesNoCodeAfterASaveWhenTheTakenOnesCannotBeRead) {
    addSomeAccounts();
    open();
    in("增加", [&](const Hands& hands) {
        const auto addWithFailingCall = [&](int call, const char* code) {
            hands.type("sCode", code);
            hands.type("sName", code);
            books.engine().failCall(call, Failure::full);
            hands.click("confirm");
        };
        addWithFailingCall(0, "1101");
        addWithFailingCall(0, "1111");
        EXPECT_EQ(hands.text("sCode"), "1112");
        const int calls = books.engine().calls();
        addWithFailingCall(calls, "1121");
        EXPECT_TRUE(books.engine().hasFailed());
        EXPECT_TRUE(books.hasAccount("1121"));
        EXPECT_THAT(books.messages().onlyNotice().text, tellsOf(Failure::full));
        EXPECT_EQ(hands.text("sCode"), "");
        EXPECT_EQ(hands.text("sName"), "");
    });
}

TEST_F(AccountWindowTest, OffersToAddBesideAccountsWhoseTotalKeepsANewOneOut) {
    addSomeAccounts();
    books.use(UsePlace::sums, "100202");
    books.use(UsePlace::sums, "1002");
    books.use(UsePlace::sums, "2202");
    open();
    window->grid().setCurrentRow(1);
    in("增加", [this](const Hands& hands) {
        const QPushButton& offer = hands.button("addToTotals");
        EXPECT_EQ(offer.text(), "仍要增加:上级的余额只是下级的合计");
        EXPECT_FALSE(offer.isVisible());
        hands.add("220201", "甲公司");
        expectRefusal("科目 2202 在[总帐]中已使用,不能增加下级科目!");
        EXPECT_FALSE(offer.isVisible()) << "its balance is its own";
        hands.add("100203", "中国银行");
        expectRefusal("科目 1002 在[总帐]中已使用,不能增加下级科目!");
        EXPECT_TRUE(offer.isVisible());
        EXPECT_EQ(hands.focus(), "sCode");
        hands.type("sCode", "100204");
        EXPECT_FALSE(offer.isVisible()) << "another code, another refusal";
        hands.click("confirm");
        expectRefusal("科目 1002 在[总帐]中已使用,不能增加下级科目!");
        hands.click("addToTotals");
        EXPECT_FALSE(offer.isVisible());
        EXPECT_EQ(hands.text("sCode"), "100205");
        EXPECT_EQ(hands.focus(), "sCode");
    });
    EXPECT_TRUE(books.messages().texts().empty());
    EXPECT_EQ(books.account("100204").sName, "中国银行");
    EXPECT_EQ(window->currentCode(), "100204");
}
