#include "auxiliary/entries/entry_row.h"

#include "auxiliary/members/auxiliary_sql.h"
#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<EntryRow>() {
    using Record = EntryRow;
    static const RecordColumn columns[] = {
        column("RegSub.lId", &Record::lId),
        column("RegSub.lTieId", &Record::lTieId),
        column("RegSub.sDigest", &Record::sDigest),
        column("RegSub.bDirect", &Record::bDirect),
        column("RegSub.mMoney", &Record::mMoney),
        column("RegSub.mFgn", &Record::mFgn),
        column("RegSub.dAmt", &Record::dAmt),
        column("RegSub.lDeptId", &Record::lDeptId),
        column("RegSub.lPersonId", &Record::lPersonId),
        column("RegSub.lEnterId", &Record::lEnterId),
        column("RegSub.lItemId", &Record::lItemId),
        column("RegSub.sItemId", &Record::sItemId),
        column("RegMain.dtDate", &Record::dtDate),
        column("RegMain.sSign", &Record::sSign),
        column("RegMain.lNumber", &Record::lNumber),
    };
    static const RecordType type =
        recordType<Record>(auxiliary_sql::linesAndHeaders, "", {}, columns);
    return type;
}

}  // namespace chengheng
