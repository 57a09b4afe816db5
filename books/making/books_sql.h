#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "books/making/new_books.h"
#include "data/tables/accounts.h"

/// The statements of the making of books.
namespace chengheng::books_sql {

/// Everything a new set of books holds, put into its empty tables: the accounts get the ids
/// from 1 on; the password is hashed.
std::string fillNewBooks(const NewBooks& books, std::span<const _CodeInfo> accounts,
                         std::int32_t setId, const std::string& hash);

}  // namespace chengheng::books_sql
