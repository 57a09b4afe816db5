#pragma once

/// What lists of voucher types hold.
namespace chengheng::voucher_type_texts {

inline constexpr const char* debitRequired = "借方必有";
inline constexpr const char* creditRequired = "贷方必有";
inline constexpr const char* bothForbidden = "借贷必无";

}  // namespace chengheng::voucher_type_texts
