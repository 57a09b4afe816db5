#pragma once

#include "opening/sheet/opening_texts.h"

/// What the windows of auxiliary opening balances show, tell and ask. {} is a value.
namespace chengheng::auxiliary_texts {

using opening_texts::credit;
using opening_texts::debit;
using opening_texts::tooLarge;
using opening_texts::vouchersMeanwhile;

inline constexpr const char* departmentCaption = "部门核算期初";
inline constexpr const char* departmentAndProjectCaption = "部门项目期初";
inline constexpr const char* projectCaption = "项目核算期初";
inline constexpr const char* personCaption = "个人往来期初";
inline constexpr const char* departmentAndUnitCaption = "部门往来期初";
inline constexpr const char* unitAndProjectCaption = "项目往来期初";
inline constexpr const char* unitCaption = "单位往来期初";

/// Titles of the record dialog: adding, modifying; and of the find dialog.
inline constexpr const char* departmentAdding = "部门核算期初——添加记录";
inline constexpr const char* departmentModifying = "部门核算期初——修改记录";
inline constexpr const char* departmentFinding = "部门核算期初——查找";
inline constexpr const char* departmentAndProjectAdding = "部门项目期初——添加记录";
inline constexpr const char* departmentAndProjectModifying = "部门项目期初——修改记录";
inline constexpr const char* departmentAndProjectFinding = "部门项目期初——查找";
inline constexpr const char* projectAdding = "项目期初——添加记录";
inline constexpr const char* projectModifying = "项目期初——修改记录";
inline constexpr const char* projectFinding = "项目期初——查找";
inline constexpr const char* personAdding = "个人期初添加记录";
inline constexpr const char* personModifying = "个人期初——修改记录";
inline constexpr const char* personFinding = "个人期初——查找";
inline constexpr const char* departmentAndUnitAdding = "单位部门期初——添加记录";
inline constexpr const char* departmentAndUnitModifying = "单位部门期初——修改记录";
inline constexpr const char* departmentAndUnitFinding = "单位部门期初——查找";
inline constexpr const char* unitAndProjectAdding = "单位项目期初——添加记录";
inline constexpr const char* unitAndProjectModifying = "单位项目期初——修改记录";
inline constexpr const char* unitAndProjectFinding = "单位项目期初——查找";
inline constexpr const char* unitAdding = "单位期初——添加记录";
inline constexpr const char* unitModifying = "单位期初——修改记录";
inline constexpr const char* unitFinding = "单位期初——查找";

inline constexpr const char* dateInvalid = "日期输入无效";
inline constexpr const char* numberInvalid = "凭证号输入无效";
inline constexpr const char* moneyEmpty = "金额不能为空";
inline constexpr const char* moneyInvalid = "金额输入无效";
inline constexpr const char* moneyZero = "金额不能为0";
inline constexpr const char* foreignInvalid = "外币输入无效";
inline constexpr const char* quantityInvalid = "数量输入无效";
inline constexpr const char* summaryEmpty = "摘要不能为空";

inline constexpr const char* departmentEmpty = "部门不能为空";
inline constexpr const char* departmentUnknown = "该部门不存在";
inline constexpr const char* departmentGoneAdding = "该部门不存在,添加不成功";
inline constexpr const char* departmentGoneModifying = "该部门不存在,修改不成功";
inline constexpr const char* departmentWrong = "非法的部门";
inline constexpr const char* personEmpty = "姓名不能为空";
inline constexpr const char* personWrong = "非法的姓名";
inline constexpr const char* personElsewhere = "部门与个人不匹配";
inline constexpr const char* unitEmpty = "单位不能为空";
inline constexpr const char* unitUnknown = "该单位信息不存在";
inline constexpr const char* unitGoneAdding = "该单位不存在,添加不成功";
inline constexpr const char* unitGoneModifying = "该单位不存在,修改不成功";
inline constexpr const char* unitNameGoneAdding = "该单位名称不存在,添加不成功";
inline constexpr const char* unitNameGoneModifying = "该单位名称不存在,修改不成功";
inline constexpr const char* projectEmpty = "项目不能为空";
inline constexpr const char* projectUnknown = "该项目名称不存在";
inline constexpr const char* projectInformationUnknown = "该项目信息不存在";
inline constexpr const char* projectIdGone = "没有符合该项目ID的记录";

inline constexpr const char* accountGoneAdding = "该科目不存在,添加不成功";
inline constexpr const char* accountGoneModifying = "该科目不存在,修改不成功";
inline constexpr const char* accountGoneDeleting = "该科目不存在,删除不成功";
inline constexpr const char* accountChanged =
    "科目已被其他工作站修改,本次操作没有保存,请重新打开窗口。";
inline constexpr const char* entryGone = "该记录已被其他工作站删除,列表已重新读入。";
inline constexpr const char* entryChanged =
    "该记录已被其他工作站修改,本次操作没有进行,列表已重新读入。";
inline constexpr const char* deletionFailed = "删除时发生错误!";
inline constexpr const char* notBrowsable = "没有期初数据，不能浏览期初";

inline constexpr const char* nothingToModify = "请先选择要修改的行!";
inline constexpr const char* nothingToDelete = "请先选中要删除的行";
inline constexpr const char* deletion = "确定删除吗?";
inline constexpr const char* nothingFound = "没有符合条件的数据!";
inline constexpr const char* discardInput = "放弃当前的输入吗?";
inline constexpr const char* loading = "正在查询数据,请稍侯.....";
inline constexpr const char* browsing = "浏览、只读";

inline constexpr const char* account = "科目名称";
inline constexpr const char* date = "日期";
inline constexpr const char* voucherNumber = "凭证号数";
inline constexpr const char* summary = "摘要";
inline constexpr const char* department = "部门";
inline constexpr const char* person = "个人";
inline constexpr const char* unit = "单位";
inline constexpr const char* project = "项目";
inline constexpr const char* direction = "方向";
inline constexpr const char* money = "金额";
inline constexpr const char* foreign = "外币";
inline constexpr const char* quantity = "数量";
inline constexpr const char* debitChoice = "借方";
inline constexpr const char* creditChoice = "贷方";
inline constexpr const char* voucherType = "凭证类别";
inline constexpr const char* number = "凭证号";
inline constexpr const char* projectClass = "项目大类";

inline constexpr const char* datePicker = "DATE";
inline constexpr const char* namePicker = "VIEW";

inline constexpr const char* fileMenu = "文件(&F)";
inline constexpr const char* menuPreview = "打印预览";
inline constexpr const char* menuPrint = "打印\tCtrl+P";
inline constexpr const char* menuExit = "退出";
inline constexpr const char* editMenu = "编辑(&E)";
inline constexpr const char* menuAdd = "增加\tCtrl+N";
inline constexpr const char* menuModify = "修改\tCtrl+M";
inline constexpr const char* menuRemove = "删除\tCtrl+D";
inline constexpr const char* menuUndo = "撤销\tCtrl+Z";
inline constexpr const char* menuRedo = "重做\tCtrl+Y";
inline constexpr const char* menuCopy = "复制\tCtrl+C";
inline constexpr const char* viewMenu = "查看(&V)";
inline constexpr const char* menuFind = "查找\tCtrl+K";
inline constexpr const char* menuRefresh = "刷新\tF5";
inline constexpr const char* helpMenu = "帮助(&H)";
inline constexpr const char* menuHelp = "帮助主题";
inline constexpr const char* menuSearch = "搜索";
inline constexpr const char* toolBar = "工具栏";
inline constexpr const char* toolPreview = "预览";

inline constexpr const char* mode = "状态";
inline constexpr const char* filter = "筛选(&L):";
inline constexpr const char* filterHint = "任一栏的内容";
inline constexpr const char* entriesTab = "明细";
inline constexpr const char* totalsTab = "汇总";
inline constexpr const char* entriesName = "期初明细";
inline constexpr const char* totalsName = "期初汇总";
inline constexpr const char* count = "笔数";
inline constexpr const char* balance = "余额";
/// Below the list. {} are numbers and amounts.
inline constexpr const char* countOfAll = "共 {} 笔";
inline constexpr const char* countOfShown = "显示 {} 笔,共 {} 笔";
inline constexpr const char* moneyTotal = "合计:{}";
inline constexpr const char* shownTotal = "显示的合计:{}";
inline constexpr const char* foreignTotal = "外币合计:{}";
inline constexpr const char* quantityTotal = "数量合计:{}";
inline constexpr const char* postedBalance = "科目期初余额:{}";
inline constexpr const char* difference = "差额:{}";

inline constexpr const char* printedAccount = "科目:{}";

/// What the operation log says: what is done, the account, and with how many entries.
inline constexpr const char* logged = "{}期初明细 {} {} {} 笔";
inline constexpr const char* addition = "增加";
inline constexpr const char* modification = "修改";
inline constexpr const char* erasure = "删除";
/// What a history is of: account, summary.
inline constexpr const char* historyOf = "{} {} {}";

}  // namespace chengheng::auxiliary_texts
