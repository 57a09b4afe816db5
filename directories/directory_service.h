#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/access/CNbCwDB.h"
#include "directories/directory.h"
#include "session/record_change.h"

namespace chengheng {

/// Reads and changes the records of a directory in the open set of books. Whatever does not give
/// `done` has told the operator why and has changed nothing.
class DirectoryService {
  public:
    DirectoryService(IMessages& messages, const Directory& directory)
        : m_messages(messages), m_directory(directory) {}

    /// In the order of their codes; nothing when they cannot be read.
    std::optional<std::vector<DirectoryRecord>> readAll();
    /// What the records are grouped by; empty where they are not.
    std::optional<std::vector<DirectoryRecord>> readGroups();
    /// The record as it is stored now, and where it is used.
    Outcome read(std::int32_t id, std::int32_t group, DirectoryRecord& record, std::string& uses);

    /// The record is tidied and gets its id.
    Outcome add(DirectoryRecord& record);
    /// Of a record as it was loaded; `wanted` is tidied.
    Outcome modify(const DirectoryRecord& loaded, DirectoryRecord& wanted);
    /// Null: none is selected.
    Outcome remove(const DirectoryRecord* selected);

  private:
    UntoldOutcome refuse(CNbCwDB& database, const DirectoryRecord& wanted);
    UntoldOutcome refuseModification(const DirectoryRecord& loaded, const DirectoryRecord& wanted);
    UntoldOutcome refuseDeletion(const DirectoryRecord& loaded);
    UntoldOutcome readStored(std::int32_t id, std::int32_t group, DirectoryRecord& record);
    std::string wordsOf(const DirectoryRecord& record);

    IMessages& m_messages;
    const Directory& m_directory;
};

}  // namespace chengheng
