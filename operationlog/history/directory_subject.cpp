#include "operationlog/history/directory_subject.h"

#include "data/tables/schema.h"

namespace chengheng {
namespace {

std::string tableOf(DirectoryKind kind, std::string_view classCode) {
    switch (kind) {
        case DirectoryKind::department:
            return "Dept";
        case DirectoryKind::person:
            return "Person";
        case DirectoryKind::unitClass:
            return "EnterClass";
        case DirectoryKind::unit:
            return "Enter";
        case DirectoryKind::projectClass:
            return "ProjClass";
        case DirectoryKind::projectItem:
            break;
    }
    return projectItemTable(classCode).name;
}

}  // namespace

HistorySubject directorySubject(DirectoryKind kind, std::int32_t id, std::string_view classCode) {
    return {.table = tableOf(kind, classCode), .id = id};
}

}  // namespace chengheng
