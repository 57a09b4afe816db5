#include "data/tables/accounts.h"

#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<_CodeInfo>() {
    using Record = _CodeInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),         column("sCode", &Record::sCode),
        column("sName", &Record::sName),     column("sType", &Record::sType),
        column("byGrade", &Record::byGrade), column("bEnd", &Record::bEnd),
        column("bDirect", &Record::bDirect), column("bCash", &Record::bCash),
        column("bBank", &Record::bBank),     column("sAssBook", &Record::sAssBook),
        column("sHelp", &Record::sHelp),     column("byExchId", &Record::byExchId),
        column("lNum", &Record::lNum),       column("sPage", &Record::sPage),
        column("bAmount", &Record::bAmount), column("sUnit", &Record::sUnit),
    };
    static const RecordType type =
        recordType<Record>("Code", "Code", {"sCode", "sHelp", "byExchId"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_zCodeClassInfo>() {
    using Record = _zCodeClassInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("lNum", &Record::lNum),
        column("sClsName", &Record::sClsName),
        column("bDirect", &Record::bDirect),
    };
    static const RecordType type = recordType<Record>("zCodeClass", "zCodeClass", {}, columns);
    return type;
}

}  // namespace chengheng
