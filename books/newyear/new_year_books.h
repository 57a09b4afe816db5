#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/list/books_registry.h"
#include "books/newyear/new_year_checks.h"
#include "books/newyear/new_year_content.h"

namespace chengheng {

/// What a person says about the books of the next year.
struct NewYearOrder {
    std::string books = {};   ///< the books of the year that ends
    std::string target = {};  ///< a place for the new ones; empty: beside those
    bool bringsLastRates = false;
    bool isListed = true;  ///< whether the list of the sets of books gets them

    bool operator==(const NewYearOrder&) const = default;
};

/// What would be made.
struct NewYearPlan {
    struct Taken {
        const char* table;
        const char* text;
        std::int64_t rows = 0;
    };

    NewYearFacts facts = {};
    std::vector<Taken> taken = {};  ///< what there is of it
    std::vector<ForeignObject> leftOut = {};
    bool bringsLastRates = false;
    bool isCarriedInto = false;  ///< the balances are carried forward behind it

    /// What will happen, for the operator who has to decide.
    std::string text() const;
    /// What of it the new books get.
    std::string contentText() const;
};

/// Makes the books of the next year from those of a year: accounts, directories, currencies and
/// everything else that is set up, without vouchers and balances. The books of the year that ends
/// are read as they stand at one moment and not written to.
class NewYearBooks {
  public:
    /// The list outlives this.
    explicit NewYearBooks(const BooksRegistry& registry, BooksOpener opener = plainOpener())
        : m_registry(registry), m_open(std::move(opener)) {}

    /// Looks whether and how they would be made; makes nothing.
    std::optional<Refusal> plan(const NewYearOrder& order, NewYearPlan& plan) const;
    /// Makes them, where whoever is logged on to the books of the year that ends may. After a
    /// refusal nothing is left of them, unless it says that this is not known.
    std::optional<Refusal> make(const NewYearOrder& order, const NewYearProgress& progress,
                                NewYearPlan& made) const;

  private:
    struct Work;

    std::optional<Refusal> look(Work& work) const;
    Status gather(Work& work) const;
    std::optional<Refusal> makeFile(Work& work) const;
    std::optional<Refusal> makeSchema(Work& work) const;
    std::optional<Refusal> fill(Work& work, Engine& target) const;
    std::optional<Refusal> enter(Work& work, const std::function<Status()>& place,
                                 const std::function<void()>& takeAway) const;

    const BooksRegistry& m_registry;
    BooksOpener m_open;
};

}  // namespace chengheng
