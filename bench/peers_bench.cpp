// The balance of every account, read from the same books by other programs where they are
// installed: whole processes, ours as well.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/grouped_books.h"
#include "bench/timing.h"

namespace {

using bench::RawAccount;
using bench::require;

constexpr double target = 1.0 / 3;

/// The name of the group that an account belongs to, and of an account in it.
std::string groupOf(const RawAccount& account) { return std::string(account.code, 5); }

/// A transaction for each group, with what balances it.
void writeJournal(const std::vector<RawAccount>& accounts, const std::string& path) {
    std::FILE* const file = std::fopen(path.c_str(), "w");
    require(file != nullptr, "writing the journal");
    for (const RawAccount& account : accounts) {
        if (!account.isEnd)
            std::fprintf(file, "\n2026-01-01 * \"opening\"\n  Equity:Opening\n");
        else
            std::fprintf(file, "  Assets:A%s:A%s  %.2f CNY\n", groupOf(account).c_str(),
                         account.code, account.money);
    }
    std::fclose(file);
}

/// The same for a program that wants every account opened first.
void writeStrictJournal(const std::vector<RawAccount>& accounts, const std::string& path) {
    writeJournal(accounts, path);
    std::ofstream file(path, std::ios::app);
    file << "\n2025-01-01 open Equity:Opening\n";
    for (const RawAccount& account : accounts)
        if (account.isEnd)
            file << "2025-01-01 open Assets:A" << groupOf(account) << ":A" << account.code << "\n";
}

struct Peer {
    const char* program;
    void (*write)(const std::vector<RawAccount>& accounts, const std::string& path);
    const char* before;  ///< its arguments before and after the journal
    const char* after;
};

constexpr std::array peers{
    Peer{"ledger", writeJournal, " -f ", " balance"},
    Peer{"hledger", writeJournal, " -f ", " balance"},
    Peer{"bean-report", writeStrictJournal, " ", " balances"},
};

bool isInstalled(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

void runCommand(const std::string& command, const std::string& output) {
    const std::string whole = command + " >'" + output + "' 2>&1";
    require(std::system(whole.c_str()) == 0, whole.c_str());
}

void benchPeers(int count) {
    bench::GroupedBooks books(count);
    const auto accounts = books.readRaw();
    const std::string folder = books.folder();
    for (const Peer& peer : peers) {
        const std::string name = "balance of every account against " + std::string(peer.program) +
                                 ", " + std::to_string(count) + " accounts";
        if (!isInstalled(peer.program)) {
            std::printf("%s: not installed\n", name.c_str());
            continue;
        }
        const std::string journal = folder + "/" + peer.program + ".journal";
        peer.write(accounts, journal);
        bench::Pair pair;
        pair.floor = [&] {
            runCommand(peer.program + std::string(peer.before) + "'" + journal + "'" + peer.after,
                       folder + "/peer.txt");
            require(std::filesystem::file_size(folder + "/peer.txt") > accounts.size(),
                    "the peer's balances");
        };
        pair.ours = [&] {
            runCommand("'" CHENGHENG_CHBOOKS "' export-opening '" + folder + "/Nbzw.db' '" +
                           folder + "/ours.csv'",
                       folder + "/ours.txt");
            require(std::filesystem::file_size(folder + "/ours.csv") > accounts.size(),
                    "our balances");
        };
        bench::reportTimes(name, pair, target, 2);
    }
}

}  // namespace

int main() {
    for (const int accounts : {10'000, 50'000}) benchPeers(accounts);
}
