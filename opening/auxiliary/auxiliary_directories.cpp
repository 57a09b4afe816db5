#include "opening/auxiliary/auxiliary_directories.h"

#include <array>

#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/tables/directories.h"
#include "opening/sheet/opening_texts.h"
#include "opening/storing/opening_sql.h"
#include "session/last_failure.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

struct Directory {
    std::optional<bool> (*hasAny)(CNbCwDB& database, const std::string& condition);
    const char* whenEmpty;
};

constexpr Directory persons{hasRows<_PersonInfo>, opening_texts::personsFirst};
constexpr Directory departments{hasRows<_DeptInfo>, opening_texts::departmentsFirst};
constexpr Directory projectClasses{hasRows<_ProjClassInfo>, opening_texts::projectClassesFirst};
constexpr Directory units{hasRows<_EnterInfo>, opening_texts::unitsFirst};

/// What a kind needs, in the order of asking.
struct Needs {
    AuxiliaryKind kind;
    std::array<const Directory*, 2> directories;
};

constexpr std::array needs{
    Needs{AuxiliaryKind::person, {&persons, &departments}},
    Needs{AuxiliaryKind::department, {&departments, nullptr}},
    Needs{AuxiliaryKind::project, {&projectClasses, nullptr}},
    Needs{AuxiliaryKind::departmentAndProject, {&projectClasses, &departments}},
    Needs{AuxiliaryKind::departmentAndUnit, {&departments, &units}},
    Needs{AuxiliaryKind::unit, {&units, nullptr}},
    Needs{AuxiliaryKind::unitAndProject, {&units, &projectClasses}},
};

Refusal lastFailure() { return failureRefusal(lastFailureText()); }

/// Nothing when the directory holds something.
std::optional<Refusal> directoryRefusal(const Directory& directory) {
    const auto hasAny = directory.hasAny(*g_pDB, opening_sql::anyRow);
    if (!hasAny) return lastFailure();
    if (!*hasAny) return Refusal{RefusalKind::wrongInput, {.text = directory.whenEmpty}};
    return std::nullopt;
}

}  // namespace

std::optional<Refusal> directoriesRefusal(AuxiliaryKind kind) {
    if (!selectOpenBooks()) return lastFailure();
    for (const Needs& each : needs) {
        if (each.kind != kind) continue;
        for (const Directory* directory : each.directories) {
            if (directory == nullptr) continue;
            if (auto found = directoryRefusal(*directory)) return found;
        }
    }
    return std::nullopt;
}

}  // namespace chengheng
