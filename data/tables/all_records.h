#pragma once

#include "data/tables/accounts.h"
#include "data/tables/balances.h"
#include "data/tables/books.h"
#include "data/tables/currency.h"
#include "data/tables/definitions.h"
#include "data/tables/directories.h"
#include "data/tables/operators.h"
#include "data/tables/printing.h"
#include "data/tables/settlement.h"
#include "data/tables/vouchers.h"

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
