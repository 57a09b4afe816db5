#include "currency/transfer/rate_plan.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <tuple>
#include <unordered_map>

#include "base/values/amount_text.h"
#include "base/values/numbers.h"
#include "currency/conversion.h"
#include "currency/rates/rate_marks.h"
#include "currency/transfer/rate_transfer_texts.h"
#include "sheets/plan_texts.h"

namespace chengheng {
namespace {

namespace texts = rate_transfer_texts;
using Field = QuotedSheet::Field;

constexpr double leastTooLarge = 1e9;

/// A rate as a cell gives it.
struct Quoted {
    std::size_t column = 0;
    std::string heading;
    const RateState::Currency* currency = nullptr;
    double units = 1;
    double RateRow::*rate = &RateRow::rate;
};

/// Why a row is refused, and where.
struct Wrong {
    std::string reason;
    std::size_t column = 0;
    std::string heading = {};
};

class RatePlanner {
  public:
    RatePlanner(const QuotedSheet& sheet, const QuotedAs& quotedAs, const RateState& state)
        : m_sheet(sheet), m_quotedAs(quotedAs), m_state(state) {
        for (const auto& currency : state.currencies) {
            m_currencies.emplace(currency.record.lId, &currency);
            m_records.push_back(currency.record);
        }
    }

    RatePlan plan() {
        m_plan.ignored = m_sheet.ignoredHeadings();
        for (const std::size_t row : m_sheet.rows()) m_plan.rows.push_back(planRow(row));
        askAboutDepartures();
        for (const auto& [key, change] : m_changes)
            if (change.after != change.before) m_plan.changes.push_back(change);
        return std::move(m_plan);
    }

  private:
    /// A stored row by its currency, day and id.
    using Key = std::tuple<int, Date, std::int32_t>;

    PlannedRow planRow(std::size_t row) {
        PlannedRow planned{.row = row, .code = m_sheet.text(row, m_sheet.columnOf(Field::time))};
        const auto day = m_sheet.time(row, m_state.year);
        if (!day) return refuse(planned, Field::time, dayWrong(planned.code));
        if (day->year != m_state.year)
            return refuse(planned, Field::time, fmt::format(texts::otherYear, m_state.year));
        planned.code = rateTitle(m_sheet.kind(), *day);
        std::vector<Quoted> cells;
        if (auto wrong = quotedIn(row, cells)) return refuse(planned, std::move(*wrong));
        std::vector<std::string> given;
        planned.fate = RowFate::unchanged;
        for (const Quoted& cell : cells) {
            const std::string text = m_sheet.text(row, cell.column);
            if (text.empty()) continue;
            double rate = 0;
            RateChange* change = nullptr;
            auto wrong = readRate(cell, text, rate);
            if (!wrong) wrong = find(cell, *day, row, change);
            if (wrong) return refuse(planned, std::move(*wrong));
            change->after.*cell.rate = rate;
            if (change->after.*cell.rate != change->before.*cell.rate)
                planned.fate = RowFate::changed;
            given.push_back(fmt::format(texts::given, cell.currency->record.sExchCode, ftoa(rate)));
        }
        planned.name = fmt::format("{}", fmt::join(given, plan_texts::listSeparator));
        return planned;
    }

    std::string dayWrong(const std::string& text) const {
        return m_sheet.kind() == RateKind::fixed ? fmt::format(texts::monthInvalid, text)
                                                 : fmt::format(texts::dayInvalid, text);
    }

    /// The cells of a row that may hold rates.
    std::optional<Wrong> quotedIn(std::size_t row, std::vector<Quoted>& cells) const {
        for (const QuotedColumn& column : m_sheet.currencies()) {
            const double units = column.units != 1 ? column.units : m_quotedAs.units;
            cells.push_back(
                {column.place, column.heading, m_currencies.at(column.currency), units});
        }
        if (!cells.empty()) return std::nullopt;
        Quoted cell{.column = m_sheet.columnOf(Field::rate),
                    .heading = m_sheet.headingOf(Field::rate),
                    .units = m_quotedAs.units};
        if (auto wrong = currencyOf(row, cell.currency)) return wrong;
        if (auto wrong = unitsOf(row, cell.units)) return wrong;
        cells.push_back(cell);
        cell.column = m_sheet.columnOf(Field::adjustRate);
        cell.heading = m_sheet.headingOf(Field::adjustRate);
        cell.rate = &RateRow::adjustRate;
        if (cell.column != 0) cells.push_back(cell);
        return std::nullopt;
    }

    std::optional<Wrong> currencyOf(std::size_t row, const RateState::Currency*& currency) const {
        if (!m_sheet.hasCurrencyColumn()) {
            currency = m_currencies.at(m_quotedAs.currency);
            return std::nullopt;
        }
        Wrong wrong{texts::currencyEmpty};
        for (const Field field : {Field::symbol, Field::name}) {
            const std::string text = m_sheet.text(row, m_sheet.columnOf(field));
            if (wrong.column == 0 && m_sheet.columnOf(field) != 0) placeAt(field, wrong);
            if (text.empty()) continue;
            const _CyrencyInfo* record = currencyCalled(m_records, text);
            if (record == nullptr) {
                placeAt(field, wrong);
                wrong.reason = fmt::format(texts::currencyUnknown, text);
                return wrong;
            }
            currency = m_currencies.at(record->lId);
            return std::nullopt;
        }
        return wrong;
    }

