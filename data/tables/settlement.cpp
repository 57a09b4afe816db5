#include "data/tables/settlement.h"

#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<_SignInfo>() {
    using Record = _SignInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("sSign", &Record::sSign),
        column("sSignName", &Record::sSignName),
        column("byLimit", &Record::byLimit),
        column("sCode1", &Record::sCode1),
        column("sCode2", &Record::sCode2),
    };
    static const RecordType type = recordType<Record>("Sign", "Sign", {"sSign"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_SettleInfo>() {
    using Record = _SettleInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("sStlId", &Record::sStlId),
        column("sSettle", &Record::sSettle),
        column("bNote", &Record::bNote),
    };
    static const RecordType type = recordType<Record>("Settle", "Settle", {"sStlId"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_RecpBankInfo>() {
    using Record = _RecpBankInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),         column("lCodeId", &Record::lCodeId),
        column("dtDate", &Record::dtDate),   column("sNoteMethod", &Record::sNoteMethod),
        column("sNoteNo", &Record::sNoteNo), column("bDirect", &Record::bDirect),
        column("mMoney", &Record::mMoney),
    };
    static const RecordType type =
        recordType<Record>("RecpBank", "RecpBank", {"sNoteMethod"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_RecpEnterInfo>() {
    using Record = _RecpEnterInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),           column("lCodeId", &Record::lCodeId),
        column("lEnterId", &Record::lEnterId), column("dtDate", &Record::dtDate),
        column("sDigest", &Record::sDigest),   column("bDirect", &Record::bDirect),
        column("mMoney", &Record::mMoney),
    };
    static const RecordType type = recordType<Record>("RecpEnter", "RecpEnter", {}, columns);
    return type;
}

}  // namespace chengheng
