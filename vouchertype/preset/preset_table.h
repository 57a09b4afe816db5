#pragma once

#include <span>
#include <string>
#include <vector>

#include "data/tables/settlement.h"
#include "vouchertype/preset/preset_texts.h"
#include "vouchertype/restriction_kind.h"

namespace chengheng {

/// The sets of voucher types that a new set of books may begin with.
enum class PresetSet {
    unclassified,         ///< 记
    receiptsAndPayments,  ///< 收, 付, 转
    cashAndBank,          ///< 现, 银, 转
    fiveKinds,            ///< 01 to 05
    custom,               ///< none: the operator adds types
};

/// The account that a preset type names.
enum class PresetAccount { none, cash, bank };

/// A type of a set, before the books' accounts are known.
struct PresetRow {
    preset_texts::TypeName called;
    RestrictionKind kind = RestrictionKind::none;
    PresetAccount one = PresetAccount::none;
    PresetAccount two = PresetAccount::none;
};

/// In the order in which they are written.
std::span<const PresetRow> presetRows(PresetSet set);

/// The codes of the first-level cash and bank accounts; empty where there is none.
struct PresetAccounts {
    std::string cash;
    std::string bank;
};

/// The types of a set in books with these accounts. A type whose accounts are not all there, or
/// that would name one twice, has no restriction: half of one would be another restriction than
/// the one chosen.
std::vector<_SignInfo> presetTypes(PresetSet set, const PresetAccounts& accounts);

/// What the wizard shows of a set before it is written, line by line.
std::vector<std::string> presetPreview(PresetSet set, const PresetAccounts& accounts);

}  // namespace chengheng
