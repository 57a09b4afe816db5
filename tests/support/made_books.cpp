#include "tests/support/made_books.h"

#include <stdexcept>

#include "books/making/books_creation.h"

namespace chengheng {

NewBooks sampleBooks() {
    NewBooks books;
    books.name = "示例帐套";
    books.company = "示例贸易有限公司";
    books.year = 2026;
    books.supervisor = "王芳";
    books.password = "secret";
    books.passwordCost = PasswordCost::least;
    return books;
}

std::string makeBooks(const std::string& location, const NewBooks& books) {
    NewBooks placed = books;
    placed.location = location;
    CreatedBooks created;
    const auto refusal = BooksCreation(nullptr).create(placed, created);
    if (refusal) throw std::runtime_error(refusal->notice.text);
    return created.year.location;
}

}  // namespace chengheng
