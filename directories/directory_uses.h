#pragma once

#include <string>

#include "data/access/CNbCwDB.h"
#include "directories/directory.h"

namespace chengheng {

/// Where a record is used, as it is told: "[期初余额]、[已记帐凭证]"; empty where it is nowhere.
Status readUses(CNbCwDB& database, DirectoryKind kind, const DirectoryRecord& record,
                std::string& places);

/// Deletes the rows of auxiliary sums that name a record which is used nowhere: they are all zero.
Status deleteEmptyBalances(CNbCwDB& database, DirectoryKind kind, const DirectoryRecord& record);

}  // namespace chengheng
