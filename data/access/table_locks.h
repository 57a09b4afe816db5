#pragma once

#include <string>

#include "data/access/CNbCwDB.h"

namespace chengheng {

enum class ReleaseOrder { asTaken, reversed };

/// Takes the referring tables in mode 1, then the changed tables in mode 2, both with
/// waiting, and releases them on every path, in the same order unless the reverse is asked
/// for, on the database that was selected when they were taken. An action whose locks were
/// not granted must not run.
class TableLocks {
  public:
    /// Of an empty list nothing is asked. The database must outlive the locks.
    TableLocks(CNbCwDB& database, std::string referringTables, std::string ownTables,
               ReleaseOrder order = ReleaseOrder::asTaken);
    ~TableLocks();
    TableLocks(const TableLocks&) = delete;
    TableLocks& operator=(const TableLocks&) = delete;

    bool areGranted() const { return m_status.isDone(); }
    const Status& status() const { return m_status; }

  private:
    bool take(const std::string& tables, int mode);

    CNbCwDB& m_database;
    std::string m_name;
    std::string m_referringTables;
    std::string m_ownTables;
    ReleaseOrder m_order;
    Status m_status;
};

}  // namespace chengheng
