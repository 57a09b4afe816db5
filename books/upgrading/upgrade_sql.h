#pragma once

namespace chengheng::upgrade_sql {

inline constexpr const char* setName = "SELECT sName FROM zAccountM ORDER BY lId";
inline constexpr const char* loggedOn =
    "SELECT sUser, sStation, lProcess FROM LoginInfoTbl ORDER BY lId";

}  // namespace chengheng::upgrade_sql
