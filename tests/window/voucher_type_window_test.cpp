#include "tests/window/voucher_type_fixture.h"

#include "data/lookups/CGetData.h"
#include "screen/grid/CVCF1.h"
#include "screen/message_boxes.h"
#include "tests/window/next_modal.h"

using namespace chengheng;

namespace {

constexpr const char* unsaved = "当前输入尚未保存,是否放弃?";

}  // namespace

TEST_F(VoucherTypeWindowTest, OpensWithTheFirstTypeInItsForm) {
    open({receipt, "付 付款凭证 2 1002 1001", "转 转帐凭证 3 1001 1012", "记 记帐凭证 0"});
    EXPECT_EQ(window->windowTitle(), "凭证类别");
    EXPECT_EQ(leaves(), (Texts{"收 收款凭证", "付 付款凭证", "转 转帐凭证", "记 记帐凭证"}));
    EXPECT_EQ(selectedLeaf(), "收 收款凭证");
    EXPECT_EQ(shownInput(), "收 收款凭证 限制 借方必有 1001 1002");
    EXPECT_TRUE(isRestrictionOpen());
    EXPECT_FALSE(ok().isEnabled());
    EXPECT_TRUE(canDelete());
    EXPECT_FALSE(isMarkedUsed());
    EXPECT_TRUE(tree().hasFocus());
    press(Qt::Key_Down);
    EXPECT_EQ(shownInput(), "付 付款凭证 限制 贷方必有 1002 1001");
    press(Qt::Key_Down);
    EXPECT_EQ(shownInput(), "转 转帐凭证 限制 借贷必无 1001 1012");
    press(Qt::Key_Down);
    EXPECT_EQ(shownInput(), "记 记帐凭证");
    EXPECT_FALSE(isRestrictionOpen());
    press(Qt::Key_Home);
    EXPECT_TRUE(isRestrictionOpen());
}

