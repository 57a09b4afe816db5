#pragma once

// What chbooks says about vouchers and their types. {} is a value.

namespace chengheng::voucher_texts {

inline constexpr const char* testVoucherCommand =
    "试一张凭证可以用哪些凭证类别,不可以时说明原因;不改动帐套";
inline constexpr const char* voucherFileArgument =
    "CSV 或 XLSX 文件,每行一条分录:科目编码、借方、贷方,或科目编码、方向、金额;标题行可以省略";
inline constexpr const char* typeOption = "只试这一个凭证类别,如 收";
inline constexpr const char* typeUnknown = "没有凭证类别“{}”。";
/// Whether it may be, number, name, words.
inline constexpr const char* verdict = "{} {} {}  {}\n";
inline constexpr const char* allowed = "可以  ";
inline constexpr const char* refused = "不可以";
inline constexpr const char* note = "提示:{}\n";

}  // namespace chengheng::voucher_texts
