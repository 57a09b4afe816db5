#pragma once

/// What lists of currencies and rates hold. {} is a value.
namespace chengheng::currency_texts {

inline constexpr const char* foreignTimesRate = "原币*汇率 = 本位币";
inline constexpr const char* foreignByRate = "原币/汇率 = 本位币";
/// Name and symbol.
inline constexpr const char* ratesOf = "外币:{}({})";

}  // namespace chengheng::currency_texts
