#pragma once

/// What chbooks says of the carry-forward, in its help. The operator's texts are those of the
/// books.
namespace chengheng::tool_texts {

inline constexpr const char* carryCommand = "把上年期末余额结转为本年期初余额";
inline constexpr const char* dryRunCarry = "只显示将结转的内容和不能结转的原因,不写入";
inline constexpr const char* repeatCarry =
    "上年帐套结转后又改动时,只补转不同的余额;与--dry-run同用时只显示,不写入";
inline constexpr const char* carryFileOfReading =
    "--pdf、--xlsx、--csv 只能与 --dry-run 或 --verify 同用。";
inline constexpr const char* verifyCarry = "核对本年期初余额与上年期末余额,不写入";

}  // namespace chengheng::tool_texts
