#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "auxiliary/members/entry_dimensions.h"
#include "data/access/CNbCwDB.h"
#include "directories/directory.h"

namespace chengheng {

/// A department, person, unit or item that a text may mean.
struct DimensionChoice {
    std::int32_t id = 0;
    std::string code;
    std::string name;
    std::int32_t department = 0;  ///< of a person
    std::string itemClass = {};   ///< of an item

    bool operator==(const DimensionChoice&) const = default;
};

/// Where names are looked for.
struct LookupScope {
    std::int32_t department = 0;                ///< persons of this one only; 0: of all
    std::vector<std::string> itemClasses = {};  ///< the classes whose items may be named
};

/// Where those are kept that a dimension names.
DirectoryKind directoryKindOf(Dimension dimension);

/// Who bears the text as a name, else as a code; nobody is an empty list.
Status findByText(CNbCwDB& database, Dimension dimension, std::string_view text,
                  const LookupScope& scope, std::vector<DimensionChoice>& found);

/// All there are to choose from, in the order of their codes.
Status readChoices(CNbCwDB& database, Dimension dimension, const LookupScope& scope,
                   std::vector<DimensionChoice>& choices);

/// The classes of which the account names items, those of them that exist; every class there is
/// when nothing is recorded for the account.
Status readItemClasses(CNbCwDB& database, std::int32_t accountId,
                       std::vector<std::string>& classes);

/// Whether the one of that id still bears the name.
Status readIsNamed(CNbCwDB& database, Dimension dimension, const EntryDimensions& of,
                   std::string_view name, bool& isNamed);

/// The department of an id; nothing where it is gone.
Status readDepartment(CNbCwDB& database, std::int32_t id,
                      std::optional<DimensionChoice>& department);

/// The department of a person; 0 where the person is gone.
Status readDepartmentOf(CNbCwDB& database, std::int32_t person, std::int32_t& department);

}  // namespace chengheng
