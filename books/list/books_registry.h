#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/system/owned_files.h"
#include "base/values/status.h"

namespace chengheng {

/// The file of books that lie in a folder of their own.
inline constexpr const char* booksFileName = "Nbzw.db";

/// One accounting year of a set of books: a database.
struct BooksYear {
    int year = 0;
    std::string location;  ///< path of its file, or the address of its schema

    bool operator==(const BooksYear&) const = default;
};

/// A set of books (帐套) with its years.
struct BooksSet {
    std::int32_t id = 0;
    std::string name;
    std::string company;
    std::vector<BooksYear> years;

    bool operator==(const BooksSet&) const = default;
};

/// Puts a year that a list has into the set of the name that its books have now; its company is
/// that of its latest year. True when the list has changed by it, which it does not where that name
/// has the same year elsewhere.
bool listUnderOwnName(std::vector<BooksSet>& sets, const BooksSet& facts, const BooksYear& year);

/// The place where the list has that year under that name, other than the given one; empty where
/// it has none.
std::string otherPlaceOf(const std::vector<BooksSet>& sets, std::string_view name,
                         const BooksYear& year);

/// The list of the sets of books known at this workstation, in one file that the program and
/// the command-line tool share.
///
/// It only says where books lie; the books themselves hold everything else. A list that
/// cannot be read is never written over: mending or removing it is left to a person.
class BooksRegistry {
  public:
    /// The folder that holds the list and the sets made without a place of their own.
    explicit BooksRegistry(std::string folder);

    const std::string& folder() const { return m_folder; }
    std::string path() const;

    /// The sets in the order of their ids. A list that is not there yet holds none.
    Status read(std::vector<BooksSet>& sets) const;

    /// Takes a year off the list, and its set when it was the last; the database stays.
    Status forget(std::string_view location);

    /// Lists a year under the name and company that its books have now, where the list has its
    /// place; the facts' own years mean nothing. Refused where the list has the same year of that
    /// name elsewhere.
    Status correct(const BooksSet& facts, const BooksYear& year) const;

  private:
    std::string m_folder;
};

/// A change of the list while no other process can make one.
class RegistryChange {
  public:
    explicit RegistryChange(const BooksRegistry& registry);

    /// Whether the list could be held and read.
    const Status& status() const { return m_status; }
    std::vector<BooksSet>& sets() { return m_sets; }
    /// The set of that name; null when there is none.
    BooksSet* findSet(std::string_view name);
    /// Enters a year, in the set of that name or a new one.
    void enter(const BooksSet& facts, const BooksYear& year);
    Status save();

  private:
    const BooksRegistry& m_registry;
    std::unique_ptr<FileHold> m_hold;
    std::vector<BooksSet> m_sets;
    Status m_status;
};

}  // namespace chengheng
