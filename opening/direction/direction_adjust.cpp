#include "opening/direction/direction_adjust.h"

#include <fmt/format.h>

#include "base/values/text.h"
#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "opening/sheet/opening_log_texts.h"
#include "opening/sheet/opening_texts.h"
#include "opening/storing/opening_sql.h"

namespace chengheng {
namespace {

namespace texts = opening_texts;

constexpr LockLists lockLists{WriteRight::opening,
                              "AssSum AccSum Cyrency UnRegMain UnRegSug",  // sic
                              "Code"};

Refusal wrongInput(const char* text) { return {RefusalKind::wrongInput, {.text = text}}; }

const char* directionText(bool isDebit) { return isDebit ? texts::debit : texts::credit; }

/// An account that is gone is passed over.
UntoldOutcome outcomeOfStoring(int operationResult) {
    if (operationResult == 0 || g_pDB->lastStatus().failure == Failure::missing)
        return UntoldOutcome::done();
    return UntoldOutcome::failed();
}

/// Writes nothing else of the account: on a server the right to turn it reaches no further.
UntoldOutcome storeDirection(std::int32_t accountId, bool isDebit) {
    return outcomeOfStoring(g_pDB->QRYEdit("Code", opening_sql::account(accountId).c_str(),
                                           opening_sql::direction, isDebit ? 1 : 0));
}

/// Turns an account of the books as they are now; it must be the one that was asked about.
UntoldOutcome turn(OpeningBooks& books, const OpeningAccount& asked) {
    if (!readOpeningBooks(*g_pDB, books)) return UntoldOutcome::failed();
    OpeningSheet& sheet = books.sheet;
    if (sheet.isBrowsing()) return UntoldOutcome::stale({.text = texts::vouchersMeanwhile});
    const auto place = sheet.placeOfId(asked.id);
    if (!place || sheet.accounts()[*place].code != asked.code ||
        sheet.accounts()[*place].isDebit != asked.isDebit)
        return UntoldOutcome::stale({.text = texts::chartMeanwhile});
    const std::size_t line = sheet.accounts()[*place].firstLine;
    if (const auto refusal = directionRefusal(sheet, CodeLevels(books.levelPattern), line))
        return UntoldOutcome::stale(refusal->notice);
    for (const std::size_t each : directionSubtree(sheet, line)) {
        sheet.accounts()[each].isDebit = !asked.isDebit;
        const UntoldOutcome result = storeDirection(sheet.accounts()[each].id, !asked.isDebit);
        if (result.outcome != Outcome::done) return result;
    }
    return UntoldOutcome::done();
}

}  // namespace

std::optional<Refusal> directionRefusal(const OpeningSheet& sheet, const CodeLevels& levels,
                                        std::size_t line) {
    const std::string code = sheet.text(line, placeOf(OpeningField::code, sheet.layout()));
    if (static_cast<int>(characterCount(code)) != levels.lengthOf(1))
        return wrongInput(texts::onlyTopLevel);
    if (sheet.accountOfLine(line).opening() != 0.0) return wrongInput(texts::hasOpening);
    return std::nullopt;
}

Question directionQuestion(const OpeningSheet& sheet, std::size_t line) {
    const OpeningAccount& account = sheet.accountOfLine(line);
    return {.text = fmt::format(texts::askDirection, account.name, account.code,
                                directionText(account.isDebit), directionText(!account.isDebit)),
            .caption = texts::directionCaption};
}

std::vector<std::size_t> directionSubtree(const OpeningSheet& sheet, std::size_t line) {
    const std::string& code = sheet.accountOfLine(line).code;
    std::vector<std::size_t> places;
    for (std::size_t place = sheet.line(line).account;
         place < sheet.accounts().size() && sheet.accounts()[place].code.starts_with(code); ++place)
        places.push_back(place);
    return places;
}

Outcome adjustDirection(OpeningBooks& books, std::size_t line, IMessages& messages) {
    if (const auto refusal = directionRefusal(books.sheet, CodeLevels(books.levelPattern), line))
        return told(messages, UntoldOutcome::refused(refusal->notice));
    if (messages.ask(directionQuestion(books.sheet, line)) != Answer::yes) return Outcome::refused;
    OpeningBooks fresh;
    const OpeningAccount asked = books.sheet.accountOfLine(line);
    const auto words = [&asked] {
        return fmt::format(opening_log_texts::loggedDirection, asked.code, asked.name,
                           directionText(asked.isDebit), directionText(!asked.isDebit));
    };
    const Outcome outcome =
        changeRecords(messages, lockLists, words, [&] { return turn(fresh, asked); });
    if (outcome == Outcome::done) books = std::move(fresh);
    return outcome;
}

}  // namespace chengheng
