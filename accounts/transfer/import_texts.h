#pragma once

/// What the window for importing a chart shows. {} is a value.
namespace chengheng::import_texts {

inline constexpr const char* openTitle = "导入会计科目";
inline constexpr const char* saveTitle = "导出会计科目";
inline constexpr const char* fileFilter = "表格文件 (*.csv *.xlsx)";
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
inline constexpr const char* codeColumn = "科目编码";
inline constexpr const char* nameColumn = "科目名称";
inline constexpr const char* remarkColumn = "说明";
inline constexpr const char* listSeparator = "、";
inline constexpr const char* apply = "导入";
inline constexpr const char* working = "正在导入会计科目,请稍候.....";
inline constexpr const char* done = "导入完成:新增 {} 个科目,修改 {} 个科目。";
inline constexpr const char* exported = "会计科目已导出到“{}”。";

}  // namespace chengheng::import_texts
