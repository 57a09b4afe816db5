#include "directories/directory.h"

#include <algorithm>

#include "directories/directory_texts.h"
#include "report/output/print_templates.h"

namespace chengheng {
namespace {

namespace texts = directory_texts;

constexpr Directory all[] = {
    {.kind = DirectoryKind::department,
     .key = "departments",
     .title = texts::departments,
     .noun = texts::department,
     .right = 8,
     .groups = std::nullopt,
     .groupLabel = nullptr,
     .hasUnitKinds = false,
     .sharedNames = SharedNames::never,
     .printTemplate = departmentListTemplate,
     .writing = {WriteRight::departments, "Person AssAcc RegSub UnregSub", "Dept"},
     .deleting = {WriteRight::departments, "Person RegSub UnregSub", "AssAcc Dept"}},
    {.kind = DirectoryKind::person,
     .key = "persons",
     .title = texts::persons,
     .noun = texts::person,
     .right = 1,
     .groups = DirectoryKind::department,
     .groupLabel = texts::ofDepartment,
     .hasUnitKinds = false,
     .sharedNames = SharedNames::afterAQuestionInOtherGroups,
     .printTemplate = personListTemplate,
     .writing = {WriteRight::persons, "Dept AssAcc RegSub UnregSub", "Person"},
     .deleting = {WriteRight::persons, "Dept RegSub UnregSub", "AssAcc Person"}},
    {.kind = DirectoryKind::unitClass,
     .key = "unit-classes",
     .title = texts::unitClasses,
     .noun = texts::unitClass,
     .right = 75,
     .groups = std::nullopt,
     .groupLabel = nullptr,
     .hasUnitKinds = false,
     .sharedNames = SharedNames::never,
     .printTemplate = unitClassListTemplate,
     .writing = {WriteRight::units, "Enter", "EnterClass"},
     .deleting = {WriteRight::units, "Enter", "EnterClass"}},
    {.kind = DirectoryKind::unit,
     .key = "units",
     .title = texts::units,
     .noun = texts::unit,
     .right = 75,
     .groups = DirectoryKind::unitClass,
     .groupLabel = texts::ofUnitClass,
     .hasUnitKinds = true,
     .sharedNames = SharedNames::afterAQuestion,
     .printTemplate = unitListTemplate,
     .writing = {WriteRight::units, "EnterClass AssAcc RecpEnter RegSub UnregSub", "Enter"},
     .deleting = {WriteRight::units, "EnterClass RecpEnter RegSub UnregSub", "AssAcc Enter"}},
    {.kind = DirectoryKind::projectClass,
     .key = "project-classes",
     .title = texts::projectClasses,
     .noun = texts::projectClass,
     .right = 14,
     .groups = std::nullopt,
     .groupLabel = nullptr,
     .hasUnitKinds = false,
     .sharedNames = SharedNames::never,
     .printTemplate = projectClassListTemplate,
     .writing = {WriteRight::projectClasses, "ProjCodes AssAcc RegSub UnregSub",
                 "ProjClass ProjItems"},
     .deleting = {WriteRight::projectClasses, "ProjCodes RegSub UnregSub",
                  "AssAcc ProjClass ProjItems"}},
    {.kind = DirectoryKind::projectItem,
     .key = "projects",
     .title = texts::projectItems,
     .noun = texts::project,
     .right = 13,
     .groups = DirectoryKind::projectClass,
     .groupLabel = texts::ofProjectClass,
     .hasUnitKinds = false,
     .sharedNames = SharedNames::never,
     .printTemplate = projectItemListTemplate,
     .writing = {WriteRight::projectItems, "ProjClass AssAcc RegSub UnregSub", "ProjItems"},
     .deleting = {WriteRight::projectItems, "ProjClass RegSub UnregSub", "AssAcc ProjItems"}},
};

}  // namespace

std::span<const Directory> directories() { return all; }

const Directory& directoryOf(DirectoryKind kind) {
    return *std::ranges::find(all, kind, &Directory::kind);
}

const Directory* findDirectory(std::string_view key) {
    const auto found = std::ranges::find_if(
        all, [key](const Directory& each) { return std::string_view(each.key) == key; });
    return found == std::end(all) ? nullptr : &*found;
}

std::string directoryLine(const DirectoryRecord& record) { return record.code + ' ' + record.name; }

}  // namespace chengheng
