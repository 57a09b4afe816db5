#pragma once

#include <cstdint>
#include <string>

#include "data/sql/engine_dialect.h"

/// The conditions that logging on reads by.
namespace chengheng::logon_sql {

/// The parameters of a set of books.
inline constexpr const char* parameters = "lId > 0";
/// An operator by name.
std::string ofOperator(const std::string& name);
/// The rights of an operator.
std::string ofRightsOwner(std::int32_t userId);
/// What gives an operator another password.
inline constexpr const char* newPassword = "sPassword = '%s'";
/// Who is logged on from a workstation.
std::string ofStation(const std::string& station);
/// The rows of LoginInfoTbl with one of these ids; "1, 2, 3".
std::string ofLogons(const std::string& ids);

// Of the tries with a row of LogonTries, whose id is the last parameter.

/// Makes the row where it is missing, and keeps others from it to the end of the transaction.
inline constexpr const char* holdTries =
    "INSERT INTO LogonTries (lId) VALUES ($1) "
    "ON CONFLICT (lId) DO UPDATE SET lWrong = LogonTries.lWrong";
/// How many were wrong, when the last was, when the operator last logged on, whether a new password
/// is wanted, and what time it is.
std::string readTries(const EngineDialect& dialect);
inline constexpr const char* countTry =
    "UPDATE LogonTries SET lWrong = $1, dWrongAt = $2 WHERE lId = $3";
inline constexpr const char* takeTryBack =
    "UPDATE LogonTries SET lWrong = lWrong - 1, dWrongAt = 0 WHERE lId = $1 AND lWrong > 0";
inline constexpr const char* noteLogon =
    "UPDATE LogonTries SET lWrong = 0, dWrongAt = 0, dLogonAt = $1 WHERE lId = $2";

/// How much shows that somebody had his hands in the operation log since the operator $1 logged on
/// last: entries that say so, entries behind its end, an end behind its entries.
inline constexpr const char* brokenLog =
    "SELECT (SELECT count(*) FROM OperationLog WHERE lFunction = -1 AND lId > (SELECT "
    "coalesce(max(lId), 0) FROM OperationLog WHERE lFunction = -2 AND sUser = $1)) + (SELECT "
    "count(*) FROM OperationLog WHERE lId > (SELECT coalesce(max(lLastId), 0) FROM "
    "OperationLogHead)) + (SELECT count(*) FROM OperationLogHead WHERE lLastId > (SELECT "
    "coalesce(max(lId), 0) FROM OperationLog))";

}  // namespace chengheng::logon_sql
