#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/messages/messages.h"
#include "books/carrying/last_year.h"
#include "books/carrying/members.h"
#include "books/carrying/year_end.h"
#include "books/list/books_registry.h"
#include "session/record_change.h"

namespace chengheng {

/// Told how much of a carry-forward is done; false: it is to be given up.
using CarryProgress = std::function<bool(std::size_t done, std::size_t total)>;

/// A refusal in the way of the carry-forward.
UntoldOutcome carryRefused(const char* text);
/// What is said where the operator gave it up.
UntoldOutcome carryGivenUp();

/// The open set of books beside that of the year before, all of which is read.
class BothYears {
  public:
    /// What is told of last year's books beside is added to `untold`. Both outlive this. Last
    /// year's books are looked for where no place is given.
    BothYears(const BooksRegistry& registry, std::vector<Notice>& untold, std::string lastYear = {})
        : m_registry(registry), m_untold(untold), m_lastYear(std::move(lastYear)) {}

    /// The own books are selected afterwards.
    UntoldOutcome read(const CarryProgress& progress = {});

    const YearEnd& end() const { return m_end; }
    const Members& membersBefore() const { return m_membersBefore; }

  private:
    UntoldOutcome findLastYear(const YearOfBooks& now);
    UntoldOutcome readLastYear(int year, const CarryProgress& progress);

    const BooksRegistry& m_registry;
    std::vector<Notice>& m_untold;
    std::string m_lastYear;
    YearEnd m_end;
    Members m_membersBefore;
};

}  // namespace chengheng
