#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/values/date.h"

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
