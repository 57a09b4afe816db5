#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "books/upgrading/books_upgrade.h"
#include "data/transfer/content_digest.h"
#include "tests/support/engine_cases.h"

namespace chengheng {

using Digests = std::vector<TableDigest>;

/// Books of an older layout, at a place of their own.
std::string makeOlderBooks(const EngineCase& engineCase, int number = 1);

Digests contentAt(const std::string& location);

/// What an upgrade from a layout left of the tables and columns that were there before, but for the
/// number of the layout.
Digests keptOf(const std::string& location, const Digests& before, int from = 1);

/// What a refusal says; "done" where nothing was refused.
std::string saidBy(const std::optional<Refusal>& refusal);

/// What an upgrade comes to that waits for nobody.
std::string upgraded(BooksUpgrade& upgrade, LoggedOn loggedOn = LoggedOn::waitFor);
std::string upgraded(const std::string& location, LoggedOn loggedOn = LoggedOn::waitFor);

std::string backupOf(const std::string& location, const std::string& suffix = "_format1");

/// Waits so many times and notes for whom.
class CountedWaiter : public LockWaiter {
  public:
    explicit CountedWaiter(int times = 0, std::function<void()> meanwhile = {})
        : m_times(times), m_meanwhile(std::move(meanwhile)) {}

    bool keepWaiting(const LockHolder& holder, std::chrono::milliseconds) override {
        names = holder.operatorName;
        stations = holder.station;
        if (m_meanwhile) m_meanwhile();
        return m_times-- > 0;
    }

    std::string names;
    std::string stations;

  private:
    int m_times;
    std::function<void()> m_meanwhile;
};

/// Older books on each engine, and what an upgrade may leave beside them.
class UpgradeCase : public testing::TestWithParam<EngineCase> {
  protected:
    ~UpgradeCase() override;

    bool isServer() const { return isServerAddress(m_location); }
    static std::string schemaOf(const std::string& address) {
        return address.substr(address.find("schema=") + 7);
    }
    bool hasBackup(const std::string& suffix = "_format1") const;
    /// The books and nothing that an upgrade left behind; not a schema without tables either.
    void expectUntouched();
    /// Other older books, and no backup of these.
    void startAnew();

    std::string m_location = makeOlderBooks(GetParam());
    Digests m_before = contentAt(m_location);
};

}  // namespace chengheng
