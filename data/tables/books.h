#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>

#include "data/tables/table.h"

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

namespace chengheng {

template <>
struct TableOf<_zAccountMInfo> {
    static constexpr const char* name = "zAccountM";
    static constexpr const char* idRow = "zAccountM";
    static constexpr std::array<const char*, 0> indexes{};
    static constexpr auto columns = std::tuple{
        column("lId", &_zAccountMInfo::lId),           column("sName", &_zAccountMInfo::sName),
        column("sCompany", &_zAccountMInfo::sCompany), column("dtStart", &_zAccountMInfo::dtStart),
        column("sCodeLen", &_zAccountMInfo::sCodeLen), column("bFgn", &_zAccountMInfo::bFgn),
        column("lYear", &_zAccountMInfo::lYear),
    };
};

template <>
struct TableOf<_ABIdTableInfo> {
    static constexpr const char* name = "ABIdTable";
    static constexpr const char* idRow = "";
    static constexpr std::array<const char*, 1> indexes{"sTable"};
    static constexpr auto columns = std::tuple{
        column("sTable", &_ABIdTableInfo::sTable),
        column("lLastId", &_ABIdTableInfo::lLastId),
    };
};

template <>
struct TableOf<_BooksFormatInfo> {
    static constexpr const char* name = "BooksFormat";
    static constexpr const char* idRow = "";
    static constexpr std::array<const char*, 0> indexes{};
    static constexpr auto columns = std::tuple{
        column("lVersion", &_BooksFormatInfo::lVersion),
    };
};

}  // namespace chengheng
