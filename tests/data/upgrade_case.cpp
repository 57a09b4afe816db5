#include "tests/data/upgrade_case.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "data/engines/place_beside.h"
#include "data/engines/remove_database.h"
#include "tests/support/older_books.h"
#include "tests/support/private_postgres.h"

namespace chengheng {

namespace files = std::filesystem;

std::string makeOlderBooks(const EngineCase& engineCase, int number) {
    const std::string location = freshLocation(engineCase);
    fillOlderBooks(*openForTest(location), number);
    return location;
}

Digests contentAt(const std::string& location) {
    Digests digests;
    const auto engine = openForTest(location, OpenMode::existing);
    EXPECT_TRUE(digestContent(*engine, digests).isDone());
    return digests;
}

/// Whether a table names the upgrade.
static bool isToldOfIn(std::string_view table) {
    return table == "BooksFormat" || table.starts_with("OperationLog");
}

Digests keptOf(const std::string& location, const Digests& before, int from) {
    Digests kept;
    Digests after;
    EXPECT_TRUE(digestContent(*openForTest(location, OpenMode::existing), from, after).isDone());
    for (const TableDigest& digest : after)
        for (const TableDigest& old : before)
            if (old.table == digest.table) kept.push_back(isToldOfIn(old.table) ? old : digest);
    return kept;
}

std::string saidBy(const std::optional<Refusal>& refusal) {
    return refusal ? refusal->notice.text : "done";
}

std::string upgraded(BooksUpgrade& upgrade, LoggedOn loggedOn) {
    CountedWaiter waiter;
    const auto refusal = upgrade.keepOthersOut(waiter, loggedOn);
    return saidBy(refusal ? refusal : upgrade.carryOut());
}

std::string upgraded(const std::string& location, LoggedOn loggedOn) {
    BooksUpgrade upgrade(location);
    return upgraded(upgrade, loggedOn);
}

std::string backupOf(const std::string& location, const std::string& suffix) {
    return placeBeside(location, suffix);
}

UpgradeCase::~UpgradeCase() {
    // What lies in no schema of the tests' own is not removed with these.
    if (!isServer()) return;
    for (const char* suffix : {"_format1", "_format1_2"})
        askServer(m_location,
                  "DROP SCHEMA IF EXISTS " + schemaOf(backupOf(m_location, suffix)) + " CASCADE");
}

bool UpgradeCase::hasBackup(const std::string& suffix) const {
    bool isFree = false;
    EXPECT_TRUE(readIsPlaceFree(backupOf(m_location, suffix), isFree));
    return !isFree;
}

void UpgradeCase::expectUntouched() {
    EXPECT_EQ(contentAt(m_location), m_before);
    EXPECT_FALSE(hasBackup());
    if (isServer()) return;
    for (const auto& entry : files::directory_iterator(files::path(m_location).parent_path()))
        EXPECT_THAT(entry.path().filename().string(), testing::StartsWith("Nbzw.db"));
}

void UpgradeCase::startAnew() {
    if (hasBackup()) {
        EXPECT_TRUE(removeDatabase(backupOf(m_location)).isDone());
    }
    m_location = makeOlderBooks(GetParam());
}

}  // namespace chengheng
