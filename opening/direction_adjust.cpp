#include "opening/direction_adjust.h"

#include <fmt/format.h>

#include "data/CNbCwDB.h"
#include "data/host_database.h"
#include "data/text.h"
#include "host/services/record_change.h"
#include "opening/opening_texts.h"

namespace chengheng {
namespace {

namespace texts = opening_texts;

constexpr LockLists lockLists{"AssSum AccSum Cyrency UnRegMain UnRegSug",  // sic
                              "Code"};

const char* directionText(bool isDebit) { return isDebit ? texts::debit : texts::credit; }

void turn(OpeningSheet& sheet, const std::vector<std::size_t>& places, bool isDebit) {
    for (const std::size_t place : places) sheet.accounts()[place].isDebit = isDebit;
}

Result storeDirection(std::int32_t accountId, bool isDebit) {
    _CodeInfo* row = nullptr;
    if (g_pDB->Code_GetInfo(row, accountId) != 0)
        return g_pDB->lastStatus().failure == Failure::missing ? Result::done() : Result::failed();
    _CodeInfo account = *row;
    account.bDirect = isDebit ? 1 : 0;
    const bool isDone = g_pDB->Code_Edit(account) == 0;
    const Result result = isDone ? Result::done() : Result::failed();
    g_pDB->Code_ReleaseAllBuffer();
    return result;
}

Result storeDirections(const OpeningSheet& sheet, const std::vector<std::size_t>& places,
                       bool isDebit) {
    for (const std::size_t place : places) {
        const Result result = storeDirection(sheet.accounts()[place].id, isDebit);
        if (result.outcome != Outcome::done) return result;
    }
    return Result::done();
}

}  // namespace

std::optional<Notice> directionRefusal(const OpeningSheet& sheet, const CodeLevels& levels,
                                       std::size_t line) {
    const std::string code = sheet.text(line, placeOf(OpeningField::code, sheet.layout()));
    if (static_cast<int>(characterCount(code)) != levels.lengthOf(1))
        return Notice{.text = texts::onlyTopLevel};
    if (sheet.accountOfLine(line).opening() != 0.0) return Notice{.text = texts::hasOpening};
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

bool adjustDirection(OpeningSheet& sheet, const CodeLevels& levels, std::size_t line,
                     IMessages& messages) {
    if (const auto refusal = directionRefusal(sheet, levels, line)) {
        messages.tell(*refusal);
        return false;
    }
    if (messages.ask(directionQuestion(sheet, line)) != Answer::yes) return false;
    const std::vector<std::size_t> places = directionSubtree(sheet, line);
    std::vector<bool> before;
    for (const std::size_t place : places) before.push_back(sheet.accounts()[place].isDebit);
    const bool isDebit = !sheet.accountOfLine(line).isDebit;
    const Outcome outcome = changeRecords(messages, lockLists, [&] {
        turn(sheet, places, isDebit);
        return storeDirections(sheet, places, isDebit);
    });
    if (outcome == Outcome::done) return true;
    for (std::size_t at = 0; at < places.size(); ++at)
        sheet.accounts()[places[at]].isDebit = before[at];
    return false;
}

}  // namespace chengheng
