#include "data/tables/balances.h"

#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<_AccSumInfo>() {
    using Record = _AccSumInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("lCodeId", &Record::lCodeId),
        column("byPeroid", &Record::byPeroid),
        column("mBegin", &Record::mBegin),
        column("mDebet", &Record::mDebet),
        column("mCredit", &Record::mCredit),
        column("dAmtBegin", &Record::dAmtBegin),
        column("dAmtDebet", &Record::dAmtDebet),
        column("dAmtCredit", &Record::dAmtCredit),
        column("mFgnBegin", &Record::mFgnBegin),
        column("mFgnDebet", &Record::mFgnDebet),
        column("mFgnCredit", &Record::mFgnCredit),
    };
    // The opening balances are one row in twelve; rows without any figure may have to be swept.
    static const RecordType type = recordType<Record>(
        "AccSum", "AccSum",
        {"lCodeId, byPeroid", "lCodeId WHERE byPeroid = 1",
         "lCodeId WHERE mBegin = 0.0 AND mDebet = 0.0 AND mCredit = 0.0 AND dAmtBegin = 0.0 "
         "AND dAmtDebet = 0.0 AND dAmtCredit = 0.0 AND mFgnBegin = 0.0 AND mFgnDebet = 0.0 "
         "AND mFgnCredit = 0.0"},
        columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_AssAccInfo>() {
    using Record = _AssAccInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),           column("byPeroid", &Record::byPeroid),
        column("lCodeId", &Record::lCodeId),   column("lItemId", &Record::lItemId),
        column("lDeptId", &Record::lDeptId),   column("lPersonId", &Record::lPersonId),
        column("lEnterId", &Record::lEnterId), column("sItemId", &Record::sItemId),
        column("mBegin", &Record::mBegin),     column("mDebt", &Record::mDebt),
        column("mCredit", &Record::mCredit),   column("dBegin", &Record::dBegin),
        column("dDebt", &Record::dDebt),       column("dCredit", &Record::dCredit),
        column("mFBegin", &Record::mFBegin),   column("mFDebt", &Record::mFDebt),
        column("mFCredit", &Record::mFCredit),
    };
    static const RecordType type = recordType<Record>(
        "AssAcc", "AssAcc",
        {"lCodeId, byPeroid",
         "lCodeId WHERE mBegin = 0.0 AND mDebt = 0.0 AND mCredit = 0.0 AND dBegin = 0.0 "
         "AND dDebt = 0.0 AND dCredit = 0.0 AND mFBegin = 0.0 AND mFDebt = 0.0 "
         "AND mFCredit = 0.0"},
        columns);
    return type;
}

}  // namespace chengheng
