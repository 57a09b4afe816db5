#pragma once

#include <vector>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/members/auxiliary_member.h"
#include "data/access/CNbCwDB.h"
#include "data/tables/accounts.h"
#include "data/tables/vouchers.h"

namespace chengheng {

/// What the window needs to know of an account.
AuxiliaryAccount auxiliaryAccount(const _CodeInfo& record);

/// The end accounts of a member's kind in the order of their codes.
Status readAuxiliaryAccounts(CNbCwDB& database, const AuxiliaryMember& member,
                             std::vector<AuxiliaryAccount>& accounts);

/// The entries of an account in the order in which they were added. One whose department,
/// person, unit or item has vanished has no name there.
Status readEntries(CNbCwDB& database, const AuxiliaryMember& member,
                   const AuxiliaryAccount& account, std::vector<AuxiliaryEntry>& entries);

/// What a line and its header say.
EntryContent entryContent(_RegSubInfo line, const _RegMainInfo& header);

/// The account's own opening figures as they are posted; all 0 without rows.
Status readPostedFigures(CNbCwDB& database, const AuxiliaryAccount& account, EntryFigures& figures);

}  // namespace chengheng
