#pragma once

// What stands on a printed operation log. {} is a value.

namespace chengheng::log_list_texts {

inline constexpr const char* tooMany =
    "符合条件的操作日志超过 100000 条,一次打印或导出不了。请缩小时间等条件的范围。";

/// The conditions of a list.
inline constexpr const char* operatorName = "操作员:{}";
inline constexpr const char* times = "时间:{} 至 {}";
inline constexpr const char* openTime = "…";
inline constexpr const char* function = "功能:{}";
inline constexpr const char* noFunction = "(无)";
inline constexpr const char* text = "操作含“{}”";
inline constexpr const char* account = "科目:{}";
inline constexpr const char* between = "  ";

}  // namespace chengheng::log_list_texts
