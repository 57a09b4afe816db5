#include "tests/window/account_fixture.h"

using namespace chengheng;

TEST_F(AccountWindowTest, GoesThroughTheChartByItsArrows) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(1);
    in("修改", [&](const Hands& hands) {
        hands.click("next");
        EXPECT_EQ(hands.text("sCode"), "100201");
        EXPECT_EQ(window->currentCode(), "100201");
        hands.click("last");
        EXPECT_EQ(hands.text("sCode"), "2202");
        EXPECT_FALSE(hands.tool("next").isEnabled());
        EXPECT_FALSE(hands.tool("last").isEnabled());
        hands.click("previous");
        EXPECT_EQ(hands.text("sCode"), "100202");
        hands.click("first");
        EXPECT_EQ(hands.text("sCode"), "1001");
        EXPECT_FALSE(hands.tool("previous").isEnabled());
    });
    EXPECT_TRUE(books.messages().texts().empty());
}

TEST_F(AccountWindowTest, AsksBeforeItsArrowsGiveUpWhatWasTyped) {
    addSomeAccounts();
    open();
    in("修改", [&](const Hands& hands) {
        hands.type("sName", "现金");
        books.messages().willAnswer(Answer::no);
        hands.click("next");
        EXPECT_EQ(hands.text("sCode"), "1001");
        EXPECT_EQ(hands.text("sName"), "现金");
        books.messages().willAnswer(Answer::yes);
        hands.click("next");
        EXPECT_EQ(hands.text("sCode"), "1002");
    });
    EXPECT_EQ(books.account("1001").sName, "库存现金");
    EXPECT_EQ(books.messages().questions().size(), 2);
}

TEST_F(AccountWindowTest, AsksBeforeEscapeGivesUpWhatWasTyped) {
    addSomeAccounts();
    open();
    in("增加", [&](const Hands& hands) {
        hands.type("sName", "现金");
        books.messages().willAnswer(Answer::no);
        QTest::keyClick(&hands.edit("sName"), Qt::Key_Escape);
        EXPECT_TRUE(hands.isOpen());
        books.messages().willAnswer(Answer::yes);
        QTest::keyClick(&hands.edit("sName"), Qt::Key_Escape);
        EXPECT_FALSE(hands.isOpen());
    });
}

TEST_F(AccountWindowTest, TakesOverSettingsOfTheAccountThatItsArrowsLeadToWhileAdding) {
    addSomeAccounts();
    open();
    in("增加", [](const Hands& hands) {
        hands.click("last");
        EXPECT_EQ(hands.text("sCode"), "2203");
        EXPECT_TRUE(hands.box("byUnit").isChecked());
        EXPECT_EQ(hands.list("sType").currentText(), "负债");
    });
}

TEST_F(AccountWindowTest, WalksItsFieldsWithEnterAndSavesInTheLast) {
    addSomeAccounts();
    open();
    in("增加", [](const Hands& hands) {
        hands.type("sCode", "1122");
        for (const char* name : {"sCode", "sName", "sType", "sPage"}) {
            if (QString(name) == "sName") hands.type("sName", "应收帐款");
            hands.pressWhereTheFocusIs(Qt::Key_Return);
        }
        EXPECT_EQ(hands.focus(), "sHelp");
        QTest::keyClick(&hands.edit("sHelp"), Qt::Key_Return);
    });
    EXPECT_TRUE(books.hasAccount("1122"));
}

TEST_F(AccountWindowTest, GoesOnModifyingItsAccountWhenTheOneItsArrowLeadsToIsGone) {
    addSomeAccounts();
    open();
    in("修改", [&](const Hands& hands) {
        books.run("DELETE Code WHERE sCode = '1002'");
        hands.click("next");
        EXPECT_EQ(books.messages().onlyNotice().text, "科目(1002)已经删除!");
        EXPECT_EQ(hands.text("sCode"), "1001");
        hands.type("sName", "现金");
        hands.click("confirm");
        EXPECT_FALSE(hands.isOpen());
    });
    EXPECT_EQ(books.account("1001").sName, "现金");
    EXPECT_EQ(codes(), (Texts{"1001", "100201", "10020101", "100202", "2202"}));
}

TEST_F(AccountWindowTest, CallsNoAccountDeletedThatItsArrowsCouldNotRead) {
    addSomeAccounts();
    open();
    in("修改", [&](const Hands& hands) {
        for (const int call : {1, 2}) {
            books.engine().failCall(call, Failure::full);
            hands.click("next");
            EXPECT_TRUE(books.engine().hasFailed());
            books.engine().failCall(0);
            const std::string text = books.messages().onlyNotice().text;
            EXPECT_FALSE(text.empty());
            EXPECT_EQ(text.find("已经删除"), text.npos);
            EXPECT_EQ(hands.text("sCode"), "1001");
            books.messages().forget();
        }
    });
}
