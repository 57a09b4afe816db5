#include "session/rights_list.h"

#include <gtest/gtest.h>

#include <string>

using namespace chengheng;

namespace {

constexpr const char* wholeList = R"(
1 个人往来/个人往来目录
2 个人往来/个人往来期初浏览
3 个人往来/个人往来余额表
4 个人往来/个人往来明细帐
5 个人往来/个人往来勾对
6 个人往来/个人往来对帐单
7 个人往来/个人往来帐龄分析
8 部门核算/部门目录
9 部门核算/部门期初浏览
10 部门核算/部门总帐
11 部门核算/部门明细帐
12 部门核算/部门收支分析
13 项目核算/项目定义及目录
14 项目核算/项目大类定义
15 项目核算/项目期初浏览
16 项目核算/项目总帐
17 项目核算/项目明细帐
18 项目核算/项目统计表
19 计划管理/计划编制
20 计划管理/科目计划执行报告
21 计划管理/部门计划执行报告
22 计划管理/项目计划执行报告
23 月末处理/自定义转帐设置
24 月末处理/自定义转帐执行
25 月末处理/对应结转设置
26 月末处理/对应结转执行
27 月末处理/销售成本结转设置
28 月末处理/销售成本结转执行
29 月末处理/汇兑损益结转设置
30 月末处理/汇兑损益结转执行
31 月末处理/期间损益结转设置
32 月末处理/期间损益结转执行
33 月末处理/试算平衡
34 月末处理/结帐
35 帐套管理/重建帐
36 帐套管理/恢复记帐前状态
37 帐套管理/数据备份
38 帐套管理/数据恢复
39 帐套管理/删除往年数据
40 帐套管理/帐套参数调整
41 会计科目/会计科目设置
42 会计科目/会计科目查询
43 期初余额/期初余额录入
44 期初余额/期初余额查询
45 期初余额/上年结转
46 外币/外币设置
47 外币/外币查询
48 凭证/制单
49 凭证/审核
50 凭证/凭证汇总
51 凭证/记帐
52 凭证/凭证类别设置
53 凭证/凭证打印
54 凭证/凭证查询
55 凭证/常用凭证
56 凭证/常用摘要
57 出纳/结算方式设置
58 出纳/银行存款日记帐
59 出纳/现金日记帐
60 出纳/资金日报
61 出纳/资金计息
62 出纳/支票登记簿
63 出纳/银行对帐
64 出纳/长期未达帐审计
65 总帐/总帐查询
66 总帐/总帐打印
67 明细帐/明细帐查询
68 明细帐/明细帐打印
69 多栏帐/多栏帐定义
70 多栏帐/多栏帐查询
71 日记帐/日记帐查询
72 日记帐/日记帐打印
73 日报表/日报表
74 日报表/查询序时帐
75 单位往来/单位往来目录
76 单位往来/单位往来期初浏览
77 单位往来/单位往来余额表
78 单位往来/单位往来明细帐
79 单位往来/单位往来勾对
80 单位往来/单位往来对帐单
81 单位往来/单位往来帐龄分析
82 报表/报表编制
)";

std::string listAsText() {
    std::string text = "\n";
    int number = 0;
    for (const RightsGroup& group : rightsGroups())
        for (const char* function : group.functions)
            text += std::to_string(++number) + ' ' + group.name + '/' + function + '\n';
    return text;
}

}  // namespace

TEST(RightsList, NumbersItsFunctionsByPosition) { EXPECT_EQ(listAsText(), wholeList); }

TEST(RightsList, HasEighteenGroupsOfAtMostTwelveAndEightyTwoFunctions) {
    EXPECT_EQ(rightsGroups().size(), 18u);
    std::size_t count = 0;
    for (const RightsGroup& group : rightsGroups()) {
        EXPECT_GE(group.functions.size(), 1u) << group.name;
        EXPECT_LE(group.functions.size(), mostFunctionsOfGroup) << group.name;
        count += group.functions.size();
    }
    EXPECT_EQ(count, functionCount);
}

TEST(RightsList, NamesTheFunctionsThatTheModuleAsksFor) {
    EXPECT_STREQ(functionName(41), "会计科目设置");
    EXPECT_STREQ(functionName(43), "期初余额录入");
    EXPECT_STREQ(functionName(46), "外币设置");
    EXPECT_STREQ(functionName(52), "凭证类别设置");
    EXPECT_STREQ(functionName(57), "结算方式设置");
    EXPECT_STREQ(functionName(82), "报表编制");
}

TEST(RightsList, HasNoFunctionOutsideItsNumbers) {
    for (const int number : {-1, 0, 83, 255}) EXPECT_EQ(functionName(number), nullptr) << number;
}

TEST(RightsList, FindsTheFirstFunctionOfAGroup) {
    int number = 1;
    for (int group = 0; group < 18; ++group) {
        EXPECT_EQ(firstFunctionOf(group), number);
        const auto& functions = rightsGroups()[static_cast<std::size_t>(group)].functions;
        EXPECT_STREQ(functionName(number), functions.front());
        number += static_cast<int>(functions.size());
    }
}

TEST(RightsString, GrantsByTheCharacterOfTheNumber) {
    std::string rights(255, 'N');
    rights[40] = 'Y';
    rights[42] = 'y';
    for (int number = 1; number <= 255; ++number)
        EXPECT_EQ(grants(rights, number), number == 41 || number == 43) << number;
}

TEST(RightsString, DeniesByAnyOtherCharacter) {
    for (const char other : {'N', 'n', ' ', '1', 'T', '\0'})
        EXPECT_FALSE(grants(std::string(255, other), 41)) << other;
}

TEST(RightsString, GrantsNothingBeyondItsEndOrBeforeItsStart) {
    EXPECT_FALSE(grants("", 1));
    EXPECT_FALSE(grants("YYYY", 5));
    EXPECT_FALSE(grants("YYYY", 0));
    EXPECT_FALSE(grants("YYYY", -1));
    EXPECT_TRUE(grants("YYYY", 4));
}
