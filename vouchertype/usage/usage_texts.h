#pragma once

/// What the report of the use of voucher types says. {} is a value.
namespace chengheng::usage_texts {

inline constexpr const char* command = "使用情况(&Y)...";

inline constexpr const char* wholeYear = "全年";
inline constexpr const char* month = "{} 月";
/// In the place of the name.
inline constexpr const char* noSuchType = "(没有这个类别)";
inline constexpr const char* noType = "(没有类别)";

// Of a month, the numbers; of a year, how many.
inline constexpr const char* missingNumbers = "缺 {}";
inline constexpr const char* doubledNumbers = "重 {}";
inline constexpr const char* missingCount = "缺 {} 号";
inline constexpr const char* doubledCount = "重 {} 号";
inline constexpr const char* unnumbered = "无号 {} 张";

// What carries a type besides vouchers.
inline constexpr const char* openingEntries = "期初明细 {} 张";
inline constexpr const char* transfers = "自动转帐 {} 个";
inline constexpr const char* unused = "没有使用";

inline constexpr const char* remarkSeparator = ";";
inline constexpr const char* numberSeparator = "、";
inline constexpr const char* numberRange = "{}-{}";
inline constexpr const char* andSoOn = " 等";

}  // namespace chengheng::usage_texts
