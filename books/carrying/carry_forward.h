#pragma once

#include <vector>

#include "base/messages/messages.h"
#include "books/list/books_registry.h"
#include "opening/screen/opening_work.h"

namespace chengheng {

/// Carries last year's closing balances forward into the open set of books, which must hold no
/// balances yet. Last year's books are read and never written. Whatever does not give `done`
/// has changed nothing. What the operator is to be told of it is added to `untold`.
CarriedForward carryForward(const BooksRegistry& registry, std::vector<Notice>& untold);

}  // namespace chengheng
