#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "auxiliary/transfer/entry_plan.h"
#include "base/messages/messages.h"
#include "base/system/output_target.h"
#include "session/record_change.h"

namespace chengheng {

/// Plans what comes from files and clipboards for the open set of books (g_pDB), as its account
/// and directories are now. Writing the plan is one call of the EntryService, which refuses what
/// has changed meanwhile. Whatever does not give a plan has told the operator why.
class EntryImport {
  public:
    EntryImport(IMessages& messages, const AuxiliaryMember& member, const AuxiliaryAccount& account)
        : m_messages(messages), m_member(member), m_account(account) {}

    /// Of a CSV or XLSX file.
    std::optional<EntryPlan> planFile(const std::string& path);
    /// Of a block that was pasted; without headings it is in the order of the captions.
    std::optional<EntryPlan> planBlock(Sheet block, std::span<const char* const> captions);

  private:
    std::optional<EntryPlan> plan(const EntrySheet& sheet);

    IMessages& m_messages;
    const AuxiliaryMember& m_member;
    const AuxiliaryAccount& m_account;
};

/// Writes entries as a file, CSV or XLSX by the end of its name; it reads back as they are.
Outcome exportEntries(IMessages& messages, const AuxiliaryMember& member,
                      const AuxiliaryAccount& account, std::span<const AuxiliaryEntry> entries,
                      const std::string& path, Overwrite overwrite);

/// An account that has opening entries, and of which member they are.
struct EntryAccount {
    const AuxiliaryMember* member = nullptr;
    AuxiliaryAccount account;
};

/// The end account of a code in the open set of books; refused when there is none whose balance
/// is made of entries.
Outcome findEntryAccount(IMessages& messages, std::string_view code, EntryAccount& found);

}  // namespace chengheng
