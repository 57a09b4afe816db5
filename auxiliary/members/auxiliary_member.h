#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "auxiliary/members/auxiliary_sql.h"
#include "auxiliary/members/entry_dimensions.h"
#include "opening/sheet/auxiliary_kind.h"

namespace chengheng {

/// What is told of one dimension of a member.
struct DimensionWords {
    Dimension dimension;
    const char* heading;        ///< of its column and its field
    const char* empty;          ///< null: it may be left empty and then follows from another
    const char* unknown;        ///< the typed name is nobody's
    const char* goneAdding;     ///< it went while the entry was being typed
    const char* goneModifying;  ///< likewise
};

/// What one window of auxiliary opening balances has of its own; all else is the same for the
/// seven of them.
struct AuxiliaryMember {
    AuxiliaryKind kind;
    const char* caption;
    const char* addingTitle;
    const char* modifyingTitle;
    const char* findingTitle;

    const auxiliary_sql::EntriesFormat& entries;
    /// The tables that names are looked up in, as a lock list.
    const char* lookupTables;
    /// In which order the auxiliary sums are asked for.
    std::span<const Dimension> sumOrder;

    /// In the order of the record dialog, which is that of the checks.
    std::span<const DimensionWords> dimensions;
    const char* mismatch;         ///< two of them do not belong together; null: they always do
    bool refusesZero;             ///< an entry must have an amount
    bool asksBeforeGivingUp;      ///< also by the button 取消
    bool refusesBrowsingNothing;  ///< without entries there is nothing to look at

    bool has(Dimension dimension) const;
    /// Which lines are the entries of an account.
    std::string entriesOf(std::int32_t accountId) const { return formatSql(entries, accountId); }
    /// The rows of auxiliary sums of one combination.
    std::string sumsOf(std::int32_t accountId, const EntryDimensions& of) const {
        return auxiliary_sql::sums(sumOrder, accountId, of);
    }
    /// The statement that gives all of them the same opening figures.
    void updateSums(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                    const EntryDimensions& of) const {
        auxiliary_sql::updateSums(batch, sumOrder, figures, accountId, of);
    }
};

/// The seven members.
std::span<const AuxiliaryMember> auxiliaryMembers();

/// Of a kind other than none.
const AuxiliaryMember& memberOf(AuxiliaryKind kind);

}  // namespace chengheng
