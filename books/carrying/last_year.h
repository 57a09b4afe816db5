#pragma once

#include <span>
#include <string>

#include "books/list/books_registry.h"
#include "data/access/CNbCwDB.h"

namespace chengheng {

/// What tells a year of books from another.
struct YearOfBooks {
    std::string name;  ///< of the set
    int year = 0;
    std::string location;  ///< without a password
};

/// Where the books of the year before lie: those of the same set in the list, else the file in
/// the folder of the year before beside the folder of this year. Empty where neither is.
/// Nothing is looked for that is another set, or two years back.
std::string placeOfLastYear(std::span<const BooksSet> sets, const YearOfBooks& now);

/// The books of the year before, open beside those that an operator works with, to be read as
/// they stand at one moment. The books worked with are selected again at the end.
class LastYear {
  public:
    explicit LastYear(CNbCwDB& database);
    ~LastYear();
    LastYear(const LastYear&) = delete;
    LastYear& operator=(const LastYear&) = delete;

    /// Opens and selects them; missing where there are none of that year there. Nothing is
    /// written, whoever else works with them.
    Status open(const std::string& location, int year);

  private:
    CNbCwDB& m_database;
    std::string m_before;
    bool m_isOpen = false;
};

}  // namespace chengheng
