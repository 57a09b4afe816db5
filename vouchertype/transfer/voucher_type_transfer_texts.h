#pragma once

/// What is said and shown when voucher types are imported or exported, beside the words of every
/// import. {} is a value.
namespace chengheng::voucher_type_transfer_texts {

/// Stands for a type without restriction.
inline constexpr const char* unrestricted = "无";

/// The heading of the column.
inline constexpr const char* empty = "{}不能为空";
inline constexpr const char* unshowable = "{}含有不能显示的字符";
/// The same and how many characters it takes.
inline constexpr const char* tooLong = "{}最多 {} 个字";
/// The row that has the number already.
inline constexpr const char* numberTwice = "类别与第 {} 行的重复";
/// How many types of the books have the number.
inline constexpr const char* numberShared = "帐套中有 {} 个类别“{}”,不知道是哪一个";
inline constexpr const char* restrictionUnknown =
    "“{}”不是限制方式,应为无、借方必有、贷方必有或借贷必无";
inline constexpr const char* accountsUnrestricted = "没有限制的类别不能有限制科目";

inline constexpr const char* cancelled = "导入已取消,凭证类别没有改动。";

// The window.
inline constexpr const char* importCommand = "导入...";
inline constexpr const char* exportCommand = "导出...";
inline constexpr const char* importTitle = "导入凭证类别";
inline constexpr const char* exportTitle = "导出凭证类别";
inline constexpr const char* exportFile = "凭证类别.xlsx";
inline constexpr const char* working = "正在写入,请稍候.....";
inline constexpr const char* done = "导入完成:新增 {} 个凭证类别,修改 {} 个。";
inline constexpr const char* exported = "凭证类别已导出到“{}”。";

}  // namespace chengheng::voucher_type_transfer_texts
