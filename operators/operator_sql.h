#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/tables/operators.h"

/// Conditions and statements on operators, their rights and what refers to them.
namespace chengheng::operator_sql {

/// Of operators and of rights: paired by their places.
inline constexpr const char* inOrder = "lId > 0 ORDER BY lUserId";
/// Of the rights of an operator.
std::string ofUser(std::int32_t userId);
std::string ofName(std::string_view name);
/// Of another operator than this one.
std::string ofNameBeside(std::string_view name, std::int32_t userId);
/// Of a voucher that the operator made, checked or posted.
std::string ofVouchers(std::int32_t userId);
/// Of whoever is logged on to the set of books by this name or number.
std::string ofLogons(std::int32_t accountId, std::string_view name, std::int32_t userId);
/// Of the sessions of an operator: by the number, by the name where a session tells no number.
std::string ofSessions(std::int32_t accountId, std::string_view name, std::int32_t userId);
/// What gives them another name.
inline constexpr const char* newNameOfLogon = "sUser = '%s'";

/// Of a supervisor beside this operator.
std::string ofSupervisorsBeside(std::int32_t userId);

/// Adds an operator who is no supervisor and has no rights. The id is that of both rows.
std::string addOperator(const _UsersInfo& user);
std::string saveRights(std::int32_t userId, std::string_view rights);
std::string deleteOperator(std::int32_t userId);

}  // namespace chengheng::operator_sql
