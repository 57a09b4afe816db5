#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "directories/directory.h"

/// Conditions and statements on directories and on what refers to their records.
namespace chengheng::directory_sql {

/// Who has a code; of every directory but the items.
std::string coded(DirectoryKind kind, std::string_view code);
std::string named(DirectoryKind kind, std::string_view name);
void editRecord(std::string& batch, DirectoryKind kind, const DirectoryRecord& record);
/// Every record in the order of the codes.
const char* inOrder(DirectoryKind kind);

// The items of a class, each as id, code and name.

std::string itemsInOrder(std::string_view classCode);
std::string itemOfId(std::string_view classCode, std::int32_t id);
std::string itemsCoded(std::string_view classCode, std::string_view code);
std::string itemsNamed(std::string_view classCode, std::string_view name);
std::string lastItemId(std::string_view classCode);
std::string anyItem(std::string_view classCode);
/// For the engine itself.
std::string dropItemTable(std::string_view classCode);
void addItem(std::string& batch, std::string_view classCode, std::int32_t id,
             const DirectoryRecord& item);
void editItem(std::string& batch, std::string_view classCode, const DirectoryRecord& item);
std::string deleteItem(std::string_view classCode, std::int32_t id);

// What names a record: lines of vouchers and balances. `classCode` is that of an item, or of the
// class itself.

std::string naming(DirectoryKind kind, std::int32_t id, std::string_view classCode);
/// Of those the opening entries, the others, and the balances that are not all zero.
std::string openingLines(std::string naming);
std::string voucherLines(std::string naming);
std::string movedBalances(std::string naming);

std::string personsOf(std::int32_t department);
std::string unitsOf(std::int32_t unitClass);
std::string accountsOf(std::string_view classCode);
std::string reconciliationsOf(std::int32_t unit);
/// The rows of auxiliary sums that name a record.
std::string deleteBalances(std::string naming);

}  // namespace chengheng::directory_sql
