#include "accounts/chart/account_entry.h"

#include <array>
#include <tuple>

#include "accounts/chart/account_texts.h"
#include "base/values/text.h"

namespace chengheng {
namespace {

struct BookLetter {
    char letter;
    bool AuxiliaryBooks::*isKept;
};

constexpr std::array bookLetters{
    BookLetter{'A', &AuxiliaryBooks::byPerson},     BookLetter{'B', &AuxiliaryBooks::byUnit},
    BookLetter{'C', &AuxiliaryBooks::byDepartment}, BookLetter{'D', &AuxiliaryBooks::byProject},
    BookLetter{'R', &AuxiliaryBooks::isJournal},    BookLetter{'E', &AuxiliaryBooks::isBank},
};

}  // namespace

std::string lettersOf(const AuxiliaryBooks& books) {
    std::string letters;
    for (const BookLetter& book : bookLetters)
        if (books.*book.isKept) letters += book.letter;
    return letters;
}

AuxiliaryBooks booksOfLetters(std::string_view letters) {
    AuxiliaryBooks books;
    for (const BookLetter& book : bookLetters)
        books.*book.isKept = letters.find(book.letter) != std::string_view::npos;
    return books;
}

std::string_view auxiliaryName(std::string_view letters) {
    for (const auto& [beginning, name] : account_texts::auxiliaryNames)
        if (letters.starts_with(beginning)) return name;
    return {};
}

AccountEntry tidied(AccountEntry entry) {
    for (std::string* text : {&entry.code, &entry.name, &entry.mnemonic, &entry.unit})
        text->resize(withoutTrailingBlanks(*text).size());
    return entry;
}

AccountEntry entryOf(const _CodeInfo& account) {
    return {.code = account.sCode,
            .name = account.sName,
            .className = account.sType,
            .page = account.sPage,
            .mnemonic = account.sHelp,
            .keepsForeign = account.byExchId != 0,
            .currencyId = account.byExchId,
            .keepsQuantity = account.bAmount != 0,
            .unit = account.sUnit,
            .books = booksOfLetters(account.sAssBook),
            .direction = account.bDirect};
}

AccountEntry copyOf(const _CodeInfo& account) {
    AccountEntry entry = entryOf(account);
    entry.code.clear();
    entry.mnemonic.clear();
    return entry;
}

void takeAccounting(const std::optional<_CodeInfo>& account, AccountEntry& entry) {
    const AccountEntry taken = account ? entryOf(*account) : AccountEntry{};
    entry.page = taken.page.empty() ? account_texts::ledgerPages.front() : taken.page;
    entry.keepsForeign = taken.keepsForeign;
    entry.currencyId = taken.currencyId;
    entry.keepsQuantity = taken.keepsQuantity;
    entry.unit = taken.unit;
    entry.books = taken.books;
}

bool hasSameAccounting(const AccountEntry& left, const AccountEntry& right) {
    const auto accounting = [](const AccountEntry& entry) {
        return std::tie(entry.page, entry.keepsForeign, entry.currencyId, entry.keepsQuantity,
                        entry.unit, entry.books);
    };
    return accounting(left) == accounting(right);
}

void fillRecord(const AccountEntry& entry, _CodeInfo& account) {
    account.sCode = entry.code;
    account.sName = entry.name;
    account.sType = entry.className;
    account.sPage = entry.page;
    account.sHelp = entry.mnemonic;
    account.byExchId = static_cast<std::uint8_t>(entry.keepsForeign ? entry.currencyId : 0);
    account.bAmount = entry.keepsQuantity ? 1 : 0;
    account.sUnit = entry.keepsQuantity ? entry.unit : std::string();
    if (booksOfLetters(account.sAssBook) != entry.books) account.sAssBook = lettersOf(entry.books);
}

}  // namespace chengheng
