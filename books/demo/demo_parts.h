#pragma once

#include <map>
#include <string>
#include <string_view>

#include "books/demo/demo_data.h"
#include "data/access/CNbCwDB.h"
#include "data/tables/accounts.h"
#include "data/tables/record_type.h"
#include "session/rights/passwords.h"

namespace chengheng {

/// Books that the demo data goes into, and what has been put there so far: things refer to
/// each other by name in the data and by id in the books.
class DemoBooks {
  public:
    DemoBooks(CNbCwDB& database, PasswordCost cost, std::int16_t year)
        : m_database(database), m_cost(cost), m_year(year) {}

    CNbCwDB& database() { return m_database; }
    PasswordCost passwordCost() const { return m_cost; }
    std::int16_t year() const { return m_year; }

    template <class Record>
    Status add(const Record& record, std::int32_t& id) {
        return m_database.add(record, id) == 0 ? Status::done() : m_database.lastStatus();
    }
    template <class Record>
    Status add(const Record& record) {
        std::int32_t id = 0;
        return add(record, id);
    }
    /// Adds a row that others will name.
    template <class Record>
    Status addNamed(const Record& record, std::string_view name) {
        return add(record, m_ids[idKey(recordTypeOf<Record>().table.name, name)]);
    }
    /// The id of a row that was added by that name; 0 for none, named "".
    template <class Record>
    std::int32_t idOf(std::string_view name) const {
        const auto found = m_ids.find(idKey(recordTypeOf<Record>().table.name, name));
        return found == m_ids.end() ? 0 : found->second;
    }
    Status run(const std::string& batch) {
        return m_database.QRYExecuteSQL(batch) != 0 ? Status::done() : m_database.lastStatus();
    }

    /// The accounts by code.
    std::map<std::string, _CodeInfo, std::less<>> accounts;
    /// Project items by name: their id and the code of their class.
    struct Item {
        std::int32_t id = 0;
        std::string classCode;
    };
    std::map<std::string, Item, std::less<>> items;

  private:
    static std::string idKey(std::string_view table, std::string_view name) {
        return std::string(table).append("/").append(name);
    }

    CNbCwDB& m_database;
    PasswordCost m_cost;
    std::int16_t m_year;
    std::map<std::string, std::int32_t, std::less<>> m_ids;
};

// The steps, each on what those before it have made.

Status writeDemoCurrencies(DemoBooks& books);
Status writeDemoAccounts(DemoBooks& books);
Status writeDemoDirectories(DemoBooks& books);
Status writeDemoProjects(DemoBooks& books);
Status writeDemoVoucherTypes(DemoBooks& books);
Status writeDemoOperators(DemoBooks& books);
Status writeDemoDefinitions(DemoBooks& books);
Status writeDemoOpenings(DemoBooks& books);
Status writeDemoVouchers(DemoBooks& books);
/// A year's turnover, as much to the debit as to the credit of each account, so that it closes
/// with what it opened with.
Status writeDemoTurnover(DemoBooks& books);

}  // namespace chengheng
