#pragma once

#include <cstdint>
#include <string>

#include "base/values/date.h"

// Record types: the first field is the row's id, the others follow the columns of the
// table. The names are those of the database format.

using chengheng::Date;

/// A voucher type and the accounts it requires or forbids.
struct _SignInfo {
    std::int32_t lId = 0;
    std::string sSign;  ///< number, at most 2 characters
    std::string sSignName;
    std::uint8_t byLimit = 0;  ///< 0 none, 1 借方必有, 2 贷方必有, 3 借贷必无
    std::string sCode1 = {};   ///< restriction account one
    std::string sCode2 = {};   ///< restriction account two

    bool operator==(const _SignInfo&) const = default;
};

/// A settlement method.
struct _SettleInfo {
    std::int32_t lId = 0;
    std::string sStlId;      ///< number, at most 2 characters
    std::string sSettle;     ///< name
    std::int16_t bNote = 0;  ///< bit 0: kept in the cheque register

    bool operator==(const _SettleInfo&) const = default;
};

/// An entry of the bank statement.
struct _RecpBankInfo {
    std::int32_t lId = 0;
    std::int32_t lCodeId = 0;  ///< account
    Date dtDate;
    std::string sNoteMethod;  ///< settlement method
    std::string sNoteNo;
    std::int16_t bDirect = 0;
    double mMoney = 0;

    bool operator==(const _RecpBankInfo&) const = default;
};

/// An entry of a unit's statement.
struct _RecpEnterInfo {
    std::int32_t lId = 0;
    std::int32_t lCodeId = 0;   ///< account
    std::int32_t lEnterId = 0;  ///< unit
    Date dtDate;
    std::string sDigest;
    std::int16_t bDirect = 0;
    double mMoney = 0;

    bool operator==(const _RecpEnterInfo&) const = default;
};
