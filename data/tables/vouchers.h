#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <tuple>

#include "data/tables/table.h"

// Record types: the first field is the row's id, the others follow the columns of the
// table. The names are those of the database format.

using chengheng::Date;

/// Header of a posted voucher, or of an opening entry.
struct _RegMainInfo {
    std::int32_t lId = 0;
    std::uint8_t byPeroid = 0;  ///< (sic)
    Date dtDate;
    std::string sSign;         ///< voucher type
    std::int32_t lNumber = 0;  ///< number within its type and period
    std::int32_t lAttach = 0;  ///< attached documents
    std::int32_t lUBill = 0;   ///< operator who made it
    std::int32_t lUCheck = 0;  ///< operator who checked it
    std::int32_t lUBook = 0;   ///< operator who posted it

    bool operator==(const _RegMainInfo&) const = default;
};

/// Header of a voucher not yet posted.
struct _UnregMainInfo {
    std::int32_t lId = 0;
    std::uint8_t byPeroid = 0;  ///< (sic)
    Date dtDate;
    std::string sSign;         ///< voucher type
    std::int32_t lNumber = 0;  ///< number within its type and period
    std::int32_t lAttach = 0;  ///< attached documents
    std::int32_t lUBill = 0;   ///< operator who made it
    std::int32_t lUCheck = 0;  ///< operator who checked it
    std::int32_t lUBook = 0;   ///< operator who posted it

    bool operator==(const _UnregMainInfo&) const = default;
};

/// Line of a posted voucher; bBegin marks an auxiliary opening entry.
struct _RegSubInfo {
    std::int32_t lId = 0;
    std::int32_t lTieId = 0;   ///< its header
    std::int32_t lLine = 0;    ///< line number
    std::string sDigest;       ///< summary
    std::int32_t lCodeId = 0;  ///< account
    std::int16_t bDirect = 0;  ///< 1 = debit
    double mMoney = 0;         ///< home amount
    double mFgn = 0;           ///< foreign amount
    double dAmt = 0;           ///< quantity
    double dRate = 0;          ///< exchange rate
    std::int32_t lDeptId = 0;
    std::optional<std::int32_t> lPersonId;  ///< unknown unless the line names a person
    std::int32_t lEnterId = 0;
    std::int32_t lItemId = 0;
    std::string sItemId;  ///< project class of the item
    std::string sStlId;   ///< settlement method
    std::string sNoteNo;  ///< number of the cheque or note
    Date dtNote;
    std::int16_t bBegin = 0;  ///< 1 = opening entry

    bool operator==(const _RegSubInfo&) const = default;
};

/// Line of a voucher not yet posted.
struct _UnregSubInfo {
    std::int32_t lId = 0;
    std::int32_t lTieId = 0;   ///< its header
    std::int32_t lLine = 0;    ///< line number
    std::string sDigest;       ///< summary
    std::int32_t lCodeId = 0;  ///< account
    std::int16_t bDirect = 0;  ///< 1 = debit
    double mMoney = 0;         ///< home amount
    double mFgn = 0;           ///< foreign amount
    double dAmt = 0;           ///< quantity
    double dRate = 0;          ///< exchange rate
    std::int32_t lDeptId = 0;
    std::optional<std::int32_t> lPersonId;  ///< unknown unless the line names a person
    std::int32_t lEnterId = 0;
    std::int32_t lItemId = 0;
    std::string sItemId;  ///< project class of the item
    std::string sStlId;   ///< settlement method
    std::string sNoteNo;  ///< number of the cheque or note
    Date dtNote;
    std::int16_t bBegin = 0;  ///< 1 = opening entry

    bool operator==(const _UnregSubInfo&) const = default;
};

