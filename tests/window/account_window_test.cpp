#include "data/tables/accounts.h"
#include "tests/window/account_fixture.h"

using namespace chengheng;

TEST_F(AccountWindowTest, IsCalledAfterWhatItDoes) {
    addSomeAccounts();
    open();
    in("增加", [](const Hands& hands) {
        EXPECT_EQ(hands.button("confirm").text(), "确定");
        EXPECT_EQ(hands.button("cancel").text(), "取消");
    });
    EXPECT_EQ(title, "会计科目_增加");
    in("复制", [](const Hands&) {});
    EXPECT_EQ(title, "会计科目_增加");
    in("修改", [](const Hands& hands) {
        EXPECT_EQ(hands.button("confirm").text(), "修改");
        EXPECT_EQ(hands.button("cancel").text(), "返回");
    });
    EXPECT_EQ(title, "会计科目_修改");
}

TEST_F(AccountWindowTest, ProposesTheFirstFreeCodeBelowTheCurrentAccountAndItsClass) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(1);
    in("增加", [](const Hands& hands) {
        EXPECT_EQ(hands.text("sCode"), "100203");
        EXPECT_EQ(hands.list("sType").currentText(), "资产");
        EXPECT_EQ(hands.text("sName"), "");
    });
    window->OnCommand(chart_command::allAccounts + 2);
    in("增加", [](const Hands& hands) {
        EXPECT_EQ(hands.text("sCode"), "220201");
        EXPECT_EQ(hands.list("sType").currentText(), "负债");
    });
}

TEST_F(AccountWindowTest, StaysOpenAfterAnAdditionAndProposesTheNextCode) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(1);
    in("增加", [&](const Hands& hands) {
        hands.type("sName", "中国银行");
        EXPECT_EQ(hands.text("sHelp"), "ZGYH");
        hands.click("confirm");
        ASSERT_TRUE(hands.isOpen());
        EXPECT_EQ(window->currentCode(), "100203");
        EXPECT_EQ(hands.text("sCode"), "100204");
        EXPECT_EQ(hands.text("sName"), "");
        EXPECT_EQ(hands.text("sHelp"), "");
        EXPECT_EQ(hands.focus(), "sCode");
        EXPECT_EQ(hands.edit("sCode").selectedText(), "100204");
        hands.type("sName", "交通银行");
        hands.click("confirm");
    });
    EXPECT_TRUE(books.messages().texts().empty());
    EXPECT_EQ(codes(),
              (Texts{"1001", "1002", "100201", "10020101", "100202", "100203", "100204", "2202"}));
    EXPECT_TRUE(window->hasLabel("科目个数:8"));
    EXPECT_EQ(books.account("100204").sHelp, "JTYH");
}

TEST_F(AccountWindowTest, LeavesNothingOfTheLastAdditionChecked) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(1);
    in("增加", [&](const Hands& hands) {
        hands.choose("sPage", "外币数量式");
        hands.tick("keepsForeign");
        hands.choose("byExchId", "美元");
        hands.tick("bAmount");
        hands.type("sUnit", "吨");
        hands.tick("byPerson");
        hands.add("100203", "中国银行");
        EXPECT_EQ(hands.text("sCode"), "100204");
        EXPECT_EQ(hands.list("sPage").currentText(), "金额式");
        EXPECT_FALSE(hands.box("keepsForeign").isChecked());
        EXPECT_EQ(hands.list("byExchId").currentIndex(), -1);
        EXPECT_FALSE(hands.box("bAmount").isChecked());
        EXPECT_EQ(hands.text("sUnit"), "");
        EXPECT_FALSE(hands.box("byPerson").isChecked());
        hands.add("100204", "交通银行");
    });
    EXPECT_EQ(books.account("100203").byExchId, 1);
    EXPECT_EQ(books.account("100204").byExchId, 0);
    EXPECT_EQ(books.account("100204").sAssBook, "");
}

TEST_F(AccountWindowTest, PutsAnAdditionAtItsPlaceWithoutReadingTheChartAgain) {
    addSomeAccounts();
    open();
    int resets = 0;
    QObject::connect(window->grid().model(), &QAbstractItemModel::modelReset,
                     [&resets] { ++resets; });
    in("增加", [](const Hands& hands) { hands.add("1122", "应收帐款"); });
    EXPECT_EQ(window->currentCode(), "1122");
    EXPECT_EQ(window->grid().currentRow(), 5);
    EXPECT_EQ(resets, 0);
}

TEST_F(AccountWindowTest, LeavesTheListAloneWhenTheAdditionIsOfAnotherClass) {
    addSomeAccounts();
    open();
    window->OnCommand(chart_command::allAccounts + 2);
    in("增加", [](const Hands& hands) {
        hands.choose("sType", "资产");
        hands.add("1122", "应收帐款");
    });
    EXPECT_EQ(codes(), Texts{"2202"});
    EXPECT_TRUE(books.hasAccount("1122"));
}

