#include "bench/sample_books.h"

#include <cstdlib>
#include <filesystem>

#include "bench/timing.h"
#include "data/sql/sql_format.h"

namespace bench {

SampleBooks::SampleBooks(int accounts) : m_accounts(accounts) {
    std::string pattern = (std::filesystem::temp_directory_path() / "books-XXXXXX").string();
    require(::mkdtemp(pattern.data()) != nullptr, "making a temporary folder");
    m_folder = pattern;
    const std::string path = m_folder + "/Nbzw.db";
    NbCwDBInfo info;
    require(m_database.DBOpen(info, path.c_str(), "books", 0) != 0, "creating the books");
    require(m_database.DBSelect("books") != 0, "selecting the books");
    require(sqlite3_open(path.c_str(), &m_raw) == SQLITE_OK, "opening the floor's connection");
    run("PRAGMA synchronous = FULL");
    run("PRAGMA cache_size = -16384");
    fill();
}

SampleBooks::~SampleBooks() { close(); }

void SampleBooks::close() {
    if (m_raw == nullptr) return;
    sqlite3_close(m_raw);
    m_raw = nullptr;
    m_database.DBClose("books");
    std::filesystem::remove_all(m_folder);
}

void SampleBooks::run(const std::string& sql) {
    require(sqlite3_exec(m_raw, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, sql.c_str());
}

void SampleBooks::fill() {
    run("BEGIN");
    for (int account = 1; account <= m_accounts; ++account) {
        run(chengheng::formatSql(
            "INSERT INTO Code VALUES(%d,'%s','%s','资产',1,1,1,0,0,'BD','%s',0,0,'金额式',0,'')",
            account, std::to_string(1000000 + account),
            "往来单位核算科目" + std::to_string(account), "WLDW" + std::to_string(account)));
        const bool isEmpty = account % 20 == 0;
        for (int period = 1; period <= 12; ++period) {
            const double amount = isEmpty ? 0 : account * 12.34 + period;
            run(chengheng::formatSql("INSERT INTO AccSum VALUES(%d,%d,%d,%lf,%lf,0,0,%lf,0,0,0,0)",
                                     (account - 1) * 12 + period, account, period, amount,
                                     amount * 0.5, amount));
        }
    }
    run("COMMIT");
    run("ANALYZE");
}

}  // namespace bench
