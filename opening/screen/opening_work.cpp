#include "opening/screen/opening_work.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/values/amount_text.h"
#include "base/values/numbers.h"
#include "base/values/text.h"
#include "data/access/host_database.h"
#include "data/access/unit_of_work.h"
#include "data/lookups/CGetData.h"
#include "data/tables/accounts.h"
#include "opening/auxiliary/auxiliary_directories.h"
#include "opening/direction/direction_adjust.h"
#include "opening/editing/opening_transfer.h"
#include "opening/editing/typed_amount.h"
#include "opening/sheet/opening_log_texts.h"
#include "opening/sheet/opening_texts.h"
#include "opening/storing/posting.h"
#include "opening/storing/saving.h"
#include "opening/storing/zero_row_sweep.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "sheets/files/sheet_export.h"

namespace chengheng {
namespace {

Status sweepAndRead(OpeningBooks& books) {
    UnitOfWork unit(*g_pDB, unitWords(WriteRight::opening,
                                      [] { return std::string(opening_log_texts::loggedSweep); }));
    Status status = unit.status();
    if (status) status = holdSums(*g_pDB);
    if (status) status = sweepZeroRows(*g_pDB);
    if (status) status = readOpeningBooks(*g_pDB, books);
    return status ? unit.commit() : status;
}

/// Only books that may be edited are swept. Whether there are rows counts before.
Status readAnew(OpeningBooks& books) {
    bool isBrowsing = false;
    bool hasSums = false;
    Status status = readIsBrowsing(*g_pDB, isBrowsing);
    if (status) status = readHasSums(*g_pDB, hasSums);
    if (status) status = isBrowsing ? readOpeningBooks(*g_pDB, books) : sweepAndRead(books);
    books.hasSums = hasSums;
    return status;
}

/// Whether a rate makes an opening balance in home currency of it.
bool goesByRate(const TypedFigure& figure) {
    return figure.measure == Measure::foreign && figure.figure == &Balance::opening &&
           figure.value != 0;
}

/// What is told of a typed text; nothing when it is a number or only empties the cell.
std::string remarkOn(std::string_view typed, bool hasChanged) {
    constexpr std::size_t longestShown = 30;
    if (withoutBlanksAround(typed).empty() || readAmount(typed)) return {};
    std::string shown(firstCharacters(typed, longestShown));
    if (shown.size() < typed.size()) shown += "…";
    const char* const reason = whyNoAmount(typed);
    return hasChanged ? fmt::format(opening_texts::takenAsZero, shown, reason)
                      : fmt::format(opening_texts::countsAsZero, shown, reason);
}

/// What is told of a step on one line of an account; nothing when there is nothing to tell.
std::string remarkOn(const EditStep& step, const OpeningSheet& sheet) {
    if (step.empty()) return {};
    const CellChange& last = step.back();
    for (const CellChange& change : step)
        if (change.accountId != last.accountId || change.measure != last.measure) return {};
    const auto place = sheet.placeOfId(last.accountId);
    const auto line = place ? sheet.lineOf(*place, last.measure) : std::nullopt;
    if (line && sheet.disagrees(*line)) return opening_texts::nothingReplaced;
    const auto followed = std::ranges::find_if(step, [](const CellChange& change) {
        return change.isWorkedOut && change.before != 0 && !change.changesNothing();
    });
    if (followed == step.end()) return {};
    const int decimals = decimalsOf(followed->measure);
    const char* const name =
        followed->figure == &Balance::opening ? opening_texts::opening : opening_texts::yearStart;
    return fmt::format(opening_texts::figureFollowed, name, ftoaWithSap(followed->before, decimals),
                       ftoaWithSap(followed->after, decimals));
}

BesideWork workOf(const BesideStep& beside, bool takesBack) {
    if (!beside) return {};
    return [beside, takesBack] { return beside(takesBack); };
}

}  // namespace

const char* OpeningWork::modeText() const { return isBrowsing() ? opening_texts::browsing : ""; }

Outcome OpeningWork::refresh() {
    OpeningBooks books;
    if (!selectOpenBooks() || !readAnew(books)) {
        tellLastFailure(m_messages);
        return Outcome::failed;
    }
    m_books = std::move(books);
    ++m_readings;
    m_remark.clear();
    return Outcome::done;
}

Outcome OpeningWork::write(const StepMaker& make, EditStep& written, const BesideWork& beside) {
    StepWriter writer(m_books);
    return write(writer, make, written, beside, {});
}

Outcome OpeningWork::write(StepWriter& writer, const StepMaker& make, EditStep& written,
                           const BesideWork& beside, const WritingTold& told) {
    m_isChanged = true;
    m_remark.clear();
    const Outcome outcome = writer.write(m_messages, make, written, beside, told);
    if (writer.hasReadAnew()) ++m_readings;
    const auto changed = changedCells(sheet(), written);
    m_changedCells.insert(m_changedCells.end(), changed.begin(), changed.end());
    if (outcome == Outcome::stale) refresh();
    return outcome;
}

Outcome OpeningWork::endEdit(std::size_t line, std::size_t column, std::string_view typed) {
    if (!sheet().isEditable(line, column)) return Outcome::refused;
    const Measure measure = sheet().line(line).measure;
    const TypedFigure figure{sheet().accountOfLine(line).id, measure,
                             figureOf(sheet().columns()[column].field),
                             typedAmount(typed, measure)};
    std::optional<HomeRate> rate;
    if (!readRate(figure, rate)) return Outcome::failed;
    bool hasChanged = false;
    const Outcome outcome = writeTyped({figure}, hasChanged, [&rate](int) { return rate; });
    if (outcome != Outcome::done) return outcome;
    if (hasChanged && m_remark.empty()) m_remark = remarkOnHome(figure, rate);
    if (const std::string remark = remarkOn(typed, hasChanged); !remark.empty()) m_remark = remark;
    return outcome;
}

std::string OpeningWork::remarkOnHome(const TypedFigure& figure,
                                      const std::optional<HomeRate>& rate) const {
    const auto place = sheet().placeOfId(figure.accountId);
    if (!place || !goesByRate(figure)) return {};
    const OpeningAccount& account = sheet().accounts()[*place];
    const EditStep& step = *stepToUndo();
    const auto proposal = std::ranges::find_if(step, [](const CellChange& change) {
        return change.isWorkedOut && change.measure == Measure::money &&
               change.figure == &Balance::opening;
    });
    if (proposal != step.end() && rate)
        return fmt::format(opening_texts::homeProposed, rate->title, ftoa(rate->rate),
                           ftoaWithSap(proposal->after, decimalsOf(Measure::money)));
    if (rate || account.opening() != 0) return {};
    const auto line = sheet().lineOf(*place, Measure::foreign).value_or(account.firstLine);
    return fmt::format(opening_texts::rateMissing,
                       sheet().text(line, placeOf(OpeningField::unit, sheet().layout())),
                       monthTitle(m_books.start.year, m_books.start.month));
}

Outcome OpeningWork::writeFigures(const std::vector<TypedFigure>& figures) {
    bool hasChanged = false;
    return writeTyped(figures, hasChanged, [](int) { return std::nullopt; });
}

bool OpeningWork::readRate(const TypedFigure& figure, std::optional<HomeRate>& rate) {
    const auto place = sheet().placeOfId(figure.accountId);
    if (!place || !goesByRate(figure)) return true;
    const int currency = sheet().accounts()[*place].currency;
    if (selectOpenBooks() && readOpeningRate(currency, m_books.start, rate)) return true;
    tellLastFailure(m_messages);
    return false;
}

Outcome OpeningWork::writeTyped(const std::vector<TypedFigure>& figures, bool& hasChanged,
                                const HomeRateOf& rateOf) {
    EditStep written;
    const auto make = [&](const OpeningSheet& current) {
        return typedStep(current, figures, m_journal, rateOf);
    };
    const Outcome outcome = write(make, written);
    hasChanged = !written.empty();
    if (outcome != Outcome::done) return outcome;
    m_remark = remarkOn(written, sheet());
    m_journal.add(std::move(written));
    return outcome;
}

FigurePlan OpeningWork::planPaste(std::size_t line, std::size_t column, const Sheet& block) const {
    FigurePlan plan = chengheng::planPaste(sheet(), line, column, block);
    markDisagreeing(plan, sheet(), m_journal);
    return plan;
}

Outcome OpeningWork::apply(const FigurePlan& plan) {
    if (plan.count(CellFate::refused) > 0) return Outcome::refused;
    bool hasChanged = false;
    return writeTyped(plan.figures(), hasChanged, {});
}

std::optional<FigurePlan> OpeningWork::planImport(const std::string& path) {
    FigurePlan plan;
    const auto failure = planImportedFile(sheet(), path, plan);
    if (failure) {
        m_messages.tell({.text = failure->text(), .icon = MessageIcon::warning, .beep = true});
        return std::nullopt;
    }
    markDisagreeing(plan, sheet(), m_journal);
    return plan;
}

Outcome OpeningWork::exportTo(const std::string& path) {
    return exportSheet(m_messages, exportedOpenings(sheet()), path, Overwrite::replace);
}

Outcome OpeningWork::goTo(const EditStep& step, const BesideWork& beside,
                          void (EditJournal::*arrived)(), void (EditJournal::*forget)()) {
    EditStep written;
    const Outcome outcome = write([&step](const OpeningSheet&) { return step; }, written, beside);
    if (outcome == Outcome::done) (m_journal.*arrived)();
    // Vouchers may go again.
    if (outcome == Outcome::stale && !isBrowsing()) (m_journal.*forget)();
    return outcome;
}

Outcome OpeningWork::undo() {
    if (!canUndo()) return Outcome::refused;
    return goTo(reversed(*m_journal.toUndo()), workOf(m_journal.besideUndo(), true),
                &EditJournal::undone, &EditJournal::forgetUndo);
}

Outcome OpeningWork::redo() {
    if (!canRedo()) return Outcome::refused;
    return goTo(EditStep(*m_journal.toRedo()), workOf(m_journal.besideRedo(), false),
                &EditJournal::redone, &EditJournal::forgetRedo);
}

TrialBalance OpeningWork::trialBalance() {
    if (!isBrowsing()) m_books.sheet.rollUp();
    std::vector<_zCodeClassInfo> classes;
    // Without classes the books count as balanced; that they could not be read is told.
    if (!selectOpenBooks() || !readClasses(*g_pDB, classes)) tellLastFailure(m_messages);
    m_books.classes = std::move(classes);
    return totals();
}

std::vector<ImbalanceCause> OpeningWork::causes() {
    AuxiliaryOpenings details;
    const bool isRead =
        selectOpenBooks() && readAuxiliaryOpenings(*g_pDB, sheet().layout(), details);
    if (!isRead) tellLastFailure(m_messages);
    return imbalanceCauses(sheet(), totals(), isRead ? &details : nullptr);
}

Outcome OpeningWork::adjustDirection(std::size_t line) {
    if (!mayAdjustDirection()) return Outcome::refused;
    m_books.sheet.rollUp();
    const Outcome outcome = chengheng::adjustDirection(m_books, line, m_messages);
    if (outcome == Outcome::stale) refresh();
    if (outcome != Outcome::done) return outcome;
    ++m_readings;
    if (CGetData::LoadCODEINFOMemoryMapTable(g_lpszNbZwDBName) < 0) tellLastFailure(m_messages);
    return outcome;
}

Outcome OpeningWork::carryForward(const std::function<CarriedForward()>& carry) {
    if (!mayCarryForward()) return Outcome::refused;
    const CarriedForward carried = carry();
    m_books.hasSums = m_books.hasSums || carried.isFilled;
    if (carried.outcome != Outcome::done) return carried.outcome;
    const Outcome outcome = refresh();
    m_remark = m_success = carried.remark;
    return outcome;
}

Outcome OpeningWork::carryAgain(const CarriedAgain& carried, const WorkRunner& run) {
    const HeldMessages::Hold toldByThisThread(m_messages);
    EditStep written;
    Outcome outcome = Outcome::failed;
    run([&](const WritingTold& told) {
        StepWriter writer(m_books, WriteRight::carryForward);
        outcome = write(writer, carried.make, written, workOf(carried.beside, false), told);
    });
    if (outcome != Outcome::done) return outcome;
    m_remark = m_success = carried.remark;
    m_journal.add(std::move(written), carried.beside);
    return outcome;
}

AuxiliaryKind OpeningWork::auxiliaryToOpen(std::size_t line, std::size_t column) {
    if (!sheet().opensAuxiliary(line, column)) return AuxiliaryKind::none;
    const AuxiliaryKind kind = sheet().accountOfLine(line).auxiliary;
    const auto refusal = directoriesRefusal(kind);
    if (!refusal) return kind;
    m_messages.tell(refusal->notice);
    return AuxiliaryKind::none;
}

Outcome OpeningWork::afterAuxiliary() {
    if (isBrowsing()) return Outcome::done;
    m_isChanged = true;
    const Outcome outcome = save();
    m_isChanged = false;
    return outcome;
}

Outcome OpeningWork::save() {
    if (!m_isChanged || isBrowsing()) return Outcome::done;
    OpeningBooks books;
    if (!selectOpenBooks() || !saveOpeningBooks(*g_pDB, books)) {
        tellLastFailure(m_messages);
        return Outcome::failed;
    }
    m_books = std::move(books);
    ++m_readings;
    return Outcome::done;
}

bool OpeningWork::mayClose() {
    const HeldMessages::Hold oneBox(m_messages);
    const TrialBalance balance = trialBalance();
    if (!balance.isBalanced()) {
        const Answer answer = m_messages.ask({.text = balance.closePrompt(),
                                              .icon = MessageIcon::information,
                                              .preset = Answer::yes});
        if (answer != Answer::yes) return false;
    }
    const bool isRead = !balance.isBalanced() || refresh() == Outcome::done;
    return (isRead && save() == Outcome::done) || !m_isChanged ||
           m_messages.ask({.text = opening_texts::closeUnsaved}) == Answer::yes;
}

}  // namespace chengheng
