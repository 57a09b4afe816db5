#include "data/tables/directories.h"

#include "data/tables/record_type.h"

namespace chengheng {

template <>
const RecordType& recordTypeOf<_DeptInfo>() {
    using Record = _DeptInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("sDeptCode", &Record::sDeptCode),
        column("sDeptName", &Record::sDeptName),
    };
    static const RecordType type = recordType<Record>("Dept", "Dept", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_PersonInfo>() {
    using Record = _PersonInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("lDeptId", &Record::lDeptId),
        column("sPersonCode", &Record::sPersonCode),
        column("sPersonName", &Record::sPersonName),
    };
    static const RecordType type = recordType<Record>("Person", "Person", {"lDeptId"}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_EnterClassInfo>() {
    using Record = _EnterClassInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("sClsCode", &Record::sClsCode),
        column("sClsName", &Record::sClsName),
    };
    static const RecordType type = recordType<Record>("EnterClass", "EnterClass", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_EnterInfo>() {
    using Record = _EnterInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("lClassId", &Record::lClassId),
        column("sEnterCode", &Record::sEnterCode),
        column("sEnterName", &Record::sEnterName),
        column("byKind", &Record::byKind),
    };
    static const RecordType type = recordType<Record>("Enter", "Enter", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_ProjClassInfo>() {
    using Record = _ProjClassInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("sClsCode", &Record::sClsCode),
        column("sClsName", &Record::sClsName),
    };
    static const RecordType type = recordType<Record>("ProjClass", "ProjClass", {}, columns);
    return type;
}

template <>
const RecordType& recordTypeOf<_ProjCodesInfo>() {
    using Record = _ProjCodesInfo;
    static const RecordColumn columns[] = {
        column("lId", &Record::lId),
        column("lCodeId", &Record::lCodeId),
        column("sItemId", &Record::sItemId),
    };
    static const RecordType type =
        recordType<Record>("ProjCodes", "ProjCodes", {"lCodeId"}, columns);
    return type;
}

}  // namespace chengheng
