#include "data/tables/operators.h"

#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<_UsersInfo>() {
    using Record = _UsersInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("lUserId", &Record::lUserId),
        column("sUserName", &Record::sUserName),
        column("bManager", &Record::bManager),
        column("sPassword", &Record::sPassword),
    };
    static const RecordType type = recordType<Record>("Users", "Users", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_UserAuthInfo>() {
    using Record = _UserAuthInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("lUserId", &Record::lUserId),
        column("sAuthId", &Record::sAuthId),
    };
    static const RecordType type = recordType<Record>("UserAuth", "UserAuth", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_zAuthInfo>() {
    using Record = _zAuthInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("sGroup", &Record::sGroup),
        column("sName", &Record::sName),
    };
    static const RecordType type = recordType<Record>("zAuth", "zAuth", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_LogonTriesInfo>() {
    using Record = _LogonTriesInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("lWrong", &Record::lWrong),
        column("dWrongAt", &Record::dWrongAt),
        column("dLogonAt", &Record::dLogonAt),
        column("bNewPassword", &Record::bNewPassword),
    };
    static const RecordType type = recordType<Record>("LogonTries", "", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_LoginInfo>() {
    using Record = _LoginInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),           column("lAccId", &Record::lAccId),
        column("sUser", &Record::sUser),       column("sStation", &Record::sStation),
        column("lProcess", &Record::lProcess), column("dtLogon", &Record::dtLogon),
        column("lUserId", &Record::lUserId),
    };
    static const RecordType type =
        recordType<Record>("LoginInfoTbl", "LoginInfoTbl", {"lAccId"}, columns);
    return type;
}

}  // namespace chengheng
