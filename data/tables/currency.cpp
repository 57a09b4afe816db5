#include "data/tables/currency.h"

#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<_CyrencyInfo>() {
    using Record = _CyrencyInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("bySeq", &Record::bySeq),
        column("sExchCode", &Record::sExchCode),
        column("sExchName", &Record::sExchName),
        column("bMode", &Record::bMode),
        column("byDecimal", &Record::byDecimal),
        column("fMaxError", &Record::fMaxError),
    };
    static const RecordType type = recordType<Record>("Cyrency", "Cyrency", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_ExchgFixInfo>() {
    using Record = _ExchgFixInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),       column("byExchId", &Record::byExchId),
        column("dtDate", &Record::dtDate), column("byPeroid", &Record::byPeroid),
        column("dRate", &Record::dRate),   column("dAdjustRate", &Record::dAdjustRate),
    };
    static const RecordType type =
        recordType<Record>("ExchgFix", "ExchgFix", {"byExchId, byPeroid"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_ExchgFltInfo>() {
    using Record = _ExchgFltInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),       column("byExchId", &Record::byExchId),
        column("dtDate", &Record::dtDate), column("byPeroid", &Record::byPeroid),
        column("dRate", &Record::dRate),   column("dAdjustRate", &Record::dAdjustRate),
    };
    static const RecordType type =
        recordType<Record>("ExchgFlt", "ExchgFlt", {"byExchId, byPeroid"}, columns);
    return type;
}

}  // namespace chengheng
