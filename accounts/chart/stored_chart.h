#pragma once

#include "accounts/chart/chart_facts.h"
#include "data/access/CNbCwDB.h"
#include "data/tables/accounts.h"

namespace chengheng {

/// The chart as it stands in the selected database. After a failed reading nothing more is
/// read and every answer is no or nothing, which does not count; why it failed is its status.
class StoredChart final : public IChartFacts {
  public:
    explicit StoredChart(CNbCwDB& database) : m_database(database) {}

    const Status& status() const { return m_status; }
    bool isRead() const { return m_status.isDone(); }

    std::optional<_CodeInfo> accountOf(std::string_view code) override;
    bool isMnemonicTaken(std::string_view mnemonic, int exceptAccountId) override;
    bool hasCurrency(int currencyId) override;
    bool hasChildren(std::string_view code) override;
    bool isUsed(UsePlace place, const std::vector<int>& accountIds, SumsUse sums) override;
    bool hasOnlyTotals(const _CodeInfo& account) override;

    std::optional<_CodeInfo> accountOfId(int id);
    /// Ids of the account of a code and of those below it.
    std::vector<int> idsWithBelow(std::string_view code);
    bool hasAccountsBelow(std::string_view code);
    std::vector<_zCodeClassInfo> classes();
    std::vector<_CodeInfo> accounts(const std::string& condition);

  private:
    template <class Record>
    std::vector<Record> read(const std::string& condition);
    template <class Record>
    bool hasRow(const std::string& condition);

    CNbCwDB& m_database;
    /// Notes how a reading went.
    void note(bool isRead);

    Status m_status;
};

}  // namespace chengheng
