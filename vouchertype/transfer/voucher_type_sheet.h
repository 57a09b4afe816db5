#pragma once

#include <array>
#include <span>
#include <string>

#include "data/tables/settlement.h"
#include "sheets/headed_columns.h"
#include "sheets/sheet.h"
#include "vouchertype/voucher_type_texts.h"

namespace chengheng {

/// A column of voucher types in a spreadsheet, by its place among the wanted ones.
namespace voucher_type_columns {

inline constexpr std::size_t number = 0;
inline constexpr std::size_t name = 1;
inline constexpr std::size_t restriction = 2;
inline constexpr std::size_t accountOne = 3;
inline constexpr std::size_t accountTwo = 4;

/// Headed as the fields of the window are; the number is in every sheet.
inline constexpr std::array wanted{
    WantedColumn{voucher_type_texts::number, nullptr, true},
    WantedColumn{voucher_type_texts::name},
    WantedColumn{voucher_type_texts::restricted},
    WantedColumn{voucher_type_texts::accountOne},
    WantedColumn{voucher_type_texts::accountTwo},
};

}  // namespace voucher_type_columns

/// A stored kind of restriction as a sheet has it: 无, 借方必有 and so on, its number where it is
/// none known.
std::string sheetRestriction(std::uint8_t kind);

/// Types as a sheet that reads back as they are.
Sheet exportedVoucherTypes(std::span<const _SignInfo> types);

}  // namespace chengheng
