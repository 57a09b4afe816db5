#include "auxiliary/members/auxiliary_member.h"

#include <algorithm>
#include <array>

#include "auxiliary/members/auxiliary_sql.h"
#include "auxiliary/members/auxiliary_texts.h"

namespace chengheng {
namespace {

namespace texts = auxiliary_texts;

constexpr DimensionWords departmentWords{
    Dimension::department,    texts::department,           texts::departmentEmpty,
    texts::departmentUnknown, texts::departmentGoneAdding, texts::departmentGoneModifying};
constexpr DimensionWords projectWords{Dimension::item,       texts::project,
                                      texts::projectEmpty,   texts::projectUnknown,
                                      texts::projectUnknown, texts::projectUnknown};

constexpr std::array ofDepartment{departmentWords};
constexpr std::array ofDepartmentAndProject{departmentWords, projectWords};
constexpr std::array ofProject{projectWords};
/// A department that is left empty is that of the person.
constexpr std::array ofPerson{
    DimensionWords{Dimension::department, texts::department, nullptr, texts::departmentWrong,
                   texts::departmentGoneAdding, texts::departmentGoneModifying},
    DimensionWords{Dimension::person, texts::person, texts::personEmpty, texts::personWrong,
                   texts::personWrong, texts::personWrong},
};
constexpr std::array ofDepartmentAndUnit{
    departmentWords,
    DimensionWords{Dimension::unit, texts::unit, texts::unitEmpty, texts::unitUnknown,
                   texts::unitGoneAdding, texts::unitGoneModifying},
};
constexpr std::array ofUnitAndProject{
    DimensionWords{Dimension::unit, texts::unit, texts::unitEmpty, texts::unitUnknown,
                   texts::unitNameGoneAdding, texts::unitNameGoneModifying},
    DimensionWords{Dimension::item, texts::project, texts::projectEmpty,
                   texts::projectInformationUnknown, texts::projectInformationUnknown,
                   texts::projectIdGone},
};
constexpr std::array ofUnit{
    DimensionWords{Dimension::unit, texts::unit, texts::unitEmpty, texts::unitUnknown,
                   texts::unitUnknown, texts::unitUnknown},
};

constexpr std::array departmentOrder{Dimension::department};
constexpr std::array departmentAndProjectOrder{Dimension::department, Dimension::item};
constexpr std::array projectOrder{Dimension::item};
constexpr std::array personOrder{Dimension::person, Dimension::department};
constexpr std::array departmentAndUnitOrder{Dimension::unit, Dimension::department};
constexpr std::array unitAndProjectOrder{Dimension::unit, Dimension::item};
constexpr std::array unitOrder{Dimension::unit};

constexpr AuxiliaryMember members[] = {
    {.kind = AuxiliaryKind::department,
     .caption = texts::departmentCaption,
     .addingTitle = texts::departmentAdding,
     .modifyingTitle = texts::departmentModifying,
     .findingTitle = texts::departmentFinding,
     .entries = auxiliary_sql::departmentEntries,
     .lookupTables = "Dept Code",
     .sumOrder = departmentOrder,
     .dimensions = ofDepartment,
     .mismatch = nullptr,
     .refusesZero = false,
     .asksBeforeGivingUp = false,
     .refusesBrowsingNothing = false},
    {.kind = AuxiliaryKind::departmentAndProject,
     .caption = texts::departmentAndProjectCaption,
     .addingTitle = texts::departmentAndProjectAdding,
     .modifyingTitle = texts::departmentAndProjectModifying,
     .findingTitle = texts::departmentAndProjectFinding,
     .entries = auxiliary_sql::departmentAndProjectEntries,
     .lookupTables = "Dept ProjClass ProjCodes ProjItems Code",
     .sumOrder = departmentAndProjectOrder,
     .dimensions = ofDepartmentAndProject,
     .mismatch = nullptr,
     .refusesZero = false,
     .asksBeforeGivingUp = false,
     .refusesBrowsingNothing = false},
    {.kind = AuxiliaryKind::project,
     .caption = texts::projectCaption,
     .addingTitle = texts::projectAdding,
     .modifyingTitle = texts::projectModifying,
     .findingTitle = texts::projectFinding,
     .entries = auxiliary_sql::projectEntries,
     .lookupTables = "ProjClass ProjCodes ProjItems Code",
     .sumOrder = projectOrder,
     .dimensions = ofProject,
     .mismatch = nullptr,
     .refusesZero = false,
     .asksBeforeGivingUp = true,
     .refusesBrowsingNothing = false},
    {.kind = AuxiliaryKind::person,
     .caption = texts::personCaption,
     .addingTitle = texts::personAdding,
     .modifyingTitle = texts::personModifying,
     .findingTitle = texts::personFinding,
     .entries = auxiliary_sql::personEntries,
     .lookupTables = "Dept Person Code",
     .sumOrder = personOrder,
     .dimensions = ofPerson,
     .mismatch = texts::personElsewhere,
     .refusesZero = true,
     .asksBeforeGivingUp = false,
     .refusesBrowsingNothing = false},
    {.kind = AuxiliaryKind::departmentAndUnit,
     .caption = texts::departmentAndUnitCaption,
     .addingTitle = texts::departmentAndUnitAdding,
     .modifyingTitle = texts::departmentAndUnitModifying,
     .findingTitle = texts::departmentAndUnitFinding,
     .entries = auxiliary_sql::departmentAndUnitEntries,
     .lookupTables = "Dept Enter EnterClass Code",
     .sumOrder = departmentAndUnitOrder,
     .dimensions = ofDepartmentAndUnit,
     .mismatch = nullptr,
     .refusesZero = true,
     .asksBeforeGivingUp = false,
     .refusesBrowsingNothing = true},
    {.kind = AuxiliaryKind::unitAndProject,
     .caption = texts::unitAndProjectCaption,
     .addingTitle = texts::unitAndProjectAdding,
     .modifyingTitle = texts::unitAndProjectModifying,
     .findingTitle = texts::unitAndProjectFinding,
     .entries = auxiliary_sql::unitAndProjectEntries,
     .lookupTables = "Enter ProjClass ProjCodes ProjItems Codes",  // sic
     .sumOrder = unitAndProjectOrder,
     .dimensions = ofUnitAndProject,
     .mismatch = nullptr,
     .refusesZero = true,
     .asksBeforeGivingUp = false,
     .refusesBrowsingNothing = false},
    {.kind = AuxiliaryKind::unit,
     .caption = texts::unitCaption,
     .addingTitle = texts::unitAdding,
     .modifyingTitle = texts::unitModifying,
     .findingTitle = texts::unitFinding,
     .entries = auxiliary_sql::unitEntries,
     .lookupTables = "Enter EnterClass Code",
     .sumOrder = unitOrder,
     .dimensions = ofUnit,
     .mismatch = nullptr,
     .refusesZero = true,
     .asksBeforeGivingUp = false,
     .refusesBrowsingNothing = false},
};

}  // namespace

bool AuxiliaryMember::has(Dimension dimension) const {
    return std::ranges::count(dimensions, dimension, &DimensionWords::dimension) != 0;
}

std::span<const AuxiliaryMember> auxiliaryMembers() { return members; }

const AuxiliaryMember& memberOf(AuxiliaryKind kind) {
    return *std::ranges::find(members, kind, &AuxiliaryMember::kind);
}

}  // namespace chengheng
