#include "currency/screen/rate_overview.h"

#include <fmt/format.h>

#include <algorithm>

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

void RateOverview::follow() {
    if (m_reading == m_form.readings()) return;
    m_remark.clear();
    readYear();
}

void RateOverview::readYear() {
    m_reading = m_form.readings();
    m_year.clear();
    const _CyrencyInfo* currency = m_form.currency();
    if (currency != nullptr)
        m_year = m_service.rates(m_form.kind(), currency->lId, m_form.year())
                     .value_or(std::vector<RateRow>());
    m_rates = ratePoints(m_year);
    m_adjustments = adjustmentPoints(m_year);
    m_markedRates = markedDays(m_rates);
    m_markedAdjustments = markedDays(m_adjustments);
    const auto gapsOf = [this](int month) {
        return rateGaps(m_form.kind(), m_form.year(), m_year, m_today, month);
    };
    m_gaps = gapsOf(0);
    m_shownGaps = gapsOf(m_form.kind() == RateKind::fixed ? 0 : m_form.month());
}

std::string RateOverview::line() const {
    return m_remark.empty() ? gapLine(m_form.kind(), m_shownGaps) : m_remark;
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
    const auto day = nextGap(m_form.kind(), m_gaps, behind);
    return day ? goToDay(*day) : std::nullopt;
}

std::optional<int> RateOverview::goToDay(const Date& day) {
    if (m_form.kind() == RateKind::floating) m_form.showMonth(day.month);
    follow();
    for (int row = 0; row < m_form.sheet().rowCount(); ++row)
        if (const RateRow* line = rowAt(row); line != nullptr && line->day == day) return row;
    return std::nullopt;
}

std::vector<RateChange> RateOverview::filling() const {
    const _CyrencyInfo* currency = m_form.currency();
    if (currency == nullptr) return {};
    return gapFilling(currency->lId, m_form.kind(), m_year, m_gaps);
}

RowPlan RateOverview::shownFilling(const std::vector<RateChange>& filling) {
    RowPlan plan;
    for (const RateChange& change : filling)
        plan.rows.push_back({.row = plan.rows.size() + 1,
                             .code = rateTitle(change.kind, change.after.day),
                             .name = ftoa(change.after.rate),
                             .fate = RowFate::changed});
    return plan;
}

Outcome RateOverview::fill(const std::vector<RateChange>& filling, const ImportProgress& progress) {
    const Outcome outcome = writeRates(m_messages, filling, progress);
    if (outcome == Outcome::done) noteWritten(filling);
    return outcome;
}

void RateOverview::noteTyped(const RateRow& before, const RateRow& after) {
    const _CyrencyInfo* currency = m_form.currency();
    if (currency == nullptr || before == after) return;
    m_journal.note({{currency->lId, m_form.kind(), before, after}});
    readYear();
    m_remark.clear();
    const bool isAdjustment = before.rate == after.rate;
    const double rate = isAdjustment ? after.adjustRate : after.rate;
    const auto last = pointBefore(isAdjustment ? m_adjustments : m_rates, after.day);
    if (last && markBeside(last->rate, rate) == RateMark::departure)
        m_remark = fmt::format(texts::departs, rateTitle(m_form.kind(), after.day), ftoa(rate),
                               ftoa(last->rate));
}

void RateOverview::noteWritten(std::vector<RateChange> changes) {
    if (changes.empty()) return;
    const auto written = changes;
    m_journal.note(std::move(changes));
    show(written);
}

void RateOverview::noteModified(const _CyrencyInfo& before, const _CyrencyInfo& after) {
    if (before.lId != after.lId) return;
    const bool hasOtherMode = before.bMode != after.bMode;
    const bool hasFewerDecimals = after.byDecimal < before.byDecimal;
    if (!hasOtherMode && !hasFewerDecimals) return;
    std::size_t count = 0;
    for (const RateKind kind : {RateKind::fixed, RateKind::floating})
        count += countOfRates(
            m_service.rates(kind, after.lId, m_form.year()).value_or(std::vector<RateRow>()));
    if (count == 0) return;
    if (hasOtherMode)
        m_remark = fmt::format(texts::otherMode, count);
    else
        m_remark = fmt::format(texts::fewerDecimals, count);
}

std::optional<int> RateOverview::show(const std::vector<RateChange>& changes) {
    if (changes.empty()) return std::nullopt;
    const RateChange& first = *std::ranges::min_element(
        changes, {}, [](const RateChange& change) { return change.after.day; });
    if (m_form.selectedId() != first.currency && !m_form.select(first.currency)) {
        m_form.readRatesAnew();
        return std::nullopt;
    }
    m_form.showKind(first.kind);
    m_form.readRatesAnew();
    return goToDay(first.after.day);
}

}  // namespace chengheng
