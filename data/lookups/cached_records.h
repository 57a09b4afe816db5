#pragma once

#include <span>

#include "base/values/status.h"
#include "data/tables/all_records.h"

namespace chengheng {

// Everything that the last load of a kind cached, for lists to choose from. Valid until the
// next load of that kind.

std::span<const _CodeInfo> cachedAccounts();       ///< in code order
std::span<const _CyrencyInfo> cachedCurrencies();  ///< in the order of their ids
std::span<const _SettleInfo> cachedSettles();      ///< in the order of their ids

/// Reads the parameters of the set of books again; on failure they stay as they were.
Status loadBooksParameters(const char* databaseName);

/// Fills every cache of CGetData from the named database of g_pDB, and empties them all when
/// it goes. At most one lives at a time.
class BookLookups {
  public:
    explicit BookLookups(const char* databaseName);
    ~BookLookups();
    BookLookups(const BookLookups&) = delete;
    BookLookups& operator=(const BookLookups&) = delete;

    /// Done when everything could be read.
    const Status& status() const { return m_status; }

  private:
    Status m_status;
};

}  // namespace chengheng
