#pragma once

/// What is said of the rates of a currency as a whole. {} is a value.
namespace chengheng::rate_texts {

inline constexpr const char* missingDays = "缺 {} 天:{}";
inline constexpr const char* missingMonths = "缺 {} 个月:{}";
/// From and to.
inline constexpr const char* missingRange = "{} 至 {}";
inline constexpr const char* listSeparator = "、";
/// Behind so many gaps as there is room for.
inline constexpr const char* moreGaps = "等 {} 处";

inline constexpr const char* cancelled = "写入已取消,汇率没有改动。";
inline constexpr const char* changedMeanwhile = "汇率在此期间已有改动,没有写入。\n请核对后重试。";

}  // namespace chengheng::rate_texts
