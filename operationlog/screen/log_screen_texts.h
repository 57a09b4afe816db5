#pragma once

// What the window of the operation log says. {} is a value.

namespace chengheng::log_screen_texts {

inline constexpr const char* title = "操作日志";

inline constexpr const char* operatorLabel = "操作员(&O):";
inline constexpr const char* fromLabel = "时间从(&T):";
inline constexpr const char* toLabel = "至(&Z):";
inline constexpr const char* functionLabel = "功能(&G):";
inline constexpr const char* textLabel = "操作含(&W):";
inline constexpr const char* accountLabel = "科目编码(&K):";
inline constexpr const char* everything = "(全部)";
inline constexpr const char* noFunction = "(无)";
inline constexpr const char* momentHint = "如 2026-11-23 18:04";
inline constexpr const char* search = "查询(&S)";
inline constexpr const char* clear = "全部显示(&A)";
inline constexpr const char* refresh = "刷新\tF5";

inline constexpr const char* entries = "操作日志,最近的在前";
inline constexpr const char* number = "编号";
inline constexpr const char* time = "时间";
inline constexpr const char* operatorName = "操作员";
inline constexpr const char* workstation = "工作站";
inline constexpr const char* function = "功能";
inline constexpr const char* words = "操作";
inline constexpr const char* rows = "行数";

inline constexpr const char* changes = "这一条改动的各行";
inline constexpr const char* mark = "变";
inline constexpr const char* table = "资料";
inline constexpr const char* row = "哪一条";
inline constexpr const char* unnamedRow = "编号 {}";
inline constexpr const char* column = "栏目";
inline constexpr const char* before = "改前";
inline constexpr const char* after = "改后";
/// In front of a line: what became of the cell.
inline constexpr const char* insertedMark = "+";
inline constexpr const char* changedMark = "≠";
inline constexpr const char* deletedMark = "−";

/// How many entries are read by now, and whether there are more.
inline constexpr const char* allShown = "共 {} 条";
inline constexpr const char* moreBelow = "已读入 {} 条,往下滚动继续读入";
inline constexpr const char* nothingFound = "没有符合条件的操作日志";

/// Number, time, operator and his number, workstation, process, program; the words.
inline constexpr const char* heading = "第 {} 条  {}  {}(编号 {})  {}(进程 {})  {}\n{}";
inline constexpr const char* noRows = "这一条没有改动帐套中的资料。";
inline constexpr const char* cutShort = "{}…";

inline constexpr const char* wrongMoment =
    "“{}”不是日期。请输入如 2026-11-23 的日期,后面可以加时间,如 2026-11-23 18:04。";

}  // namespace chengheng::log_screen_texts
