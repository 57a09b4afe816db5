#pragma once

namespace chengheng::transfer_sql {

inline constexpr const char* endOfLog = "SELECT lLastId, sHash FROM OperationLogHead WHERE lId = 1";

}  // namespace chengheng::transfer_sql
