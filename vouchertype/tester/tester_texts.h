#pragma once

/// What is read and said of a voucher that is only tried. {} is a value.
namespace chengheng::tester_texts {

// Columns of a voucher in a file or a block.
inline constexpr const char* accountColumn = "科目编码";
inline constexpr const char* accountColumnToo = "科目";
inline constexpr const char* debitColumn = "借方";
inline constexpr const char* debitColumnToo = "借方金额";
inline constexpr const char* creditColumn = "贷方";
inline constexpr const char* creditColumnToo = "贷方金额";
inline constexpr const char* sideColumn = "方向";
inline constexpr const char* amountColumn = "金额";
inline constexpr const char* debit = "借";
inline constexpr const char* credit = "贷";
inline constexpr const char* noColumns = "没有科目编码、借方、贷方三列";

/// Stands between code and name as a common blank does.
inline constexpr const char* wideBlank = "　";

// What is wrong with a line: its number comes first.
inline constexpr const char* noAccount = "第 {} 行没有科目";
inline constexpr const char* unknownAccount = "第 {} 行:没有科目“{}”";
inline constexpr const char* notNumber = "第 {} 行:“{}”不是金额";
inline constexpr const char* bothSides = "第 {} 行借方和贷方都有金额";

// What is worth knowing, and forbids nothing.
inline constexpr const char* noAmount = "第 {} 行没有金额,不算";
/// Type, code: gone, or below another one.
inline constexpr const char* notFirstLevel = "凭证类别 {} 的限制科目“{}”不是一级科目,不起作用";
inline constexpr const char* unbalanced = "借方合计 {},贷方合计 {},不平";

inline constexpr const char* noLines = "没有分录";
inline constexpr const char* noTypes = "还没有凭证类别";
inline constexpr const char* unrestricted = "不限制";

}  // namespace chengheng::tester_texts
