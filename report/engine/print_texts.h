#pragma once

/// What the operator reads about printing. {} is a value.
namespace chengheng::print_texts {

inline constexpr const char* selectFailed = "Select DB Error!";
inline constexpr const char* templateMissing =
    "帐套中没有{}号打印模板,不能打印。\n请用“chbooks check”检查帐套,或从备份恢复。";
inline constexpr const char* templateUnreadable = "无法读取{}号打印模板,没有打印。\n{}";
inline constexpr const char* listUnreadable = "无法读取要打印的资料,没有打印。\n{}";
inline constexpr const char* oddMatrix = "报表的栏目与内容不相符,没有打印。";
inline constexpr const char* noPrinter = "本程序没有打印功能。";

// What stands in cells and heading lines of more than one list.
inline constexpr const char* checkMark = "√";
inline constexpr const char* printDate = "打印日期:{}";

}  // namespace chengheng::print_texts
