#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace chengheng {

/// What the headers of the record types say: of a table (its name) or of a column
/// ("Code.sCode").
using RecordNotes = std::map<std::string, std::string>;

/// Collects the notes of every header in the folder.
RecordNotes readRecordNotes(const std::filesystem::path& folder);

/// docs/schema.md: every table as it is created, with the notes of its record type.
std::string schemaPage(const RecordNotes& notes);

}  // namespace chengheng
