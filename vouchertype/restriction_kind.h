#pragma once

#include <cstdint>

namespace chengheng {

/// What a voucher type asks of its vouchers, as Sign.byLimit keeps it.
enum class RestrictionKind : std::uint8_t {
    none = 0,
    debitRequired = 1,   ///< 借方必有: an account of the restriction stands on the debit side
    creditRequired = 2,  ///< 贷方必有: one stands on the credit side
    bothForbidden = 3,   ///< 借贷必无: none stands on either side
};

/// Whether a stored number is one of them.
constexpr bool isRestrictionKind(std::uint8_t stored) {
    return stored <= static_cast<std::uint8_t>(RestrictionKind::bothForbidden);
}

constexpr std::uint8_t stored(RestrictionKind kind) { return static_cast<std::uint8_t>(kind); }

/// 借方必有 and so on, by a stored number; null for none and for one that is no kind.
const char* restrictionKindText(std::uint8_t stored);

}  // namespace chengheng
