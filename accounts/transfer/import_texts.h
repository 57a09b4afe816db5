#pragma once

/// What a chart in a file is made of, and what is shown and said when it is imported or exported.
/// {} is a value.
namespace chengheng::import_texts {

// The columns of a chart in a spreadsheet.
inline constexpr const char* chartTitle = "会计科目";
inline constexpr const char* levelColumn = "级次";
inline constexpr const char* classColumn = "科目类型";
inline constexpr const char* balanceColumn = "余额方向";
inline constexpr const char* pageColumn = "帐页格式";
inline constexpr const char* mnemonicColumn = "助记码";
inline constexpr const char* currencyColumn = "币种";
inline constexpr const char* quantityColumn = "数量核算";
inline constexpr const char* unitColumn = "计量单位";
inline constexpr const char* personColumn = "个人往来";
inline constexpr const char* partnerColumn = "单位往来";
inline constexpr const char* departmentColumn = "核算部门";
inline constexpr const char* projectsColumn = "核算项目";
inline constexpr const char* journalColumn = "日记帐";
inline constexpr const char* bankColumn = "银行帐";
inline constexpr const char* yes = "是";
inline constexpr const char* no = "否";

// What is said about an imported chart.
inline constexpr const char* headingsMissing = "没有标题行。标题行中应有“科目编码”和“科目名称”。";
inline constexpr const char* classMissing = "没有科目类型。";
inline constexpr const char* classUnknown = "没有“{}”这个科目类型。";
inline constexpr const char* directionUnknown = "“{}”不是余额方向,应为借或贷。";
inline constexpr const char* directionKept = "余额方向与帐套中的不同。请在期初余额中调整方向。";
inline constexpr const char* currencyUnknown = "没有“{}”这个币种。";
inline constexpr const char* neitherYesNorNo = "“{}”应为是或否。";
inline constexpr const char* rowsRefused = "有 {} 行被拒绝,没有导入。\n请修改文件后重试。";
inline constexpr const char* planOutdated = "预览之后帐套中的资料已有改动,没有导入。\n请重新预览。";
inline constexpr const char* askAcceptance = "有 {} 行需要确认,全部接受并导入吗?";
inline constexpr const char* importCancelled = "导入已取消,科目没有改动。";
inline constexpr const char* fateAdded = "新增";
inline constexpr const char* fateChanged = "修改";
inline constexpr const char* fateUnchanged = "不变";
inline constexpr const char* fateRefused = "拒绝";

// The windows.
inline constexpr const char* openTitle = "导入会计科目";
inline constexpr const char* saveTitle = "导出会计科目";
inline constexpr const char* defaultFile = "会计科目.xlsx";
inline constexpr const char* title = "导入会计科目";
inline constexpr const char* file = "文件:{}";
inline constexpr const char* summary = "新增 {} 行,修改 {} 行,不变 {} 行,拒绝 {} 行。";
inline constexpr const char* isRefused = "有被拒绝的行,整个文件不能导入。请改正文件后重试。";
inline constexpr const char* hasNothingNew = "没有需要导入的内容。";
inline constexpr const char* isReady = "请核对后按“导入”,所有行将一次写入。";
inline constexpr const char* ignored = "未使用的列:{}";
inline constexpr const char* rows = "导入预览";
inline constexpr const char* rowColumn = "行";
inline constexpr const char* fateColumn = "结果";
inline constexpr const char* placeColumn = "单元格";
inline constexpr const char* remarkColumn = "说明";
inline constexpr const char* listSeparator = "、";
inline constexpr const char* apply = "导入";
inline constexpr const char* working = "正在导入会计科目,请稍候.....";
inline constexpr const char* done = "导入完成:新增 {} 个科目,修改 {} 个科目。";
inline constexpr const char* exported = "会计科目已导出到“{}”。";

}  // namespace chengheng::import_texts
