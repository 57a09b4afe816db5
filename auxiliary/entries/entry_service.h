#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/members/auxiliary_member.h"
#include "base/values/status.h"
#include "session/record_change.h"

namespace chengheng {

/// What is to become of an entry: it comes, goes, or says something else.
struct EntryChange {
    std::optional<AuxiliaryEntry> before;  ///< as it was read; nothing: it is added
    /// What it is to say, with the names of its dimensions; nothing: it is deleted.
    std::optional<AuxiliaryEntry> after;
};

/// What is written with the changes of entries, in the same unit of work.
using EntryFollowUp = std::function<Status()>;

/// Changes the opening entries of an account of one member in the open set of books. Each call
/// is all or nothing: headers, lines, auxiliary sums, period sums and counters in one unit of
/// work. Whatever does not give `done` has told the operator why and has changed nothing.
class EntryService {
  public:
    EntryService(IMessages& messages, const AuxiliaryMember& member)
        : m_messages(messages), m_member(member) {}

    /// Writes changes; those that come get their ids. An entry that is no longer as it was read
    /// is left alone, and all the others with it.
    Outcome write(const AuxiliaryAccount& account, std::span<EntryChange> changes,
                  const EntryFollowUp& followUp = {});

    /// One entry; `entry` gets its ids.
    Outcome add(const AuxiliaryAccount& account, AuxiliaryEntry& entry);
    Outcome modify(const AuxiliaryAccount& account, const AuxiliaryEntry& before,
                   AuxiliaryEntry& after);
    Outcome remove(const AuxiliaryAccount& account, const AuxiliaryEntry& entry);

  private:
    IMessages& m_messages;
    const AuxiliaryMember& m_member;
};

}  // namespace chengheng
