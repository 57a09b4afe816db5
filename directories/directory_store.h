#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "data/access/CNbCwDB.h"
#include "directories/directory.h"

namespace chengheng {

// The rows of the directories as records, read from and written into the selected database. An
// item stands in the table of its class; one whose class is gone or has no table does not exist.

/// Every record in the order of the codes; items class by class.
Status readDirectory(CNbCwDB& database, DirectoryKind kind, std::vector<DirectoryRecord>& records);

/// The record of an id, in the group that is given where it is an item; nothing where there is
/// none.
Status readRecord(CNbCwDB& database, DirectoryKind kind, std::int32_t id, std::int32_t group,
                  std::optional<DirectoryRecord>& record);

/// Who bears a code or a name; of items those of one class.
Status readCoded(CNbCwDB& database, DirectoryKind kind, std::int32_t group, std::string_view code,
                 std::vector<DirectoryRecord>& records);
Status readNamed(CNbCwDB& database, DirectoryKind kind, std::int32_t group, std::string_view name,
                 std::vector<DirectoryRecord>& records);

/// The code of a project class; empty where it is gone or its items have no table.
Status readClassCode(CNbCwDB& database, std::int32_t projectClass, std::string& code);

/// Adds a record, which gets its id; a project class gets a table for its items.
Status addRecord(CNbCwDB& database, DirectoryKind kind, DirectoryRecord& record);
/// The same of many at once; the id of the last is given, the others come before it, of items
/// within their class.
Status addRecords(CNbCwDB& database, DirectoryKind kind, std::span<const DirectoryRecord> records,
                  std::int32_t& lastId);
/// Writes a record over the one that is stored. A project class of another code than before gets
/// another table; to be called only where nothing stands in its items.
Status editRecord(CNbCwDB& database, DirectoryKind kind, const DirectoryRecord& before,
                  const DirectoryRecord& record);
/// Writes many records of unchanged codes over those of their ids.
Status editRecords(CNbCwDB& database, DirectoryKind kind, std::span<const DirectoryRecord> records);
/// Deletes a record, the table of a project class with it.
Status deleteRecord(CNbCwDB& database, DirectoryKind kind, const DirectoryRecord& record);

}  // namespace chengheng
