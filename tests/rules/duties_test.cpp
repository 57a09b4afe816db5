#include "operators/duties.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "operators/presets.h"

namespace {

using namespace chengheng;

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> dutiesOf(std::initializer_list<int> functions, bool isSupervisor = false) {
    OperatorRecord record;
    record.user.bManager = isSupervisor ? 1 : 0;
    for (const int function : functions) record.rights.set(function, true);
    const auto found = incompatibleDutiesOf(record);
    return {found.begin(), found.end()};
}

TEST(Duties, OfACashierAreNotThoseOfABookkeeper) {
    for (const int cashier : {58, 59, 60, 62}) {
        EXPECT_THAT(dutiesOf({cashier, 49}), ElementsAre("出纳不得兼任稽核(审核)"));
        EXPECT_THAT(dutiesOf({cashier, 51}), ElementsAre("出纳不得登记收入、支出、费用帐目(记帐)"));
        EXPECT_THAT(dutiesOf({cashier, 5}), ElementsAre("出纳不得登记债权债务帐目(往来勾对)"));
        EXPECT_THAT(dutiesOf({cashier, 79}), ElementsAre("出纳不得登记债权债务帐目(往来勾对)"));
        EXPECT_THAT(dutiesOf({cashier, 63}), ElementsAre("出纳不得自己办理银行对帐"));
        for (const int archive : {37, 38, 39})
            EXPECT_THAT(dutiesOf({cashier, archive}),
                        ElementsAre("出纳不得保管会计档案(数据备份、数据恢复、删除往年数据)"));
    }
}

TEST(Duties, OfWhoMakesVouchersAreNotTheirAudit) {
    EXPECT_THAT(dutiesOf({48, 49}), ElementsAre("制单人不得审核凭证"));
}

TEST(Duties, AreToldAllOfThem) {
    EXPECT_THAT(dutiesOf({48, 49, 51, 59}),
                ElementsAre("出纳不得兼任稽核(审核)", "出纳不得登记收入、支出、费用帐目(记帐)",
                            "制单人不得审核凭证"));
}

TEST(Duties, GoTogetherOtherwise) {
    EXPECT_THAT(dutiesOf({58, 59, 60, 61, 62, 71, 72}), IsEmpty());
    EXPECT_THAT(dutiesOf({48, 51, 63, 5, 37}), IsEmpty());
    EXPECT_THAT(dutiesOf({49, 51, 37}), IsEmpty());
    EXPECT_THAT(dutiesOf({}), IsEmpty());
    EXPECT_THAT(dutiesOf({48, 49}, true), IsEmpty()) << "a supervisor has all rights anyway";
}

TEST(RightsPresets, AreThoseOfAnOfficeAndHaveNoIncompatibleDuties) {
    std::vector<std::string> names;
    for (const RightsPreset& preset : rightsPresets()) {
        names.emplace_back(preset.name);
        OperatorRecord record;
        record.rights = preset.rights();
        for (const int function : preset.functions) EXPECT_NE(functionName(function), nullptr);
        if (names.size() > 1) {
            EXPECT_THAT(incompatibleDutiesOf(record), IsEmpty()) << preset.name;
        }
    }
    EXPECT_THAT(names, ElementsAre("会计主管", "总帐会计", "制单", "审核", "记帐", "出纳", "查询"));
}

TEST(RightsPresets, GrantWhatTheTaskNeeds) {
    const auto has = [](std::size_t preset, int function) {
        return rightsPresets()[preset].rights().grants(function);
    };
    for (int function = 1; function <= functionCount; ++function)
        EXPECT_TRUE(has(0, function)) << function;
    const std::pair<std::size_t, std::vector<int>> needed[] = {
        {1, {41, 43, 46, 48, 51, 52, 57, 82}},
        {2, {48, 55}},
        {3, {49}},
        {4, {51}},
        {5, {58, 59, 60, 62}},
        {6, {42, 54, 65}}};
    for (const auto& [preset, functions] : needed)
        for (const int function : functions) EXPECT_TRUE(has(preset, function)) << function;
    for (const int writing : {1, 8, 13, 14, 41, 43, 45, 46, 48, 49, 51, 52, 57, 75})
        EXPECT_FALSE(has(6, writing)) << "who only looks changes nothing: " << writing;
}

TEST(RightsPresets, SayWhatTheyWouldAddAndTake) {
    OperatorRights before;
    for (const int function : {41, 42, 57}) before.set(function, true);
    OperatorRights after;
    for (const int function : {41, 58, 82}) after.set(function, true);
    EXPECT_EQ(rightsDifference(before, after),
              "增加 2 项:出纳(银行存款日记帐);报表(全部)\n"
              "取消 2 项:会计科目(会计科目查询);出纳(结算方式设置)\n");
    EXPECT_EQ(rightsDifference(before, before), "权限没有变化。");
    EXPECT_EQ(rightsDifference({}, before), "增加 3 项:会计科目(全部);出纳(结算方式设置)\n");
    EXPECT_EQ(rightsDifference(before, {}), "取消 3 项:会计科目(全部);出纳(结算方式设置)\n");
}

}  // namespace
