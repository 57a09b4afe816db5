#pragma once

/// What every window with a list and a form asks.
namespace chengheng::form_texts {

inline constexpr const char* discardInput = "当前输入尚未保存,是否放弃?";

}  // namespace chengheng::form_texts
