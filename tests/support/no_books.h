#pragma once

#include <utility>

#include "data/access/host_database.h"

namespace chengheng {

/// While it lives, no set of books is open.
class NoBooks {
  public:
    NoBooks() = default;
    ~NoBooks() { g_pDB = m_database; }
    NoBooks(const NoBooks&) = delete;
    NoBooks& operator=(const NoBooks&) = delete;

  private:
    CNbCwDB* m_database = std::exchange(g_pDB, nullptr);
};

}  // namespace chengheng
