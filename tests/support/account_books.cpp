#include "tests/support/account_books.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "accounts/changing/account_locks.h"
#include "accounts/chart/account_sql.h"
#include "books/checking/integrity_parts.h"
#include "data/access/row_lease.h"
#include "data/layout/layout.h"
#include "data/tables/balances.h"
#include "data/tables/definitions.h"
#include "data/tables/directories.h"
#include "data/tables/record_type.h"
#include "data/tables/vouchers.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_layout.h"
#include "tests/support/small_books.h"

namespace chengheng {
namespace {

constexpr const char* beginning = R"(
INSERT INTO zAccountM (lId, sName, dtStart, sCodeLen, bFgn, lYear)
    VALUES (1, '小帐', '2026-01-01', '4222', 1, 2026);
INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (1, 1, '资产', 1);
INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (2, 2, '负债', 0);
INSERT INTO Cyrency (lId, sExchCode, sExchName) VALUES (1, 'USD', '美元');
INSERT INTO Sign (lId, sSign, sSignName) VALUES (1, '记', '记帐凭证');
INSERT INTO ProjClass (lId, sClsCode, sClsName) VALUES (1, '01', '工程');
INSERT INTO AutoMain (lId, sSign, sName) VALUES (1, '记', '结转');
INSERT INTO Users (lId, lUserId, sUserName, bManager, sPassword)
    VALUES (1, 1, '张三', 1, '$argon2id$v=19$');
INSERT INTO UserAuth (lId, lUserId, sAuthId) VALUES (1, 1, 'N');
UPDATE ABIdTable SET lLastId = 400
    WHERE sTable NOT IN ('Code', 'AccSum', 'RegMain', 'RegSub', 'UnRegMain', 'UnRegSub');
)";

void fill(Engine& engine) {
    makeLayout(engine);
    if (const Status status = engine.begin(); !status) throw std::runtime_error(status.detail);
    runScript(engine, beginning);
    runScript(engine, createTableSql(projectItemTable("01"), engine.dialect()));
    addRates(engine);
    if (const Status status = engine.commit(); !status) throw std::runtime_error(status.detail);
}

void mustBe(bool isDone, const CNbCwDB& database, const std::string& what) {
    if (!isDone) throw std::runtime_error(what + ": " + database.lastStatus().detail);
}

template <class Record>
int addRow(CNbCwDB& database, const Record& record) {
    int id = 0;
    mustBe(database.add(record, id) == 0, database, recordTypeOf<Record>().table.name);
    return id;
}

template <class Main, class Sub>
void addVoucher(CNbCwDB& database, int accountId) {
    Main header;
    header.byPeroid = 1;
    header.dtDate = {2026, 1, 5};
    header.sSign = "记";
    header.lNumber = 1;
    Sub line;
    line.lTieId = addRow(database, header);
    line.lLine = 1;
    line.lCodeId = accountId;
    line.sDigest = "付款";
    line.bDirect = 1;
    line.mMoney = 1234.5;
    addRow(database, line);
}

void addSums(CNbCwDB& database, int accountId, double opening) {
    for (std::uint8_t period = 1; period <= 12; ++period) {
        _AccSumInfo sum;
        sum.lCodeId = accountId;
        sum.byPeroid = period;
        sum.mBegin = opening;
        addRow(database, sum);
    }
}

std::vector<std::string> textsOf(const Status& status, const std::vector<IntegrityFault>& faults) {
    std::vector<std::string> texts;
    if (!status) texts.push_back(status.detail);
    for (const IntegrityFault& fault : faults) texts.push_back(fault.check + ": " + fault.text);
    return texts;
}

}  // namespace

AccountBooks::AccountBooks(const std::string& location, bool isNew) {
    auto real = openForTest(location, isNew ? OpenMode::create : OpenMode::existing);
    if (isNew) fill(*real);
    m_locks = std::make_unique<LoggedLocks>(real->locks());
    auto faulty = std::make_unique<FaultyEngine>(std::move(real));
    faulty->replaceLocks(*m_locks);
    m_engine = faulty.get();
    m_database.adopt(std::move(faulty), location.c_str(), "books");
    mustBe(m_database.DBSelect("books") != 0, m_database, "DBSelect");
    m_session.emplace(SessionFacts{
        .database = &m_database, .databaseName = "books", .logonUser = {1, 1, 1, 1, "张三"}});
}

