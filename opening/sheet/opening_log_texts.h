#pragma once

/// What the operation log says of opening balances. {} is a value.
namespace chengheng::opening_log_texts {

/// The account, and how many more there are.
inline constexpr const char* loggedOpening = "修改期初余额 {} {}";
inline constexpr const char* loggedOpenings = "修改期初余额 {} {} 等 {} 个科目";
inline constexpr const char* loggedCarrying = "再次结转上年余额 {} 个科目";
/// Code and name of the account, its direction before and after.
inline constexpr const char* loggedDirection = "调整余额方向 {} {} {} → {}";
inline constexpr const char* loggedSweep = "清除没有金额的余额记录";
inline constexpr const char* loggedSaving = "汇总上级科目余额";

}  // namespace chengheng::opening_log_texts
