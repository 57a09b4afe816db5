#pragma once

#include <cstdint>
#include <string>

#include "base/values/date.h"

// Record types: the first field is the row's id, the others follow the columns of the
// table. The names are those of the database format.

using chengheng::Date;

/// An operator of the set of books.
struct _UsersInfo {
    std::int32_t lId = 0;
    std::int32_t lUserId = 0;   ///< same value as lId
    std::string sUserName;      ///< unique
    std::int16_t bManager = 0;  ///< non-zero = supervisor (主管)
    std::string sPassword;      ///< salted hash, never the password itself

    bool operator==(const _UsersInfo&) const = default;
};

/// The rights of an operator.
struct _UserAuthInfo {
    std::int32_t lId = 0;
    std::int32_t lUserId = 0;
    std::string sAuthId;  ///< one character per function, Y or y grants

    bool operator==(const _UserAuthInfo&) const = default;
};

/// A function of the rights list; lId is its number.
struct _zAuthInfo {
    std::int32_t lId = 0;
    std::string sGroup;
    std::string sName;

    bool operator==(const _zAuthInfo&) const = default;
};

/// What is noted of an operator's log-ons. Moments are by the clock of the database, in seconds
/// since 1970.
struct _LogonTriesInfo {
    /// The operator's; 0: who writes without logging on; below 0: names that no operator has.
    std::int32_t lId = 0;
    std::int32_t lWrong = 0;  ///< wrong passwords since the last log-on
    double dWrongAt = 0;      ///< when the last of them was given
    double dLogonAt = 0;      ///< when the operator last logged on
    /// Non-zero: the next log-on asks for a new password first.
    std::int16_t bNewPassword = 0;

    bool operator==(const _LogonTriesInfo&) const = default;
};

/// An operator who is logged on to a set of books.
struct _LoginInfo {
    std::int32_t lId = 0;
    std::int32_t lAccId = 0;    ///< set of books
    std::string sUser;          ///< operator's name
    std::string sStation;       ///< workstation
    std::int32_t lProcess = 0;  ///< process of the program there
    Date dtLogon;
    std::int32_t lUserId = 0;  ///< operator's number; 0 in rows of programs that knew none

    bool operator==(const _LoginInfo&) const = default;
};
