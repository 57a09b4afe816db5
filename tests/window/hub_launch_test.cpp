#include <QApplication>
#include <set>

#include "accounts/window/CNbCwBursarDlg.h"
#include "opening/window/CNbCwBegleftDlg.h"
#include "screen/dialog_templates.h"
#include "settle/window/CNbCwSettleDlg.h"
#include "tests/window/hub_fixture.h"
#include "tests/window/next_modal.h"
#include "vouchertype/window/voucher_type_window.h"

using namespace chengheng;

TEST_F(HubTest, OpensTheDivisionOfWork) {
    run("INSERT UserAuth VALUES(5, 5, 'N')");
    OpenHub hub;
    hub.show();
    NextModal operatorHands([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "财务分工");
        window.close();
    });
    hub.clickRegion(32776);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, OpensTheSettlementMethods) {
    OpenHub hub;
    hub.show();
    NextModal operatorHands([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "结算方式");
        window.close();
    });
    hub.clickRegion(32778);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, OpensTheCurrencies) {
    OpenHub hub;
    hub.show();
    NextModal operatorHands(closeCurrencies);
    hub.clickRegion(200);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, OpensTheOpeningBalances) {
    OpenHub hub;
    hub.show();
    NextModal operatorHands([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "期初余额录入");
        window.close();
    });
    hub.clickRegion(298);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, LetsOnlySupervisorsDivideWork) {
    logOn(0);
    OpenHub hub;
    hub.show();
    hub.clickRegion(32776);
    const Notice notice = m_messages.onlyNotice();
    EXPECT_EQ(notice.text, "你没有[主管]权限!");
    EXPECT_EQ(notice.icon, MessageIcon::stop);
    EXPECT_EQ(notice.caption, "澄恒财务软件");
}

TEST_F(HubTest, OpensNothingBehindARegionWhoseRightIsRefused) {
    logOn(0);
    run(formatSql("INSERT UserAuth VALUES(5, 5, '%s')", std::string(255, 'N')));
    const std::pair<int, const char*> refusals[] = {{32775, "你没有[会计科目设置]权限!"},
                                                    {200, "你没有[外币设置]权限!"},
                                                    {298, "你没有[期初余额录入]权限!"},
                                                    {32777, "你没有[凭证类别设置]权限!"},
                                                    {32778, "你没有[结算方式设置]权限!"}};
    OpenHub hub;
    hub.show();
    for (const auto& [command, text] : refusals) {
        hub.clickRegion(command);
        EXPECT_EQ(m_messages.onlyNotice().text, text);
        m_messages.forget();
    }
}

TEST_F(HubTest, TellsWhereForeignCurrencyIsSwitchedOn) {
    m_parameters.bFgn = 0;
    OpenHub hub;
    hub.show();
    hub.clickRegion(200);
    const Notice notice = m_messages.onlyNotice();
    EXPECT_EQ(notice.text,
              "该帐套没有设置外币核算,请到“帐套管理”->“帐套参数调整”中设置完后再使用该功能!");
    EXPECT_EQ(notice.icon, MessageIcon::information);
}

TEST_F(HubTest, LeadsToThePresetWizardWithoutVoucherTypes) {
    OpenHub hub;
    hub.show();
    NextModal operatorHands(closePresets);
    hub.clickRegion(32777);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, LeadsToTheVoucherTypesWhenThereIsOne) {
    run("INSERT Sign (lId) VALUES(1)");
    OpenHub hub;
    hub.show();
    NextModal operatorHands([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "凭证类别");
        window.close();
    });
    hub.clickRegion(32777);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, OpensNoVoucherTypesAndSaysNothingWithoutADatabase) {
    logOn(1, {}, "others");
    OpenHub hub;
    hub.show();
    hub.clickRegion(32777);
    EXPECT_TRUE(m_messages.texts().empty());
}

TEST_F(HubTest, GivesEachDialogThatTheHostKnowsANumberOfItsOwn) {
    EXPECT_EQ(OpenHub().templateNumber(), 1170);
    EXPECT_EQ(CNbCwBursarDlg(nullptr).templateNumber(), 124);
    EXPECT_EQ(CNbCwBegleftDlg(nullptr).templateNumber(), 125);
    EXPECT_EQ(VoucherTypeWindow(nullptr).templateNumber(), 983);
    EXPECT_EQ(CNbCwSettleDlg(nullptr).templateNumber(), 1034);
    const std::set<int> numbers(dialog_templates::all.begin(), dialog_templates::all.end());
    EXPECT_EQ(numbers.size(), dialog_templates::all.size()) << "a number occurs twice";
}

TEST_F(HubTest, HasAChartOfAccountsThatTheHostCanOpenByItself) {
    CNbCwBursarDlg dialog(nullptr);
    EXPECT_EQ(dialog.DoModal(), QDialog::Rejected);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(m_messages.onlyNotice().text, "分类数据为空!");
}
