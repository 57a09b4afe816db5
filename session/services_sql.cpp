#include "session/services_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::services_sql {

std::string rightsOf(std::int32_t userId) {
    return formatSql(
        "SELECT Users.bManager, UserAuth.lId, UserAuth.sAuthId FROM Users "
        "LEFT JOIN UserAuth ON UserAuth.lUserId = Users.lUserId WHERE Users.lUserId = %d",
        userId);
}

std::string noteAdministrator(const EngineDialect& dialect) {
    return "INSERT INTO LogonTries (lId, dLogonAt) VALUES (0, " + std::string(dialect.now) +
           ") ON CONFLICT (lId) DO UPDATE SET dLogonAt = excluded.dLogonAt";
}

}  // namespace chengheng::services_sql