AccountBooks::~AccountBooks() = default;

int AccountBooks::add(const std::string& code, const std::string& name) {
    const CodeLevels levels("4222");
    _CodeInfo account;
    account.sCode = code;
    account.sName = name;
    account.sType = "资产";
    account.byGrade = static_cast<std::uint8_t>(levels.gradeOf(code));
    account.bEnd = 1;
    account.bDirect = 1;
    const std::string parentCode = levels.parentOf(code);
    if (!parentCode.empty()) {
        _CodeInfo parent = this->account(parentCode);
        parent.bEnd = 0;
        edit(parent);
    }
    return addRow(m_database, account);
}

_CodeInfo AccountBooks::account(const std::string& code) {
    const auto rows = readRows<_CodeInfo>(m_database, account_sql::ofCode(code).c_str());
    EXPECT_EQ(rows.size(), 1u) << code;
    return rows.empty() ? _CodeInfo{} : rows.front();
}

bool AccountBooks::hasAccount(const std::string& code) {
    return !readRows<_CodeInfo>(m_database, account_sql::ofCode(code).c_str()).empty();
}

void AccountBooks::edit(const _CodeInfo& account) {
    mustBe(m_database.Code_Edit(account) == 0, m_database, account.sCode);
}

void AccountBooks::run(const std::string& batch) {
    mustBe(m_database.QRYExecuteSQL(batch) != 0, m_database, batch);
}

void AccountBooks::use(UsePlace place, const std::string& code) {
    const int id = account(code).lId;
    switch (place) {
        case UsePlace::unposted:
            return addVoucher<_UnregMainInfo, _UnregSubInfo>(m_database, id);
        case UsePlace::posted:
            return addVoucher<_RegMainInfo, _RegSubInfo>(m_database, id);
        case UsePlace::sums:
            return addSums(m_database, id, 500);
        case UsePlace::frequentVouchers:
            addRow(m_database, _FreqSubInfo{0, 1, id, "付款", 1, 10});
            return;
        case UsePlace::digests:
            addRow(m_database, __DigestInfo{0, id, "付货款"});
            return;
        case UsePlace::transfers:
            addRow(m_database, _AutoSubInfo{0, 1, id, "结转成本", 0, ""});
            return;
        case UsePlace::projects:
            addRow(m_database, _ProjCodesInfo{0, id, "01"});
            return;
    }
}

void AccountBooks::addEmptySums(const std::string& code) {
    addSums(m_database, account(code).lId, 0);
}

std::vector<std::string> AccountBooks::chart() {
    std::vector<std::string> lines;
    for (const _CodeInfo& account : readRows<_CodeInfo>(m_database, account_sql::all))
        lines.push_back(fmt::format(
            "{} {} {} {} level {} end {} direct {} cash {} bank {} [{}] {} {} {} {} {}",
            account.lId, account.sCode, account.sName, account.sType, account.byGrade, account.bEnd,
            account.bDirect, account.bCash, account.bBank, account.sAssBook, account.sHelp,
            account.byExchId, account.sPage, account.bAmount, account.sUnit));
    lines.push_back(fmt::format("last id {}", m_database.Code_GetLastId()));
    return lines;
}

std::vector<std::string> AccountBooks::faults() {
    std::vector<IntegrityFault> found;
    const Status status = checkIntegrity(m_engine->real(), found);
    return textsOf(status, found);
}

std::vector<std::string> AccountBooks::chartFaults() {
    static const std::set<std::string_view> others{"objects", "cells", "fixedRates",
                                                   "floatingRates"};
    std::vector<IntegrityFault> found;
    Engine& engine = m_engine->real();
    Status status = engine.beginReading();
    CheckedBooks books(engine);
    if (status) status = books.read();
    for (const IntegrityCheck& check : integrityChecks()) {
        FaultList list(found, check.name);
        if (status && !others.contains(check.name)) status = check.run(books, list);
    }
    const Status ended = engine.rollback();
    return textsOf(status ? ended : status, found);
}

bool AccountBooks::holdsLocks() {
    const LockService& locks = m_engine->real().locks();
    return locks.holds("AccSum", LockMode::shared) || locks.holds("Code", LockMode::exclusive);
}

AccountEntry assetEntry(const std::string& code, const std::string& name) {
    return {.code = code, .name = name, .className = "资产"};
}

}  // namespace chengheng
