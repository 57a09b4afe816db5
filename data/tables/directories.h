#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>

#include "data/tables/table.h"

// Record types: the first field is the row's id, the others follow the columns of the
// table. The names are those of the database format.

/// A department.
struct _DeptInfo {
    std::int32_t lId = 0;
    std::string sDeptCode;
    std::string sDeptName;

    bool operator==(const _DeptInfo&) const = default;
};

/// A person of a department.
struct _PersonInfo {
    std::int32_t lId = 0;
    std::int32_t lDeptId = 0;
    std::string sPersonCode;
    std::string sPersonName;

    bool operator==(const _PersonInfo&) const = default;
};

/// A class of units.
struct _EnterClassInfo {
    std::int32_t lId = 0;
    std::string sClsCode;
    std::string sClsName;

    bool operator==(const _EnterClassInfo&) const = default;
};

/// A unit: a customer or supplier.
struct _EnterInfo {
    std::int32_t lId = 0;
    std::int32_t lClassId = 0;
    std::string sEnterCode;
    std::string sEnterName;

    bool operator==(const _EnterInfo&) const = default;
};

/// A project class; its items stand in the table ProjItems followed by sClsCode.
struct _ProjClassInfo {
    std::int32_t lId = 0;
    std::string sClsCode;  ///< digits and letters only
    std::string sClsName;

    bool operator==(const _ProjClassInfo&) const = default;
};

/// An account whose lines name a project of a class.
struct _ProjCodesInfo {
    std::int32_t lId = 0;
    std::int32_t lCodeId = 0;  ///< account
    std::string sItemId;       ///< project class code

    bool operator==(const _ProjCodesInfo&) const = default;
};

namespace chengheng {

template <>
struct TableOf<_DeptInfo> {
    static constexpr const char* name = "Dept";
    static constexpr const char* idRow = "Dept";
    static constexpr std::array<const char*, 0> indexes{};
    static constexpr auto columns = std::tuple{
        column("lId", &_DeptInfo::lId),
        column("sDeptCode", &_DeptInfo::sDeptCode),
        column("sDeptName", &_DeptInfo::sDeptName),
    };
};

template <>
struct TableOf<_PersonInfo> {
    static constexpr const char* name = "Person";
    static constexpr const char* idRow = "Person";
    static constexpr std::array<const char*, 1> indexes{"lDeptId"};
    static constexpr auto columns = std::tuple{
        column("lId", &_PersonInfo::lId),
        column("lDeptId", &_PersonInfo::lDeptId),
        column("sPersonCode", &_PersonInfo::sPersonCode),
        column("sPersonName", &_PersonInfo::sPersonName),
    };
};

template <>
struct TableOf<_EnterClassInfo> {
    static constexpr const char* name = "EnterClass";
    static constexpr const char* idRow = "EnterClass";
    static constexpr std::array<const char*, 0> indexes{};
    static constexpr auto columns = std::tuple{
        column("lId", &_EnterClassInfo::lId),
        column("sClsCode", &_EnterClassInfo::sClsCode),
        column("sClsName", &_EnterClassInfo::sClsName),
    };
};

template <>
struct TableOf<_EnterInfo> {
    static constexpr const char* name = "Enter";
    static constexpr const char* idRow = "Enter";
    static constexpr std::array<const char*, 0> indexes{};
    static constexpr auto columns = std::tuple{
        column("lId", &_EnterInfo::lId),
        column("lClassId", &_EnterInfo::lClassId),
        column("sEnterCode", &_EnterInfo::sEnterCode),
        column("sEnterName", &_EnterInfo::sEnterName),
    };
};

template <>
struct TableOf<_ProjClassInfo> {
    static constexpr const char* name = "ProjClass";
    static constexpr const char* idRow = "ProjClass";
    static constexpr std::array<const char*, 0> indexes{};
    static constexpr auto columns = std::tuple{
        column("lId", &_ProjClassInfo::lId),
        column("sClsCode", &_ProjClassInfo::sClsCode),
        column("sClsName", &_ProjClassInfo::sClsName),
    };
};

template <>
struct TableOf<_ProjCodesInfo> {
    static constexpr const char* name = "ProjCodes";
    static constexpr const char* idRow = "ProjCodes";
    static constexpr std::array<const char*, 1> indexes{"lCodeId"};
    static constexpr auto columns = std::tuple{
        column("lId", &_ProjCodesInfo::lId),
        column("lCodeId", &_ProjCodesInfo::lCodeId),
        column("sItemId", &_ProjCodesInfo::sItemId),
    };
};

}  // namespace chengheng
