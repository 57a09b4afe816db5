#pragma once

/// What is said and shown when directories are imported or exported, beside the words of every
/// import. {} is a value.
namespace chengheng::directory_transfer_texts {


/// The noun and the row that has the code already.
inline constexpr const char* codeTwice = "{}编码与第 {} 行的重复";
inline constexpr const char* groupUnknown = "没有编码或名称为“{}”的{}";
/// How many, the name, what they are, their codes.
inline constexpr const char* equalNames = "有 {} 个名称为“{}”的{}(编码 {}),请改填编码";
inline constexpr const char* moreCodes = "等";
inline constexpr const char* unitKindUnknown = "“{}”不是性质,应为客户、供应商或客户兼供应商";
inline constexpr const char* nameShared = "已有同名的{}“{}”";
inline constexpr const char* cancelled = "导入已取消,{}没有改动。";

// The windows.
inline constexpr const char* importCommand = "导入...";
inline constexpr const char* exportCommand = "导出...";
inline constexpr const char* importTitle = "导入{}";
inline constexpr const char* exportTitle = "导出{}";
inline constexpr const char* exportFile = "{}.xlsx";
inline constexpr const char* working = "正在写入,请稍候.....";
inline constexpr const char* done = "导入完成:新增 {} 个{},修改 {} 个。";
inline constexpr const char* exported = "{}已导出到“{}”。";

}  // namespace chengheng::directory_transfer_texts
