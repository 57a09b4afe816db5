#include "data/tables/vouchers.h"

#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<_RegMainInfo>() {
    using Record = _RegMainInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),         column("byPeroid", &Record::byPeroid),
        column("dtDate", &Record::dtDate),   column("sSign", &Record::sSign),
        column("lNumber", &Record::lNumber), column("lAttach", &Record::lAttach),
        column("lUBill", &Record::lUBill),   column("lUCheck", &Record::lUCheck),
        column("lUBook", &Record::lUBook),
    };
    static const RecordType type =
        recordType<Record>("RegMain", "RegMain", {"sSign", "byPeroid"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_UnregMainInfo>() {
    using Record = _UnregMainInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),         column("byPeroid", &Record::byPeroid),
        column("dtDate", &Record::dtDate),   column("sSign", &Record::sSign),
        column("lNumber", &Record::lNumber), column("lAttach", &Record::lAttach),
        column("lUBill", &Record::lUBill),   column("lUCheck", &Record::lUCheck),
        column("lUBook", &Record::lUBook),
    };
    static const RecordType type = recordType<Record>("UnregMain", "UnRegMain", {"sSign"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_RegSubInfo>() {
    using Record = _RegSubInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),           column("lTieId", &Record::lTieId),
        column("lLine", &Record::lLine),       column("sDigest", &Record::sDigest),
        column("lCodeId", &Record::lCodeId),   column("bDirect", &Record::bDirect),
        column("mMoney", &Record::mMoney),     column("mFgn", &Record::mFgn),
        column("dAmt", &Record::dAmt),         column("dRate", &Record::dRate),
        column("lDeptId", &Record::lDeptId),   column("lPersonId", &Record::lPersonId),
        column("lEnterId", &Record::lEnterId), column("lItemId", &Record::lItemId),
        column("sItemId", &Record::sItemId),   column("sStlId", &Record::sStlId),
        column("sNoteNo", &Record::sNoteNo),   column("dtNote", &Record::dtNote),
        column("bBegin", &Record::bBegin),
    };
    static const RecordType type =
        recordType<Record>("RegSub", "RegSub", {"lCodeId", "lTieId", "sStlId"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_UnregSubInfo>() {
    using Record = _UnregSubInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),           column("lTieId", &Record::lTieId),
        column("lLine", &Record::lLine),       column("sDigest", &Record::sDigest),
        column("lCodeId", &Record::lCodeId),   column("bDirect", &Record::bDirect),
        column("mMoney", &Record::mMoney),     column("mFgn", &Record::mFgn),
        column("dAmt", &Record::dAmt),         column("dRate", &Record::dRate),
        column("lDeptId", &Record::lDeptId),   column("lPersonId", &Record::lPersonId),
        column("lEnterId", &Record::lEnterId), column("lItemId", &Record::lItemId),
        column("sItemId", &Record::sItemId),   column("sStlId", &Record::sStlId),
        column("sNoteNo", &Record::sNoteNo),   column("dtNote", &Record::dtNote),
        column("bBegin", &Record::bBegin),
    };
    static const RecordType type =
        recordType<Record>("UnregSub", "UnRegSub", {"lCodeId", "lTieId", "sStlId"}, columns);
    return type;
}

}  // namespace chengheng
