#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <utility>
#include <vector>

#include "data/tables/schema.h"

namespace chengheng {

/// Which columns of which table a statement changes in rows that are there.
struct UpdatedColumns {
    const TableInfo* table = nullptr;      ///< null: none, several, or one that is not known
    std::vector<std::size_t> places = {};  ///< where they stand in a row, ascending
};

/// Hears from SQLite what the statements of a connection change while they are prepared. The
/// connection must outlive it.
class UpdateListener {
  public:
    explicit UpdateListener(sqlite3* connection);
    ~UpdateListener();
    UpdateListener(const UpdateListener&) = delete;
    UpdateListener& operator=(const UpdateListener&) = delete;

    void begin();
    /// What was heard since begin().
    UpdatedColumns take();

  private:
    static int onAction(void* self, int action, const char* table, const char* column,
                        const char* database, const char* trigger);
    void hear(const char* table, const char* column);

    sqlite3* m_connection;
    UpdatedColumns m_heard;
    bool m_isClear = true;  ///< whether all that was heard is of one known table
};

}  // namespace chengheng
