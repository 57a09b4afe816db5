#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "data/access/CNbCwDB.h"
#include "directories/directory.h"

namespace chengheng {

// The items of project classes, each in the table of its class. `projectClass` is a class's id.

/// Of all classes, class by class in the order of the codes.
Status readAllItems(CNbCwDB& database, std::vector<DirectoryRecord>& items);
Status readItem(CNbCwDB& database, std::int32_t projectClass, std::int32_t id,
                std::optional<DirectoryRecord>& item);
Status readItemsCoded(CNbCwDB& database, std::int32_t projectClass, std::string_view code,
                      std::vector<DirectoryRecord>& items);
Status readItemsNamed(CNbCwDB& database, std::int32_t projectClass, std::string_view name,
                      std::vector<DirectoryRecord>& items);
/// Whether the items of a class have a table; none where its code cannot be part of a name.
Status readHasItemTable(CNbCwDB& database, std::string_view classCode, bool& hasTable);
Status makeItemTable(CNbCwDB& database, std::string_view classCode);
/// Where it is there.
Status dropItemTable(CNbCwDB& database, std::string_view classCode);
/// Whether a class has any.
Status readHasItems(CNbCwDB& database, std::string_view classCode, bool& hasItems);

/// Each item gets the id after the highest of its class; that of the last is given. A class without
/// a table gets one.
Status addItems(CNbCwDB& database, std::span<const DirectoryRecord> items, std::int32_t& lastId);
Status editItems(CNbCwDB& database, std::span<const DirectoryRecord> items);
Status deleteItem(CNbCwDB& database, const DirectoryRecord& item);

}  // namespace chengheng
