#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/entries/entry_input.h"
#include "auxiliary/members/auxiliary_member.h"

namespace chengheng {

/// What a column of the list holds.
enum class EntryColumn : std::uint8_t {
    date,
    voucherNumber,
    summary,
    department,
    person,
    unit,
    item,
    direction,
    money,
    foreign,
    quantity,
};

/// The columns of a member, its dimensions in the order of its dialog.
std::vector<EntryColumn> columnsOf(const AuxiliaryMember& member);
const char* headingOf(EntryColumn column);
bool isFigure(EntryColumn column);

/// What a cell shows. An amount that is 0 shows nothing, but for money.
std::string cellText(const AuxiliaryEntry& entry, EntryColumn column);

/// What is searched for; an empty text fits everything. Amounts are compared as numbers, a date
/// as a day, texts by what they hold, letters in any case.
struct EntrySearch : EntryFieldTexts {
    bool isDebit = false;
    bool isCredit = false;  ///< neither, or both: in either direction
};

bool fits(const AuxiliaryEntry& entry, const EntrySearch& search);

/// The entries of an account as a list shows them: those that hold the text of a filter in any
/// column, sorted by a column. Rows count shown entries.
class EntryList {
  public:
    explicit EntryList(const AuxiliaryMember& member) : m_columns(columnsOf(member)) {}

    const std::vector<EntryColumn>& columns() const { return m_columns; }
    const std::vector<AuxiliaryEntry>& all() const { return m_entries; }
    std::size_t rowCount() const { return m_shown.size(); }
    const AuxiliaryEntry& atRow(std::size_t row) const { return m_entries[m_shown[row]]; }
    /// The row of a line; as many as there are rows when it is not shown.
    std::size_t rowOf(std::int32_t lineId) const;

    void assign(std::vector<AuxiliaryEntry> entries);
    /// Puts an entry at the end, or in the place of the one of its line.
    void put(const AuxiliaryEntry& entry);
    void remove(std::int32_t lineId);
    /// Both for many at once.
    void change(std::span<const AuxiliaryEntry> come, std::span<const std::int32_t> gone);

    const std::string& filter() const { return m_filter; }
    void setFilter(std::string text);
    /// By a place among the columns; -1: in the order in which they were added.
    void sortBy(int column, bool isDescending);

    /// The next row after one that fits, from the first again after the last; as many as there
    /// are rows when none does. Begins before the first row at `rowCount`.
    std::size_t find(const EntrySearch& search, std::size_t after) const;

    /// What all, and what the shown entries add up to.
    EntryFigures total(const AuxiliaryAccount& account) const;
    EntryFigures shownTotal(const AuxiliaryAccount& account) const;

    /// Another number after each change of the entries, whichever of them are shown.
    unsigned revision() const { return m_revision; }

  private:
    void showMatching();
    void sortShown();
    bool matches(std::size_t place, std::string_view wanted);

    std::vector<EntryColumn> m_columns;
    std::vector<AuxiliaryEntry> m_entries;
    /// What a filter looks at in each of them, in small letters; empty until one does.
    std::vector<std::string> m_texts;
    std::vector<std::size_t> m_shown;
    std::string m_filter;
    int m_sortColumn = -1;
    bool m_isDescending = false;
    unsigned m_revision = 0;
};

/// What the entries of one combination add up to.
struct CombinationTotal {
    EntryDimensions of;
    EntryNames names;
    std::size_t count = 0;
    EntryFigures figures;
};

/// One for each combination, in the order in which they first appear.
std::vector<CombinationTotal> totalsOf(const std::vector<AuxiliaryEntry>& entries,
                                       const AuxiliaryAccount& account);

}  // namespace chengheng
