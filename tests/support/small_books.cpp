#include "tests/support/small_books.h"

#include <fmt/format.h>

#include <stdexcept>

#include "base/values/date.h"
#include "data/layout/layout.h"
#include "data/tables/schema.h"
#include "tests/support/made_layout.h"

namespace chengheng {
namespace {

constexpr const char* masterData = R"(
INSERT INTO zAccountM (lId, sName, sCompany, dtStart, sCodeLen, bFgn, lYear)
    VALUES (1, '小帐', '小公司', '2026-01-01', '4222', 1, 2026);
INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (1, 1, '资产', 1);
INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (2, 2, '负债', 0);
INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect, sHelp)
    VALUES (1, '1001', '库存现金', '资产', 1, 1, 1, 'KCXJ');
INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect, byExchId)
    VALUES (2, '1002', '银行存款', '资产', 1, 0, 1, 0);
INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect)
    VALUES (3, '100201', '工商银行', '资产', 2, 0, 1);
INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect, byExchId)
    VALUES (4, '10020101', '美元户', '资产', 3, 1, 1, 1);
INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect, sAssBook, sHelp)
    VALUES (5, '1122', '应收账款', '资产', 1, 1, 1, 'B', 'YSZK');
INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect)
    VALUES (6, '2202', '应付账款', '负债', 1, 1, 0);
INSERT INTO Cyrency (lId, sExchCode, sExchName) VALUES (1, 'USD', '美元');
INSERT INTO Sign (lId, sSign, sSignName, byLimit, sCode1, sCode2)
    VALUES (1, '收', '收款凭证', 1, '1001', '1002');
INSERT INTO Settle (lId, sStlId, sSettle) VALUES (1, '1', '现金');
INSERT INTO Users (lId, lUserId, sUserName, bManager, sPassword)
    VALUES (1, 1, '张三', 1, '$argon2id$v=19$');
INSERT INTO UserAuth (lId, lUserId, sAuthId) VALUES (1, 1, 'N');
INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (1, '01', '销售部');
INSERT INTO Person (lId, lDeptId, sPersonName) VALUES (1, 1, '李四');
INSERT INTO EnterClass (lId, sClsCode, sClsName) VALUES (1, '01', '客户');
INSERT INTO Enter (lId, lClassId, sEnterName) VALUES (1, 1, '大华商场');
INSERT INTO ProjClass (lId, sClsCode, sClsName) VALUES (1, '01', '工程');
INSERT INTO ProjCodes (lId, lCodeId, sItemId) VALUES (1, 6, '01');
)";

constexpr const char* entries = R"(
INSERT INTO RegMain (lId, dtDate, sSign) VALUES (1, '2025-12-31', '收');
INSERT INTO RegSub (lId, lTieId, lLine, lCodeId, bDirect, mMoney, lEnterId, sStlId, bBegin)
    VALUES (1, 1, 1, 5, 1, 100.10, 1, '1', 1);
INSERT INTO UnregMain (lId, byPeroid, dtDate) VALUES (2, 1, '2026-01-05');
INSERT INTO UnregSub (lId, lTieId, lLine, lCodeId, mMoney) VALUES (2, 2, 1, 1, 9.99);
INSERT INTO AutoMain (lId, sSign, sName) VALUES (1, '收', '结转');
INSERT INTO AutoSub (lId, lTieId, lCodeId) VALUES (1, 1, 6);
INSERT INTO FreqSub (lId, lCodeId) VALUES (1, 6);
INSERT INTO _Digest (lId, lCodeId, sDigest) VALUES (1, 6, '付货款');
INSERT INTO RecpBank (lId, lCodeId, sNoteMethod) VALUES (1, 4, '1');
INSERT INTO ZWPrintMain (lId, sTitle) VALUES (2, '外币一览表');
INSERT INTO ZWPrintSub (lId, lTieId, sColName) VALUES (1, 2, '币符');
INSERT INTO ProjItems01 (lId, FIELD0, FIELD1) VALUES (1, '001', '仓库');
)";

std::string balanceRows() {
    std::string script;
    int id = 0;
    for (const auto& [account, amount] :
         {std::pair{"1", "300.00"}, std::pair{"5", "100.10"}, std::pair{"6", "400.10"}}) {
        for (int period = 1; period <= 12; ++period)
            script += "INSERT INTO AccSum (lId, lCodeId, byPeroid, mBegin) VALUES (" +
                      std::to_string(++id) + ", " + account + ", " + std::to_string(period) + ", " +
                      amount + ");";
    }
    for (int period = 1; period <= 12; ++period) {
        const std::string number = std::to_string(period);
        script += "INSERT INTO AssAcc (lId, byPeroid, lCodeId, lEnterId, mBegin) VALUES (" +
                  number + ", " + number + ", 5, 1, 100.10);";
    }
    return script;
}

/// A row each, in one statement: one for each row takes a server ten times as long.
std::string rateRows() {
    std::string fixed, floating;
    int id = 0;
    const auto row = [](std::string& rows, int rowId, const Date& date) {
        rows += fmt::format("{} ({}, 1, '{}', {})", rows.empty() ? "VALUES" : ",", rowId,
                            isoText(date), date.month);
    };
    for (std::uint8_t month = 1; month <= 12; ++month) {
        row(fixed, month, {2026, month, 1});
        for (std::uint8_t day = 1; day <= daysInMonth(2026, month); ++day)
            row(floating, ++id, {2026, month, day});
    }
    constexpr const char* columns = "(lId, byExchId, dtDate, byPeroid)";
    return fmt::format("INSERT INTO ExchgFix {0} {1};INSERT INTO ExchgFlt {0} {2};", columns, fixed,
                       floating);
}

}  // namespace

void addRates(Engine& engine) { runScript(engine, rateRows()); }

void runScript(Engine& engine, const std::string& sql) {
    if (const Status status = engine.script(sql); !status)
        throw std::runtime_error(status.detail + " in " + sql.substr(0, 200));
}

void plant(Engine& engine, const std::string& sql) {
    const bool isServer = !engine.dialect().rowLock.empty();
    runScript(engine, isServer ? "DO $$ DECLARE each record; BEGIN FOR each IN "
                                 "SELECT conrelid::regclass AS place, conname FROM pg_constraint "
                                 "WHERE connamespace = current_schema()::regnamespace AND "
                                 "contype = 'c' LOOP EXECUTE format('ALTER TABLE %s DROP "
                                 "CONSTRAINT %I', each.place, each.conname); END LOOP; END $$"
                               : std::string(engine.dialect().checksOff));
    runScript(engine, sql);
}

void fillSmallBooks(Engine& engine) {
    makeLayout(engine);
    if (const Status status = engine.begin(); !status) throw std::runtime_error(status.detail);
    runScript(engine, masterData);
    runScript(engine, createTableSql(projectItemTable("01"), engine.dialect()));
    runScript(engine, entries);
    runScript(engine, balanceRows());
    addRates(engine);
    runScript(engine, "UPDATE ABIdTable SET lLastId = 400");
    if (const Status status = engine.commit(); !status) throw std::runtime_error(status.detail);
}

}  // namespace chengheng
