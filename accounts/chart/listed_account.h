#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/tables/accounts.h"

namespace chengheng {

/// The columns of the chart, in their order.
enum class ListColumn { level, code, name, currency, auxiliary };

/// An account as the chart lists it.
struct ListedAccount {
    explicit ListedAccount(const _CodeInfo& account)
        : id(account.lId),
          grade(account.byGrade),
          currencyId(account.byExchId),
          code(account.sCode),
          name(account.sName),
          letters(account.sAssBook),
          mnemonic(account.sHelp) {}

    std::int32_t id;
    std::uint8_t grade;
    std::uint8_t currencyId;
    std::string code;
    std::string name;
    std::string letters;  ///< of its auxiliary books
    std::string mnemonic;
};

/// A text as the find command compares it: without blanks in front, which leaves out the
/// indentation of the levels, and without regard to capitals.
bool isSameForFinding(std::string_view shown, std::string_view wanted);

}  // namespace chengheng
