#include "data/tables/printing.h"

#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<_ZWPrintMainInfo>() {
    using Record = _ZWPrintMainInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("sTitle", &Record::sTitle),
        column("byPage", &Record::byPage),
        column("bPortrait", &Record::bPortrait),
    };
    static const RecordType type = recordType<Record>("ZWPrintMain", "ZWPrintMain", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_ZWPrintSubInfo>() {
    using Record = _ZWPrintSubInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),           column("lTieId", &Record::lTieId),
        column("sColName", &Record::sColName), column("sFiled", &Record::sFiled),
        column("byWidth", &Record::byWidth),
    };
    static const RecordType type =
        recordType<Record>("ZWPrintSub", "ZWPrintSub", {"lTieId"}, columns);
    return type;
}

}  // namespace chengheng
