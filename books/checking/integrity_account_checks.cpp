#include <map>
#include <set>
#include <string_view>

#include "base/values/text.h"
#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_texts.h"

namespace chengheng {

Status checkUniqueCodes(CheckedBooks& books, FaultList& faults) {
    std::map<std::string_view, int> times;
    for (const CheckedAccount& account : books.accounts()) ++times[account.code];
    for (const CheckedAccount& account : books.accounts()) {
        int& count = times[account.code];
        if (count > 1) faults.add(integrity_texts::codeTwice(account, count));
        count = 0;  // told once
    }
    return Status::done();
}

Status checkCodePattern(CheckedBooks& books, FaultList& faults) {
    for (const CheckedAccount& account : books.accounts())
        if (hasBlank(account.code)) faults.add(integrity_texts::blankInCode(account));
    if (books.levels().count() == 0) return Status::done();  // the pattern itself is the fault
    for (const CheckedAccount& account : books.accounts())
        if (!books.levels().isWellFormed(account.code))
            faults.add(integrity_texts::codeUnfit(account, books.pattern()));
    return Status::done();
}

Status checkGrades(CheckedBooks& books, FaultList& faults) {
    for (const CheckedAccount& account : books.accounts()) {
        const int grade = books.levels().gradeOf(account.code);
        if (grade != 0 && grade != account.grade)
            faults.add(integrity_texts::wrongGrade(account, grade));
    }
    return Status::done();
}

Status checkParents(CheckedBooks& books, FaultList& faults) {
    std::set<std::string_view> codes;
    for (const CheckedAccount& account : books.accounts()) codes.insert(account.code);
    for (const CheckedAccount& account : books.accounts()) {
        const std::string parent = books.levels().parentOf(account.code);
        if (!parent.empty() && !codes.contains(parent))
            faults.add(integrity_texts::parentMissing(account, parent));
    }
    return Status::done();
}

Status checkEndAccounts(CheckedBooks& books, FaultList& faults) {
    if (books.levels().count() == 0) return Status::done();
    std::set<std::string> parents;
    for (const CheckedAccount& account : books.accounts())
        parents.insert(books.levels().parentOf(account.code));
    for (const CheckedAccount& account : books.accounts()) {
        const bool hasChildren = parents.contains(account.code);
        if (account.isEnd && hasChildren) faults.add(integrity_texts::endWithChildren(account));
        if (!account.isEnd && !hasChildren)
            faults.add(integrity_texts::noEndWithoutChildren(account));
    }
    return Status::done();
}

// The first-level account that is designated marks all accounts below it.
Status checkDesignation(CheckedBooks& books, FaultList& faults) {
    std::map<std::string_view, const CheckedAccount*> accounts;
    for (const CheckedAccount& account : books.accounts()) accounts[account.code] = &account;
    for (const CheckedAccount& account : books.accounts()) {
        const std::string parent = books.levels().parentOf(account.code);
        const auto above = accounts.find(parent);
        if (parent.empty() || above == accounts.end()) continue;
        if (account.isCash && !above->second->isCash)
            faults.add(integrity_texts::markedAlone(account, "bCash", *above->second));
        if (account.isBank && !above->second->isBank)
            faults.add(integrity_texts::markedAlone(account, "bBank", *above->second));
    }
    return Status::done();
}

Status checkUniqueMnemonics(CheckedBooks& books, FaultList& faults) {
    std::map<std::string_view, const CheckedAccount*> earlier;
    for (const CheckedAccount& account : books.accounts()) {
        if (account.mnemonic.empty()) continue;
        const auto [found, isFirst] = earlier.emplace(account.mnemonic, &account);
        if (!isFirst) faults.add(integrity_texts::mnemonicTwice(account, *found->second));
    }
    return Status::done();
}

}  // namespace chengheng
