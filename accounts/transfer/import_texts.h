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
inline constexpr const char* importCancelled = "导入已取消,科目没有改动。";

// The windows.
inline constexpr const char* openTitle = "导入会计科目";
inline constexpr const char* saveTitle = "导出会计科目";
inline constexpr const char* defaultFile = "会计科目.xlsx";
inline constexpr const char* title = "导入会计科目";
inline constexpr const char* working = "正在导入会计科目,请稍候.....";
inline constexpr const char* done = "导入完成:新增 {} 个科目,修改 {} 个科目。";
inline constexpr const char* exported = "会计科目已导出到“{}”。";

}  // namespace chengheng::import_texts
