#include "tests/support/entry_books.h"

#include <fmt/format.h>

#include <stdexcept>

#include "auxiliary/entries/entry_reading.h"
#include "auxiliary/screen/entry_list.h"
#include "data/access/row_lease.h"
#include "data/access/selected_cells.h"
#include "data/tables/balances.h"

namespace chengheng {
namespace {

constexpr const char* directoryRows =
    "INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (1, 'D1', '销售部')\r\n"
    "INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (2, 'D2', '生产部')\r\n"
    "INSERT INTO Person (lId, lDeptId, sPersonCode, sPersonName) VALUES (1, 1, 'P1', '张三')\r\n"
    "INSERT INTO Person (lId, lDeptId, sPersonCode, sPersonName) VALUES (2, 2, 'P2', '李四')\r\n"
    "INSERT INTO EnterClass (lId, sClsCode, sClsName) VALUES (1, '1', '客户')\r\n"
    "INSERT INTO Enter (lId, lClassId, sEnterCode, sEnterName) VALUES (1, 1, 'U1', '甲公司')\r\n"
    "INSERT INTO Enter (lId, lClassId, sEnterCode, sEnterName) VALUES (2, 1, 'U2', '乙公司')\r\n"
    "INSERT INTO ProjItems01 (lId, FIELD0, FIELD1) VALUES (1, 'I1', '一期')\r\n"
    "INSERT INTO ProjItems01 (lId, FIELD0, FIELD1) VALUES (2, 'I2', '二期')\r\n"
    "UPDATE ABIdTable SET lLastId = 2 WHERE sTable = 'Dept'\r\n"
    "UPDATE ABIdTable SET lLastId = 2 WHERE sTable = 'Person'\r\n"
    "UPDATE ABIdTable SET lLastId = 2 WHERE sTable = 'Enter'";

const char* lettersOf(AuxiliaryKind kind) {
    switch (kind) {
        case AuxiliaryKind::unitAndProject:
            return "BD";
        case AuxiliaryKind::departmentAndUnit:
            return "BC";
        case AuxiliaryKind::departmentAndProject:
            return "CD";
        case AuxiliaryKind::person:
            return "A";
        case AuxiliaryKind::department:
            return "C";
        case AuxiliaryKind::project:
            return "D";
        default:
            return "B";
    }
}

struct WrittenRows {
    const char* select;
    int columns;
};

constexpr WrittenRows writtenRows[] = {
    {"SELECT 'RegMain', lId, byPeroid, dtDate, sSign, lNumber, lUBill FROM RegMain ORDER BY lId",
     7},
    {"SELECT 'RegSub', lId, lTieId, sDigest, lCodeId, bDirect, mMoney, mFgn, dAmt, lDeptId, "
     "lPersonId, lEnterId, lItemId, sItemId, bBegin FROM RegSub ORDER BY lId",
     15},
    {"SELECT 'AssAcc', lId, byPeroid, lCodeId, lItemId, lDeptId, lPersonId, lEnterId, sItemId, "
     "mBegin, dBegin, mFBegin FROM AssAcc ORDER BY lId",
     12},
    {"SELECT 'AccSum', lId, byPeroid, lCodeId, mBegin, dAmtBegin, mFgnBegin FROM AccSum ORDER BY "
     "lId",
     7},
    {"SELECT sTable, lLastId FROM ABIdTable ORDER BY sTable", 2},
};

}  // namespace

std::string accountCode(const AuxiliaryMember& member) {
    return fmt::format("{}", 2001 + (&member - auxiliaryMembers().data()));
}

EntryBooks::EntryBooks(const std::string& location, OpeningLayout layout, bool isNew)
    : m_opening(location, layout, isNew) {
    if (!isNew) return;
    books().run(directoryRows);
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        m_opening.addAccounts({accountCode(member)});
        m_opening.change(
            accountCode(member),
            std::string("bAmount = 1, byExchId = 1, sAssBook = '") + lettersOf(member.kind) + "'");
    }
}

AuxiliaryAccount EntryBooks::account(const AuxiliaryMember& member) {
    return auxiliaryAccount(books().account(accountCode(member)));
}

AuxiliaryEntry EntryBooks::entry(const AuxiliaryMember& member, int which, double money,
                                 bool isDebit) {
    const bool isFirst = which == 1;
    AuxiliaryEntry entry;
    entry.content.date = {2025, 12, 31};
    entry.content.sign = "记";
    entry.content.number = 7;
    entry.content.summary = "期初";
    entry.content.isDebit = isDebit;
    entry.content.money = money;
    EntryDimensions& of = entry.content.of;
    if (member.has(Dimension::department)) {
        of.department = which;
        entry.names.department = isFirst ? "销售部" : "生产部";
    }
    if (member.has(Dimension::person)) {
        of.person = which;
        entry.names.person = isFirst ? "张三" : "李四";
    }
    if (member.has(Dimension::unit)) {
        of.unit = which;
        entry.names.unit = isFirst ? "甲公司" : "乙公司";
    }
    if (member.has(Dimension::item)) {
        of.item = which;
        of.itemClass = "01";
        entry.names.item = isFirst ? "一期" : "二期";
    }
    return entry;
}

std::vector<AuxiliaryEntry> EntryBooks::stored(const AuxiliaryMember& member) {
    std::vector<AuxiliaryEntry> entries;
    if (!readEntries(database(), member, account(member), entries))
        throw std::runtime_error(database().lastStatus().detail);
    return entries;
}

std::string EntryBooks::auxiliary(const AuxiliaryMember& member, int which) {
    const EntryDimensions of = entry(member, which, 0).content.of;
    const std::string condition = member.sumsOf(account(member).id, of) + " ORDER BY byPeroid";
    std::string text;
    for (const _AssAccInfo& row : readRows<_AssAccInfo>(database(), condition.c_str()))
        text += fmt::format("{}{}={}", text.empty() ? "" : " ", row.byPeroid, row.mBegin);
    return text;
}

std::vector<std::string> EntryBooks::rows() {
    std::vector<std::string> texts;
    for (const WrittenRows& each : writtenRows) {
        const SelectedCells cells(database(), each.select);
        if (!cells.isRead()) throw std::runtime_error(database().lastStatus().detail);
        for (int row = 0; row < cells.rows(); ++row) {
            std::string& text = texts.emplace_back();
            for (int column = 0; column < each.columns; ++column)
                text += std::string(cells.text(row, column)) + '|';
        }
    }
    return texts;
}

bool EntryBooks::agree(const AuxiliaryMember& member) {
    const AuxiliaryAccount of = account(member);
    EntryList list(member);
    list.assign(stored(member));
    const EntryFigures lines = list.total(of);
    EntryFigures posted;
    if (!readPostedFigures(database(), of, posted)) return false;
    EntryFigures details;
    const std::string condition = formatSql("lCodeId = %d AND byPeroid = 2", of.id);
    for (const _AssAccInfo& row : readRows<_AssAccInfo>(database(), condition.c_str()))
        details = details + EntryFigures{row.mBegin, row.mFBegin, row.dBegin};
    return lines == posted && lines == details;
}

}  // namespace chengheng
