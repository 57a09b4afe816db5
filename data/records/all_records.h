#pragma once

#include "data/records/accounts.h"
#include "data/records/balances.h"
#include "data/records/books.h"
#include "data/records/currency.h"
#include "data/records/definitions.h"
#include "data/records/directories.h"
#include "data/records/operators.h"
#include "data/records/printing.h"
#include "data/records/settlement.h"
#include "data/records/vouchers.h"

namespace chengheng {

template <class... Records>
struct RecordList {};

/// Every record type, in the order in which their tables are created.
using AllRecords =
    RecordList<_BooksFormatInfo, _ABIdTableInfo, _zAccountMInfo, _zCodeClassInfo, _zAuthInfo,
               _CodeInfo, _AccSumInfo, _AssAccInfo, _SignInfo, _SettleInfo, _CyrencyInfo,
               _ExchgFixInfo, _ExchgFltInfo, _UsersInfo, _UserAuthInfo, _LoginInfo, _DeptInfo,
               _PersonInfo, _EnterClassInfo, _EnterInfo, _ProjClassInfo, _ProjCodesInfo,
               _RegMainInfo, _RegSubInfo, _UnregMainInfo, _UnregSubInfo, _AutoMainInfo,
               _AutoSubInfo, _FreqSubInfo, __DigestInfo, _RecpBankInfo, _RecpEnterInfo,
               _ZWPrintMainInfo, _ZWPrintSubInfo>;

}  // namespace chengheng
