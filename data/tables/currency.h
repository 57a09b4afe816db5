#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>

#include "data/tables/table.h"

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

namespace chengheng {

template <>
struct TableOf<_CyrencyInfo> {
    static constexpr const char* name = "Cyrency";
    static constexpr const char* idRow = "Cyrency";
    static constexpr std::array<const char*, 0> indexes{};
    static constexpr auto columns = std::tuple{
        column("lId", &_CyrencyInfo::lId),
        column("bySeq", &_CyrencyInfo::bySeq),
        column("sExchCode", &_CyrencyInfo::sExchCode),
        column("sExchName", &_CyrencyInfo::sExchName),
        column("bMode", &_CyrencyInfo::bMode),
        column("byDecimal", &_CyrencyInfo::byDecimal),
        column("fMaxError", &_CyrencyInfo::fMaxError),
    };
};

template <>
struct TableOf<_ExchgFixInfo> {
    static constexpr const char* name = "ExchgFix";
    static constexpr const char* idRow = "ExchgFix";
    static constexpr std::array<const char*, 1> indexes{"byExchId, byPeroid"};
    static constexpr auto columns = std::tuple{
        column("lId", &_ExchgFixInfo::lId),
        column("byExchId", &_ExchgFixInfo::byExchId),
        column("dtDate", &_ExchgFixInfo::dtDate),
        column("byPeroid", &_ExchgFixInfo::byPeroid),
        column("dRate", &_ExchgFixInfo::dRate),
        column("dAdjustRate", &_ExchgFixInfo::dAdjustRate),
    };
};

template <>
struct TableOf<_ExchgFltInfo> {
    static constexpr const char* name = "ExchgFlt";
    static constexpr const char* idRow = "ExchgFlt";
    static constexpr std::array<const char*, 1> indexes{"byExchId, byPeroid"};
    static constexpr auto columns = std::tuple{
        column("lId", &_ExchgFltInfo::lId),
        column("byExchId", &_ExchgFltInfo::byExchId),
        column("dtDate", &_ExchgFltInfo::dtDate),
        column("byPeroid", &_ExchgFltInfo::byPeroid),
        column("dRate", &_ExchgFltInfo::dRate),
        column("dAdjustRate", &_ExchgFltInfo::dAdjustRate),
    };
};

}  // namespace chengheng
