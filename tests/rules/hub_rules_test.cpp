#include <gtest/gtest.h>

#include <set>

#include "session/host_globals.h"
#include "setting/hub_functions.h"
#include "setting/hub_status.h"
#include "tests/support/recording_messages.h"

using namespace chengheng;

namespace {

class RecordedWindows final : public IHubWindows {
  public:
    void show(HubFunction function) override { shown.push_back(function); }
    int runPresetWizard() override { return 0; }

    std::vector<HubFunction> shown;
};

}  // namespace

TEST(HubLaunchArgument, WantsOnlyTheOpeningBalancesInAnyCase) {
    for (const char* argument :
         {"-ERPCONSOLE", "-ERPSINGLE", "-erpconsole", "-erpsingle", "-ErpSingle"}) {
        EXPECT_TRUE(opensOnlyOpeningBalances(argument)) << argument;
    }
}

TEST(HubLaunchArgument, MeansNothingWhenItIsAnyOtherText) {
    for (const char* argument :
         {"", "ERPSINGLE", "-ERPSINGLE ", " -ERPSINGLE", "-ERPSINGLEX", "-ERP", "/ERPSINGLE"}) {
        EXPECT_FALSE(opensOnlyOpeningBalances(argument)) << argument;
    }
}

TEST(HubRegions, AreSevenFunctionsWithCommandsAndPicturesOfTheirOwn) {
    std::set<int> commands;
    std::set<int> images;
    std::set<HubFunction> functions;
    for (const HubRegion& region : hubRegions) {
        commands.insert(region.command);
        images.insert(region.image);
        functions.insert(region.function);
    }
    EXPECT_EQ(commands, (std::set<int>{200, 298, 32774, 32775, 32776, 32777, 32778}));
    EXPECT_EQ(images, (std::set<int>{1302, 1303, 1304, 1305, 1306, 1308, 1309}));
    EXPECT_EQ(functions.size(), 7u);
}

TEST(HubDivide, OpensForASupervisorWithoutAskingForARight) {
    HostSession session({.logonUser = {1, 1, 1, 1, "王芳"}});
    RecordingMessages messages;
    RecordedWindows windows;
    HubFunctions(messages, windows).open(HubFunction::divide);
    EXPECT_EQ(windows.shown, std::vector{HubFunction::divide});
    EXPECT_TRUE(messages.texts().empty());
}

TEST(HubDivide, TellsAnyoneElseThatTheyAreNoSupervisor) {
    for (int manager : {0, 2, -1}) {
        HostSession session({.logonUser = {1, 1, 1, manager, "李明"}});
        RecordingMessages messages;
        RecordedWindows windows;
        HubFunctions(messages, windows).open(HubFunction::divide);
        EXPECT_TRUE(windows.shown.empty());
        const Notice notice = messages.onlyNotice();
        EXPECT_EQ(notice.text, "你没有[主管]权限!");
        EXPECT_EQ(notice.icon, MessageIcon::stop);
        EXPECT_EQ(notice.caption, "澄恒财务软件");
    }
}

TEST(HubDivide, IsRefusedWhenNobodyIsLoggedOn) {
    RecordingMessages messages;
    RecordedWindows windows;
    HubFunctions(messages, windows).open(HubFunction::divide);
    EXPECT_TRUE(windows.shown.empty());
    EXPECT_EQ(messages.onlyNotice().text, "你没有[主管]权限!");
}

TEST(HubStatus, ShowsBooksOperatorAndDate) {
    HostSession session({.setName = "示例商贸有限公司",
                         .logonUser = {1, 1, 1, 1, "王芳"},
                         .logonTime = {{2026, 5, 31}, 9, 0, 0}});
    EXPECT_EQ(hubStatus(),
              (std::vector<HubStatusLine>{
                  {"帐套", "示例商贸有限公司"}, {"操作员", "王芳(主管)"}, {"日期", "2026-05-31"}}));
}

TEST(HubStatus, MarksOnlySupervisors) {
    HostSession session({.logonUser = {2, 2, 2, 0, "李明"}});
    EXPECT_EQ(hubStatus(), (std::vector<HubStatusLine>{{"操作员", "李明"}}));
}

TEST(HubLogonLine, TellsTheLastLogonAndWrongPasswordsSinceThen) {
    const auto lineOf = [](const LogonHistory& history) {
        HostSession session({.history = history});
        const HubLogonLine line = hubLogonLine();
        return line.text + (line.isWarning ? "!" : "");
    };
    EXPECT_EQ(lineOf({"2026-11-22 14:05", 0}), "上次登录 2026-11-22 14:05");
    EXPECT_EQ(lineOf({"2026-11-22 14:05", 3}), "上次登录 2026-11-22 14:05,其间 3 次口令错误!");
    EXPECT_EQ(lineOf({"", 3}), "登录前有 3 次口令错误!");
    EXPECT_EQ(lineOf({}), "");
    EXPECT_EQ(hubLogonLine().text, "");
}

TEST(HubStatus, IsEmptyWithNoSession) { EXPECT_TRUE(hubStatus().empty()); }
