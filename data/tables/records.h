#pragma once

// The names of every record type and the way to what its table declares. Whoever reads or writes
// fields of a record includes the header of its table.

struct __DigestInfo;
struct _ABIdTableInfo;
struct _AccSumInfo;
struct _AssAccInfo;
struct _AutoMainInfo;
struct _AutoSubInfo;
struct _BooksFormatInfo;
struct _CodeInfo;
struct _CyrencyInfo;
struct _DeptInfo;
struct _EnterClassInfo;
struct _EnterInfo;
struct _ExchgFixInfo;
struct _ExchgFltInfo;
struct _FreqSubInfo;
struct _LoginInfo;
struct _LogonTriesInfo;
struct _PersonInfo;
struct _ProjClassInfo;
struct _ProjCodesInfo;
struct _RecpBankInfo;
struct _RecpEnterInfo;
struct _RegMainInfo;
struct _RegSubInfo;
struct _SettleInfo;
struct _SignInfo;
struct _UnregMainInfo;
struct _UnregSubInfo;
struct _UserAuthInfo;
struct _UsersInfo;
struct _zAccountMInfo;
struct _zAuthInfo;
struct _zCodeClassInfo;
struct _ZWPrintMainInfo;
struct _ZWPrintSubInfo;

namespace chengheng {

struct RecordType;

/// How the table of a record type is declared.
template <class Record>
const RecordType& recordTypeOf();

template <>
const RecordType& recordTypeOf<__DigestInfo>();
template <>
const RecordType& recordTypeOf<_ABIdTableInfo>();
template <>
const RecordType& recordTypeOf<_AccSumInfo>();
template <>
const RecordType& recordTypeOf<_AssAccInfo>();
template <>
const RecordType& recordTypeOf<_AutoMainInfo>();
template <>
const RecordType& recordTypeOf<_AutoSubInfo>();
template <>
const RecordType& recordTypeOf<_BooksFormatInfo>();
template <>
const RecordType& recordTypeOf<_CodeInfo>();
template <>
const RecordType& recordTypeOf<_CyrencyInfo>();
template <>
const RecordType& recordTypeOf<_DeptInfo>();
template <>
const RecordType& recordTypeOf<_EnterClassInfo>();
template <>
const RecordType& recordTypeOf<_EnterInfo>();
template <>
const RecordType& recordTypeOf<_ExchgFixInfo>();
template <>
const RecordType& recordTypeOf<_ExchgFltInfo>();
template <>
const RecordType& recordTypeOf<_FreqSubInfo>();
template <>
const RecordType& recordTypeOf<_LoginInfo>();
template <>
const RecordType& recordTypeOf<_LogonTriesInfo>();
template <>
const RecordType& recordTypeOf<_PersonInfo>();
template <>
const RecordType& recordTypeOf<_ProjClassInfo>();
template <>
const RecordType& recordTypeOf<_ProjCodesInfo>();
template <>
const RecordType& recordTypeOf<_RecpBankInfo>();
template <>
const RecordType& recordTypeOf<_RecpEnterInfo>();
template <>
const RecordType& recordTypeOf<_RegMainInfo>();
template <>
const RecordType& recordTypeOf<_RegSubInfo>();
template <>
const RecordType& recordTypeOf<_SettleInfo>();
template <>
const RecordType& recordTypeOf<_SignInfo>();
template <>
const RecordType& recordTypeOf<_UnregMainInfo>();
template <>
const RecordType& recordTypeOf<_UnregSubInfo>();
template <>
const RecordType& recordTypeOf<_UserAuthInfo>();
template <>
const RecordType& recordTypeOf<_UsersInfo>();
template <>
const RecordType& recordTypeOf<_zAccountMInfo>();
template <>
const RecordType& recordTypeOf<_zAuthInfo>();
template <>
const RecordType& recordTypeOf<_zCodeClassInfo>();
template <>
const RecordType& recordTypeOf<_ZWPrintMainInfo>();
template <>
const RecordType& recordTypeOf<_ZWPrintSubInfo>();

}  // namespace chengheng
