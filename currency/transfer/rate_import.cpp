#include "currency/transfer/rate_import.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/values/amount_text.h"
#include "currency/currency_change.h"
#include "currency/currency_sql.h"
#include "currency/transfer/rate_transfer_texts.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "session/open_books.h"
#include "sheets/files/plan_import.h"
#include "sheets/files/sheet_export.h"

namespace chengheng {
namespace {

namespace texts = rate_transfer_texts;

std::optional<std::vector<_CyrencyInfo>> readCurrencies() {
    const RowLease<_CyrencyInfo> lease(*g_pDB, currency_sql::inOrder);
    if (!lease.isRead()) return std::nullopt;
    return lease.copy();
}

/// Whose rates a sheet gives: those of its columns, else whoever its rows may name.
bool isConcerned(const QuotedSheet& sheet, const QuotedAs& quotedAs, int currency) {
    if (!sheet.currencies().empty())
        return std::ranges::count(sheet.currencies(), currency, &QuotedColumn::currency) > 0;
    return sheet.hasCurrencyColumn() || quotedAs.currency == currency;
}

}  // namespace

Status RateImport::readState(RateState& state) const {
    state = {.year = m_year, .currencies = {}};
    const auto currencies = readCurrencies();
    if (!currencies) return g_pDB->lastStatus();
    for (const _CyrencyInfo& currency : *currencies) {
        RateState::Currency& read =
            state.currencies.emplace_back(RateState::Currency{currency, {}});
        if (!isConcerned(m_sheet, m_quotedAs, currency.lId)) continue;
        auto rows = readRates(m_sheet.kind(), currency.lId, m_year);
        if (!rows) return g_pDB->lastStatus();
        read.rows = std::move(*rows);
    }
    return Status::done();
}

std::optional<RatePlan> RateImport::plan(const std::string& path) {
    auto sheet = readSheetToImport(m_messages, path);
    return sheet ? plan(std::move(*sheet), path) : std::nullopt;
}

std::optional<RatePlan> RateImport::plan(Sheet sheet, const std::string& name) {
    const auto currencies =
        selectOpenBooks() ? readCurrencies() : std::optional<std::vector<_CyrencyInfo>>();
    if (!currencies) {
        told(m_messages, UntoldOutcome::failed());
        return std::nullopt;
    }
    auto failure = m_sheet.read(std::move(sheet), *currencies);
    const bool isKnown =
        std::ranges::count(*currencies, m_quotedAs.currency, &_CyrencyInfo::lId) > 0;
    const bool namesCurrency = !m_sheet.currencies().empty() || m_sheet.hasCurrencyColumn();
    if (!failure && !namesCurrency && !isKnown) failure = SheetFailure{texts::currencyMissing};
    if (failure) {
        m_messages.tell(sheetWarning(whileReading(std::move(*failure), name).text()));
        return std::nullopt;
    }
    if (!readState(m_state)) {
        told(m_messages, UntoldOutcome::failed());
        return std::nullopt;
    }
    return planRates(m_sheet, m_quotedAs, m_state);
}

Outcome RateImport::apply(const RatePlan& plan, const ImportProgress& progress) {
    if (!isAccepted(m_messages, plan)) return Outcome::refused;
    const auto words = [&plan] { return fmt::format(texts::logged, plan.changes.size()); };
    return changeCurrencies(m_messages, words, [&] {
        RateState state;
        if (!readState(state)) return UntoldOutcome::failed();
        if (state != m_state && planRates(m_sheet, m_quotedAs, state) != plan)
            return planOutdated();
        return writeChanges(plan.changes, progress);
    });
}

namespace {

/// Whether every row begins with a day or month; a bare number may as well be a rate.
bool beginWithTimes(const Sheet& block, RateKind kind, int year) {
    return block.columnCount() > 1 && std::ranges::all_of(block.rows, [&](const SheetRow& row) {
               const std::string text = row.empty() ? std::string() : cellText(row.front());
               return !readAmount(text) && readRateTime(kind, text, year).has_value();
           });
}

}  // namespace

Sheet pastedRates(Sheet block, RateKind kind, const Date& from, bool isAdjustment) {
    if (block.rows.empty()) return block;
    const auto isTimeHeading = [](const Cell& cell) {
        return cellText(cell) == texts::day || cellText(cell) == texts::month;
    };
    if (std::ranges::any_of(block.rows.front(), isTimeHeading)) return block;
    const bool hasTimes = beginWithTimes(block, kind, from.year);
    const std::size_t figures = block.columnCount() - (hasTimes ? 1 : 0);
    SheetRow headings{Cell::of(kind == RateKind::fixed ? texts::month : texts::day),
                      Cell::of(texts::rate)};
    if (isAdjustment || figures > 1) headings.push_back(Cell::of(texts::adjustRate));
    // A heading for what is one column too many, so that it is told to be left out.
    const std::size_t named = isAdjustment ? 1 : 2;
    for (std::size_t column = named + 1; column <= figures; ++column)
        headings.push_back(Cell::of(fmt::format(texts::unknownColumn, column)));
    std::vector<Date> days = rateDays(kind, from.year);
    std::erase_if(days, [&from](const Date& day) { return day < from; });
    std::size_t next = 0;
    for (SheetRow& row : block.rows) {
        if (!hasTimes) {
            const std::string title = next < days.size() ? rateTitle(kind, days[next]) : "";
            row.insert(row.begin(), Cell::of(title));
            ++next;
        }
        if (isAdjustment) row.insert(row.begin() + 1, Cell());
    }
    block.rows.insert(block.rows.begin(), std::move(headings));
    return block;
}

Sheet exportedRates(RateKind kind, const _CyrencyInfo& currency, std::span<const RateRow> rows) {
    const bool isFixed = kind == RateKind::fixed;
    Sheet sheet{.name = texts::sheetName,
                .columns = {{}, {}, {.decimals = currency.byDecimal}},
                .hasHeader = true,
                .rows = {{Cell::of(isFixed ? texts::month : texts::day), Cell::of(texts::symbol),
                          Cell::of(texts::rate)}}};
    if (isFixed) {
        sheet.columns.push_back({.decimals = currency.byDecimal});
        sheet.rows.front().push_back(Cell::of(texts::adjustRate));
    }
    const auto cellOf = [](double rate) { return rate == 0 ? Cell() : Cell::of(rate); };
    for (const RateRow& row : rows) {
        if (row.rate == 0 && (!isFixed || row.adjustRate == 0)) continue;
        SheetRow& written = sheet.rows.emplace_back(SheetRow{
            Cell::of(rateTitle(kind, row.day)), Cell::of(currency.sExchCode), cellOf(row.rate)});
        if (isFixed) written.push_back(cellOf(row.adjustRate));
    }
    return sheet;
}

Outcome exportRates(IMessages& messages, RateKind kind, int currency, int year,
                    const std::string& path, Overwrite overwrite) {
    if (!selectOpenBooks()) return told(messages, UntoldOutcome::failed());
    _CyrencyInfo record;
    {
        const RowLease<_CyrencyInfo> lease(*g_pDB, currency_sql::ofId(currency).c_str());
        if (!lease.isRead()) return told(messages, UntoldOutcome::failed());
        if (!lease.isFound()) return told(messages, currencyStillThere(currency));
        record = *lease.rows().front();
    }
    const auto rows = readRates(kind, currency, year);
    if (!rows) return told(messages, UntoldOutcome::failed());
    return exportSheet(messages, exportedRates(kind, record, *rows), path, overwrite);
}

}  // namespace chengheng
