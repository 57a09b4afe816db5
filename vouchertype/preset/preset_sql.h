#pragma once

/// Conditions on the accounts that preset voucher types name.
namespace chengheng::preset_sql {

inline constexpr const char* cashAccount =
    "bCash <> 0 AND byGrade = 1 AND lId > 0 ORDER BY sCode LIMIT 1";
inline constexpr const char* bankAccount =
    "bBank <> 0 AND byGrade = 1 AND lId > 0 ORDER BY sCode LIMIT 1";

}  // namespace chengheng::preset_sql
