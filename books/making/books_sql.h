#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "books/making/new_books.h"
#include "data/tables/accounts.h"

/// The statements of the shell and of the making of books.
namespace chengheng::books_sql {

/// Everything a new set of books holds, put into its empty tables: the accounts get the ids
/// from 1 on; the password is hashed.
std::string fillNewBooks(const NewBooks& books, std::span<const _CodeInfo> accounts,
                         std::int32_t setId, const std::string& hash);

/// An operator by name.
std::string ofOperator(const std::string& name);
/// The rights of an operator.
std::string ofRightsOwner(std::int32_t userId);
/// Who is logged on from a workstation.
std::string ofStation(const std::string& station);
/// The rows of LoginInfoTbl with one of these ids; "1, 2, 3".
std::string ofLogons(const std::string& ids);

}  // namespace chengheng::books_sql
