#pragma once

#include <sqlite3.h>

#include <string>

#include "data/access/CNbCwDB.h"

namespace bench {

/// Books of a given number of accounts with twelve AccSum rows each, one account in twenty
/// with nothing but zeros, in a file of their own that goes with the object.
class SampleBooks {
  public:
    explicit SampleBooks(int accounts);
    ~SampleBooks();
    SampleBooks(const SampleBooks&) = delete;
    SampleBooks& operator=(const SampleBooks&) = delete;

    CNbCwDB& database() { return m_database; }
    /// A second connection, for the floor.
    sqlite3* raw() { return m_raw; }
    /// The file Nbzw.db is in it; goes with the books.
    const std::string& folder() const { return m_folder; }
    int accounts() const { return m_accounts; }
    int rows() const { return m_accounts * 12; }
    /// Runs a statement on the floor's connection.
    void run(const std::string& sql);
    /// Closes both connections and removes the files.
    void close();

  private:
    void fill();

    CNbCwDB m_database;
    sqlite3* m_raw = nullptr;
    std::string m_folder;
    int m_accounts;
};

}  // namespace bench
