#pragma once

/// What is said and shown when opening entries are pasted, imported or exported, beside the words
/// of every import. {} is a value.
namespace chengheng::transfer_texts {

inline constexpr const char* voucherNumberTwice =
    "“凭证号数”已包括凭证类别和凭证号,不能再有“{}”一列。";

inline constexpr const char* directionUnknown = "“{}”不是方向,应为借或贷。";
inline constexpr const char* typeUnknown = "没有“{}”这个凭证类别。";
inline constexpr const char* classUnknown = "没有“{}”这个项目大类。";
inline constexpr const char* equalNames = "有 {} 个“{}”(编码 {}),请改填编码。";
inline constexpr const char* moreCodes = "等";
inline constexpr const char* summaryTooLong = "摘要超过 {} 个字符。";
inline constexpr const char* summaryUnreadable = "摘要中有换行或不能显示的字符。";

inline constexpr const char* accountUnknown = "没有“{}”这个科目。";
inline constexpr const char* accountNotEnd = "科目“{}”有下级科目,请在末级科目中录入期初明细。";
inline constexpr const char* accountWithoutEntries = "科目“{}”没有辅助核算,没有期初明细。";

// The windows.
inline constexpr const char* menuImport = "导入...";
inline constexpr const char* menuExport = "导出...";
inline constexpr const char* menuPaste = "粘贴\tCtrl+V";
inline constexpr const char* importTitle = "导入期初明细";
inline constexpr const char* pasteTitle = "粘贴期初明细";
inline constexpr const char* exportTitle = "导出期初明细";
inline constexpr const char* exportFile = "期初明细 {}.xlsx";
inline constexpr const char* summary = "新增 {} 行,拒绝 {} 行。";
inline constexpr const char* repeated =
    "有 {} 行与科目中已有的明细完全相同,可能是重复导入,请核对。";
inline constexpr const char* isThere = "与已有的明细相同";
inline constexpr const char* nothingToImport = "没有可以导入的内容。";
inline constexpr const char* working = "正在写入期初明细,请稍候.....";
inline constexpr const char* imported = "导入完成:新增 {} 笔期初明细。";
inline constexpr const char* exported = "期初明细已导出到“{}”。";

}  // namespace chengheng::transfer_texts
