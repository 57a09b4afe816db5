#include "session/rights_list.h"

#include <array>

namespace chengheng {

std::span<const RightsGroup> rightsGroups() {
    static const std::array<RightsGroup, 18> groups{{
        {"个人往来",
         {"个人往来目录", "个人往来期初浏览", "个人往来余额表", "个人往来明细帐", "个人往来勾对",
          "个人往来对帐单", "个人往来帐龄分析"}},
        {"部门核算", {"部门目录", "部门期初浏览", "部门总帐", "部门明细帐", "部门收支分析"}},
        {"项目核算",
         {"项目定义及目录", "项目大类定义", "项目期初浏览", "项目总帐", "项目明细帐",
          "项目统计表"}},
        {"计划管理", {"计划编制", "科目计划执行报告", "部门计划执行报告", "项目计划执行报告"}},
        {"月末处理",
         {"自定义转帐设置", "自定义转帐执行", "对应结转设置", "对应结转执行", "销售成本结转设置",
          "销售成本结转执行", "汇兑损益结转设置", "汇兑损益结转执行", "期间损益结转设置",
          "期间损益结转执行", "试算平衡", "结帐"}},
        {"帐套管理",
         {"重建帐", "恢复记帐前状态", "数据备份", "数据恢复", "删除往年数据", "帐套参数调整"}},
        {"会计科目", {"会计科目设置", "会计科目查询"}},
        {"期初余额", {"期初余额录入", "期初余额查询", "上年结转"}},
        {"外币", {"外币设置", "外币查询"}},
        {"凭证",
         {"制单", "审核", "凭证汇总", "记帐", "凭证类别设置", "凭证打印", "凭证查询", "常用凭证",
          "常用摘要"}},
        {"出纳",
         {"结算方式设置", "银行存款日记帐", "现金日记帐", "资金日报", "资金计息", "支票登记簿",
          "银行对帐", "长期未达帐审计"}},
        {"总帐", {"总帐查询", "总帐打印"}},
        {"明细帐", {"明细帐查询", "明细帐打印"}},
        {"多栏帐", {"多栏帐定义", "多栏帐查询"}},
        {"日记帐", {"日记帐查询", "日记帐打印"}},
        {"日报表", {"日报表", "查询序时帐"}},
        {"单位往来",
         {"单位往来目录", "单位往来期初浏览", "单位往来余额表", "单位往来明细帐", "单位往来勾对",
          "单位往来对帐单", "单位往来帐龄分析"}},
        {"报表", {"报表编制"}},
    }};
    return groups;
}

int firstFunctionOf(int group) {
    int number = 1;
    for (const RightsGroup& before : rightsGroups().first(static_cast<std::size_t>(group)))
        number += static_cast<int>(before.functions.size());
    return number;
}

const char* functionName(int number) {
    int last = 0;
    for (const RightsGroup& group : rightsGroups()) {
        const int before = last;
        last += static_cast<int>(group.functions.size());
        if (number > before && number <= last)
            return group.functions[static_cast<std::size_t>(number - before - 1)];
    }
    return nullptr;
}

bool grants(std::string_view rights, int number) {
    if (number < 1 || number > static_cast<int>(rights.size())) return false;
    const char right = rights[static_cast<std::size_t>(number - 1)];
    return right == 'Y' || right == 'y';
}

}  // namespace chengheng
