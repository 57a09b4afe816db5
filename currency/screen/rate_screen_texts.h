#pragma once

/// What stands around the grid of rates. {} is a value.
namespace chengheng::rate_screen_texts {

/// Where, its rate, and the one before.
inline constexpr const char* departs = "{} 的汇率 {} 与之前的 {} 相差过半,按 Ctrl+Z 撤销";
// What a change of a currency means for its rates, each a sentence.
inline constexpr const char* hasRates = "本年已录入 {} 个汇率:";
inline constexpr const char* otherMode = "折算方式已改变,它们没有换算,请核对。";
inline constexpr const char* fewerDecimals = "小数位已减少,它们没有舍入。";
inline constexpr const char* otherMaxError = "最大误差已改变,以后按新的误差检查。";

/// Amount, currency, times or divided by, rate, home amount, day.
inline constexpr const char* conversion = "{} {} {} {} = {} 本位币({})";
inline constexpr const char* times = "×";
inline constexpr const char* dividedBy = "÷";
inline constexpr const char* converted = "折算(&Q):";
inline constexpr const char* convertedAmount = "折算的原币金额";
inline constexpr const char* firstAmount = "100";

inline constexpr const char* picture = "全年汇率";
/// Day and rate.
inline constexpr const char* pictureTip = "{}  {}";
inline constexpr const char* pictureTipMarked = "{}  {}(与之前的汇率相差较大)";
/// First and last day with a rate, least and greatest rate.
inline constexpr const char* pictureWords = "{} 至 {},最低 {},最高 {}";
inline constexpr const char* pictureEmpty = "还没有汇率";
inline constexpr const char* unreadable = "全年的汇率没有读出,缺口和图不完整";
inline constexpr const char* pictureMarked = ",与之前相差较大的有 {} 处";

// Menus.
inline constexpr const char* undo = "撤销\tCtrl+Z";
inline constexpr const char* redo = "重做\tCtrl+Y";
inline constexpr const char* paste = "粘贴汇率...\tCtrl+V";
inline constexpr const char* nextGap = "下一个缺口\tCtrl+G";
inline constexpr const char* fillGaps = "补齐缺口...";

inline constexpr const char* nothingToFill = "缺少的汇率之前没有可以沿用的汇率。";
inline constexpr const char* fillTitle = "补齐缺口";
inline constexpr const char* fillSource = "沿用之前最后一个汇率:";
inline constexpr const char* fillSourceInPart =
    "沿用之前最后一个汇率;另有 {} 个之前没有汇率,不能补齐:";
inline constexpr const char* fill = "补齐";
inline constexpr const char* fillReady = "请核对后按“补齐”,所有行将一次写入。";
inline constexpr const char* pasteSource = "剪贴板的内容:";
inline constexpr const char* time = "日期";
inline constexpr const char* rate = "汇率";
inline constexpr const char* nothingPasted = "剪贴板中没有可以粘贴的汇率。";

// How a file quotes its rates.
inline constexpr const char* quotingTitle = "汇率的报价";
inline constexpr const char* asConverted = "按各外币的折算方式(&A)";
inline constexpr const char* homePerForeign = "一单位外币合多少本位币(&H)";
inline constexpr const char* foreignPerHome = "一单位本位币合多少外币(&F)";
inline constexpr const char* units = "汇率的单位数(&U):";

/// What a history is of: currency, day or month, which rate.
inline constexpr const char* historyOf = "{} {} {}";

}  // namespace chengheng::rate_screen_texts
