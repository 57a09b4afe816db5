#include <QCheckBox>
#include <QComboBox>
#include <QListView>
#include <QToolButton>

#include "accounts/window/account_window.h"
#include "tests/window/chart_fixture.h"

using namespace chengheng;

namespace {

/// The account dialog as the operator sees it.
class Hands {
  public:
    explicit Hands(QWidget& window) : m_window(window) {}

    QLineEdit& edit(const char* name) const { return *m_window.findChild<QLineEdit*>(name); }
    QComboBox& list(const char* name) const { return *m_window.findChild<QComboBox*>(name); }
    QCheckBox& box(const char* name) const { return *m_window.findChild<QCheckBox*>(name); }
    QToolButton& tool(const char* name) const { return *m_window.findChild<QToolButton*>(name); }
    QPushButton& button(const char* name) const { return *m_window.findChild<QPushButton*>(name); }
    std::string text(const char* name) const { return edit(name).text().toStdString(); }
    void type(const char* name, const QString& text) const {
        edit(name).setFocus();
        edit(name).selectAll();
        if (text.isEmpty()) QTest::keyClick(&edit(name), Qt::Key_Delete);
        typeText(&edit(name), text);
    }
    void choose(const char* name, const QString& entry) const {
        list(name).setCurrentText(entry);
        emit list(name).activated(list(name).currentIndex());
    }
    void tick(const char* name) const { QTest::mouseClick(&box(name), Qt::LeftButton, {}, {8, 8}); }
    void click(const char* name) const {
        QTest::mouseClick(m_window.findChild<QAbstractButton*>(name), Qt::LeftButton);
    }
    void add(const QString& code, const QString& name) const {
        type("sCode", code);
        type("sName", name);
        click("confirm");
    }
    bool isOpen() const { return m_window.isVisible(); }
    /// Asks the dialog, not the application, whose focus comes later than the window.
    void pressWhereTheFocusIs(Qt::Key key) const { QTest::keyClick(m_window.focusWidget(), key); }
    std::string focus() const { return m_window.focusWidget()->objectName().toStdString(); }

  private:
    QWidget& m_window;
};

class AccountWindowTest : public ChartTest {
  protected:
    /// Runs a command that brings up a dialog, acts in it and closes it.
    void in(const char* command, std::function<void(const Hands&)> act) {
        const NextModal dialog([&](QWidget& shown) {
            title = shown.windowTitle().toStdString();
            act(Hands(shown));
            if (shown.isVisible())
                QTest::mouseClick(shown.findChild<QPushButton*>("cancel"), Qt::LeftButton);
        });
        window->choose(command);
    }
    void expectRefusal(const char* text) {
        const Notice notice = books.messages().onlyNotice();
        EXPECT_EQ(notice.text, text);
        EXPECT_EQ(notice.icon, MessageIcon::information);
        EXPECT_TRUE(notice.beep);
        books.messages().forget();
    }

    std::string title;
};

}  // namespace

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

TEST_F(AccountWindowTest, TellsWhyItDoesNotOpenWhenTheDatabaseFails) {
    addSomeAccounts();
    open();
    for (const char* command : {"修改", "复制"}) {
        books.engine().failCall(0);
        int calls = 0;
        in(command, [&](const Hands&) { calls = books.engine().calls(); });
        ASSERT_GE(calls, 6);
        // The last calls of a copy look for a free code, which is only proposed.
        for (int call = 1; call <= 4; ++call) {
            books.engine().failCall(call, Failure::full);
            window->choose(command);
            EXPECT_TRUE(books.engine().hasFailed());
            books.engine().failCall(0);
            EXPECT_FALSE(books.messages().onlyNotice().text.empty()) << command << call;
            books.messages().forget();
        }
    }
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
