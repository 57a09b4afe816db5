#pragma once

#include <cstdint>
#include <string>

/// The conditions that logging on reads by.
namespace chengheng::logon_sql {

/// The parameters of a set of books.
inline constexpr const char* parameters = "lId > 0";
/// An operator by name.
std::string ofOperator(const std::string& name);
/// The rights of an operator.
std::string ofRightsOwner(std::int32_t userId);
/// Who is logged on from a workstation.
std::string ofStation(const std::string& station);
/// The rows of LoginInfoTbl with one of these ids; "1, 2, 3".
std::string ofLogons(const std::string& ids);

}  // namespace chengheng::logon_sql
