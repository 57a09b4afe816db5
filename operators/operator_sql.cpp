#include "operators/operator_sql.h"

#include "data/sql/sql_format.h"
#include "session/rights_list.h"

namespace chengheng::operator_sql {

std::string ofUser(std::int32_t userId) { return formatSql("lUserId = %d", userId); }

std::string ofName(std::string_view name) { return formatSql("sUserName = '%s'", name); }

std::string ofNameBeside(std::string_view name, std::int32_t userId) {
    return formatSql("sUserName = '%s' and lUserId <> %d ", name, userId);
}

std::string ofVouchers(std::int32_t userId) {
    return formatSql("lUBill = %d OR lUCheck = %d OR lUBook = %d", userId, userId, userId);
}

std::string ofLogons(std::int32_t accountId, std::string_view name, std::int32_t userId) {
    return formatSql("lAccId = %d AND ( sUser = '%s' OR lUserId = %d )", accountId, name, userId);
}

std::string ofSessions(std::int32_t accountId, std::string_view name, std::int32_t userId) {
    return formatSql("lAccId = %d AND ( lUserId = %d OR lUserId = 0 AND sUser = '%s' )", accountId,
                     userId, name);
}

std::string ofSupervisorsBeside(std::int32_t userId) {
    return formatSql("lId > 0 AND bManager <> 0 AND lUserId <> %d", userId);
}

std::string addOperator(const _UsersInfo& user) {
    return formatSql(
        "BEGIN TRANSACTION xiugai\r\n"
        "INSERT INTO Users VALUES( %d, %d, '%s', 0, '%s' )\r\n"
        "INSERT INTO UserAuth VALUES( %d, %d, '%s' )\r\n"
        "UPDATE ABIdTable SET lLastId = %d WHERE sTable = 'UserAuth' or sTable = 'Users'\r\n"
        "COMMIT TRANSACTION xiugai",
        user.lId, user.lUserId, user.sUserName, user.sPassword, user.lId, user.lUserId,
        std::string(rightsLength, 'N'), user.lId);
}

std::string saveRights(std::int32_t userId, std::string_view rights) {
    return formatSql("UPDATE UserAuth SET sAuthId = '%s' WHERE lUserId = %d", rights, userId);
}

std::string deleteOperator(std::int32_t userId) {
    return formatSql(
        "BEGIN TRANSACTION xiugai\r\n"
        "DELETE Users WHERE lUserId = %d\r\n"
        "DELETE UserAuth WHERE lUserId = %d\r\n"
        "COMMIT TRANSACTION xiugai",
        userId, userId);
}

}  // namespace chengheng::operator_sql
