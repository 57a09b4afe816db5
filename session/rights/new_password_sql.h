#pragma once

/// Of the mark that an operator is to choose a new password.
namespace chengheng::new_password_sql {

inline constexpr const char* readMark = "SELECT bNewPassword FROM LogonTries WHERE lId = $1";
inline constexpr const char* writeMark =
    "INSERT INTO LogonTries (lId, bNewPassword) VALUES ($1, $2) "
    "ON CONFLICT (lId) DO UPDATE SET bNewPassword = excluded.bNewPassword";

}  // namespace chengheng::new_password_sql
