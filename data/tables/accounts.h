#pragma once

#include <cstdint>
#include <string>

// Record types: the first field is the row's id, the others follow the columns of the
// table. The names are those of the database format.

/// An account of the chart. lId 0 or less is no account.
struct _CodeInfo {
    std::int32_t lId = 0;
    std::string sCode;  ///< code, unique, the sort key
    std::string sName;
    std::string sType;         ///< name of its account class (zCodeClass)
    std::uint8_t byGrade = 0;  ///< level, 1 = top
    std::int16_t bEnd = 0;     ///< 1 = has no children
    std::int16_t bDirect = 0;  ///< 1 = debit (借), 0 = credit (贷)
    std::int16_t bCash = 0;    ///< designated cash account
    std::int16_t bBank = 0;    ///< designated bank account
    std::string sAssBook;  ///< auxiliary letters: A person, B unit, C department, D project, E bank
                           ///< book, R journal
    std::string sHelp;     ///< mnemonic, unique unless empty
    std::uint8_t byExchId = 0;  ///< its currency (Cyrency.lId), 0 = home currency only
    std::int32_t lNum = 0;      ///< position given by the bookkeeper
    std::string sPage;          ///< ledger page format
    std::int16_t bAmount = 0;   ///< 1 = quantities are kept
    std::string sUnit;          ///< unit of measure of the quantities

    bool operator==(const _CodeInfo&) const = default;
};

/// An account class (资产, 负债, ...), numbered by lNum.
struct _zCodeClassInfo {
    std::int32_t lId = 0;
    std::int32_t lNum = 0;  ///< order, from 1
    std::string sClsName;
    std::int16_t bDirect = 0;  ///< 1 = debit-natured

    bool operator==(const _zCodeClassInfo&) const = default;
};
