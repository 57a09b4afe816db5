#pragma once

#include "data/tables/directories.h"
#include "directories/directory.h"

namespace chengheng {

// A row of a directory's table as a record, and back.

inline DirectoryRecord recordOf(const _DeptInfo& row) {
    return {.id = row.lId, .code = row.sDeptCode, .name = row.sDeptName};
}
inline DirectoryRecord recordOf(const _PersonInfo& row) {
    return {.id = row.lId, .group = row.lDeptId, .code = row.sPersonCode, .name = row.sPersonName};
}
inline DirectoryRecord recordOf(const _EnterClassInfo& row) {
    return {.id = row.lId, .code = row.sClsCode, .name = row.sClsName};
}
/// A kind that nobody knows keeps a unit out of nothing.
inline DirectoryRecord recordOf(const _EnterInfo& row) {
    const bool isKnown = row.byKind <= static_cast<std::uint8_t>(UnitKind::supplier);
    return {.id = row.lId,
            .group = row.lClassId,
            .code = row.sEnterCode,
            .name = row.sEnterName,
            .unitKind = isKnown ? static_cast<UnitKind>(row.byKind) : UnitKind::both};
}
inline DirectoryRecord recordOf(const _ProjClassInfo& row) {
    return {.id = row.lId, .code = row.sClsCode, .name = row.sClsName};
}

inline void write(_DeptInfo& row, const DirectoryRecord& record) {
    row = {record.id, record.code, record.name};
}
inline void write(_PersonInfo& row, const DirectoryRecord& record) {
    row = {record.id, record.group, record.code, record.name};
}
inline void write(_EnterClassInfo& row, const DirectoryRecord& record) {
    row = {record.id, record.code, record.name};
}
inline void write(_EnterInfo& row, const DirectoryRecord& record) {
    row = {record.id, record.group, record.code, record.name,
           static_cast<std::uint8_t>(record.unitKind)};
}
inline void write(_ProjClassInfo& row, const DirectoryRecord& record) {
    row = {record.id, record.code, record.name};
}

/// Does work with the row type of a directory, handed over as a value of it; items have none.
template <class Work>
auto withRowOf(DirectoryKind kind, Work work) {
    switch (kind) {
        case DirectoryKind::department:
            return work(_DeptInfo());
        case DirectoryKind::person:
            return work(_PersonInfo());
        case DirectoryKind::unitClass:
            return work(_EnterClassInfo());
        case DirectoryKind::unit:
            return work(_EnterInfo());
        default:
            return work(_ProjClassInfo());
    }
}

}  // namespace chengheng
