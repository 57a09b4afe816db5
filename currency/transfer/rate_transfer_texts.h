#pragma once

/// What is said and shown when rates are imported or exported, beside the words of every import.
/// {} is a value.
namespace chengheng::rate_transfer_texts {

// Headings of a sheet.
inline constexpr const char* day = "日期";
inline constexpr const char* month = "月份";
inline constexpr const char* symbol = "币符";
inline constexpr const char* name = "币名";
inline constexpr const char* rate = "记帐汇率";
inline constexpr const char* plainRate = "汇率";
inline constexpr const char* adjustRate = "调整汇率";
inline constexpr const char* units = "单位";

// Within a day: 2026年3月4日.
inline constexpr const char* yearSign = "年";
inline constexpr const char* monthSign = "月";
inline constexpr const char* daySign = "日";

inline constexpr const char* headingsMissing =
    "没有标题行。标题行中应有“日期”或“月份”,以及“记帐汇率”或各外币的币符、币名。";
inline constexpr const char* bothTimes = "“日期”和“月份”不能同时作为标题";
inline constexpr const char* ratesMissing =
    "没有汇率的列。标题行中应有“记帐汇率”,或各外币的币符、币名。";
inline constexpr const char* bothWays = "有“记帐汇率”的表中,不能再有以外币“{}”为标题的列";
inline constexpr const char* currencyMissing =
    "没有“币符”列,不知道是哪一种外币的汇率。请先选择外币。";
inline constexpr const char* headingTwice = "标题“{}”与第 {} 列指同一种外币";

inline constexpr const char* dayInvalid = "“{}”不是日期";
inline constexpr const char* monthInvalid = "“{}”不是月份";
inline constexpr const char* otherYear = "不是 {} 年的汇率";
inline constexpr const char* noRow = "帐套中没有 {} 的 {} 汇率";
inline constexpr const char* currencyUnknown = "没有币符或币名为“{}”的外币";
inline constexpr const char* currencyEmpty = "没有外币";
inline constexpr const char* unitsInvalid = "“{}”不是单位数,应为 1、100 等";
inline constexpr const char* noRate = "“{}”不是汇率";
inline constexpr const char* decimalComma = "“{}”中的逗号不是小数点";
inline constexpr const char* notPositive = "汇率应大于零";
inline constexpr const char* tooLarge = "汇率太大";
/// The decimals.
inline constexpr const char* roundsToZero = "汇率只有 {} 位小数,舍入后为零";
inline constexpr const char* adjustedDays = "浮动汇率的调整汇率不能录入";
/// The row before and the currency.
inline constexpr const char* rateTwice = "与第 {} 行的 {} 汇率重复";
/// Symbol, rate, the one before.
inline constexpr const char* departs = "{} 的汇率 {} 与之前的 {} 相差过半";
inline constexpr const char* given = "{} {}";

inline constexpr const char* sheetName = "汇率";
inline constexpr const char* importTitle = "导入汇率";
inline constexpr const char* pasteTitle = "粘贴汇率";
inline constexpr const char* exportTitle = "导出汇率";
inline constexpr const char* exportFile = "{}汇率.xlsx";
inline constexpr const char* importCommand = "导入...";
inline constexpr const char* exportCommand = "导出...";
inline constexpr const char* working = "正在写入,请稍候.....";
inline constexpr const char* done = "导入完成:修改 {} 行汇率。";
inline constexpr const char* exported = "汇率已导出到“{}”。";
/// A column that was pasted without a heading, by its place.
inline constexpr const char* unknownColumn = "第 {} 列";
inline constexpr const char* clipboard = "剪贴板";

/// What the operation log says: how many.
inline constexpr const char* logged = "导入汇率:修改 {} 项";

}  // namespace chengheng::rate_transfer_texts
