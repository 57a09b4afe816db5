#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "base/values/status.h"
#include "data/connection/database.h"
#include "data/engine/lock_service.h"

namespace chengheng {

/// The databases that are open, by name, of which one may be selected. What is set for locks and
/// for the log holds for those opened later, too.
class OpenDatabases {
  public:
    /// Layout 0 is that of today.
    void add(std::unique_ptr<Engine> engine, const std::string& location, const std::string& name,
             int layout);
    Status close(const std::string& name);
    /// Selects one and sees to it that it answers.
    Status select(const std::string& name);

    /// Null when none is open by that name.
    Database* find(const std::string& name) const;
    /// Null when none is selected.
    Database* selected() const { return m_selected; }
    const std::string& selectedName() const { return m_selectedName; }

    void setLockWaiter(LockWaiter* waiter);
    void setLockIdentity(const LockIdentity& identity);
    void keepLog(const LogAuthor& author);

  private:
    std::map<std::string, std::unique_ptr<Database>, std::less<>> m_databases;
    Database* m_selected = nullptr;
    std::string m_selectedName;
    LockWaiter* m_waiter = nullptr;
    LockIdentity m_identity;
    std::optional<LogAuthor> m_author;
};

}  // namespace chengheng
