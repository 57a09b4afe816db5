#pragma once

#include <string>

#include "books/making/new_books.h"

namespace chengheng {

/// Facts of a set of books that can be made as they stand: 示例帐套 of 2026, pattern 4222, the
/// small-enterprise chart, supervisor 王芳 with password "secret".
NewBooks sampleBooks();

/// Makes books at a place without entering them in a list; throws when they cannot be made.
/// Gives the location.
std::string makeBooks(const std::string& location, const NewBooks& books = sampleBooks());

}  // namespace chengheng
