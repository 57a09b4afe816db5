#pragma once

#include <string>

namespace chengheng::summary_sql {

inline constexpr const char* parameters =
    "SELECT sName, sCompany, lYear, dtStart, sCodeLen, bFgn FROM zAccountM ORDER BY lId";
inline constexpr const char* formatVersion = "SELECT max(lVersion) FROM BooksFormat";

inline constexpr const char* uses =
    "SELECT CASE LogonTries.lId WHEN 0 THEN '' ELSE sUserName END, dLogonAt FROM LogonTries "
    "LEFT JOIN Users ON Users.lId = LogonTries.lId "
    "WHERE dLogonAt > 0 AND (LogonTries.lId = 0 OR Users.lId IS NOT NULL) "
    "ORDER BY LogonTries.lId";

inline std::string rowCount(const std::string& table) { return "SELECT count(*) FROM " + table; }

}  // namespace chengheng::summary_sql
