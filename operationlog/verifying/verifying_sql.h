#pragma once

#include <cstdint>
#include <string>

// What the operation log is asked when it is looked through as a whole.

namespace chengheng::verifying_sql {

/// Numbers from one to the other, both included.
struct NumberRange {
    std::int32_t lowest = 0;
    std::int32_t highest = 0;
};

/// A page of entries, by their numbers.
std::string entries(const NumberRange& numbers, bool isNewestFirst);
/// $1 to $2 the numbers of entries, $3 to $4 those of their parts: the parts behind the numbers of
/// their entries.
std::string parts(bool isNewestFirst);

/// Number and hash of the last entry.
inline constexpr const char* head = "SELECT lLastId, sHash FROM OperationLogHead WHERE lId = 1";

/// What a seal holds of the entry with the highest number.
inline constexpr const char* lastEntry =
    "SELECT lId, sTime, sHash FROM OperationLog ORDER BY lId DESC LIMIT 1";
inline constexpr const char* booksName = "SELECT sName FROM zAccountM ORDER BY lId LIMIT 1";

/// How many parts belong to no entry.
inline constexpr const char* strayParts =
    "SELECT count(*) FROM OperationLogPart p WHERE NOT EXISTS (SELECT 1 FROM OperationLog l WHERE "
    "l.sUnit = p.sUnit)";

}  // namespace chengheng::verifying_sql
