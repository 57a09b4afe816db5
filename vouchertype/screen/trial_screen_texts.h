#pragma once

/// What the tester of vouchers shows. {} is a value.
namespace chengheng::trial_screen_texts {

inline constexpr const char* typePage = "类别";
inline constexpr const char* trialPage = "凭证试用";
inline constexpr const char* tryCommand = "凭证试用\tCtrl+T";

inline constexpr const char* lines = "试用的分录";
inline constexpr const char* account = "科目编码";
inline constexpr const char* accountName = "科目名称";
inline constexpr const char* debit = "借方";
inline constexpr const char* credit = "贷方";

inline constexpr const char* paste = "粘贴(&V)";
inline constexpr const char* clear = "清空(&C)";
inline constexpr const char* hint = "录入或粘贴分录,试试能用哪些类别";

inline constexpr const char* results = "能用哪些类别";
/// Number and name of a type, and its restriction or why it cannot be used.
inline constexpr const char* allowed = "可以用 {} {}:{}";
inline constexpr const char* refused = "不能用 {} {}:{}";
/// How many, behind those that are told.
inline constexpr const char* moreFaults = "还有 {} 处不对";
inline constexpr const char* nothingPasted = "剪贴板中没有分录。";

}  // namespace chengheng::trial_screen_texts
