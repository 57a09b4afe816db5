#include "vouchertype/preset/preset_table.h"

#include <fmt/format.h>

#include <algorithm>

#include "vouchertype/restriction/voucher_restriction.h"

namespace chengheng {

namespace texts = preset_texts;

namespace {

using enum RestrictionKind;

constexpr PresetAccount cash = PresetAccount::cash;
constexpr PresetAccount bank = PresetAccount::bank;

constexpr PresetRow unclassifiedRows[] = {{texts::anyVoucher}};

constexpr PresetRow receiptAndPaymentRows[] = {{texts::receipt, debitRequired, cash, bank},
                                               {texts::payment, creditRequired, cash, bank},
                                               {texts::transfer, bothForbidden, cash, bank}};

constexpr PresetRow cashAndBankRows[] = {
    {texts::cash}, {texts::bank}, {texts::transfer, bothForbidden, cash, bank}};

constexpr PresetRow fiveKindRows[] = {{texts::cashReceipt, debitRequired, cash},
                                      {texts::cashPayment, creditRequired, cash},
                                      {texts::bankReceipt, debitRequired, bank},
                                      {texts::bankPayment, creditRequired, bank},
                                      {texts::fifthTransfer, bothForbidden, cash, bank}};

std::string codeOf(PresetAccount account, const PresetAccounts& accounts) {
    if (account == PresetAccount::none) return {};
    return account == cash ? accounts.cash : accounts.bank;
}

_SignInfo typeOf(const PresetRow& row, const PresetAccounts& accounts) {
    _SignInfo type{.sSign = row.called.number, .sSignName = row.called.name};
    const std::string one = codeOf(row.one, accounts);
    const std::string two = codeOf(row.two, accounts);
    const bool isWhole = !one.empty() && (row.two == PresetAccount::none || !two.empty());
    if (row.kind == none || !isWhole || one == two) return type;
    type.byLimit = stored(row.kind);
    type.sCode1 = one;
    type.sCode2 = two;
    return type;
}

/// Which of the accounts that the set names the books have not; empty when none is missing.
std::string missingAccounts(PresetSet set, const PresetAccounts& accounts) {
    const auto isNamed = [set](PresetAccount account) {
        return std::ranges::any_of(presetRows(set), [account](const PresetRow& row) {
            return row.one == account || row.two == account;
        });
    };
    const bool hasNoCash = accounts.cash.empty() && isNamed(cash);
    const bool hasNoBank = accounts.bank.empty() && isNamed(bank);
    if (hasNoCash && hasNoBank) return texts::cashAndBankAccounts;
    if (hasNoCash) return texts::cashAccount;
    return hasNoBank ? texts::bankAccount : "";
}

}  // namespace

std::span<const PresetRow> presetRows(PresetSet set) {
    switch (set) {
        case PresetSet::unclassified:
            return unclassifiedRows;
        case PresetSet::receiptsAndPayments:
            return receiptAndPaymentRows;
        case PresetSet::cashAndBank:
            return cashAndBankRows;
        case PresetSet::fiveKinds:
            return fiveKindRows;
        case PresetSet::custom:
            break;
    }
    return {};
}

std::vector<_SignInfo> presetTypes(PresetSet set, const PresetAccounts& accounts) {
    std::vector<_SignInfo> types;
    for (const PresetRow& row : presetRows(set)) types.push_back(typeOf(row, accounts));
    return types;
}

std::vector<std::string> presetPreview(PresetSet set, const PresetAccounts& accounts) {
    if (presetRows(set).empty()) return {texts::nothingWritten};
    std::vector<std::string> lines;
    for (const _SignInfo& type : presetTypes(set, accounts)) {
        const std::string restriction = restrictionInWords(type);
        lines.push_back(fmt::format(texts::previewRow, type.sSign, type.sSignName,
                                    restriction.empty() ? texts::unrestricted : restriction));
    }
    if (const std::string missing = missingAccounts(set, accounts); !missing.empty())
        lines.push_back(fmt::format(texts::accountsMissing, missing));
    return lines;
}

}  // namespace chengheng
