#pragma once

#include <cstdint>
#include <string>

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
