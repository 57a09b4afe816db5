#include "data/tables/accounts.h"
#include "tests/window/account_fixture.h"

using namespace chengheng;

TEST_F(AccountWindowTest, LeavesAMnemonicAloneThatTheOperatorHasTypedOrTakenOut) {
    addSomeAccounts();
    open();
    in("增加", [](const Hands& hands) {
        hands.type("sName", "应收帐款");
        EXPECT_EQ(hands.text("sHelp"), "YSZK");
        hands.type("sName", "应付帐款");
        EXPECT_EQ(hands.text("sHelp"), "YFZK2");
        hands.type("sHelp", "AB");
        hands.type("sName", "预付帐款");
        EXPECT_EQ(hands.text("sHelp"), "AB");
        hands.edit("sHelp").selectAll();
        QTest::keyClick(&hands.edit("sHelp"), Qt::Key_Delete);
        hands.type("sName", "预收帐款");
        EXPECT_EQ(hands.text("sHelp"), "");
    });
}

TEST_F(AccountWindowTest, FollowsTheClassOfTheAccountAboveUntilOneIsChosen) {
    addSomeAccounts();
    open();
    in("增加", [](const Hands& hands) {
        hands.type("sCode", "220201");
        EXPECT_EQ(hands.list("sType").currentText(), "负债");
        hands.type("sCode", "1503");
        EXPECT_EQ(hands.list("sType").currentText(), "资产");
        hands.type("sCode", "2203");
        EXPECT_EQ(hands.list("sType").currentText(), "负债");
        hands.choose("sType", "负债");
        hands.type("sCode", "1504");
        EXPECT_EQ(hands.list("sType").currentText(), "负债");
    });
}

TEST_F(AccountWindowTest, ProposesTheBoxesOfTheAccountAboveUntilTheyAreChanged) {
    addSomeAccounts();
    change("1002", [](_CodeInfo& account) {
        account.bBank = 1;
        account.sAssBook = "RE";
    });
    open();
    const auto boxes = [](const Hands& hands) {
        std::string ticked;
        for (const char* box : {"keepsForeign", "bAmount", "byUnit", "isJournal", "isBank"})
            if (hands.box(box).isChecked()) ticked += std::string(" ") + box;
        return ticked;
    };
    in("增加", [&](const Hands& hands) {
        EXPECT_EQ(boxes(hands), "");
        hands.type("sCode", "100203");
        EXPECT_EQ(boxes(hands), " isJournal isBank");
        hands.type("sCode", "10020201");
        EXPECT_EQ(boxes(hands), " keepsForeign");
        EXPECT_EQ(hands.list("byExchId").currentText(), "美元");
        EXPECT_TRUE(hands.list("byExchId").isEnabled());
        hands.type("sCode", "220201");
        EXPECT_EQ(boxes(hands), " byUnit");
        hands.tick("bAmount");
        hands.type("sCode", "100203");
        EXPECT_EQ(boxes(hands), " bAmount byUnit") << "the operator has decided";
    });
    window->grid().setCurrentRow(1);
    in("增加", [&](const Hands& hands) {
        EXPECT_EQ(boxes(hands), " isJournal isBank");
        hands.add("100203", "中国银行");
    });
    EXPECT_EQ(books.account("100203").bBank, 1);
    EXPECT_EQ(books.account("100203").sAssBook, "RE");
    in("修改", [&](const Hands& hands) {
        hands.type("sCode", "220201");
        EXPECT_EQ(boxes(hands), " isJournal isBank") << "an account that is there keeps its own";
    });
}

TEST_F(AccountWindowTest, SaysAtOnceWhatAnotherClassOfAUsedAccountMeans) {
    addSomeAccounts();
    books.use(UsePlace::posted, "1001");
    open();
    in("修改", [](const Hands& hands) {
        const QLabel& note = hands.label("classNote");
        EXPECT_FALSE(note.isVisible());
        hands.list("sType").setFocus();
        QTest::keyClick(&hands.list("sType"), Qt::Key_Down);
        ASSERT_EQ(hands.list("sType").currentText(), "负债");
        EXPECT_TRUE(note.isVisible());
        EXPECT_TRUE(note.text().startsWith("科目 1001 已经使用。改为“负债”后,"))
            << note.text().toStdString();
        EXPECT_GE(note.height(), note.heightForWidth(note.width())) << "all of it is in sight";
        hands.choose("sType", "资产");
        EXPECT_FALSE(note.isVisible());
        hands.choose("sType", "负债");
        hands.click("confirm");
        EXPECT_FALSE(hands.isOpen());
    });
    EXPECT_TRUE(books.messages().texts().empty());
    EXPECT_EQ(books.account("1001").sType, "负债");
}

