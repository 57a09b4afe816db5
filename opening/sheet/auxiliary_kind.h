#pragma once

#include <cstdint>
#include <string_view>

namespace chengheng {

/// By what the balance of an account is kept apart.
enum class AuxiliaryKind : std::uint8_t {
    none,
    unitAndProject,
    departmentAndUnit,
    departmentAndProject,
    person,
    department,
    project,
    unit,
};

/// The kind that the auxiliary letters of an account stand for: A person, B unit, C department,
/// D project. Other letters mean nothing here.
AuxiliaryKind auxiliaryKindOf(std::string_view letters);

/// "部门往来"; empty for none.
const char* auxiliaryText(AuxiliaryKind kind);

}  // namespace chengheng
