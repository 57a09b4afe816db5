#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "auxiliary/entries/entry_service.h"
#include "auxiliary/screen/entry_list.h"
#include "base/messages/messages.h"

namespace chengheng {

/// The window of auxiliary opening balances without its screen: the entries of one account of a
/// member, what may be done with them now, and the doing. Whatever fails has told the operator
/// why and has changed nothing.
class AuxiliaryWork {
  public:
    AuxiliaryWork(IMessages& messages, const AuxiliaryMember& member, bool isBrowsing)
        : m_messages(messages),
          m_member(member),
          m_isBrowsing(isBrowsing),
          m_service(messages, member),
          m_list(member) {}

    /// Reads the member's accounts and the entries of one; false when the window is not to open.
    bool open(std::string_view accountCode);

    const AuxiliaryMember& member() const { return m_member; }
    bool isBrowsing() const { return m_isBrowsing; }
    /// "浏览、只读" or nothing.
    const char* modeText() const;
    const std::vector<AuxiliaryAccount>& accounts() const { return m_accounts; }
    std::size_t accountPlace() const { return m_place; }
    const AuxiliaryAccount& account() const { return m_accounts[m_place]; }
    /// Shows the entries of another account; false when they cannot be read.
    bool selectAccount(std::size_t place);
    /// Reads the entries anew; false when they cannot be read, and everything is as it was.
    bool refresh();

    EntryList& list() { return m_list; }
    const EntryList& list() const { return m_list; }
    std::vector<CombinationTotal> combinations() const { return totalsOf(m_list.all(), account()); }
    EntryFigures total() const { return m_list.total(account()); }
    /// The account's own opening figures.
    const EntryFigures& posted() const { return m_posted; }
    bool hasDifference() const { return !(total() == m_posted); }

    /// Writes a new entry, which gets its ids.
    bool add(AuxiliaryEntry& entry);
    /// Writes many new entries as one step; the line of the first, nothing when none was written.
    std::optional<std::int32_t> addAll(std::vector<EntryChange> additions);
    /// When another workstation changed the entry, which the operator is told, `before` becomes
    /// what it says now: what was typed can then be written over it.
    bool modify(AuxiliaryEntry& before, AuxiliaryEntry after);
    /// The entry on a row; nothing: none is selected, which the operator is told.
    const AuxiliaryEntry* entryToModify(std::optional<std::size_t> row);
    /// Asks and deletes the entry on a row.
    bool remove(std::optional<std::size_t> row);

    bool canUndo() const { return !m_isBrowsing && m_position > 0; }
    bool canRedo() const { return !m_isBrowsing && m_position < m_steps.size(); }
    bool undo();
    bool redo();

    /// The next row after one that fits; nothing when there is none, which the operator is told.
    std::optional<std::size_t> find(const EntrySearch& search, std::size_t after);

  private:
    using Step = std::vector<EntryChange>;

    bool readPosted();
    bool carryOut(Step& step);
    bool doAndRemember(Step step);
    void show(const Step& step);
    bool goTo(Step changes);
    void forgetSteps();

    IMessages& m_messages;
    const AuxiliaryMember& m_member;
    bool m_isBrowsing;
    EntryService m_service;
    EntryList m_list;
    std::vector<AuxiliaryAccount> m_accounts;
    std::size_t m_place = 0;
    EntryFigures m_posted;
    std::vector<Step> m_steps;   ///< of the account
    std::size_t m_position = 0;  ///< how many of them are done
};

}  // namespace chengheng
