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

constexpr AuxiliaryMember members[] = {
    {.kind = AuxiliaryKind::department,
     .caption = texts::departmentCaption,
     .addingTitle = texts::departmentAdding,
     .modifyingTitle = texts::departmentModifying,
     .findingTitle = texts::departmentFinding,
     .entriesOf = auxiliary_sql::departmentEntries,
     .lookupTables = "Dept Code",
     .sumsOf = auxiliary_sql::departmentSums,
     .updateSums = auxiliary_sql::updateDepartment,
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
     .entriesOf = auxiliary_sql::departmentAndProjectEntries,
     .lookupTables = "Dept ProjClass ProjCodes ProjItems Code",
     .sumsOf = auxiliary_sql::departmentAndProjectSums,
     .updateSums = auxiliary_sql::updateDepartmentAndProject,
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
     .entriesOf = auxiliary_sql::projectEntries,
     .lookupTables = "ProjClass ProjCodes ProjItems Code",
     .sumsOf = auxiliary_sql::projectSums,
     .updateSums = auxiliary_sql::updateProject,
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
     .entriesOf = auxiliary_sql::personEntries,
     .lookupTables = "Dept Person Code",
     .sumsOf = auxiliary_sql::personSums,
     .updateSums = auxiliary_sql::updatePerson,
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
     .entriesOf = auxiliary_sql::departmentAndUnitEntries,
     .lookupTables = "Dept Enter EnterClass Code",
     .sumsOf = auxiliary_sql::departmentAndUnitSums,
     .updateSums = auxiliary_sql::updateDepartmentAndUnit,
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
     .entriesOf = auxiliary_sql::unitAndProjectEntries,
     .lookupTables = "Enter ProjClass ProjCodes ProjItems Codes",  // sic
     .sumsOf = auxiliary_sql::unitAndProjectSums,
     .updateSums = auxiliary_sql::updateUnitAndProject,
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
     .entriesOf = auxiliary_sql::unitEntries,
     .lookupTables = "Enter EnterClass Code",
     .sumsOf = auxiliary_sql::unitSums,
     .updateSums = auxiliary_sql::updateUnit,
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
