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
    // The opening balances are one row in twelve.
    static const RecordType type = recordType<Record>(
        "AccSum", "AccSum", {"lCodeId, byPeroid", "lCodeId WHERE byPeroid = 1"}, columns);
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
    static const RecordType type =
        recordType<Record>("AssAcc", "AssAcc", {"lCodeId, byPeroid"}, columns);
    return type;
}

}  // namespace chengheng