    std::optional<Wrong> unitsOf(std::size_t row, double& units) const {
        const std::string text = m_sheet.text(row, m_sheet.columnOf(Field::units));
        if (text.empty()) return std::nullopt;
        const auto read = readAmount(text);
        if (read && *read > 0 && *read < leastTooLarge) {
            units = *read;
            return std::nullopt;
        }
        Wrong wrong{fmt::format(texts::unitsInvalid, text)};
        placeAt(Field::units, wrong);
        return wrong;
    }

    std::optional<Wrong> readRate(const Quoted& cell, const std::string& text, double& rate) const {
        const auto wrong = [&cell](std::string reason) {
            return Wrong{std::move(reason), cell.column, cell.heading};
        };
        if (m_sheet.kind() == RateKind::floating && cell.rate == &RateRow::adjustRate)
            return wrong(texts::adjustedDays);
        const auto read = readAmount(text);
        if (!read && isNumberWithDecimalComma(text))
            return wrong(fmt::format(texts::decimalComma, text));
        if (!read) return wrong(fmt::format(texts::noRate, text));
        if (!(*read > 0)) return wrong(texts::notPositive);
        const CurrencyInput input = currencyInput(cell.currency->record);
        const int decimals = cell.currency->record.byDecimal;
        const auto stored =
            requoted(*read, m_quotedAs.mode.value_or(input.mode), cell.units, input.mode, decimals);
        if (!stored) return wrong(fmt::format(texts::roundsToZero, decimals));
        if (!(*stored < leastTooLarge)) return wrong(texts::tooLarge);
        rate = *stored;
        return std::nullopt;
    }

    /// What becomes of the stored row of a day; another row of the sheet must not give it, too.
    std::optional<Wrong> find(const Quoted& cell, const Date& day, std::size_t row,
                              RateChange*& change) {
        const std::string& symbol = cell.currency->record.sExchCode;
        const auto& rows = cell.currency->rows;
        const auto stored = std::ranges::find(rows, day, &RateRow::day);
        if (stored == rows.end())
            return Wrong{fmt::format(texts::noRow, rateTitle(m_sheet.kind(), day), symbol),
                         cell.column, cell.heading};
        const int currency = cell.currency->record.lId;
        const Key key{currency, day, stored->id};
        change = &m_changes.try_emplace(key, RateChange{currency, m_sheet.kind(), *stored, *stored})
                      .first->second;
        auto& rowsBefore = cell.rate == &RateRow::rate ? m_rateRows : m_adjustRows;
        const auto [before, isFirst] = rowsBefore.try_emplace(key, row);
        if (isFirst) return std::nullopt;
        return Wrong{fmt::format(texts::rateTwice, before->second, symbol), cell.column,
                     cell.heading};
    }

    void placeAt(Field field, Wrong& wrong) const {
        wrong.column = m_sheet.columnOf(field);
        wrong.heading = m_sheet.headingOf(field);
    }
    PlannedRow refuse(PlannedRow& planned, Field field, std::string reason) const {
        Wrong wrong{std::move(reason)};
        placeAt(field, wrong);
        return refuse(planned, std::move(wrong));
    }
    static PlannedRow refuse(PlannedRow& planned, Wrong wrong) {
        planned.fate = RowFate::refused;
        planned.reason = std::move(wrong.reason);
        planned.column = wrong.column;
        planned.heading = std::move(wrong.heading);
        return std::move(planned);
    }

    /// Against the rates as all rows together leave them.
    void askAboutDepartures() {
        for (const auto& currency : m_state.currencies) {
            double before = 0;
            for (const RateRow& stored : currency.rows) {
                const Key key{currency.record.lId, stored.day, stored.id};
                const auto change = m_changes.find(key);
                const double rate =
                    change == m_changes.end() ? stored.rate : change->second.after.rate;
                if (change != m_changes.end() && rate != stored.rate &&
                    markBeside(before, rate) == RateMark::departure)
                    ask(m_rateRows.at(key), currency.record.sExchCode, rate, before);
                if (rate != 0) before = rate;
            }
        }
    }
    void ask(std::size_t row, const std::string& symbol, double rate, double before) {
        const auto planned = std::ranges::find(m_plan.rows, row, &PlannedRow::row);
        if (planned->fate == RowFate::refused) return;
        planned->questions.push_back(fmt::format(texts::departs, symbol, ftoa(rate), ftoa(before)));
    }

    const QuotedSheet& m_sheet;
    const QuotedAs& m_quotedAs;
    const RateState& m_state;
    std::unordered_map<int, const RateState::Currency*> m_currencies;
    std::vector<_CyrencyInfo> m_records;
    std::map<Key, RateChange> m_changes;
    std::map<Key, std::size_t> m_rateRows;  ///< which row of the sheet gives it
    std::map<Key, std::size_t> m_adjustRows;
    RatePlan m_plan;
};

}  // namespace

RatePlan planRates(const QuotedSheet& sheet, const QuotedAs& quotedAs, const RateState& state) {
    return RatePlanner(sheet, quotedAs, state).plan();
}

}  // namespace chengheng
