#pragma once

#include <cstdint>
#include <string>

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
    std::uint8_t byKind = 0;  ///< 0 customer and supplier, 1 customer, 2 supplier

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
