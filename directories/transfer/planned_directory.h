#pragma once

#include <cstddef>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "directories/directory.h"
#include "directories/directory_rules.h"
#include "directories/transfer/group_finder.h"

namespace chengheng {

/// The records of a directory as they will be when what was planned so far is done, so that the
/// checks of many records ask no database. New ones have ids below zero.
class PlannedDirectory {
  public:
    /// The groups outlive it.
    PlannedDirectory(const Directory& directory, std::span<const DirectoryRecord> stored,
                     std::span<const DirectoryRecord> groups, std::size_t expectedRows);

    const GroupFinder& groups() const { return m_groups; }
    /// Who has just that code, of items in that class; null when nobody has.
    const DirectoryRecord* coded(std::int32_t group, std::string_view code) const;
    /// What the checks of a record look at; the record and this outlive them. Of many bearers of a
    /// name or code they are told so many that another than the record itself is among them.
    DirectoryFacts factsOf(const DirectoryRecord& wanted) const;
    /// Those who bear the name of a record, of items in its class: as many as are told to the
    /// checks, and itself where it has the name already.
    std::vector<DirectoryRecord> named(const DirectoryRecord& wanted) const;

    void add(DirectoryRecord record);
    /// The id tells which one; the code stays.
    void change(const DirectoryRecord& record);

  private:
    struct Key {
        std::int32_t group;  ///< 0: whatever the group
        std::string text;
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const {
            return std::hash<std::string>()(key.text) * 31 + static_cast<std::size_t>(key.group);
        }
    };
    using Index = std::unordered_map<Key, std::vector<std::size_t>, KeyHash>;

    bool isOfItems() const { return m_directory.kind == DirectoryKind::projectItem; }
    std::int32_t scopeOf(std::int32_t group) const { return isOfItems() ? group : 0; }
    Key codeKey(std::int32_t group, std::string_view code) const;
    std::size_t placeOf(const DirectoryRecord& record) const;
    void noteName(std::size_t place);
    void forgetName(std::size_t place);
    void collect(const Index& index, const Key& key, std::vector<DirectoryRecord>& found) const;

    const Directory& m_directory;
    const GroupFinder m_groups;
    std::deque<DirectoryRecord> m_records;
    Index m_byCode;  ///< of project classes in small letters
    Index m_byName;
    Index m_byNameInGroup;  ///< where it matters
    std::int32_t m_lastNewId = 0;
};

}  // namespace chengheng
