#pragma once

// What chbooks says about the operation log. {} is a value.

namespace chengheng::log_command_texts {

inline constexpr const char* logCommand =
    "操作日志:谁、何时、从哪台工作站改了什么,改前改后各是什么";
inline constexpr const char* listCommand = "列出操作日志,最近的在前";
inline constexpr const char* showCommand = "显示一条操作日志,连同各行改前改后的内容";
inline constexpr const char* verifyCommand =
    "核对操作日志是否原样、帐套的各行是否与日志所记相符;发现问题时退出码为 1";
inline constexpr const char* sealCommand = "把日志末条的条数、时间和校验值写入一个小文件,另行保管";
inline constexpr const char* exportCommand = "把操作日志写成 PDF、XLSX 或 CSV 文件,最近的在前";

inline constexpr const char* operatorOption = "只要这位操作员的";
inline constexpr const char* fromOption = "从何时起,如 2026-11-23 或 \"2026-11-23 18:04\"";
inline constexpr const char* toOption = "到何时止,当日、当分钟在内";
inline constexpr const char* functionOption =
    "只要这个功能的:权限表中的编号或名称;0 为不属于任何功能的";
inline constexpr const char* textOption = "只要操作的文字中有这些字的";
inline constexpr const char* accountOption = "只要涉及这个科目编码的,编码改过的、科目已删除的也算";
inline constexpr const char* limitOption = "最多列出多少条;省略时为 100";
inline constexpr const char* numberArgument = "日志的编号";
inline constexpr const char* sealFileArgument = "要写入的封存文件;- 为标准输出";
inline constexpr const char* sealOption = "同时核对这个封存文件:封存之时的各条是否都在、没有改动";

inline constexpr const char* notMoment =
    "{} 应为日期,如 2026-11-23,后面可加时间,如 \"2026-11-23 18:04\",不能是“{}”";
inline constexpr const char* unknownFunction = "权限表中没有功能“{}”。";
inline constexpr const char* noLog = "这是较早版本的程序建立的帐套,还没有操作日志;升级后开始记录。";
inline constexpr const char* noEntry = "没有第 {} 条操作日志。";
inline constexpr const char* emptyLog = "操作日志还没有内容,不必封存。";
inline constexpr const char* noSeal = "“{}”不是操作日志的封存文件,或者已经不完整。";
inline constexpr const char* onePrintFile = "请用 --pdf、--xlsx、--csv 之一指定要写入的文件。";

/// Number, time, operator, workstation, words, number of rows.
inline constexpr const char* entryLine = "{}  {}  {}  {}  {}({} 行)\n";
inline constexpr const char* noEntries = "没有符合条件的操作日志。\n";
inline constexpr const char* moreEntries = "还有更早的,用 --limit 或 --to 查看。\n";

inline constexpr const char* entryHead =
    "编号    {}\n"
    "时间    {}\n"
    "操作员  {}(编号 {})\n"
    "工作站  {}(进程 {})\n"
    "程序    {}\n"
    "功能    {}\n"
    "操作    {}\n"
    "校验    {}\n"
    "行数    {}\n";
/// What became of it, table, name of the row behind a blank, id.
inline constexpr const char* rowLine = "{} {}{}(编号 {})\n";
/// Column, before, after; column and what was put in or taken out.
inline constexpr const char* changedCell = "  {}:{} → {}\n";
inline constexpr const char* onlyCell = "  {}:{}\n";

inline constexpr const char* sound = "核对了 {} 条日志、帐套中的 {} 行,都是原样。\n末条校验值 {}\n";
inline constexpr const char* faultCount = "核对了帐套中的 {} 行,共发现 {} 处问题。\n";
inline constexpr const char* moreRows = "另有 {} 处与日志不符,没有一一列出。\n";

inline constexpr const char* sealed = "前 {} 条操作日志已封存到“{}”。";

}  // namespace chengheng::log_command_texts
