#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>

#include "data/tables/table.h"

// Record types: the first field is the row's id, the others follow the columns of the
// table. The names are those of the database format.

using chengheng::Date;

/// A voucher type and the accounts it requires or forbids.
struct _SignInfo {
    std::int32_t lId = 0;
    std::string sSign;  ///< number, at most 2 characters
    std::string sSignName;
    std::uint8_t byLimit = 0;  ///< 0 none, 1 借方必有, 2 贷方必有, 3 借贷必无
    std::string sCode1;        ///< restriction account one
    std::string sCode2;        ///< restriction account two

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

namespace chengheng {

template <>
struct TableOf<_SignInfo> {
    static constexpr const char* name = "Sign";
    static constexpr const char* idRow = "Sign";
    static constexpr std::array<const char*, 1> indexes{"sSign"};
    static constexpr auto columns = std::tuple{
        column("lId", &_SignInfo::lId),
        column("sSign", &_SignInfo::sSign),
        column("sSignName", &_SignInfo::sSignName),
        column("byLimit", &_SignInfo::byLimit),
        column("sCode1", &_SignInfo::sCode1),
        column("sCode2", &_SignInfo::sCode2),
    };
};

template <>
struct TableOf<_SettleInfo> {
    static constexpr const char* name = "Settle";
    static constexpr const char* idRow = "Settle";
    static constexpr std::array<const char*, 1> indexes{"sStlId"};
    static constexpr auto columns = std::tuple{
        column("lId", &_SettleInfo::lId),
        column("sStlId", &_SettleInfo::sStlId),
        column("sSettle", &_SettleInfo::sSettle),
        column("bNote", &_SettleInfo::bNote),
    };
};

template <>
struct TableOf<_RecpBankInfo> {
    static constexpr const char* name = "RecpBank";
    static constexpr const char* idRow = "RecpBank";
    static constexpr std::array<const char*, 1> indexes{"sNoteMethod"};
    static constexpr auto columns = std::tuple{
        column("lId", &_RecpBankInfo::lId),
        column("lCodeId", &_RecpBankInfo::lCodeId),
        column("dtDate", &_RecpBankInfo::dtDate),
        column("sNoteMethod", &_RecpBankInfo::sNoteMethod),
        column("sNoteNo", &_RecpBankInfo::sNoteNo),
        column("bDirect", &_RecpBankInfo::bDirect),
        column("mMoney", &_RecpBankInfo::mMoney),
    };
};

template <>
struct TableOf<_RecpEnterInfo> {
    static constexpr const char* name = "RecpEnter";
    static constexpr const char* idRow = "RecpEnter";
    static constexpr std::array<const char*, 0> indexes{};
    static constexpr auto columns = std::tuple{
        column("lId", &_RecpEnterInfo::lId),           column("lCodeId", &_RecpEnterInfo::lCodeId),
        column("lEnterId", &_RecpEnterInfo::lEnterId), column("dtDate", &_RecpEnterInfo::dtDate),
        column("sDigest", &_RecpEnterInfo::sDigest),   column("bDirect", &_RecpEnterInfo::bDirect),
        column("mMoney", &_RecpEnterInfo::mMoney),
    };
};

}  // namespace chengheng
