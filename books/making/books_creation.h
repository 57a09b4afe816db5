#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "books/list/books_registry.h"
#include "books/making/new_books.h"
#include "data/access/CNbCwDB.h"

namespace chengheng {

/// Puts everything that new books hold into the selected, empty database, in one
/// transaction: parameters, account classes and accounts, the rights list, the first
/// supervisor, the print templates. The facts must have been checked; the hash is that of the
/// supervisor's password.
Status fillNewBooks(CNbCwDB& database, const NewBooks& books, std::int32_t setId,
                    const std::string& hash);

/// Books that were made.
struct CreatedBooks {
    std::int32_t setId = 0;
    BooksYear year;
};

/// Makes a set of books, or a further year of one that the list has by the same name.
class BooksCreation {
  public:
    /// With no registry the books are entered in no list and need a place of their own.
    explicit BooksCreation(const BooksRegistry* registry) : m_registry(registry) {}

    /// Checks the facts, makes the database, fills it and enters it in the list. After a
    /// refusal nothing is left of it, and what was there before is as it was.
    std::optional<Refusal> create(const NewBooks& books, CreatedBooks& created) const;

  private:
    std::optional<Refusal> createIn(RegistryChange* change, const NewBooks& books,
                                    CreatedBooks& created) const;

    const BooksRegistry* m_registry;
};

/// The lowest id above those of all listed sets whose folder is free.
std::int32_t nextSetId(const BooksRegistry& registry, const std::vector<BooksSet>& sets);

/// Where new books lie: an absolute path of a file, the address of a schema. A folder gets the
/// file name, an address without a schema one made of set and year, no place at all the
/// folder of the registry.
std::string placeOfBooks(const std::string& location, const std::string& home, std::int32_t setId,
                         int year);

}  // namespace chengheng
