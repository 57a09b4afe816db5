#pragma once

namespace chengheng::screen_texts {

/// {} is the window's title, then what the program says about the error.
inline constexpr const char* unexpectedError =
    "“{}”中发生意外错误:{}\n\n本次操作没有完成,此前已保存的数据不受影响。";
inline constexpr const char* unknownError = "原因不明";

/// The name of the function whose window is missing takes the place of {}.
inline constexpr const char* unbuiltFunction = "“{}”尚未完成,暂不能使用。";

inline constexpr const char* productName = "澄恒财务软件";

inline constexpr const char* helpTitle = "帮助 - 澄恒财务软件";
inline constexpr const char* helpContents = "目录";
inline constexpr const char* helpSearch = "搜索(&S):";
inline constexpr const char* helpPage = "帮助内容";
inline constexpr const char* helpNothingFound = "没有找到相关内容";
inline constexpr const char* helpCommand = "帮助(&H)";
inline constexpr const char* hubPage = "基础设置";
inline constexpr const char* firstStepsPage = "第一次建帐的步骤";
inline constexpr const char* keyboardPage = "键盘操作";
inline constexpr const char* rightsPage = "操作员与权限";
inline constexpr const char* chartPage = "会计科目";
inline constexpr const char* openingPage = "期初余额录入";
inline constexpr const char* directoryPage = "部门、个人、单位和项目目录";
inline constexpr const char* auxiliaryPage = "辅助期初";
inline constexpr const char* currencyPage = "汇率管理";
inline constexpr const char* voucherTypePage = "凭证类别";
inline constexpr const char* settlePage = "结算方式";
inline constexpr const char* parametersPage = "帐套参数";
inline constexpr const char* newYearPage = "建立新年度";
inline constexpr const char* logPage = "操作日志";

// Captions of pictures, and the same in a menu with the keys that choose them.
inline constexpr const char* accountsPicture = "会计科目";
inline constexpr const char* currencyPicture = "外币汇率";
inline constexpr const char* openingPicture = "期初余额";
inline constexpr const char* voucherTypePicture = "凭证类别";
inline constexpr const char* settlePicture = "结算方式";
inline constexpr const char* exitPicture = "退出";
inline constexpr const char* operatorsPicture = "财务分工";
inline constexpr const char* operatorsItem = "财务分工(&1)";
inline constexpr const char* accountsItem = "会计科目(&2)";
inline constexpr const char* currencyItem = "外币汇率(&3)";
inline constexpr const char* openingItem = "期初余额(&4)";
inline constexpr const char* voucherTypeItem = "凭证类别(&5)";
inline constexpr const char* settleItem = "结算方式(&6)";
inline constexpr const char* departmentsItem = "部门目录(&D)";
inline constexpr const char* personsItem = "个人往来目录(&P)";
inline constexpr const char* unitClassesItem = "单位往来分类(&C)";
inline constexpr const char* unitsItem = "单位往来目录(&U)";
inline constexpr const char* projectClassesItem = "项目大类定义(&K)";
inline constexpr const char* projectItemsItem = "项目定义及目录(&I)";
inline constexpr const char* parametersItem = "帐套参数调整(&B)";
inline constexpr const char* ownPasswordItem = "更改口令(&W)";
inline constexpr const char* logItem = "操作日志(&L)";
inline constexpr const char* exitItem = "退出(&7)";

inline constexpr const char* showDetail = "详细(&D)";

inline constexpr const char* balanceTitle = "试算平衡";
inline constexpr const char* debitClasses = "借方科目";
inline constexpr const char* creditClasses = "贷方科目";
inline constexpr const char* debitTotal = "借方合计";
inline constexpr const char* creditTotal = "贷方合计";
inline constexpr const char* balanceResult = "试算结果";
inline constexpr const char* balanceCauses = "可能原因(&C)...";

/// As wide as any.
inline constexpr const char* wideCharacter = "帐";

inline constexpr const char* yes = "是";
inline constexpr const char* no = "否";
inline constexpr const char* confirm = "确定";
inline constexpr const char* cancel = "取消";
inline constexpr const char* close = "关闭";
inline constexpr const char* pickerCode = "编码";
inline constexpr const char* pickerName = "名称";
inline constexpr const char* pickerSearch = "查找(&Q):";
inline constexpr const char* resetColumns = "恢复默认列宽和窗口大小";
inline constexpr const char* pickerEmpty = "还没有可选的记录。";
inline constexpr const char* pickerNotFound =
    "没有编码、名称或拼音首字母含有所查文字的记录。\n清空“查找”可看到全部记录。";
inline constexpr const char* sheetFilter = "表格文件 (*.csv *.xlsx)";

}  // namespace chengheng::screen_texts
