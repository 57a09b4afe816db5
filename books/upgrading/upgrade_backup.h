#pragma once

#include <string>
#include <vector>

#include "data/engine/engine.h"
#include "data/transfer/content_digest.h"

namespace chengheng {

/// Where the backup of books of a layout is to lie: beside them, a file in their folder, a schema
/// on their server, of a name that nothing bears yet.
Status findPlaceOfBackup(const std::string& location, int layout, std::string& place);

/// The books as they are before an upgrade, in their old layout, as books of their own.
class UpgradeBackup {
  public:
    explicit UpgradeBackup(std::string place) : m_place(std::move(place)) {}

    /// Copies the books as the open transaction of their connection sees them, opens the copy
    /// and compares it with the digests. What comes to nothing is removed; a copy that is not what
    /// the books are is wrongValue.
    Status make(Engine& books, int layout, const std::vector<TableDigest>& content);
    /// Takes a backup away again that turned out to be for nothing.
    void discard();

    const std::string& place() const { return m_place; }

  private:
    Status makeFile(Engine& books, int layout, const std::vector<TableDigest>& content);
    Status makeSchema(Engine& books, int layout, const std::vector<TableDigest>& content);

    std::string m_place;
    bool m_isMade = false;
};

}  // namespace chengheng
