#pragma once

#include <string>

#include "data/tables/books.h"

namespace chengheng {

/// What of a set of books can be changed once it is made.
struct BooksParameters {
    std::string name;
    std::string company;
    bool hasForeignCurrency = false;
    std::string levelPattern;
    int startMonth = 1;

    bool operator==(const BooksParameters&) const = default;
};

BooksParameters parametersOf(const _zAccountMInfo& record);

/// The record that the parameters make of another one. Blanks at the ends of texts are dropped;
/// the first day of bookkeeping stays unless its month is another one.
_zAccountMInfo recordWith(const BooksParameters& parameters, const _zAccountMInfo& base);

/// What was typed over one state, on top of another: the fields that were typed as they are, all
/// others as they are now.
BooksParameters typedOver(const BooksParameters& now, const BooksParameters& typed,
                          const BooksParameters& before);

}  // namespace chengheng
