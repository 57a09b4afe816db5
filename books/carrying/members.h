#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "auxiliary/members/entry_dimensions.h"
#include "base/values/status.h"
#include "data/access/CNbCwDB.h"
#include "directories/directory.h"

namespace chengheng {

/// To whom and what the details of a year belong: the directories as they stand.
class Members {
  public:
    /// From the selected database.
    Status read(CNbCwDB& database);

    /// The first dimension of a combination that is not the same member in both years; null
    /// where all are. An id that bears the code or the name of before is the same.
    static const char* firstMissing(const EntryDimensions& of, const Members& before,
                                    const Members& now);

    /// "部门 01 销售部 个人 02 张三": as these call them; by its id whom they do not know.
    std::string text(const EntryDimensions& of) const;

  private:
    using Key = std::pair<std::string, std::int32_t>;                  ///< class of an item, id
    using Known = std::map<Key, std::pair<std::string, std::string>>;  ///< code and name

    Status readOf(CNbCwDB& database, DirectoryKind kind, Known& known);
    static bool isSame(const Key& key, const Known& before, const Known& now);

    std::map<std::int32_t, std::string> m_classes;  ///< code by id
    Known m_departments;
    Known m_persons;
    Known m_units;
    Known m_items;
};

/// Both years' directories; without them details are not looked at.
struct MembersOfYears {
    const Members& before;
    const Members& now;
};

}  // namespace chengheng
