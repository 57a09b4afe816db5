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
     .writing = {"Person AssAcc RegSub UnregSub", "Dept"},
     .deleting = {"Person RegSub UnregSub", "AssAcc Dept"}},
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
     .writing = {"Dept AssAcc RegSub UnregSub", "Person"},
     .deleting = {"Dept RegSub UnregSub", "AssAcc Person"}},
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
     .writing = {"Enter", "EnterClass"},
     .deleting = {"Enter", "EnterClass"}},
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
     .writing = {"EnterClass AssAcc RecpEnter RegSub UnregSub", "Enter"},
     .deleting = {"EnterClass RecpEnter RegSub UnregSub", "AssAcc Enter"}},
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
     .writing = {"ProjCodes AssAcc RegSub UnregSub", "ProjClass ProjItems"},
     .deleting = {"ProjCodes RegSub UnregSub", "AssAcc ProjClass ProjItems"}},
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
     .writing = {"ProjClass AssAcc RegSub UnregSub", "ProjItems"},
     .deleting = {"ProjClass RegSub UnregSub", "AssAcc ProjItems"}},
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
