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

// What stands in the cells of the lists.
inline constexpr const char* checkMark = "√";
inline constexpr const char* foreignTimesRate = "原币*汇率 = 本位币";
inline constexpr const char* foreignByRate = "原币/汇率 = 本位币";
inline constexpr const char* debitRequired = "借方必有";
inline constexpr const char* creditRequired = "贷方必有";
inline constexpr const char* bothForbidden = "借贷必无";
inline constexpr const char* currencyLine = "外币:{}({})";

// Heading lines.
inline constexpr const char* printDate = "打印日期:{}";

}  // namespace chengheng::print_texts
