#pragma once

/// What is said and shown of a sheet before it is imported row by row, and when that is done. {} is
/// a value.
namespace chengheng::plan_texts {

inline constexpr const char* fateAdded = "新增";
inline constexpr const char* fateChanged = "修改";
inline constexpr const char* fateUnchanged = "不变";
inline constexpr const char* fateRefused = "拒绝";

/// What the operation log says of an import.
inline constexpr const char* logged = "导入{}:新增 {} 个,修改 {} 个";

inline constexpr const char* rowsRefused = "有 {} 行被拒绝,没有导入。\n请修改文件后重试。";
inline constexpr const char* outdated = "预览之后帐套中的资料已有改动,没有导入。\n请重新预览。";
inline constexpr const char* askAcceptance = "有 {} 行需要确认,全部接受并导入吗?";

// The window.
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

}  // namespace chengheng::plan_texts
