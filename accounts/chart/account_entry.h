#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "data/tables/accounts.h"

namespace chengheng {

/// The fields of the account dialog: what gets the focus after a refusal, and the columns of an
/// imported chart.
namespace account_field {
inline constexpr const char* code = "sCode";
inline constexpr const char* name = "sName";
inline constexpr const char* type = "sType";
inline constexpr const char* page = "sPage";
inline constexpr const char* mnemonic = "sHelp";
inline constexpr const char* currency = "byExchId";
inline constexpr const char* quantity = "bAmount";
inline constexpr const char* unit = "sUnit";
inline constexpr const char* auxiliary = "sAssBook";
inline constexpr const char* direction = "bDirect";
}  // namespace account_field

/// The auxiliary books of an account, a check box each.
struct AuxiliaryBooks {
    bool byPerson = false;      ///< A 个人往来
    bool byUnit = false;        ///< B 单位往来
    bool byDepartment = false;  ///< C 核算部门
    bool byProject = false;     ///< D 核算项目
    bool isJournal = false;     ///< R 日记帐
    bool isBank = false;        ///< E 银行帐

    bool operator==(const AuxiliaryBooks&) const = default;
};

/// "BC", "RE", ...: the dimensions in the order of their letters, then the books, as the
/// designation of cash and bank accounts writes them.
std::string lettersOf(const AuxiliaryBooks& books);
/// Letters that mean nothing are left aside.
AuxiliaryBooks booksOfLetters(std::string_view letters);
/// How the chart names auxiliary accounting, from the first letters: "BD" is 项目往来. Empty
/// when they name none.
std::string_view auxiliaryName(std::string_view letters);

/// What the account dialog holds when it is confirmed, and what a row of an imported chart says.
struct AccountEntry {
    std::string code = {};
    std::string name = {};
    std::string className = {};  ///< the category chosen
    std::string page = {};       ///< ledger page format
    std::string mnemonic = {};
    bool keepsForeign = false;
    int currencyId = 0;  ///< 0: none chosen
    bool keepsQuantity = false;
    std::string unit = {};
    AuxiliaryBooks books = {};
    /// 1 debit, 0 credit. None: a new account takes that of its parent, at the top that of its
    /// class, and an account that is modified keeps its own.
    std::optional<std::int16_t> direction = {};

    bool operator==(const AccountEntry&) const = default;
};

/// Without blanks at the end of code, name, mnemonic and unit.
AccountEntry tidied(AccountEntry entry);

/// What the dialog shows of an account.
AccountEntry entryOf(const _CodeInfo& account);
/// What the add dialog shows when an account is copied: all but what is another account's own,
/// code and mnemonic.
AccountEntry copyOf(const _CodeInfo& account);

/// What was typed into a dialog, over the account as it is stored now: a field that was left as
/// the dialog showed it follows what is stored.
AccountEntry typedOver(const AccountEntry& shown, const AccountEntry& typed,
                       const AccountEntry& stored);
/// A line for each field that another workstation changed: what is stored now and, where it is
/// another text, what was typed.
std::string foreignChanges(const AccountEntry& shown, const AccountEntry& typed,
                           const AccountEntry& stored);

/// Puts page, currency, quantity and books as another account has them; with none, the plainest
/// page and nothing else.
void takeAccounting(const std::optional<_CodeInfo>& account, AccountEntry& entry);
bool hasSameAccounting(const AccountEntry& left, const AccountEntry& right);

/// Puts an entry into a record; code and name, class, page, currency, quantity and letters.
/// Level, end flag, designation and direction stay. Letters that stood in another order stay so.
void fillRecord(const AccountEntry& entry, _CodeInfo& account);

}  // namespace chengheng
