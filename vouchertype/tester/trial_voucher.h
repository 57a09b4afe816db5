#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "accounts/codes/code_levels.h"
#include "data/tables/settlement.h"
#include "vouchertype/restriction/voucher_restriction.h"

namespace chengheng {

/// A line of a voucher that is tried, as it was typed.
struct TrialLine {
    int number = 0;  ///< by which it is told
    std::string account;
    std::string debit;
    std::string credit;

    bool isBlank() const { return account.empty() && debit.empty() && credit.empty(); }
    bool operator==(const TrialLine&) const = default;
};

/// What a voucher is held against.
struct TrialBooks {
    std::vector<_SignInfo> types;
    std::map<std::string, std::string, std::less<>> accounts;  ///< names by code
    CodeLevels levels{""};

    std::string nameOf(std::string_view code) const;
};

/// The code that a text names: itself, or what stands before its first blank ("1001 库存现金");
/// empty where there is no such account.
std::string accountIn(const TrialBooks& books, std::string_view text);

/// Whether the voucher may be of a type.
struct TypeVerdict {
    _SignInfo type;
    bool isAllowed = false;
    std::string words;       ///< why not; of a type that allows it, what its restriction is
    std::vector<int> lines;  ///< that may not be there

    bool operator==(const TypeVerdict&) const = default;
};

/// What came of trying a voucher.
struct TrialResult {
    std::vector<std::string> faults;    ///< of lines; with any, nothing is said of the types
    std::vector<std::string> notes;     ///< what is worth knowing beside it
    std::vector<TypeVerdict> verdicts;  ///< of each type, in the order of the types
};

/// Tries a voucher: reads its lines, the blank ones left out, and holds them against each type.
TrialResult tryVoucher(std::span<const TrialLine> lines, const TrialBooks& books);

}  // namespace chengheng