TEST_F(AccountWindowTest, StaysOpenWithTheFocusOnTheFaultyField) {
    addSomeAccounts();
    open();
    in("增加", [&](const Hands& hands) {
        hands.add("", "名称");
        expectRefusal("必须输入科目编码");
        EXPECT_EQ(hands.focus(), "sCode");
        hands.add("10 1", "名称");
        expectRefusal("科目编码不能包含空格!");
        hands.add("1002", "名称");
        expectRefusal("科目编码不唯一");
        hands.add("300101", "名称");
        expectRefusal("必须先定义上级科目编码");
        hands.add("10010", "名称");
        expectRefusal("不符合科目编码规则");
        hands.add("1122", "");
        expectRefusal("必须输入科目名称");
        EXPECT_EQ(hands.focus(), "sName");
        hands.type("sHelp", "yfzk");
        EXPECT_EQ(hands.text("sHelp"), "YFZK");
        hands.add("1122", "名称");
        expectRefusal("助记码必须唯一");
        hands.type("sHelp", "");
        hands.tick("keepsForeign");
        hands.click("confirm");
        expectRefusal("请选择币种.");
        hands.choose("byExchId", "美元");
        hands.tick("bAmount");
        hands.click("confirm");
        expectRefusal("请输入计量单位.");
        EXPECT_EQ(hands.focus(), "sUnit");
        EXPECT_TRUE(hands.isOpen());
    });
    EXPECT_FALSE(books.hasAccount("1122"));
    EXPECT_EQ(codes().size(), 6);
}

TEST_F(AccountWindowTest, SavesEveryFieldThatItShows) {
    addSomeAccounts();
    open();
    in("增加", [](const Hands& hands) {
        hands.type("sCode", "1403");
        hands.type("sName", "原材料");
        hands.choose("sType", "资产");
        hands.choose("sPage", "数量金额式");
        hands.tick("keepsForeign");
        hands.choose("byExchId", "美元");
        hands.tick("bAmount");
        hands.type("sUnit", "吨");
        hands.tick("byDepartment");
        hands.tick("byProject");
        hands.tick("isJournal");
        hands.tick("isBank");
        hands.click("confirm");
    });
    const _CodeInfo account = books.account("1403");
    EXPECT_EQ(account.sName, "原材料");
    EXPECT_EQ(account.sType, "资产");
    EXPECT_EQ(account.sPage, "数量金额式");
    EXPECT_EQ(account.sHelp, "YCL");
    EXPECT_EQ(account.byExchId, 1);
    EXPECT_EQ(account.bAmount, 1);
    EXPECT_EQ(account.sUnit, "吨");
    EXPECT_EQ(account.sAssBook, "CDRE");
    EXPECT_EQ(account.byGrade, 1);
    EXPECT_EQ(account.bEnd, 1);
    EXPECT_EQ(window->cell(window->grid().currentRow(), 4), "部门项目");
}

TEST_F(AccountWindowTest, AsksAboutACodeThatDepartsFromItsCategory) {
    addSomeAccounts();
    open();
    in("增加", [&](const Hands& hands) {
        hands.type("sCode", "2001");
        hands.choose("sType", "资产");
        hands.type("sName", "短期借款");
        books.messages().willAnswer("科目编码首位和分类编号不符,接受此编码吗?", Answer::cancel);
        hands.click("confirm");
        EXPECT_EQ(hands.focus(), "sCode");
        EXPECT_FALSE(books.hasAccount("2001"));
        books.messages().willAnswer("科目编码首位和分类编号不符,接受此编码吗?", Answer::ok);
        hands.click("confirm");
    });
    EXPECT_TRUE(books.hasAccount("2001"));
}

TEST_F(AccountWindowTest, CopiesEverythingButCodeAndMnemonic) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(5);
    in("复制", [](const Hands& hands) {
        EXPECT_EQ(hands.text("sCode"), "2203");
        EXPECT_EQ(hands.text("sName"), "应付帐款");
        EXPECT_EQ(hands.text("sHelp"), "");
        EXPECT_EQ(hands.list("sType").currentText(), "负债");
        EXPECT_TRUE(hands.box("byUnit").isChecked());
        hands.click("confirm");
    });
    EXPECT_EQ(books.account("2203").sAssBook, "B");
}

TEST_F(AccountWindowTest, ModifiesTheCurrentAccountAndClosesAndShowsItInItsRow) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(4);
    in("修改", [](const Hands& hands) {
        EXPECT_EQ(hands.text("sCode"), "100202");
        EXPECT_TRUE(hands.box("keepsForeign").isChecked());
        EXPECT_EQ(hands.list("byExchId").currentText(), "美元");
        hands.type("sName", "中信银行");
        hands.tick("keepsForeign");
        hands.tick("byPerson");
        hands.click("confirm");
        EXPECT_FALSE(hands.isOpen());
    });
    EXPECT_EQ(window->currentCode(), "100202");
    EXPECT_EQ(window->cell(4, 2), "  中信银行");
    EXPECT_EQ(window->cell(4, 3), "");
    EXPECT_EQ(window->cell(4, 4), "个人往来");
}

TEST_F(AccountWindowTest, MovesAnAccountWhoseCodeWasChangedToItsNewPlace) {
    addSomeAccounts();
    open();
    window->grid().setCurrentRow(4);
    in("修改", [](const Hands& hands) { hands.add("100101", "备用金"); });
    EXPECT_EQ(codes(), (Texts{"1001", "100101", "1002", "100201", "10020101", "2202"}));
    EXPECT_EQ(window->grid().currentRow(), 1);
    EXPECT_TRUE(window->hasLabel("科目个数:6"));
}

TEST_F(AccountWindowTest, TakesAnAccountOffTheListOfAClassItHasLeft) {
    addSomeAccounts();
    open();
    window->OnCommand(chart_command::allAccounts + 2);
    in("修改", [](const Hands& hands) {
        hands.choose("sType", "资产");
        hands.click("confirm");
    });
    EXPECT_EQ(codes(), Texts{""});
    EXPECT_FALSE(window->isEnabled("修改"));
}
