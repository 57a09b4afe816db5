#include "opening/editing/step_writer.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>

#include "data/access/host_database.h"
#include "data/tables/accounts.h"
#include "opening/editing/typed_amount.h"
#include "opening/sheet/opening_log_texts.h"
#include "opening/sheet/opening_texts.h"
#include "opening/sheet/roll_up.h"

namespace chengheng {
namespace {

/// From here on reading everything anew costs less than comparing row by row.
constexpr std::size_t manyChanges = 64;

/// A figure that is no longer what the step replaces was typed by somebody else.
bool isAllowed(const OpeningSheet& sheet, const CellChange& change) {
    const auto place = sheet.placeOfId(change.accountId);
    if (!place) return false;
    const OpeningAccount& account = sheet.accounts()[*place];
    const bool takesIt =
        change.isCarried || (!account.isAuxiliary() && account.keeps(change.measure));
    return account.isEnd && takesIt && std::ranges::count(sheet.figures(), change.figure) == 1 &&
           account.balance(change.measure).*change.figure == change.before;
}

bool areAllowed(const OpeningSheet& sheet, const EditStep& step) {
    return std::ranges::all_of(
        step, [&sheet](const CellChange& change) { return isAllowed(sheet, change); });
}

/// Where the account of an allowed change stands.
std::size_t placeOf(const OpeningSheet& sheet, const CellChange& change) {
    return sheet.placeOfId(change.accountId).value();  // NOLINT(bugprone-unchecked-optional-access)
}

/// Whether an amount means in one sheet what it means in the other.
bool isSameMeaning(const OpeningAccount& one, const OpeningAccount& other) {
    return one.code == other.code && one.isDebit == other.isDebit &&
           one.currency == other.currency && one.hasQuantity == other.hasQuantity;
}

/// Whether the step's accounts are in the fresh sheet what they are in the one it was made for.
bool areSameAccounts(const OpeningSheet& sheet, const OpeningSheet& fresh, const EditStep& step) {
    return std::ranges::all_of(step, [&](const CellChange& change) {
        const auto place = sheet.placeOfId(change.accountId);
        const auto freshPlace = fresh.placeOfId(change.accountId);
        return place && freshPlace &&
               isSameMeaning(sheet.accounts()[*place], fresh.accounts()[*freshPlace]);
    });
}

bool isTooLarge(const EditStep& step) {
    return std::ranges::any_of(
        step, [](const CellChange& change) { return std::fabs(change.after) >= leastTooLarge; });
}

void setFigures(OpeningSheet& sheet, const EditStep& step) {
    std::set<std::size_t> changed;
    for (const CellChange& change : step) {
        const std::size_t place = placeOf(sheet, change);
        sheet.accounts()[place].balance(change.measure).*change.figure = change.after;
        changed.insert(place);
    }
    if (changed.size() >= manyChanges) return sheet.rollUp();
    for (const std::size_t place : changed) sheet.rollUpAround(place);
}

/// Whether the chart still has the account as the sheet shows it.
bool isSameAccount(const OpeningAccount& account, const _CodeInfo& stored) {
    return account.code == stored.sCode && stored.bEnd != 0 &&
           account.isDebit == (stored.bDirect == 1) && account.currency == stored.byExchId &&
           account.hasQuantity == (stored.bAmount != 0) &&
           account.auxiliary == auxiliaryKindOf(stored.sAssBook);
}

Status readIsSameAccount(const OpeningAccount& account, bool& isSame) {
    _CodeInfo* stored = nullptr;
    isSame = false;
    if (g_pDB->Code_GetInfo(stored, account.id) == 0) {
        isSame = isSameAccount(account, *stored);
        g_pDB->Code_ReleaseAllBuffer();
        return Status::done();
    }
    const Status& status = g_pDB->lastStatus();
    return status.failure == Failure::missing ? Status::done() : status;
}

/// Whether an account or one below it keeps foreign currency or quantity.
bool keepsMoreThanMoney(std::span<const OpeningAccount> accounts, std::size_t place) {
    const std::string& code = accounts[place].code;
    for (; place < accounts.size() && accounts[place].code.starts_with(code); ++place)
        if (accounts[place].keeps(Measure::foreign) || accounts[place].keeps(Measure::quantity))
            return true;
    return false;
}

/// Whether the rows of an account above others are those that its figures give. No rows tell
/// only that there is no money.
bool isAsPosted(const OpeningSheet& sheet, std::size_t place, const StoredSums& stored) {
    const OpeningAccount& account = sheet.accounts()[place];
    const bool isSimple = sheet.layout() == OpeningLayout::simple;
    if (!stored.hasRows())
        return !deservesRows(account, sheet.layout()) &&
               !(isSimple && keepsMoreThanMoney(sheet.accounts(), place));
    if (isSimple) return stored.balances == account.balances;
    return stored.balances.front() == account.balance(Measure::money);
}

}  // namespace

Outcome StepWriter::write(IMessages& messages, const StepMaker& make, EditStep& written,
                          const BesideWork& beside, const WritingTold& told) {
    m_step = make(m_books.sheet);
    if (m_step.empty()) return Outcome::done;
    const auto words = [this] { return inWords(m_fresh ? m_fresh->sheet : m_books.sheet); };
    const Outcome outcome = changeRecords(messages, m_locks, words, [&] {
        UntoldOutcome result = run(make, told);
        return result.outcome == Outcome::done && beside ? beside() : result;
    });
    if (outcome != Outcome::done) {
        takeBack();
    } else {
        m_hasReadAnew = m_fresh.has_value();
        if (m_fresh) m_books = std::move(*m_fresh);
        m_books.hasSums = m_books.hasSums || !m_step.empty();
        written = std::move(m_step);
    }
    m_fresh.reset();
    m_places.clear();
    m_step.clear();
    return outcome;
}

UntoldOutcome StepWriter::run(const StepMaker& make, const WritingTold& told) {
    bool isBrowsing = false;
    if (!holdSums(*g_pDB) || !readIsBrowsing(*g_pDB, isBrowsing)) return UntoldOutcome::failed();
    if (isBrowsing) return UntoldOutcome::stale({.text = opening_texts::vouchersMeanwhile});
    bool isCurrent = m_step.size() < manyChanges && areAllowed(m_books.sheet, m_step);
    if (isCurrent && !compareWithStored(isCurrent)) return UntoldOutcome::failed();
    if (!isCurrent) {
        m_fresh.emplace();
        if (!readOpeningBooks(*g_pDB, *m_fresh)) return UntoldOutcome::failed();
        m_step = make(m_fresh->sheet);
        if (!areAllowed(m_fresh->sheet, m_step) ||
            !areSameAccounts(m_books.sheet, m_fresh->sheet, m_step))
            return UntoldOutcome::stale({.text = opening_texts::chartMeanwhile});
    }
    std::erase_if(m_step, [](const CellChange& change) {
        return change.changesNothing() && !change.isCarried;
    });
    if (m_fresh) collectPlaces(m_fresh->sheet);
    return writeStep(m_fresh ? m_fresh->sheet : m_books.sheet, told);
}

UntoldOutcome StepWriter::writeStep(OpeningSheet& sheet, const WritingTold& told) {
    if (m_step.empty()) return UntoldOutcome::done();
    if (isTooLarge(m_step))
        return UntoldOutcome::refused({.text = opening_texts::tooLarge, .beep = true});
    setFigures(sheet, m_step);
    const Status status = post(sheet, told);
    if (status.failure == Failure::cancelled)
        return UntoldOutcome::refused({.text = opening_texts::givenUp});
    return status ? UntoldOutcome::done() : UntoldOutcome::failed();
}

void StepWriter::collectPlaces(const OpeningSheet& sheet) {
    std::set<std::size_t> changed;
    std::set<std::size_t, std::greater<>> above;
    for (const CellChange& change : m_step) {
        const std::size_t place = placeOf(sheet, change);
        if (!changed.insert(place).second) continue;
        for (const std::size_t each : ancestorsOf(sheet.accounts(), place)) above.insert(each);
    }
    m_places.clear();
    const auto add = [&](std::size_t place) {
        m_places.push_back({place, sheet.accounts()[place].balances, std::nullopt});
    };
    std::ranges::for_each(changed, add);
    std::ranges::for_each(above, add);
}

Status StepWriter::compareWithStored(bool& isCurrent) {
    collectPlaces(m_books.sheet);
    for (Place& place : m_places) {
        if (const Status status = compare(place, isCurrent); !status) return status;
        if (!isCurrent) return Status::done();
    }
    return Status::done();
}

Status StepWriter::compare(Place& place, bool& isCurrent) {
    const OpeningLayout layout = m_books.sheet.layout();
    const OpeningAccount& account = m_books.sheet.accounts()[place.account];
    place.stored.emplace();
    Status status = readStoredSums(*g_pDB, account, layout, *place.stored);
    if (!status) return status;
    if (!account.isEnd) {
        isCurrent = isAsPosted(m_books.sheet, place.account, *place.stored);
        return status;
    }
    isCurrent = place.stored->balances == account.balances;
    return isCurrent ? readIsSameAccount(account, isCurrent) : status;
}

Status StepWriter::post(const OpeningSheet& sheet, const WritingTold& told) {
    std::size_t done = 0;
    for (const Place& place : m_places) {
        if (told && !told(done++, m_places.size())) return Status::of(Failure::cancelled);
        const OpeningAccount& account = sheet.accounts()[place.account];
        const Status status = place.stored
                                  ? postOver(*g_pDB, account, sheet.layout(), *place.stored)
                                  : postAccount(*g_pDB, account, sheet.layout());
        if (!status) return status;
    }
    return Status::done();
}

std::string StepWriter::inWords(const OpeningSheet& sheet) const {
    std::set<std::int32_t> accounts;
    for (const CellChange& change : m_step) accounts.insert(change.accountId);
    if (m_locks.right == WriteRight::carryForward)
        return fmt::format(opening_log_texts::loggedCarrying, accounts.size());
    if (m_step.empty()) return {};
    const OpeningAccount& first = sheet.accounts()[placeOf(sheet, m_step.front())];
    return accounts.size() == 1
               ? fmt::format(opening_log_texts::loggedOpening, first.code, first.name)
               : fmt::format(opening_log_texts::loggedOpenings, first.code, first.name,
                             accounts.size());
}

void StepWriter::takeBack() {
    if (m_fresh) return;
    for (const Place& place : m_places)
        m_books.sheet.accounts()[place.account].balances = place.before;
}

}  // namespace chengheng
