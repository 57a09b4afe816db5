#pragma once

#include <cstdint>
#include <optional>
#include <string>

// Record types: the first field is the row's id, the others follow the columns of the
// table. The names are those of the database format.

/// Sums of one account in one period; period 1 carries the opening balance.
struct _AccSumInfo {
    std::int32_t lId = 0;
    std::int32_t lCodeId = 0;   ///< account
    std::uint8_t byPeroid = 0;  ///< period 1 to 12 (sic)
    double mBegin = 0;          ///< money: opening
    double mDebet = 0;          ///< money: debit (sic)
    double mCredit = 0;         ///< money: credit
    double dAmtBegin = 0;       ///< quantity: opening
    double dAmtDebet = 0;       ///< quantity: debit (sic)
    double dAmtCredit = 0;      ///< quantity: credit
    double mFgnBegin = 0;       ///< foreign currency: opening
    double mFgnDebet = 0;       ///< foreign currency: debit (sic)
    double mFgnCredit = 0;      ///< foreign currency: credit

    bool operator==(const _AccSumInfo&) const = default;
};

/// Sums of one account, one combination of dimensions and one period. A dimension not used is 0.
struct _AssAccInfo {
    std::int32_t lId = 0;
    std::uint8_t byPeroid = 0;              ///< period 1 to 12 (sic)
    std::int32_t lCodeId = 0;               ///< account
    std::int32_t lItemId = 0;               ///< project item
    std::int32_t lDeptId = 0;               ///< department
    std::optional<std::int32_t> lPersonId;  ///< person, may be unknown
    std::int32_t lEnterId = 0;              ///< unit
    std::string sItemId;                    ///< project class of the item
    double mBegin = 0;                      ///< money: opening
    double mDebt = 0;                       ///< money: debit (sic)
    double mCredit = 0;                     ///< money: credit
    double dBegin = 0;                      ///< quantity: opening
    double dDebt = 0;                       ///< quantity: debit (sic)
    double dCredit = 0;                     ///< quantity: credit
    double mFBegin = 0;                     ///< foreign currency: opening
    double mFDebt = 0;                      ///< foreign currency: debit (sic)
    double mFCredit = 0;                    ///< foreign currency: credit

    bool operator==(const _AssAccInfo&) const = default;
};
