#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/entries/dimension_lookup.h"
#include "auxiliary/members/auxiliary_member.h"

namespace chengheng {

/// What names and codes stand for, of everything that the entries of an account may name: read
/// once for however many entries, and found as findByText finds it.
class EntryDirectory {
  public:
    using Found = std::vector<const DimensionChoice*>;

    EntryDirectory() = default;
    EntryDirectory(const EntryDirectory&) = delete;
    EntryDirectory& operator=(const EntryDirectory&) = delete;

    void assign(Dimension dimension, std::vector<DimensionChoice> choices);
    void addClass(std::string code, std::string name);

    /// Who bears the text as a name, else as a code; without classes in the scope, of any class.
    Found find(Dimension dimension, std::string_view text, const LookupScope& scope = {}) const;
    const DimensionChoice* department(std::int32_t id) const;
    /// The code of the project class of a code or name.
    std::optional<std::string> classOf(std::string_view text) const;

    /// The text by which an entry's dimension is found again: its name, or its code where that
    /// does not do. One that has vanished keeps the name that the entry has.
    std::string textOf(Dimension dimension, const AuxiliaryEntry& entry) const;

  private:
    struct Part {
        std::vector<DimensionChoice> choices;
        // Places among them.
        std::unordered_multimap<std::string_view, std::size_t> byName;
        std::unordered_multimap<std::string_view, std::size_t> byCode;
    };

    const Part& partOf(Dimension dimension) const {
        return m_parts[static_cast<std::size_t>(dimension)];
    }

    std::array<Part, 4> m_parts;
    std::vector<std::pair<std::string, std::string>> m_classes;  ///< code and name
};

/// Reads what a member's entries of an account may name.
Status readEntryDirectory(CNbCwDB& database, const AuxiliaryMember& member, std::int32_t accountId,
                          EntryDirectory& directory);

}  // namespace chengheng
