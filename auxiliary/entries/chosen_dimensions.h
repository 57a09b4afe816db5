#pragma once

#include <functional>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/entries/dimension_lookup.h"
#include "auxiliary/entries/entry_input.h"
#include "auxiliary/members/auxiliary_member.h"

namespace chengheng {

/// Whom or what the text of a dimension means; null: nobody, as far as is known.
using ChosenDimensions = std::function<const DimensionChoice*(Dimension)>;

/// The dimensions of a member by the ids of what was chosen.
EntryDimensions dimensionsOf(const AuxiliaryMember& member, const ChosenDimensions& chosen);

/// Whether the person is of the department.
bool belongTogether(const ChosenDimensions& chosen);

/// Makes an entry say what a checked input does, by what was chosen for each dimension.
void fillEntry(const AuxiliaryMember& member, const EntryInput& input,
               const ChosenDimensions& chosen, AuxiliaryEntry& entry);

}  // namespace chengheng
