#pragma once

// What is said of a log that was looked through. {} is a value.

namespace chengheng::verifying_texts {

/// Numbers of entries.
inline constexpr const char* takenOut = "第 {} 条不见了,被删去了。";
inline constexpr const char* severalTakenOut = "第 {} 至 {} 条不见了,被删去了。";
inline constexpr const char* changed = "第 {} 条的内容被改动过。";
inline constexpr const char* exchanged = "第 {} 条与它的前一条接不上,被换过或是后来插入的。";
inline constexpr const char* putIn = "第 {} 条不是程序写的,是后来插入的。";
inline constexpr const char* severalPutIn = "第 {} 至 {} 条不是程序写的,是后来插入的。";
inline constexpr const char* partsChanged = "第 {} 条的明细被改动过,或者有增减。";
inline constexpr const char* headGone = "日志末尾的记载不见了。";
inline constexpr const char* headChanged = "日志末尾的记载与最后一条不符,其中之一被改动过。";
inline constexpr const char* strayParts = "有 {} 份明细不属于任何一条。";

/// Table, id, column, what is there, the number of the entry, what it says.
inline constexpr const char* rowDiffers = "{}(编号 {})的“{}”现在是“{}”,第 {} 条所记的是“{}”。";
/// Table, id, the number of the entry.
inline constexpr const char* rowGone = "{}(编号 {})不见了,按第 {} 条所记应当还在。";
inline constexpr const char* rowCameBack = "{}(编号 {})按第 {} 条所记已删除,现在却还在。";
inline constexpr const char* rowsUntold = "第 {1} 条所记的{0}读不出来,无法核对。";

/// A seal, line by line.
inline constexpr const char* sealHeading = "澄恒操作日志封存";
inline constexpr const char* sealBooks = "帐套:";
inline constexpr const char* sealNumber = "条数:";
inline constexpr const char* sealTime = "时间:";
inline constexpr const char* sealHash = "校验:";

/// What became of what was sealed; its number of entries and the time of the last.
inline constexpr const char* sealWhole = "封存的 {} 条(至 {})都在,没有改动。";
inline constexpr const char* sealBroken = "封存的 {} 条(至 {})已不是原样。";

}  // namespace chengheng::verifying_texts
