#include "books/logon/logon_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::logon_sql {

std::string ofOperator(const std::string& name) {
    return formatSql("lId > 0 AND sUserName = '%s'", name);
}

std::string ofRightsOwner(std::int32_t userId) { return formatSql("lUserId = %d", userId); }

std::string ofStation(const std::string& station) { return formatSql("sStation = '%s'", station); }

std::string ofLogons(const std::string& ids) {
    return formatSql("lId in ( %s )", SqlFragment{ids});
}

std::string readTries(const EngineDialect& dialect) {
    return "SELECT lWrong, dWrongAt, dLogonAt, bNewPassword, " + std::string(dialect.now) +
           " FROM LogonTries WHERE lId = $1";
}

}  // namespace chengheng::logon_sql
