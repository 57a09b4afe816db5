#include "report/output/print_templates.h"

#include <array>

namespace chengheng {
namespace {

constexpr std::array currencyColumns{
    TemplateColumn{"币符", "sExchCode", 10},         TemplateColumn{"币名", "sExchName", 18},
    TemplateColumn{"折算方式", "bMode", 24},         TemplateColumn{"汇率小数位", "byDecimal", 12},
    TemplateColumn{"外币最大误差", "fMaxError", 16},
};
constexpr std::array fixedRateColumns{
    TemplateColumn{"月份", "byPeroid", 14},
    TemplateColumn{"记帐汇率", "dRate", 20},
    TemplateColumn{"调整汇率", "dAdjustRate", 20},
};
constexpr std::array floatingRateColumns{
    TemplateColumn{"日期", "dtDate", 14},
    TemplateColumn{"记帐汇率", "dRate", 20},
    TemplateColumn{"调整汇率", "dAdjustRate", 20},
};
constexpr std::array voucherTypeColumns{
    TemplateColumn{"类别", "sSign", 8},     TemplateColumn{"名称", "sSignName", 20},
    TemplateColumn{"限制", "byLimit", 14},  TemplateColumn{"科目一", "sCode1", 18},
    TemplateColumn{"科目二", "sCode2", 18},
};
constexpr std::array settlementColumns{
    TemplateColumn{"方式号", "sStlId", 10},
    TemplateColumn{"方式名", "sSettle", 30},
    TemplateColumn{"使用支票登记簿", "bNote", 18},
};
constexpr std::array chartColumns{
    TemplateColumn{"级次", "byGrade", 6},       TemplateColumn{"科目编码", "sCode", 18},
    TemplateColumn{"科目名称", "sName", 34},    TemplateColumn{"外币币种", "byExchId", 18},
    TemplateColumn{"辅助核算", "sAssBook", 11},
};
constexpr std::array codeAndNameColumns{
    TemplateColumn{"编码", "sCode", 24},
    TemplateColumn{"名称", "sName", 60},
};
constexpr std::array personColumns{
    TemplateColumn{"编码", "sCode", 22},
    TemplateColumn{"姓名", "sName", 36},
    TemplateColumn{"所属部门", "lGroup", 28},
};
constexpr std::array unitColumns{
    TemplateColumn{"编码", "sCode", 16},
    TemplateColumn{"名称", "sName", 40},
    TemplateColumn{"单位分类", "lGroup", 18},
    TemplateColumn{"性质", "byKind", 14},
};
constexpr std::array projectItemColumns{
    TemplateColumn{"项目大类", "lGroup", 24},
    TemplateColumn{"编码", "sCode", 20},
    TemplateColumn{"名称", "sName", 42},
};

constexpr std::array divisionColumns{
    TemplateColumn{"操作员", "sUserName", 14},
    TemplateColumn{"身份", "bManager", 8},
    TemplateColumn{"权限", "sAuthId", 96},
    TemplateColumn{"签字", "", 16},
};
/// A column for each operator follows these.
constexpr std::array rightsMatrixColumns{
    TemplateColumn{"编号", "lId", 6},
    TemplateColumn{"权限组", "sGroup", 14},
    TemplateColumn{"功能", "sName", 24},
};
constexpr std::array voucherTypeUsageColumns{
    TemplateColumn{"类别", "sSign", 6},       TemplateColumn{"名称", "sSignName", 20},
    TemplateColumn{"月份", "byPeroid", 8},    TemplateColumn{"张数", "lCount", 7},
    TemplateColumn{"未记帐", "lUnposted", 8}, TemplateColumn{"首号", "lFirst", 7},
    TemplateColumn{"首日期", "dtFirst", 12},  TemplateColumn{"末号", "lLast", 7},
    TemplateColumn{"末日期", "dtLast", 12},   TemplateColumn{"缺号和其他使用", "sRemark", 46},
};
constexpr std::array operationLogColumns{
    TemplateColumn{"编号", "lId", 8},        TemplateColumn{"时间", "sTime", 20},
    TemplateColumn{"操作员", "sUser", 12},   TemplateColumn{"工作站", "sStation", 14},
    TemplateColumn{"功能", "lFunction", 14}, TemplateColumn{"操作", "sWords", 50},
    TemplateColumn{"行数", "lRows", 8},      TemplateColumn{"程序", "sProgram", 18},
};

constexpr std::array templates{
    PrintTemplate{currencyListTemplate, "外币一览表", paperA4, true, currencyColumns},
    PrintTemplate{fixedRateTemplate, "固定汇率一览表", paperA4, true, fixedRateColumns},
    PrintTemplate{floatingRateTemplate, "浮动汇率一览表", paperA4, true, floatingRateColumns},
    PrintTemplate{voucherTypeTemplate, "凭证类别一览表", paperA4, true, voucherTypeColumns},
    PrintTemplate{settlementTemplate, "结算方式一览表", paperA4, true, settlementColumns},
    PrintTemplate{accountChartTemplate, "会计科目一览表", paperA4, true, chartColumns},
    PrintTemplate{departmentListTemplate, "部门一览表", paperA4, true, codeAndNameColumns},
    PrintTemplate{personListTemplate, "个人一览表", paperA4, true, personColumns},
    PrintTemplate{unitClassListTemplate, "单位分类一览表", paperA4, true, codeAndNameColumns},
    PrintTemplate{unitListTemplate, "单位一览表", paperA4, true, unitColumns},
    PrintTemplate{projectClassListTemplate, "项目大类一览表", paperA4, true, codeAndNameColumns},
    PrintTemplate{projectItemListTemplate, "项目一览表", paperA4, true, projectItemColumns},
    PrintTemplate{divisionTemplate, "财务分工一览表", paperA4, false, divisionColumns},
    PrintTemplate{rightsMatrixTemplate, "操作员权限对照表", paperA4, true, rightsMatrixColumns},
    PrintTemplate{voucherTypeUsageTemplate, "凭证类别使用情况", paperA4, false,
                  voucherTypeUsageColumns},
    PrintTemplate{operationLogTemplate, "操作日志", paperA4, false, operationLogColumns},
};

}  // namespace

std::span<const PrintTemplate> printTemplates() { return templates; }

}  // namespace chengheng
