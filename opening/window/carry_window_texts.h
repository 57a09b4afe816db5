#pragma once

/// What the opening window's commands on last year's books show and ask. {} is a value.
namespace chengheng::carry_window_texts {

inline constexpr const char* previewCarry = "结转预览...";
inline constexpr const char* repeatCarry = "补转上年差额...";
inline constexpr const char* verifyCarry = "核对上年余额...";
inline constexpr const char* comparing = "正在与上年帐套比较,请稍候.....";
inline constexpr const char* repeating = "正在补转上年差额,请稍候.....";
inline constexpr const char* carryRows = "科目";
inline constexpr const char* carryPreviewButton = "打印预览(&V)";
inline constexpr const char* carryPrintButton = "打印(&P)";
inline constexpr const char* repeatButton = "补转(&R)";
inline constexpr const char* askRepeat =
    "{}\n本年期初余额将改为上年期末余额,没有凭证时可以撤销。\n是否补转?";

}  // namespace chengheng::carry_window_texts
