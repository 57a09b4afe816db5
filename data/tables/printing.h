#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>

#include "data/tables/table.h"

// Record types: the first field is the row's id, the others follow the columns of the
// table. The names are those of the database format.

/// Header of a print template; lId is the template number.
struct _ZWPrintMainInfo {
    std::int32_t lId = 0;
    std::string sTitle;
    std::uint8_t byPage = 0;     ///< paper
    std::int16_t bPortrait = 0;  ///< non-zero = upright page

    bool operator==(const _ZWPrintMainInfo&) const = default;
};

/// Column of a print template, in the order of lId.
struct _ZWPrintSubInfo {
    std::int32_t lId = 0;
    std::int32_t lTieId = 0;   ///< template number
    std::string sColName;      ///< heading
    std::string sFiled;        ///< source field (sic)
    std::uint8_t byWidth = 0;  ///< width in characters

    bool operator==(const _ZWPrintSubInfo&) const = default;
};

namespace chengheng {

template <>
struct TableOf<_ZWPrintMainInfo> {
    static constexpr const char* name = "ZWPrintMain";
    static constexpr const char* idRow = "ZWPrintMain";
    static constexpr std::array<const char*, 0> indexes{};
    static constexpr auto columns = std::tuple{
        column("lId", &_ZWPrintMainInfo::lId),
        column("sTitle", &_ZWPrintMainInfo::sTitle),
        column("byPage", &_ZWPrintMainInfo::byPage),
        column("bPortrait", &_ZWPrintMainInfo::bPortrait),
    };
};

template <>
struct TableOf<_ZWPrintSubInfo> {
    static constexpr const char* name = "ZWPrintSub";
    static constexpr const char* idRow = "ZWPrintSub";
    static constexpr std::array<const char*, 1> indexes{"lTieId"};
    static constexpr auto columns = std::tuple{
        column("lId", &_ZWPrintSubInfo::lId),           column("lTieId", &_ZWPrintSubInfo::lTieId),
        column("sColName", &_ZWPrintSubInfo::sColName), column("sFiled", &_ZWPrintSubInfo::sFiled),
        column("byWidth", &_ZWPrintSubInfo::byWidth),
    };
};

}  // namespace chengheng
