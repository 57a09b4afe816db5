#include "session/services_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::services_sql {

std::string rightsOf(std::int32_t userId) {
    return formatSql("SELECT sAuthId FROM UserAuth WHERE lUserId = %d", userId);
}

}  // namespace chengheng::services_sql
