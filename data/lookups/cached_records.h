#pragma once

#include <span>
#include <vector>

#include "base/values/status.h"
#include "data/tables/accounts.h"
#include "data/tables/books.h"
#include "data/tables/currency.h"
#include "data/tables/settlement.h"

class CNbCwDB;

namespace chengheng {

// Everything that the last load of a kind cached, for lists to choose from. Valid until the
// next load of that kind.

std::span<const _CyrencyInfo> cachedCurrencies();  ///< in the order of their ids
std::span<const _SettleInfo> cachedSettles();      ///< in the order of their ids

/// Takes over the changed parameters of the open books; nothing where none are open.
void publishParameters(const _zAccountMInfo& parameters);

/// What the lookups of a set of books know.
struct BookRecords {
    _zAccountMInfo parameters;
    std::vector<_CodeInfo> accounts;  ///< in code order
    std::vector<_SignInfo> signs;     ///< this and the others in the order of their ids
    std::vector<_CyrencyInfo> currencies;
    std::vector<_SettleInfo> settles;
};

/// Reads them from the selected database and publishes nothing.
Status readBookRecords(CNbCwDB& database, BookRecords& records);

/// Fills every cache of CGetData and empties them all when it goes. At most one lives at a time.
class BookLookups {
  public:
    /// From the named database of g_pDB.
    explicit BookLookups(const char* databaseName);
    explicit BookLookups(BookRecords records);
    ~BookLookups();
    BookLookups(const BookLookups&) = delete;
    BookLookups& operator=(const BookLookups&) = delete;

    /// Done when everything could be read.
    const Status& status() const { return m_status; }

  private:
    void publish(BookRecords records);

    Status m_status;
};

}  // namespace chengheng
