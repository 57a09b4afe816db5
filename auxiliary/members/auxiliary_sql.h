#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "auxiliary/members/entry_dimensions.h"

/// Conditions and statements of the auxiliary opening entries.
namespace chengheng::auxiliary_sql {

// The entries of an account, by member.

std::string departmentEntries(std::int32_t accountId);
std::string departmentAndProjectEntries(std::int32_t accountId);
std::string projectEntries(std::int32_t accountId);
std::string personEntries(std::int32_t accountId);
std::string departmentAndUnitEntries(std::int32_t accountId);
std::string unitAndProjectEntries(std::int32_t accountId);
std::string unitEntries(std::int32_t accountId);

/// Behind any of them: in the order in which they were added.
inline constexpr const char* asAdded = " ORDER BY lId";

// The auxiliary sums of a combination, by member.

std::string departmentSums(std::int32_t accountId, const EntryDimensions& of);
std::string departmentAndProjectSums(std::int32_t accountId, const EntryDimensions& of);
std::string projectSums(std::int32_t accountId, const EntryDimensions& of);
std::string personSums(std::int32_t accountId, const EntryDimensions& of);
std::string departmentAndUnitSums(std::int32_t accountId, const EntryDimensions& of);
std::string unitAndProjectSums(std::int32_t accountId, const EntryDimensions& of);
std::string unitSums(std::int32_t accountId, const EntryDimensions& of);

/// Those of every combination of an account.
std::string allSums(std::int32_t accountId);

// The same opening figures for all of them, by member.

void updateDepartment(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                      const EntryDimensions& of);
void updateDepartmentAndProject(std::string& batch, const EntryFigures& figures,
                                std::int32_t accountId, const EntryDimensions& of);
void updateProject(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                   const EntryDimensions& of);
void updatePerson(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                  const EntryDimensions& of);
void updateDepartmentAndUnit(std::string& batch, const EntryFigures& figures,
                             std::int32_t accountId, const EntryDimensions& of);
void updateUnitAndProject(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                          const EntryDimensions& of);
void updateUnit(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                const EntryDimensions& of);

// What is the same for all members.

/// One row of auxiliary sums, where the rows of a combination differ.
void updateOneRow(std::string& batch, const EntryFigures& figures, std::int32_t rowId);
/// A row of auxiliary sums without movements.
void insertAuxiliary(std::string& batch, std::int32_t id, int period, std::int32_t accountId,
                     const EntryDimensions& of, const EntryFigures& figures);
void setLastAuxiliaryId(std::string& batch, std::int32_t lastId);

/// The rows of period sums of an account.
std::string accountSums(std::int32_t accountId);
void updateAccountSums(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                       int period);
/// A row of period sums without movements.
void insertAccountSums(std::string& batch, std::int32_t id, std::int32_t accountId, int period,
                       const EntryFigures& figures);
void setLastAccountSumsId(std::string& batch, std::int32_t lastId);

/// Vouchers and opening entries draw their ids from one sequence.
std::string setVoucherCounters(std::int32_t lastHeader, std::int32_t lastLine);

std::string headerOf(std::int32_t tieId);
std::string linesOfHeader(std::int32_t headerId);
std::string line(std::int32_t lineId);
std::string accountOfCode(std::string_view code);
inline constexpr const char* endAccounts = "bEnd <> 0 ORDER BY sCode";
/// Headers of opening entries, as opposed to those of vouchers.
inline constexpr const char* openingHeaders = "byPeroid = 0";

// Whose name or code is whose.

std::string departmentNamed(std::string_view name);
std::string departmentCoded(std::string_view code);
std::string personNamed(std::string_view name);
std::string personCoded(std::string_view code);
std::string unitNamed(std::string_view name);
std::string unitCoded(std::string_view code);
std::string itemNamed(std::string_view classCode, std::string_view name);
std::string itemCoded(std::string_view classCode, std::string_view code);
std::string itemOfId(std::string_view classCode, std::int32_t id);
std::string itemsInOrder(std::string_view classCode);
std::string classOfCode(std::string_view code);
/// The project classes that the lines of an account name an item of.
std::string classesOfAccount(std::int32_t accountId);

/// Units by a condition or an order, their id, code and name: what every layout has of them.
std::string selectUnits(std::string_view condition);

inline constexpr const char* departmentsInOrder = "ORDER BY sDeptCode, lId";
inline constexpr const char* personsInOrder = "ORDER BY sPersonCode, lId";
inline constexpr const char* unitsInOrder = "ORDER BY sEnterCode, lId";
inline constexpr const char* classesInOrder = "ORDER BY sClsCode, lId";

}  // namespace chengheng::auxiliary_sql
