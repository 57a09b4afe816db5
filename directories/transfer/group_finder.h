#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "directories/directory.h"

namespace chengheng {

/// The groups of a directory by what a sheet calls them.
class GroupFinder {
  public:
    using Found = std::vector<const DirectoryRecord*>;

    /// They outlive the finder.
    explicit GroupFinder(std::span<const DirectoryRecord> groups);

    /// Who has the text as a code, else as a name.
    const Found& find(const std::string& text) const;
    /// Null when there is none.
    const DirectoryRecord* ofId(std::int32_t id) const;
    /// What finds a group: its name, or its code where that does not. Empty for one that is gone.
    std::string textOf(std::int32_t id) const;

  private:
    std::unordered_map<std::string, Found> m_byCode;
    std::unordered_map<std::string, Found> m_byName;
    std::unordered_map<std::int32_t, const DirectoryRecord*> m_byId;
};

}  // namespace chengheng
