#include "currency/screen/rate_overview.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <ranges>
#include <span>

#include "base/values/amount_text.h"
#include "base/values/numbers.h"
#include "currency/conversion.h"
#include "currency/rates/gap_filling.h"
#include "currency/screen/rate_screen_texts.h"

namespace chengheng {
namespace {

namespace texts = rate_screen_texts;

constexpr int moneyDecimals = 2;

std::set<Date> markedDays(const std::vector<RatePoint>& points) {
    std::set<Date> days;
    for (const RatePoint& point : points)
        if (point.mark != RateMark::none) days.insert(point.day);
    return days;
}

std::size_t countOfRates(const std::vector<RateRow>& rows) {
    std::size_t count = 0;
    for (const RateRow& row : rows) count += (row.rate != 0) + (row.adjustRate != 0);
    return count;
}

}  // namespace

RateOverview::Place RateOverview::placeNow() const {
    const _CyrencyInfo* currency = m_form.currency();
    return {currency == nullptr ? 0 : currency->lId, m_form.kind()};
}

void RateOverview::follow() {
    if (m_reading == m_form.readings()) return;
    m_reading = m_form.readings();
    m_remark.clear();
    const Place place = placeNow();
    const bool isKnown = m_isYearRead && !m_isOutdated && place == m_place;
    m_place = place;
    m_isOutdated = false;
    if (place.currency == 0 || place.kind == RateKind::fixed) {
        // The months that are shown are the year.
        m_year.clear();
        m_isYearRead = true;
    } else if (!isKnown) {
        auto rows = m_service.rates(place.kind, place.currency, m_form.year());
        m_isYearRead = rows.has_value();
        m_year = std::move(rows).value_or(std::vector<RateRow>());
    }
    const bool hasOthers = place.currency != 0 && takeShownRows();
    if (hasOthers || !isKnown) workOut();
    findShownGaps();
}

/// What the form shows was read later than the year. Whether that has others there.
bool RateOverview::takeShownRows() {
    const std::span<const RateRow> lines = m_form.sheet().lines();
    auto stored = lines | std::views::filter([](const RateRow& line) { return line.id != 0; });
    const Date first = lines.front().day;
    const Date last = lines.back().day;
    const auto begin = std::ranges::lower_bound(m_year, first, {}, &RateRow::day);
    const auto end = std::ranges::upper_bound(m_year, last, {}, &RateRow::day);
    if (std::ranges::equal(std::ranges::subrange(begin, end), stored)) return false;
    const std::vector<RateRow> shown(stored.begin(), stored.end());
    m_year.insert(m_year.erase(begin, end), shown.begin(), shown.end());
    return true;
}

void RateOverview::workOut() {
    m_rates = ratePoints(m_year);
    m_adjustments = adjustmentPoints(m_year);
    m_markedRates = markedDays(m_rates);
    m_markedAdjustments = markedDays(m_adjustments);
    m_gaps.clear();
    if (m_isYearRead) m_gaps = rateGaps(m_place.kind, m_form.year(), m_year, m_wanted);
}

void RateOverview::findShownGaps() {
    m_shownGaps = m_place.kind == RateKind::fixed
                      ? m_gaps
                      : gapsInMonth(m_gaps, m_form.year(), m_form.month());
}

void RateOverview::readAnew() {
    m_isOutdated = true;
    m_form.readRatesAnew();
    follow();
}

std::string RateOverview::line() const {
    if (!m_remark.empty()) return m_remark;
    return m_isYearRead ? gapLine(m_form.kind(), m_shownGaps) : texts::unreadable;
}

const RateRow* RateOverview::rowAt(int row) const {
    const bool isThere = row >= 0 && row < m_form.sheet().rowCount() && m_form.currency();
    return isThere ? &m_form.sheet().line(row) : nullptr;
}

std::string RateOverview::conversion(const std::string& amount, int row) const {
    const RateRow* line = rowAt(row);
    const auto foreign = readAmount(amount);
    if (line == nullptr || !foreign) return {};
    std::optional<RatePoint> point;
    if (line->rate != 0)
        point = RatePoint{line->day, line->rate};
    else
        point = pointBefore(m_rates, line->day);
    if (!point) return {};
    const RateMode mode = m_form.input.mode;
    const auto home = homeAmount(*foreign, point->rate, mode);
    if (!home) return {};
    return fmt::format(texts::conversion, ftoaWithSap(*foreign, moneyDecimals), m_form.input.name,
                       mode == RateMode::multiplied ? texts::times : texts::dividedBy,
                       ftoa(point->rate), ftoaWithSap(*home, moneyDecimals),
                       rateTitle(m_form.kind(), point->day));
}

std::optional<int> RateOverview::goToNextGap(int row) {
    const RateRow* line = rowAt(row);
    const Date behind = line != nullptr ? line->day : Date{};
    const auto day = nextGap(m_gaps, behind);
    return day ? goToDay(*day) : std::nullopt;
}

std::optional<int> RateOverview::goToDay(const Date& day) {
    if (m_form.kind() == RateKind::floating) m_form.showMonth(day.month);
    follow();
    for (int row = 0; row < m_form.sheet().rowCount(); ++row)
        if (const RateRow* line = rowAt(row); line != nullptr && line->day == day) return row;
    return std::nullopt;
}

GapFilling RateOverview::filling() {
    readAnew();
    const _CyrencyInfo* currency = m_form.currency();
    if (currency == nullptr) return {};
    GapFilling filling{.changes = gapFilling(currency->lId, m_form.kind(), m_year, m_gaps),
                       .plan = {},
                       .source = texts::fillSource};
    for (const RateChange& change : filling.changes)
        filling.plan.rows.push_back({.row = filling.plan.rows.size() + 1,
                                     .code = rateTitle(change.kind, change.after.day),
                                     .name = ftoa(change.after.rate),
                                     .fate = RowFate::changed});
    const int staying = missingIn(m_gaps) - static_cast<int>(filling.changes.size());
    if (staying > 0) filling.source = fmt::format(texts::fillSourceInPart, staying);
    return filling;
}

Outcome RateOverview::fill(const GapFilling& filling, const ImportProgress& progress) {
    return writeRates(m_messages, filling.changes, progress);
}

void RateOverview::noteTyped(const RateEdit& edit) {
    if (m_place.currency == 0 || edit.before == edit.after) return;
    m_journal.note({{m_place.currency, m_place.kind, edit.before, edit.after}});
    takeShownRows();
    workOut();
    findShownGaps();
    m_remark.clear();
    const bool isAdjustment = edit.before.rate == edit.after.rate;
    const double rate = isAdjustment ? edit.after.adjustRate : edit.after.rate;
    const auto last = pointBefore(isAdjustment ? m_adjustments : m_rates, edit.after.day);
    if (last && markBeside(last->rate, rate) == RateMark::departure)
        m_remark = fmt::format(texts::departs, rateTitle(m_place.kind, edit.after.day), ftoa(rate),
                               ftoa(last->rate));
}

std::optional<int> RateOverview::noteWritten(const std::vector<RateChange>& changes) {
    if (changes.empty()) return std::nullopt;
    m_journal.note(changes);
    return show(changes);
}

void RateOverview::noteModified(const _CyrencyInfo& before, const _CyrencyInfo& after) {
    if (before.lId != after.lId) return;
    std::string meaning;
    if (before.bMode != after.bMode) meaning += texts::otherMode;
    if (after.byDecimal < before.byDecimal) meaning += texts::fewerDecimals;
    if (before.fMaxError != after.fMaxError) meaning += texts::otherMaxError;
    if (meaning.empty()) return;
    std::size_t count = 0;
    for (const RateKind kind : {RateKind::fixed, RateKind::floating}) {
        const auto rows = m_service.rates(kind, after.lId, m_form.year());
        if (!rows) return;
        count += countOfRates(*rows);
    }
    if (count > 0) m_remark = fmt::format(texts::hasRates, count) + meaning;
}

std::optional<int> RateOverview::undo() { return step(m_journal.undoing(), &RateJournal::undo); }

std::optional<int> RateOverview::redo() { return step(m_journal.redoing(), &RateJournal::redo); }

std::optional<int> RateOverview::step(const std::vector<RateChange>& changes,
                                      Outcome (RateJournal::*write)(IMessages&)) {
    if (changes.empty() || m_form.currency() == nullptr) return std::nullopt;
    const bool concernsShown =
        std::ranges::count(changes, m_form.selectedId(), &RateChange::currency) > 0;
    if (!concernsShown && !m_form.select(changes.front().currency)) return std::nullopt;
    const Outcome outcome = (m_journal.*write)(m_messages);
    if (outcome == Outcome::done) return show(changes);
    if (outcome == Outcome::stale) readAnew();
    return std::nullopt;
}

std::optional<int> RateOverview::show(const std::vector<RateChange>& changes) {
    const auto ofShown = [this](const RateChange& change) {
        return change.currency == m_form.selectedId();
    };
    // Of several currencies the one that is shown, or none.
    std::vector<RateChange> shown;
    std::ranges::copy_if(changes, std::back_inserter(shown), ofShown);
    if (!shown.empty()) m_form.showKind(shown.front().kind);
    readAnew();
    if (shown.empty()) return std::nullopt;
    return goToDay(std::ranges::min(shown, {}, [](const RateChange& change) {
                       return change.after.day;
                   }).after.day);
}

}  // namespace chengheng
