#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/tables/accounts.h"
#include "data/tables/books.h"
#include "data/tables/currency.h"

/// Lookups in the open set of books, over g_pDB. Accounts, currencies, voucher types and
/// settlement methods are cached: a cached answer is that of the last load, and a record it
/// points to stays valid until the next load of its kind. Directories (departments, persons,
/// units) are asked of the database each time. What names a database selects it.
class CGetData {
  public:
    /// The parameters of the set of books; null when none is open.
    static const _zAccountMInfo* m_pzAccountMInfo;
    /// Numbers and names of the voucher types, position by position, in the order of their ids.
    static std::vector<std::string> m_csaSignTable;
    static std::vector<std::string> m_csaSignNameTable;

    // Reloading a cache from the named database gives the number of records now cached, 0 when
    // the table is empty, and -1 when it could not be read: then the cache stays as it was.

    static int LoadCODEINFOMemoryMapTable(const char* databaseName);
    static int LoadCYRENCYINFOMemoryMapTable(const char* databaseName);
    static int LoadSignMemoryMapTable(const char* databaseName);
    static int LoadSettleMemoryMapTable(const char* databaseName);

    // Cached records; null when there is none.

    static const _CodeInfo* GetCODEINFOByCode(std::string_view code);
    static const _CyrencyInfo* GetCYRENCYINFOByExchId(int currencyId);

    // An id for a text: 0 when there is no such record, -1 when the database could not be read.

    /// Of the account that has this code in the cache.
    static int GetCodeId(std::string_view code);
    /// The same asked of the selected database, so that an account added a moment ago at
    /// another workstation is found.
    static int GetCodeId_new(std::string_view code);
    /// Of the record with this code, else of the first with this name.
    static int GetDeptID(const char* databaseName, std::string_view nameOrCode);
    static int GetPersonId(const char* databaseName, std::string_view nameOrCode);
    static int GetUnitId(const char* databaseName, std::string_view nameOrCode);

    // The name for an id; empty when there is no such record.

    static std::string GetDeptName(const char* databaseName, int id);
    static std::string GetPersonName(const char* databaseName, int id);
    static std::string GetUnitName(const char* databaseName, int id);
    /// From the cache, and only for an id it does not hold from the database.
    static std::string GetExchName(const char* databaseName, int currencyId);

    /// The account code out of "code   name": what stands before the first three blanks; the
    /// whole text when it holds none.
    static std::string GetCode_Separator(std::string_view text);
    /// An account code as it is read aloud, cut where its levels end: 10010203 with the level
    /// lengths 4, 6, 8, 10 is "1001-02-03". A code that ends at no level stays as it is.
    static std::string GetCode_Include(std::string_view code, std::span<const int> levelLengths);

    /// The day that a text like "2026-01-05" or "2026/1/5" names, blanks around it left aside;
    /// nothing when it names none.
    static std::optional<Date> StringToTime(std::string_view text);
    /// First day of bookkeeping; no date when no set of books is open.
    static Date GetStartDate();
    /// Last day of a month of the accounting year; month 0 is December of the year before. No
    /// date for any other month or when no set of books is open.
    static Date GetYMonthDay(int month);
};
