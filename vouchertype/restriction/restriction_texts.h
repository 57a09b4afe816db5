#pragma once

/// Why a voucher may not be of a type. {} is a value.
namespace chengheng::restriction_texts {

inline constexpr const char* debit = "借方";
inline constexpr const char* credit = "贷方";

/// The restriction of a type: kind and accounts.
inline constexpr const char* restriction = "{} {}";
inline constexpr const char* either = "{} 或 {}";
/// Code and name of an account.
inline constexpr const char* account = "{} {}";
inline constexpr const char* unknownAccount = "(没有这个科目)";

// What follows the restriction.

/// Side.
inline constexpr const char* sideEmpty = ":{}没有分录";
/// Side, its lines.
inline constexpr const char* sideHolds = ":{}只有{}";
/// A line on the right account, without amount.
inline constexpr const char* withoutAmount = ":{}没有金额,不算";
/// The lines.
inline constexpr const char* forbiddenLines = ":{}";

/// Number and account of a line.
inline constexpr const char* line = "第 {} 行 {}";
/// Number, side and account of a line.
inline constexpr const char* lineOnSide = "第 {} 行{} {}";
inline constexpr const char* lineSeparator = "、";
/// The number of all lines, of which the first are told.
inline constexpr const char* moreLines = " 等 {} 行";

inline constexpr const char* accountsMissing = "{}的科目没有设置,请在“凭证类别”中补上";
inline constexpr const char* kindUnknown = "限制方式 {} 无法识别,请在“凭证类别”中重新选择";

}  // namespace chengheng::restriction_texts
