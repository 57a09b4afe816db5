#include "data/tables/books.h"

#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<_zAccountMInfo>() {
    using Record = _zAccountMInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),           column("sName", &Record::sName),
        column("sCompany", &Record::sCompany), column("dtStart", &Record::dtStart),
        column("sCodeLen", &Record::sCodeLen), column("bFgn", &Record::bFgn),
        column("lYear", &Record::lYear),
    };
    static const RecordType type = recordType<Record>("zAccountM", "zAccountM", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_ABIdTableInfo>() {
    using Record = _ABIdTableInfo;
    static const RecordColumn columns[] = {
        column("sTable", &Record::sTable),
        column("lLastId", &Record::lLastId),
    };
    static const RecordType type = recordType<Record>("ABIdTable", "", {"sTable"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_BooksFormatInfo>() {
    using Record = _BooksFormatInfo;
    static const RecordColumn columns[] = {
        column("lVersion", &Record::lVersion),
    };
    static const RecordType type = recordType<Record>("BooksFormat", "", {}, columns);
    return type;
}

}  // namespace chengheng
