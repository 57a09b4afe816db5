#include "tests/support/carry_books.h"

#include <fmt/format.h>

#include <filesystem>
#include <map>
#include <stdexcept>

#include "books/carrying/carry_repeat.h"
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

void CarryBooks::addMembers() {
    const std::string members =
        "INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (1, '01', '销售部');"
        "INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (2, '02', '生产部');"
        "INSERT INTO EnterClass (lId, sClsCode, sClsName) VALUES (1, '1', '客户');"
        "INSERT INTO Enter (lId, lClassId, sEnterCode, sEnterName) VALUES (1, 1, '01', '甲公司');";
    m_now.books().run(members);
    last(members);
}

void CarryBooks::detail(const std::string& code, int department, int unit, double opening,
                        double credit) {
    last(
        formatSql("INSERT INTO AssAcc (lId, byPeroid, lCodeId, lItemId, lDeptId, lEnterId, "
                  "sItemId, mBegin, mDebt, mCredit, dBegin, dDebt, dCredit, mFBegin, mFDebt, "
                  "mFCredit) VALUES (%d, 12, %d, 0, %d, %d, '', %lf, 0, %lf, 0, 0, 0, 0, 0, 0)",
                  ++m_lastId, m_now.idOf(code), department, unit, opening, credit));
}

std::vector<std::string> CarryBooks::details() {
    std::map<std::string, std::string> found;
    for (const _AssAccInfo& row : readRows<_AssAccInfo>(m_now.database(), "ORDER BY lId"))
        found[fmt::format("{}/{}", row.lDeptId, row.lEnterId)] += fmt::format(" {}", row.mBegin);
    std::vector<std::string> texts;
    for (const auto& [of, openings] : found) texts.push_back(of + openings);
    return texts;
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

Outcome CarryBooks::repeat() {
    std::vector<Notice> untold;
    RepeatPlan plan;
    Outcome outcome = lookAtRepeat(m_registry, plan, untold);
    for (const Notice& notice : untold) messages().tell(notice);
    if (outcome == Outcome::done)
        outcome = m_now.work().carryAgain(carriedAgain(plan), [](const auto& work) { work({}); });
    return outcome;
}

std::vector<std::string> CarryBooks::differences() {
    std::vector<Notice> untold;
    std::vector<CarryDifference> found;
    if (verifyCarry(m_registry, found, untold) != Outcome::done)
        throw std::runtime_error("not compared");
    std::vector<std::string> texts;
    for (const CarryDifference& each : found) texts.push_back(differenceText(each));
    return texts;
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
