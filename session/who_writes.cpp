#include "session/who_writes.h"

#include "base/system/program_version.h"
#include "base/system/this_process.h"
#include "base/system/workstation.h"
#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/connection/database.h"
#include "data/engine/engine.h"
#include "session/host_globals.h"
#include "session/services_sql.h"

namespace chengheng {

WhoWrites whoWrites() {
    if (g_lpLogonUserInfo == nullptr || g_lpLogonUserInfo->lUserId == 0)
        return {0, systemUserName()};
    return {g_lpLogonUserInfo->lUserId, g_lpLogonUserInfo->sUserName};
}

LogAuthor logAuthorOf(const WhoWrites& writer) {
    return {.operatorId = writer.userId,
            .operatorName = writer.name,
            .workstation = stationName(),
            .process = processNumber(),
            .program = programName() + " " + programVersion()};
}

Status noteWriter() {
    if (!whoWrites().isAdministrator()) return Status::done();
    return g_pDB->onSelected([](Database& database) {
        return database.executePlain(services_sql::noteAdministrator(database.engine().dialect()),
                                     {});
    });
}

}  // namespace chengheng
