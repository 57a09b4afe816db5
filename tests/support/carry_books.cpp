#include "tests/support/carry_books.h"

#include <fmt/format.h>

#include <filesystem>
#include <stdexcept>

#include "data/access/row_lease.h"
#include "data/layout/layout.h"
#include "data/tables/accounts.h"
#include "data/tables/balances.h"
#include "tests/support/small_books.h"

namespace chengheng {

CarryBooks::CarryBooks(const EngineCase& engineCase, OpeningLayout layout)
    : m_location(freshLocation(engineCase)),
      m_lastLocation(freshLocation(engineCase)),
      m_now(m_location, layout) {
    const auto engine = openForTest(m_lastLocation);
    if (!createLayout(*engine)) throw std::runtime_error("no layout");
    runScript(*engine,
              "INSERT INTO zAccountM (lId, sName, dtStart, sCodeLen, bFgn, lYear) "
              "VALUES (1, '小帐', '2025-01-01', '4222', 1, 2025)");
    list(m_location, m_lastLocation);
}

void CarryBooks::last(const std::string& sql) const {
    runScript(*openForTest(m_lastLocation, OpenMode::existing), sql);
}

void CarryBooks::mirror() {
    std::string script = "DELETE FROM Code;";
    for (const _CodeInfo& account : readRows<_CodeInfo>(m_now.database(), "lId > 0 ORDER BY lId"))
        script += formatSql(
            "INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect, sAssBook, "
            "byExchId, bAmount, sUnit) VALUES (%d, '%s', '%s', '%s', %d, %d, %d, '%s', %d, %d, "
            "'%s');",
            account.lId, account.sCode, account.sName, account.sType, account.byGrade, account.bEnd,
            account.bDirect, account.sAssBook, account.byExchId, account.bAmount, account.sUnit);
    last(script);
}

void CarryBooks::close(const std::string& code, double opening, double debit, double credit) {
    last(
        formatSql("INSERT INTO AccSum (lId, lCodeId, byPeroid, mBegin, mDebet, mCredit, "
                  "dAmtBegin, dAmtDebet, dAmtCredit, mFgnBegin, mFgnDebet, mFgnCredit) "
                  "VALUES (%d, %d, 12, %lf, %lf, %lf, 0, 0, 0, 0, 0, 0)",
                  ++m_lastId, m_now.idOf(code), opening, debit, credit));
}

std::vector<std::string> CarryBooks::lastRows() const {
    CNbCwDB database;
    NbCwDBInfo info;
    std::vector<std::string> texts;
    if (database.DBOpen(info, m_lastLocation.c_str(), "last", 1) == 0 ||
        database.DBSelect("last") == 0)
        throw std::runtime_error("last year's books do not open");
    for (const _CodeInfo& row : readRows<_CodeInfo>(database, "ORDER BY lId"))
        texts.push_back(fmt::format("{} {} {}", row.lId, row.sCode, row.sName));
    for (const _AccSumInfo& row : readRows<_AccSumInfo>(database, "ORDER BY lId"))
        texts.push_back(fmt::format("{} {} {} {}", row.lId, row.lCodeId, row.byPeroid, row.mBegin));
    return texts;
}

Outcome CarryBooks::carry() {
    std::vector<Notice> untold;
    const Outcome outcome =
        m_now.work().carryForward([&] { return carryForward(m_registry, untold); });
    for (const Notice& notice : untold) messages().tell(notice);
    return outcome;
}

void CarryBooks::list(const std::string& location, const std::string& lastLocation, int lastYear) {
    forgetList();
    RegistryChange change(m_registry);
    change.enter({1, "小帐", "", {}}, {2026, withoutServerPassword(location)});
    if (!lastLocation.empty())
        change.enter({1, "小帐", "", {}}, {lastYear, withoutServerPassword(lastLocation)});
    if (!change.save()) throw std::runtime_error("no list");
}

void CarryBooks::forgetList() { std::filesystem::remove(m_registry.path()); }

}  // namespace chengheng
