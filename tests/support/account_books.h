#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "accounts/changing/account_service.h"
#include "accounts/chart/account_use.h"
#include "data/access/CNbCwDB.h"
#include "data/tables/accounts.h"
#include "session/host_globals.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/logged_locks.h"
#include "tests/support/recording_messages.h"

namespace chengheng {

/// Open books with a chart, their engine apt to fail and their locks logged, as the session of
/// an operator. The pattern is 4222; there are the classes 资产 and 负债 and the currency 1.
class AccountBooks {
  public:
    /// At a place where no database is yet, or on books made there before.
    explicit AccountBooks(const std::string& location, bool isNew = true);
    ~AccountBooks();
    AccountBooks(const AccountBooks&) = delete;
    AccountBooks& operator=(const AccountBooks&) = delete;

    CNbCwDB& database() { return m_database; }
    FaultyEngine& engine() { return *m_engine; }
    LoggedLocks& locks() { return *m_locks; }
    RecordingMessages& messages() { return m_messages; }
    AccountService service() { return {m_messages, CodeLevels("4222")}; }

    /// Adds an account as it is, seeing to its parent's end flag; gives its id.
    int add(const std::string& code, const std::string& name = "科目");
    /// The account of a code; the test fails when there is none.
    _CodeInfo account(const std::string& code);
    bool hasAccount(const std::string& code);
    void edit(const _CodeInfo& account);
    void run(const std::string& batch);
    /// Makes a place of the ledger hold the account, as the ledger itself would.
    void use(UsePlace place, const std::string& code);
    /// Twelve sums without an amount.
    void addEmptySums(const std::string& code);

    /// Every account in code order and the counter of their ids: what must not change when an
    /// action is stopped.
    std::vector<std::string> chart();
    /// What the integrity check finds.
    std::vector<std::string> faults();
    /// The same without what no action on the chart writes: rates, kinds of values, objects of
    /// the database. For tests that look after every step.
    std::vector<std::string> chartFaults();
    bool holdsLocks();

  private:
    CNbCwDB m_database;
    FaultyEngine* m_engine = nullptr;
    std::unique_ptr<LoggedLocks> m_locks;
    RecordingMessages m_messages;
    std::optional<HostSession> m_session;
};

/// What the add dialog holds for an account of the class 资产.
AccountEntry assetEntry(const std::string& code, const std::string& name = "新科目");

}  // namespace chengheng
