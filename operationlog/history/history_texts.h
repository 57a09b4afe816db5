#pragma once

/// What the window of a history shows. {} is a value.
namespace chengheng::history_texts {

inline constexpr const char* title = "修改历史";
/// The balances of an account: code, name, which figure.
inline constexpr const char* figure = "{} {} {}";

inline constexpr const char* rows = "修改记录";
inline constexpr const char* time = "时间";
inline constexpr const char* who = "操作员";
inline constexpr const char* where = "工作站";
inline constexpr const char* words = "操作";
inline constexpr const char* kind = "方式";
inline constexpr const char* item = "项目";
inline constexpr const char* before = "修改前";
inline constexpr const char* after = "修改后";
inline constexpr const char* close = "关闭";

inline constexpr const char* noLog = "帐套没有操作日志,没有修改历史。";
inline constexpr const char* nothing = "操作日志中没有它的修改记录。";

}  // namespace chengheng::history_texts