TEST_F(VoucherTypeWindowTest, OpensForAnAdditionWithoutTypes) {
    open();
    EXPECT_EQ(shownInput(), " ");
    EXPECT_FALSE(isRestrictionOpen());
    EXPECT_FALSE(ok().isEnabled());
    EXPECT_FALSE(canDelete());
    EXPECT_TRUE(number().hasFocus());
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(VoucherTypeWindowTest, TellsWhyTheListCannotBeReadAndAdds) {
    open({receipt});
    ASSERT_NE(books.database.DBClose("books"), 0);
    ListFormWindowTest::open();
    const std::string notOpen = "帐套文件“books”没有打开。\n请先打开帐套。";
    EXPECT_EQ(said(), notOpen);
    EXPECT_FALSE(canDelete());
    EXPECT_TRUE(number().hasFocus());
    books.messages.forget();
    window.reset();
    EXPECT_EQ(books.messages.onlyNotice().text, notOpen) << "the cache cannot be read";
}

TEST_F(VoucherTypeWindowTest, HasTheCommandsOfItsSisters) {
    open();
    EXPECT_EQ(command("打印").shortcut(), QKeySequence("Ctrl+P"));
    EXPECT_EQ(command("增加").shortcut(), QKeySequence("Ctrl+N"));
    EXPECT_EQ(command("删除").shortcut(), QKeySequence("Ctrl+D"));
    Texts buttons;
    for (const QAction* action : window->findChild<QToolBar*>()->actions())
        if (!action->isSeparator()) buttons.push_back(action->iconText().toStdString());
    EXPECT_EQ(buttons, (Texts{"打印", "打印预览", "增加", "删除", "帮助", "退出"}));
    EXPECT_EQ(tree().objectName(), "Tree1");
}

TEST_F(VoucherTypeWindowTest, LabelsLeadToTheirFields) {
    open();
    const std::pair<const char*, QWidget*> labels[] = {{"类别(&U):", &number()},
                                                       {"名称(&M):", &name()},
                                                       {"科目一(&1):", &one()},
                                                       {"科目二(&2):", &two()}};
    for (const auto& [text, field] : labels) {
        bool isThere = false;
        for (const QLabel* label : window->findChildren<QLabel*>())
            isThere = isThere || (label->text() == text && label->buddy() == field);
        EXPECT_TRUE(isThere) << text;
    }
    EXPECT_EQ(restricted().text(), "限制");
    EXPECT_EQ(ok().text(), "确定");
    EXPECT_EQ(tree().accessibleName(), "凭证类别");
}

TEST_F(VoucherTypeWindowTest, TabGoesThroughEverythingInItsOrder) {
    open({receipt});
    type(name(), "收入");
    tree().setFocus();
    QStringList order;
    for (int step = 0; step < 10; ++step) {
        const QWidget* focused = window->focusWidget();
        order << focused->objectName() + focused->accessibleName();
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(order, (QStringList{"Tree1凭证类别", "sSign", "sSignName", "byLimit", "debitRequired",
                                  "sCode1", "选择科目一", "sCode2", "选择科目二", "ok"}))
        << order.join(' ').toStdString();
    type(name(), "收款凭证");
}

TEST_F(VoucherTypeWindowTest, EnablesItsButtonByAnEditOfAnyField) {
    open({receipt});
    const std::tuple<QLineEdit*, const char*, const char*> fields[] = {
        {&number(), "入", "收"},
        {&name(), "收入", "收款凭证"},
        {&one(), "1012", "1001"},
        {&two(), "", "1002"}};
    for (const auto& [field, other, before] : fields) {
        type(*field, other);
        EXPECT_TRUE(ok().isEnabled()) << other;
        type(*field, before);
        EXPECT_FALSE(ok().isEnabled()) << before;
    }
    QTest::keyClick(&radio("bothForbidden"), Qt::Key_Space);
    EXPECT_TRUE(ok().isEnabled());
    QTest::keyClick(&radio("debitRequired"), Qt::Key_Space);
    EXPECT_FALSE(ok().isEnabled());
    QTest::keyClick(&restricted(), Qt::Key_Space);
    EXPECT_TRUE(ok().isEnabled());
    for (QLineEdit* field : {&number(), &name()}) {
        const std::string before = field->text().toStdString();
        for (const char* nothing : {"", " ", "　"}) {
            type(*field, nothing);
            EXPECT_FALSE(ok().isEnabled()) << "without it nothing is saved";
        }
        type(*field, before.c_str());
        EXPECT_TRUE(ok().isEnabled());
    }
    press(Qt::Key_Return);
    EXPECT_FALSE(ok().isEnabled()) << "it is saved";
    EXPECT_EQ(books.stored(), Texts{"1 收 收款凭证 0"});
}

TEST_F(VoucherTypeWindowTest, UncheckingTheRestrictionClearsItAndCheckingItTakesTheFirstKind) {
    open({"转 转帐凭证 3 1001 1002"});
    QTest::keyClick(&restricted(), Qt::Key_Space);
    EXPECT_EQ(shownInput(), "转 转帐凭证");
    EXPECT_FALSE(isRestrictionOpen());
    QTest::keyClick(&restricted(), Qt::Key_Space);
    EXPECT_EQ(shownInput(), "转 转帐凭证 限制 借方必有 - -");
    EXPECT_TRUE(isRestrictionOpen());
    type(name(), "转帐");
    EXPECT_EQ(shownInput(), "转 转帐 限制 借方必有 - -") << "what was typed stays";
    books.messages.willAnswer(unsaved, Answer::yes);
    window->close();
    EXPECT_EQ(books.stored(), Texts{"1 转 转帐凭证 3 1001 1002"});
}

TEST_F(VoucherTypeWindowTest, ShowsNoRadioForAKindThatIsNoneAndWantsOneChosen) {
    open({"特 特种凭证 7 1001 1002"});
    EXPECT_EQ(shownInput(), "特 特种凭证 限制 1001 1002");
    EXPECT_FALSE(ok().isEnabled());
    type(name(), "特种");
    press(Qt::Key_Return);
    EXPECT_EQ(books.messages.onlyNotice().text, "请选择限制方式");
    EXPECT_EQ(books.messages.notices()[0].focusField, "debitRequired");
    EXPECT_EQ(books.stored(), Texts{"1 特 特种凭证 7 1001 1002"});
    radio("creditRequired").click();
    press(Qt::Key_Return);
    EXPECT_EQ(books.stored(), Texts{"1 特 特种 2 1001 1002"});
}

TEST_F(VoucherTypeWindowTest, DropsTheRadioOfTheTypeBefore) {
    open({receipt, "特 特种凭证 7 1001 1002", "记 记帐凭证 0"});
    clickLeaf(1);
    EXPECT_EQ(shownInput(), "特 特种凭证 限制 1001 1002");
    clickLeaf(0);
    clickLeaf(2);
    EXPECT_EQ(shownInput(), "记 记帐凭证");
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(shownInput(), " ");
}

TEST_F(VoucherTypeWindowTest, EnterLeavesOutFieldsThatAreClosed) {
    open();
    press(Qt::Key_Return);
    EXPECT_TRUE(name().hasFocus());
    press(Qt::Key_Return);
    EXPECT_TRUE(restricted().hasFocus());
    press(Qt::Key_Return);
    EXPECT_TRUE(restricted().hasFocus()) << "the last that can be used";
    press(Qt::Key_Space);
    for (const char* kind : {"debitRequired", "creditRequired", "bothForbidden"}) {
        press(Qt::Key_Return);
        EXPECT_TRUE(radio(kind).hasFocus()) << kind;
    }
    press(Qt::Key_Return);
    EXPECT_TRUE(one().hasFocus());
    press(Qt::Key_Return);
    EXPECT_TRUE(two().hasFocus());
    books.messages.willAnswer(unsaved, Answer::yes);
    window->close();
}

TEST_F(VoucherTypeWindowTest, OffersTheFirstLevelAccountsAsTheyAreNow) {
    open({receipt});
    books.run("INSERT Code (lId, sCode, sName, byGrade) VALUES(9, '1101', '交易性金融资产', 1)");
    type(two(), " 1002 ");
    NextModal operatorHands([](QWidget& picker) {
        EXPECT_EQ(picker.windowTitle(), "一级科目");
        const auto* grid = picker.findChild<CVCF1*>();
        ASSERT_EQ(grid->model()->columnCount(), 1);
        EXPECT_EQ(grid->model()->headerData(0, Qt::Horizontal).toString(), "一级科目");
        Texts rows;
        for (int row = 0; row < grid->model()->rowCount(); ++row)
            rows.push_back(grid->model()->index(row, 0).data().toString().toStdString());
        EXPECT_EQ(rows, (Texts{"1001  库存现金", "1002  银行存款", "1012  其他货币资金",
                               "1101  交易性金融资产"}));
        EXPECT_EQ(grid->currentRow(), 1) << "the one in the field";
        QTest::keyClick(picker.focusWidget(), Qt::Key_Down);
        QTest::keyClick(picker.focusWidget(), Qt::Key_Return);
    });
    QTest::keyClick(&choice("选择科目二"), Qt::Key_Space);
    EXPECT_EQ(shownInput(), "收 收款凭证 限制 借方必有 1001 1012");
    EXPECT_EQ(window->focusWidget(), &two());
    EXPECT_TRUE(ok().isEnabled());
    press(Qt::Key_Return);
    EXPECT_EQ(books.stored(), Texts{"1 收 收款凭证 1 1001 1012"});
}

TEST_F(VoucherTypeWindowTest, LeavesTheAccountWhereNoneIsChosen) {
    open({receipt});
    {
        NextModal operatorHands([](QWidget& picker) { QTest::keyClick(&picker, Qt::Key_Escape); });
        choice("选择科目一").click();
    }
    books.run("DELETE Code WHERE lId > 0");
    {
        NextModal operatorHands([](QWidget& picker) {
            EXPECT_EQ(picker.findChild<CVCF1*>()->model()->rowCount(), 0);
            QTest::keyClick(picker.focusWidget(), Qt::Key_Return);
        });
        choice("选择科目一").click();
    }
    EXPECT_EQ(shownInput(), "收 收款凭证 限制 借方必有 1001 1002");
    EXPECT_EQ(window->focusWidget(), &one());
    EXPECT_FALSE(ok().isEnabled());
}

TEST_F(VoucherTypeWindowTest, TellsWhyThereIsNoAccountToChoose) {
    open({receipt});
    ASSERT_NE(books.database.DBClose("books"), 0);
    choice("选择科目一").click();
    EXPECT_EQ(books.messages.onlyNotice().text, "帐套文件“books”没有打开。\n请先打开帐套。");
    EXPECT_EQ(shownInput(), "收 收款凭证 限制 借方必有 1001 1002");
}

TEST_F(VoucherTypeWindowTest, MarksAUsedTypeAndDeletesItNot) {
    books.run("INSERT AutoMain (lId, sSign) VALUES(1, '付')");
    open({receipt, "付 付款凭证 0"});
    clickLeaf(1);
    EXPECT_TRUE(isMarkedUsed());
    EXPECT_EQ(control<QLabel>("usedMark").text(), "已使用");
    EXPECT_FALSE(canDelete());
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(books.messages.texts().empty());
    clickLeaf(0);
    EXPECT_FALSE(isMarkedUsed());
    EXPECT_TRUE(canDelete());
    type(number(), "付1");
    books.run("INSERT RegMain (lId, sSign) VALUES(1, '付1')");
    press(Qt::Key_Return);
    EXPECT_TRUE(isMarkedUsed()) << "the mark follows a save";
    EXPECT_FALSE(canDelete());
}

TEST_F(VoucherTypeWindowTest, WantsALeafToBeSelectedForDeletion) {
    open({receipt});
    clickLeaf(0, Qt::ControlModifier);
    ASSERT_EQ(selectedLeaf(), "");
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(books.messages.onlyNotice().text, "请选择要删除的凭证类别");
}

TEST_F(VoucherTypeWindowTest, AsksAboutWhatIsStoredNotAboutWhatWasTyped) {
    open({receipt});
    type(number(), "入");
    type(name(), "收入");
    books.messages.willAnswer("是否删除当前凭证类别？\n\n类别:收\n\n名称:收款凭证", Answer::no);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(shownInput(), "入 收入 限制 借方必有 1001 1002");
    books.messages.willAnswer(unsaved, Answer::yes);
    window->close();
}

TEST_F(VoucherTypeWindowTest, AddsAfterTheLastIsDeleted) {
    open({receipt});
    books.messages.willAnswer(Answer::yes);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(books.stored(), Texts{});
    EXPECT_EQ(leaves(), Texts{});
    EXPECT_EQ(shownInput(), " ");
    EXPECT_FALSE(isRestrictionOpen());
    EXPECT_FALSE(canDelete());
    EXPECT_TRUE(number().hasFocus());
}

TEST_F(VoucherTypeWindowTest, RefusesFurtherKeysInAFullFieldAndCutsWhatIsPasted) {
    open();
    type(number(), "");
    QTest::keyClicks(&number(), "123");
    EXPECT_EQ(number().text(), "12");
    name().insert(QString(16, QChar(0x51ED)) + "证");
    settle();
    EXPECT_EQ(name().text(), QString(16, QChar(0x51ED)));
    EXPECT_EQ(books.messages.onlyNotice().text, "名称最多 16 个字,超出的部分已截去。");
    QTest::keyClick(&restricted(), Qt::Key_Space);
    one().setFocus();
    QTest::keyClicks(&one(), "12345678901234567");
    EXPECT_EQ(one().text().size(), 16);
    books.messages.willAnswer(unsaved, Answer::yes);
    window->close();
}

TEST_F(VoucherTypeWindowTest, ReadsTheHostsCacheAgainWhenItGoes) {
    open({receipt});
    EXPECT_TRUE(CGetData::m_csaSignTable.empty());
    window.reset();
    EXPECT_EQ(CGetData::m_csaSignTable, Texts{"收"});
    EXPECT_EQ(CGetData::m_csaSignNameTable, Texts{"收款凭证"});
}
