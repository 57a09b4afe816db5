#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "accounts/codes/code_levels.h"
#include "data/tables/settlement.h"

namespace chengheng {

/// A line of a voucher, as restrictions look at it.
struct VoucherLine {
    int number = 0;       ///< by which it is told
    std::string account;  ///< its code; empty: one that is not in the chart
    bool isDebit = true;
    double amount = 0;  ///< below 0 in red ink, which stays on its side
};

/// Why a voucher may not be of a type.
struct RestrictionBreach {
    std::string text;        ///< names the restriction, the lines and their accounts
    std::vector<int> lines;  ///< numbers of those that may not be there; none where one is missing

    bool operator==(const RestrictionBreach&) const = default;
};

/// The name of an account by its code; empty for one that is not in the chart.
using AccountNaming = std::function<std::string(std::string_view code)>;

/// The code of the first-level account that an account belongs to; a code that stands nowhere in
/// the levels is its own.
std::string firstLevelOf(const CodeLevels& levels, std::string_view code);

/// What is wrong with a type's restriction itself, so that no voucher may be of it: its kind is
/// none that is known, or it requires an account and names none. Empty where nothing is.
std::string restrictionFault(const _SignInfo& type);

/// Whether a voucher of these lines may be of a type, by the type's restriction; nothing when it
/// may.
///
/// An account counts as the first-level account that it belongs to. A line without amount moves
/// nothing, so it counts on neither side. A type that names one account is restricted by that
/// one.
std::optional<RestrictionBreach> restrictionBreach(const _SignInfo& type,
                                                   std::span<const VoucherLine> lines,
                                                   const CodeLevels& levels,
                                                   const AccountNaming& nameOf = {});

/// A type's restriction in words, "借方必有 1001 库存现金或 1002 银行存款"; empty for a type
/// without one.
std::string restrictionInWords(const _SignInfo& type, const AccountNaming& nameOf = {});

}  // namespace chengheng
