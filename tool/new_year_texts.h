#pragma once

/// What the command prints that makes next year's books. {} is a value.
namespace chengheng::tool_texts {

inline constexpr const char* newYearCommand = "由一个年度的帐套建立下一年度的帐套,不带凭证和余额";
inline constexpr const char* endingBooksArgument = "上年帐套文件的路径或服务器地址,只读取,不改动";
inline constexpr const char* newYearTarget =
    "新年度帐套文件的路径、文件夹或服务器地址;省略时放在上年帐套的旁边";
inline constexpr const char* lastRatesOption = "以各外币上年最后一个汇率作为新年度的第一个汇率";
inline constexpr const char* newYearUnlisted = "不列入本机的帐套列表;须用 --target 指定位置";
inline constexpr const char* dryRunNewYear = "只说明将要建立什么,不建立";
inline constexpr const char* carryIntoNewYear =
    "建立后结转上年余额;不能结转时新年度帐套照样建立,退出码为1";
inline constexpr const char* newYearMade = "帐套“{}”的{}年度已建立:{}";
inline constexpr const char* newYearNotMade = "没有建立。";

}  // namespace chengheng::tool_texts
