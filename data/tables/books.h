#pragma once

#include <cstdint>
#include <string>

#include "base/values/date.h"

using chengheng::Date;

/// Parameters of the set of books.
struct _zAccountMInfo {
    std::int32_t lId = 0;  ///< id of the set of books
    std::string sName;
    std::string sCompany;
    Date dtStart;            ///< first day of bookkeeping
    std::string sCodeLen;    ///< level-length pattern, a digit per level
    std::int16_t bFgn = 0;   ///< non-zero = foreign currencies are kept
    std::int32_t lYear = 0;  ///< accounting year

    bool operator==(const _zAccountMInfo&) const = default;
};

/// Last id handed out, a row per table.
struct _ABIdTableInfo {
    std::string sTable;
    std::int32_t lLastId = 0;

    bool operator==(const _ABIdTableInfo&) const = default;
};

/// One row: the version of the layout of these tables.
struct _BooksFormatInfo {
    std::int32_t lVersion = 0;

    bool operator==(const _BooksFormatInfo&) const = default;
};
