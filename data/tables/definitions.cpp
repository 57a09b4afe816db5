#include "data/tables/definitions.h"

#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<_AutoMainInfo>() {
    using Record = _AutoMainInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("sSign", &Record::sSign),
        column("sName", &Record::sName),
    };
    static const RecordType type = recordType<Record>("AutoMain", "AutoMain", {"sSign"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_AutoSubInfo>() {
    using Record = _AutoSubInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),         column("lTieId", &Record::lTieId),
        column("lCodeId", &Record::lCodeId), column("sDigest", &Record::sDigest),
        column("bDirect", &Record::bDirect), column("sFormula", &Record::sFormula),
    };
    static const RecordType type = recordType<Record>("AutoSub", "AutoSub", {"lCodeId"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_FreqSubInfo>() {
    using Record = _FreqSubInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),         column("lTieId", &Record::lTieId),
        column("lCodeId", &Record::lCodeId), column("sDigest", &Record::sDigest),
        column("bDirect", &Record::bDirect), column("mMoney", &Record::mMoney),
    };
    static const RecordType type = recordType<Record>("FreqSub", "FreqSub", {"lCodeId"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<__DigestInfo>() {
    using Record = __DigestInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("lCodeId", &Record::lCodeId),
        column("sDigest", &Record::sDigest),
    };
    static const RecordType type = recordType<Record>("_Digest", "_Digest", {"lCodeId"}, columns);
    return type;
}

}  // namespace chengheng
