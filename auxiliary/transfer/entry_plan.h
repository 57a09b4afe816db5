#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/entries/entry_input.h"
#include "auxiliary/entries/entry_service.h"
#include "auxiliary/transfer/entry_directory.h"
#include "auxiliary/transfer/entry_sheet.h"
#include "base/messages/checks.h"
#include "data/tables/settlement.h"
#include "sheets/row_plan.h"

namespace chengheng {

/// What becomes of a row of pasted or imported entries.
struct PlannedEntry : PlannedRow {
    EntryInput input = {};
    std::optional<AuxiliaryEntry> entry = {};  ///< nothing: the row is refused
    bool isThere = false;                      ///< the account has just such an entry already

    bool isRefused() const { return fate == RowFate::refused; }
};

/// An import of entries as it is shown before it is done: all of them or none.
struct EntryPlan {
    std::vector<PlannedEntry> rows;    ///< in the order of the sheet
    std::vector<std::string> ignored;  ///< headings that mean nothing here

    std::size_t refusedCount() const;
    std::size_t repeatedCount() const;
    bool mayBeApplied() const { return !rows.empty() && refusedCount() == 0; }
    /// What writing it means; only of a plan that may be applied.
    std::vector<EntryChange> changes() const;
};

/// What the rows are held against.
struct EntryPlanFacts {
    const AuxiliaryMember& member;
    const AuxiliaryAccount& account;
    Date day;  ///< the last day before the books begin
    const EntryDirectory& directory;
    std::span<const _SignInfo> voucherTypes = {};
    std::span<const AuxiliaryEntry> entries = {};  ///< what the account has already
    bool isBrowsing = false;                       ///< nothing may be written
};

/// Decides on every row under the rules of the record dialog.
EntryPlan planEntries(const EntrySheet& sheet, const EntryPlanFacts& facts);

/// What the checks behind those of the dialog look at: what its fields do not let anybody type.
struct EntryRowFacts {
    const EntryInput& input;
    const AuxiliaryAccount& account;
    std::string_view direction;  ///< as it stands in the sheet
    bool isTypeKnown;
};
std::span<const Check<EntryRowFacts>> entryRowChecks();

/// The names of the dimensions of a row in the order of the member: "销售部 张三".
std::string namesText(const PlannedEntry& row, const AuxiliaryMember& member);

}  // namespace chengheng
