#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "books/copying/books_source.h"

namespace chengheng {

/// Told how many of the rows are written; false gives it up.
using NewYearProgress = std::function<bool(std::size_t done, std::size_t total)>;

/// What makes the books of a year out of those of the year before.
struct YearChange {
    int from = 0;  ///< the year that ends
    int to = 0;
    bool bringsLastRates = false;
    std::string words = {};  ///< for the log of the new books
};

/// Puts next year's content into empty tables of this layout and proves that what was taken over is
/// what the source holds; `made` is what the target then holds. To be called inside a transaction
/// of the target. Cancelled when the progress gives it up, wrongValue where the two differ.
Status fillNextYear(BooksSource& source, Engine& target, const YearChange& change,
                    const NewYearProgress& progress, std::vector<TableDigest>& made);

}  // namespace chengheng