TEST_F(AccountWindowTest, ForgetsWhatAClassMeansForTheAccountBefore) {
    addSomeAccounts();
    books.use(UsePlace::posted, "1001");
    open();
    in("修改", [this](const Hands& hands) {
        hands.choose("sType", "负债");
        books.messages().willAnswer(Answer::yes);
        hands.click("last");
        EXPECT_EQ(hands.list("sType").currentText(), "负债");
        EXPECT_FALSE(hands.label("classNote").isVisible());
    });
}

TEST_F(AccountWindowTest, OpensCurrencyAndUnitOnlyForWhatIsTicked) {
    addSomeAccounts();
    open();
    in("增加", [](const Hands& hands) {
        EXPECT_FALSE(hands.list("byExchId").isEnabled());
        EXPECT_FALSE(hands.edit("sUnit").isEnabled());
        hands.tick("keepsForeign");
        hands.tick("bAmount");
        EXPECT_TRUE(hands.list("byExchId").isEnabled());
        EXPECT_TRUE(hands.edit("sUnit").isEnabled());
        EXPECT_EQ(hands.list("byExchId").currentIndex(), -1);
    });
}

TEST_F(AccountWindowTest, ChoosesACurrencyInAListOfAllOfThem) {
    addSomeAccounts();
    open();
    in("增加", [](const Hands& hands) {
        hands.tick("keepsForeign");
        const NextModal picker([](QWidget& list) {
            EXPECT_EQ(list.windowTitle(), "选择币种");
            QTest::keyClick(list.findChild<CVCF1*>(), Qt::Key_Return);
        });
        hands.click("currencyBrowse");
        EXPECT_EQ(hands.list("byExchId").currentText(), "美元");
    });
}

TEST_F(AccountWindowTest, ShowsTheDirectoryBehindAnAuxiliaryBook) {
    addSomeAccounts();
    books.run("INSERT Dept (lId, sDeptCode, sDeptName) VALUES(1, '01', '销售部')");
    open();
    in("增加", [](const Hands& hands) {
        const NextModal picker([](QWidget& list) {
            EXPECT_EQ(list.windowTitle(), "部门目录");
            EXPECT_EQ(list.findChild<CVCF1*>()->model()->index(0, 1).data().toString(), "销售部");
            QTest::keyClick(&list, Qt::Key_Escape);
        });
        hands.click("byDepartmentBrowse");
    });
}

TEST_F(AccountWindowTest, HasAClassFromTheStartThoughNothingProposesOne) {
    open();
    in("增加", [](const Hands& hands) {
        EXPECT_EQ(hands.list("sType").currentText(), "资产");
        hands.type("sCode", "2202");
        EXPECT_EQ(hands.list("sType").currentText(), "负债");
        hands.type("sCode", "9001");
        EXPECT_EQ(hands.list("sType").currentText(), "负债");
    });
}

TEST_F(AccountWindowTest, TakesBlanksThatWereStoredForNoChange) {
    addSomeAccounts();
    change("1001", [](_CodeInfo& account) { account.sName = "库存现金  "; });
    open();
    in("修改", [](const Hands& hands) {
        QTest::keyClick(&hands.edit("sName"), Qt::Key_Escape);
        EXPECT_FALSE(hands.isOpen());
    });
    EXPECT_TRUE(books.messages().texts().empty());
}

TEST_F(AccountWindowTest, ListsTheClassesInTheOrderOfTheTabs) {
    addSomeAccounts();
    books.run("UPDATE zCodeClass SET lNum = 3 WHERE sClsName = '资产'");
    open();
    EXPECT_EQ(window->tabs().tabText(1), "负债");
    EXPECT_EQ(window->tabs().tabText(2), "资产");
    in("修改", [](const Hands& hands) {
        EXPECT_EQ(hands.list("sType").itemText(0), "负债");
        EXPECT_EQ(hands.list("sType").itemText(1), "资产");
    });
}

TEST_F(AccountWindowTest, PutsEveryInputOfTheMnemonicIntoCapitalsButNotWhatIsStored) {
    addSomeAccounts();
    change("1001", [](_CodeInfo& account) { account.sHelp = "kcxj"; });
    open();
    in("修改", [](const Hands& hands) {
        EXPECT_EQ(hands.text("sHelp"), "kcxj");
        QLineEdit& field = hands.edit("sHelp");
        QTest::keyClicks(&field, "a");
        EXPECT_EQ(hands.text("sHelp"), "KCXJA");
        field.setText("xj");
        EXPECT_EQ(hands.text("sHelp"), "XJ");
        field.setCursorPosition(1);
        QTest::keyClicks(&field, "bc");
        EXPECT_EQ(hands.text("sHelp"), "XBCJ");
    });
}
