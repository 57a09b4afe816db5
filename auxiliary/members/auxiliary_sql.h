#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "auxiliary/members/entry_dimensions.h"
#include "data/sql/sql_format.h"

/// Conditions and statements of the auxiliary opening entries.
namespace chengheng::auxiliary_sql {

/// Which lines are the entries of an account; the members spell it each in its own way.
using EntriesFormat = SqlFormat<std::int32_t>;

inline constexpr EntriesFormat departmentEntries{"lCodeId=%d AND lDeptId <> 0 AND bBegin<>0"};
inline constexpr EntriesFormat departmentAndProjectEntries{
    "bBegin<>0 AND lCodeId=%d AND lItemId<>0 AND lDeptId<>0"};
inline constexpr EntriesFormat projectEntries{"bBegin<>0 AND lCodeId=%d AND lItemId<>0"};
inline constexpr EntriesFormat personEntries{
    "lCodeId = %ld AND lPersonId is not NULL AND bBegin <> 0"};
inline constexpr EntriesFormat departmentAndUnitEntries{
    "bBegin<>0 AND lCodeId=%d AND lEnterId>0 AND lDeptId>0"};
inline constexpr EntriesFormat unitAndProjectEntries{
    "bBegin<>0 AND lCodeId=%d AND lEnterId <> 0 AND lItemId<>0"};
inline constexpr EntriesFormat unitEntries{"bBegin<>0 AND lCodeId=%d AND lEnterId<>0"};

/// Behind any of them: in the order in which they were added.
inline constexpr const char* asAdded = " ORDER BY RegSub.lId";
/// What they are read from: a line whose header is gone stays an entry.
inline constexpr const char* linesAndHeaders =
    "RegSub LEFT JOIN RegMain ON RegMain.lId = RegSub.lTieId";

/// The auxiliary sums of a combination, its dimensions in an order; without any, those of every
/// combination of the account.
std::string sums(std::span<const Dimension> order, std::int32_t accountId,
                 const EntryDimensions& of);
/// The same opening figures for all of them.
void updateSums(std::string& batch, std::span<const Dimension> order, const EntryFigures& figures,
                std::int32_t accountId, const EntryDimensions& of);
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
inline constexpr const char* endAccounts = "bEnd <> 0 ORDER BY sCode";

/// The item of a class by its name, as its id.
std::string itemNamed(std::string_view classCode, std::string_view name);
/// The project classes that the lines of an account name an item of.
std::string classesOfAccount(std::int32_t accountId);

}  // namespace chengheng::auxiliary_sql
