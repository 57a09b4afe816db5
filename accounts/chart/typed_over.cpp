#include <fmt/format.h>

#include <array>

#include "accounts/chart/account_entry.h"
#include "accounts/chart/account_texts.h"

namespace chengheng {
namespace {

struct TextField {
    const char* title;
    std::string AccountEntry::*text;
};
constexpr std::array textFields{TextField{account_texts::codeColumn, &AccountEntry::code},
                                TextField{account_texts::nameColumn, &AccountEntry::name},
                                TextField{account_texts::classTitle, &AccountEntry::className},
                                TextField{account_texts::pageTitle, &AccountEntry::page},
                                TextField{account_texts::mnemonicTitle, &AccountEntry::mnemonic},
                                TextField{account_texts::unitTitle, &AccountEntry::unit}};

struct AccountingPart {
    const char* title;
    bool (*isSame)(const AccountEntry& one, const AccountEntry& other);
    void (*take)(AccountEntry& into, const AccountEntry& from);
};
constexpr std::array accountingParts{
    AccountingPart{account_texts::currencyTitle,
                   [](const AccountEntry& one, const AccountEntry& other) {
                       return one.keepsForeign == other.keepsForeign &&
                              one.currencyId == other.currencyId;
                   },
                   [](AccountEntry& into, const AccountEntry& from) {
                       into.keepsForeign = from.keepsForeign;
                       into.currencyId = from.currencyId;
                   }},
    AccountingPart{account_texts::quantityTitle,
                   [](const AccountEntry& one, const AccountEntry& other) {
                       return one.keepsQuantity == other.keepsQuantity;
                   },
                   [](AccountEntry& into, const AccountEntry& from) {
                       into.keepsQuantity = from.keepsQuantity;
                   }},
    AccountingPart{
        account_texts::booksTitle,
        [](const AccountEntry& one, const AccountEntry& other) { return one.books == other.books; },
        [](AccountEntry& into, const AccountEntry& from) { into.books = from.books; }},
    AccountingPart{
        account_texts::directionTitle,
        [](const AccountEntry& one, const AccountEntry& other) {
            return one.direction == other.direction;
        },
        [](AccountEntry& into, const AccountEntry& from) { into.direction = from.direction; }},
};

}  // namespace

AccountEntry typedOver(const AccountEntry& shown, const AccountEntry& typed,
                       const AccountEntry& stored) {
    AccountEntry entry = stored;
    for (const TextField& field : textFields)
        if (typed.*field.text != shown.*field.text) entry.*field.text = typed.*field.text;
    for (const AccountingPart& part : accountingParts)
        if (!part.isSame(typed, shown)) part.take(entry, typed);
    return entry;
}

std::string foreignChanges(const AccountEntry& shown, const AccountEntry& typed,
                           const AccountEntry& stored) {
    std::string lines;
    for (const TextField& field : textFields) {
        const std::string& now = stored.*field.text;
        const std::string& own = typed.*field.text;
        if (now == shown.*field.text) continue;
        lines += '\n';
        lines += own == shown.*field.text || own == now
                     ? fmt::format(account_texts::storedNow, field.title, now)
                     : fmt::format(account_texts::storedAndTyped, field.title, now, own);
    }
    for (const AccountingPart& part : accountingParts)
        if (!part.isSame(stored, shown))
            lines += '\n' + fmt::format(account_texts::changedThere, part.title);
    return lines;
}

}  // namespace chengheng
