#pragma once

#include <optional>
#include <string>

#include "base/messages/refusal.h"
#include "books/list/books_registry.h"
#include "data/tables/books.h"

namespace chengheng {

/// Opens books for a moment to read who they are.
std::optional<Refusal> readBooks(const std::string& location, _zAccountMInfo& parameters);

/// Enters books that were opened by path or address in the list, so that it offers them the
/// next time. Books of a name and year that the list already has elsewhere are left out.
Status rememberBooks(const BooksRegistry& registry, const std::string& location,
                     const _zAccountMInfo& parameters);

}  // namespace chengheng
