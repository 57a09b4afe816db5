#pragma once

#include <string>

namespace chengheng::summary_sql {

inline constexpr const char* parameters =
    "SELECT sName, sCompany, lYear, dtStart, sCodeLen, bFgn FROM zAccountM ORDER BY lId";
inline constexpr const char* formatVersion = "SELECT max(lVersion) FROM BooksFormat";

inline std::string rowCount(const std::string& table) { return "SELECT count(*) FROM " + table; }

}  // namespace chengheng::summary_sql
