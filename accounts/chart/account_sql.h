#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "data/tables/accounts.h"

/// Conditions and statements on accounts and on what refers to them. A code is matched as it
/// stands: % and _ in it are plain characters.
namespace chengheng::account_sql {

/// The account of a code.
std::string ofCode(std::string_view code);
/// The same, when it has accounts below it.
std::string ofCodeWithChildren(std::string_view code);
/// The accounts below a code, without the account itself.
std::string below(std::string_view code);
/// The account of a code and those below it.
std::string ofCodeAndBelow(std::string_view code);
/// The account of an id.
std::string ofId(int accountId);
/// The account of a mnemonic.
std::string ofMnemonic(std::string_view mnemonic);
/// The top-level accounts in code order.
inline constexpr const char* topLevel = "byGrade = 1 AND lId>0 ORDER BY sCode";
/// Every account in code order.
inline constexpr const char* all = "lId > 0 ORDER BY sCode";
/// Every account class; the table's order is the order of the lists.
inline constexpr const char* allClasses = "ORDER BY lNum, lId";
/// Every currency in the order of their ids.
inline constexpr const char* allCurrencies = "lId > 0 ORDER BY lId";

/// The rows that name one of the accounts.
std::string ofAccounts(std::span<const int> accountIds);
/// The rows that name one of the end accounts below a code.
std::string ofEndAccountsBelow(std::string_view code);
/// The sums of one of the accounts with an opening balance other than zero.
std::string openingOfAccounts(std::span<const int> accountIds);

/// Adds accounts with the ids after a last one.
std::string addAccounts(std::span<const _CodeInfo> accounts, int lastId);
/// Makes an account an end account.
std::string makeEndAccount(std::string_view code);
/// Makes the accounts of one code cash accounts and those of another bank accounts, with those
/// below them, and no other account either.
std::string designation(std::string_view cashCode, std::string_view bankCode);

}  // namespace chengheng::account_sql