namespace chengheng {

template <>
struct TableOf<_RegMainInfo> {
    static constexpr const char* name = "RegMain";
    static constexpr const char* idRow = "RegMain";
    static constexpr std::array<const char*, 2> indexes{"sSign", "byPeroid"};
    static constexpr auto columns = std::tuple{
        column("lId", &_RegMainInfo::lId),         column("byPeroid", &_RegMainInfo::byPeroid),
        column("dtDate", &_RegMainInfo::dtDate),   column("sSign", &_RegMainInfo::sSign),
        column("lNumber", &_RegMainInfo::lNumber), column("lAttach", &_RegMainInfo::lAttach),
        column("lUBill", &_RegMainInfo::lUBill),   column("lUCheck", &_RegMainInfo::lUCheck),
        column("lUBook", &_RegMainInfo::lUBook),
    };
};

template <>
struct TableOf<_UnregMainInfo> {
    static constexpr const char* name = "UnregMain";
    static constexpr const char* idRow = "UnRegMain";
    static constexpr std::array<const char*, 1> indexes{"sSign"};
    static constexpr auto columns = std::tuple{
        column("lId", &_UnregMainInfo::lId),         column("byPeroid", &_UnregMainInfo::byPeroid),
        column("dtDate", &_UnregMainInfo::dtDate),   column("sSign", &_UnregMainInfo::sSign),
        column("lNumber", &_UnregMainInfo::lNumber), column("lAttach", &_UnregMainInfo::lAttach),
        column("lUBill", &_UnregMainInfo::lUBill),   column("lUCheck", &_UnregMainInfo::lUCheck),
        column("lUBook", &_UnregMainInfo::lUBook),
    };
};

template <>
struct TableOf<_RegSubInfo> {
    static constexpr const char* name = "RegSub";
    static constexpr const char* idRow = "RegSub";
    static constexpr std::array<const char*, 3> indexes{"lCodeId", "lTieId", "sStlId"};
    static constexpr auto columns = std::tuple{
        column("lId", &_RegSubInfo::lId),           column("lTieId", &_RegSubInfo::lTieId),
        column("lLine", &_RegSubInfo::lLine),       column("sDigest", &_RegSubInfo::sDigest),
        column("lCodeId", &_RegSubInfo::lCodeId),   column("bDirect", &_RegSubInfo::bDirect),
        column("mMoney", &_RegSubInfo::mMoney),     column("mFgn", &_RegSubInfo::mFgn),
        column("dAmt", &_RegSubInfo::dAmt),         column("dRate", &_RegSubInfo::dRate),
        column("lDeptId", &_RegSubInfo::lDeptId),   column("lPersonId", &_RegSubInfo::lPersonId),
        column("lEnterId", &_RegSubInfo::lEnterId), column("lItemId", &_RegSubInfo::lItemId),
        column("sItemId", &_RegSubInfo::sItemId),   column("sStlId", &_RegSubInfo::sStlId),
        column("sNoteNo", &_RegSubInfo::sNoteNo),   column("dtNote", &_RegSubInfo::dtNote),
        column("bBegin", &_RegSubInfo::bBegin),
    };
};

template <>
struct TableOf<_UnregSubInfo> {
    static constexpr const char* name = "UnregSub";
    static constexpr const char* idRow = "UnRegSub";
    static constexpr std::array<const char*, 3> indexes{"lCodeId", "lTieId", "sStlId"};
    static constexpr auto columns = std::tuple{
        column("lId", &_UnregSubInfo::lId),
        column("lTieId", &_UnregSubInfo::lTieId),
        column("lLine", &_UnregSubInfo::lLine),
        column("sDigest", &_UnregSubInfo::sDigest),
        column("lCodeId", &_UnregSubInfo::lCodeId),
        column("bDirect", &_UnregSubInfo::bDirect),
        column("mMoney", &_UnregSubInfo::mMoney),
        column("mFgn", &_UnregSubInfo::mFgn),
        column("dAmt", &_UnregSubInfo::dAmt),
        column("dRate", &_UnregSubInfo::dRate),
        column("lDeptId", &_UnregSubInfo::lDeptId),
        column("lPersonId", &_UnregSubInfo::lPersonId),
        column("lEnterId", &_UnregSubInfo::lEnterId),
        column("lItemId", &_UnregSubInfo::lItemId),
        column("sItemId", &_UnregSubInfo::sItemId),
        column("sStlId", &_UnregSubInfo::sStlId),
        column("sNoteNo", &_UnregSubInfo::sNoteNo),
        column("dtNote", &_UnregSubInfo::dtNote),
        column("bBegin", &_UnregSubInfo::bBegin),
    };
};

}  // namespace chengheng
