#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "opening/sheet/opening_sheet.h"

namespace chengheng {

/// An account of a chart for tests: "1001", opening balance, direction, class.
struct AccountDraft {
    std::string code;
    double opening = 0;
    bool isDebit = true;
    std::string type = "资产";
    std::string letters = {};
    std::uint8_t currency = 0;
    std::string unit = {};  ///< not empty: quantities are kept

    AccountDraft foreign(std::uint8_t currencyId) const {
        AccountDraft draft = *this;
        draft.currency = currencyId;
        return draft;
    }
    AccountDraft countedIn(std::string name) const {
        AccountDraft draft = *this;
        draft.unit = std::move(name);
        return draft;
    }
    AccountDraft keptBy(std::string auxiliaryLetters) const {
        AccountDraft draft = *this;
        draft.letters = std::move(auxiliaryLetters);
        return draft;
    }
};

/// The accounts in code order, with ids from 1 in the order given and levels of two characters
/// after the first of four. An account is no end account when another's code begins with its.
inline std::vector<OpeningAccount> accountsOf(const std::vector<AccountDraft>& drafts) {
    std::set<std::string> parents;
    for (const AccountDraft& draft : drafts)
        for (std::size_t length = 1; length < draft.code.size(); ++length)
            parents.insert(draft.code.substr(0, length));
    std::vector<OpeningAccount> accounts;
    for (const AccountDraft& draft : drafts) {
        OpeningAccount account;
        account.id = static_cast<std::int32_t>(accounts.size()) + 1;
        account.code = draft.code;
        account.name = "科目" + draft.code;
        account.type = draft.type;
        account.unit = draft.unit;
        account.grade = static_cast<std::uint8_t>((draft.code.size() - 2) / 2);
        account.currency = draft.currency;
        account.isEnd = !parents.contains(draft.code);
        account.isDebit = draft.isDebit;
        account.hasQuantity = !draft.unit.empty();
        account.auxiliary = auxiliaryKindOf(draft.letters);
        account.balance(Measure::money).opening = draft.opening;
        accounts.push_back(std::move(account));
    }
    std::ranges::sort(accounts, {}, &OpeningAccount::code);
    return accounts;
}

inline OpeningSheet sheetOf(const std::vector<AccountDraft>& drafts,
                            OpeningLayout layout = OpeningLayout::simple) {
    return {layout, accountsOf(drafts), {{1, "美元"}}};
}

/// A credit account of a class.
inline AccountDraft creditOf(std::string code, double opening, std::string type = "负债") {
    return {std::move(code), opening, false, std::move(type)};
}

}  // namespace chengheng
