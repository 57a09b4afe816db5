#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/members/auxiliary_member.h"
#include "data/access/CNbCwDB.h"

namespace chengheng {

/// The names of the departments, persons, units and project items that a member's entries name.
class DirectoryNames {
  public:
    /// From the selected database; only what the member has.
    Status read(CNbCwDB& database, const AuxiliaryMember& member);

    /// Empty names for what is in no directory.
    EntryNames namesOf(const EntryDimensions& of) const;

  private:
    using Names = std::unordered_map<std::int32_t, std::string>;

    Status readItems(CNbCwDB& database);

    Names m_departments;
    Names m_persons;
    Names m_units;
    std::map<std::string, Names, std::less<>> m_items;  ///< by the code of their class
};

}  // namespace chengheng
