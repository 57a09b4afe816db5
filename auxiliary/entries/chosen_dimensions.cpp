#include "auxiliary/entries/chosen_dimensions.h"

namespace chengheng {

EntryDimensions dimensionsOf(const AuxiliaryMember& member, const ChosenDimensions& chosen) {
    EntryDimensions of;
    for (const DimensionWords& words : member.dimensions) {
        const DimensionChoice* const choice = chosen(words.dimension);
        if (choice == nullptr) continue;
        switch (words.dimension) {
            case Dimension::department:
                of.department = choice->id;
                break;
            case Dimension::person:
                of.person = choice->id;
                break;
            case Dimension::unit:
                of.unit = choice->id;
                break;
            case Dimension::item:
                of.item = choice->id;
                of.itemClass = choice->itemClass;
                break;
        }
    }
    return of;
}

bool belongTogether(const ChosenDimensions& chosen) {
    const DimensionChoice* const person = chosen(Dimension::person);
    const DimensionChoice* const department = chosen(Dimension::department);
    return person != nullptr && department != nullptr && person->department == department->id;
}

void fillEntry(const AuxiliaryMember& member, const EntryInput& input,
               const ChosenDimensions& chosen, AuxiliaryEntry& entry) {
    entry.content = contentOf(input);
    entry.content.of = dimensionsOf(member, chosen);
    entry.names = {};
    for (const DimensionWords& words : member.dimensions) {
        const DimensionChoice* const choice = chosen(words.dimension);
        if (choice != nullptr) nameOf(entry.names, words.dimension) = choice->name;
    }
}

}  // namespace chengheng
