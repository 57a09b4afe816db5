#pragma once

#include <cstdint>
#include <string>

#include "base/values/date.h"

// Record types: the first field is the row's id, the others follow the columns of the
// table. The names are those of the database format.

using chengheng::Date;

/// A foreign currency (sic). Its lId is the byExchId of accounts and rates.
struct _CyrencyInfo {
    std::int32_t lId = 0;
    std::uint8_t bySeq = 0;  ///< last id + 1, modulo 256
    std::string sExchCode;   ///< symbol, upper case
    std::string sExchName;
    std::int16_t bMode = 0;      ///< 1 = foreign × rate = home, 0 = foreign ÷ rate = home
    std::uint8_t byDecimal = 0;  ///< decimals of the rate, 2 to 9
    float fMaxError = 0;         ///< largest accepted difference

    bool operator==(const _CyrencyInfo&) const = default;
};

/// Fixed rate of a currency in a month; dtDate is its first day.
struct _ExchgFixInfo {
    std::int32_t lId = 0;
    std::uint8_t byExchId = 0;  ///< currency
    Date dtDate;
    std::uint8_t byPeroid = 0;  ///< month (sic)
    double dRate = 0;           ///< bookkeeping rate
    double dAdjustRate = 0;     ///< adjustment rate

    bool operator==(const _ExchgFixInfo&) const = default;
};

/// Floating rate of a currency on a day.
struct _ExchgFltInfo {
    std::int32_t lId = 0;
    std::uint8_t byExchId = 0;  ///< currency
    Date dtDate;
    std::uint8_t byPeroid = 0;  ///< month (sic)
    double dRate = 0;           ///< bookkeeping rate
    double dAdjustRate = 0;     ///< adjustment rate

    bool operator==(const _ExchgFltInfo&) const = default;
};
