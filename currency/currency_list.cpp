#include "currency/currency_list.h"

#include <fmt/format.h>

#include <array>

#include "currency/currency_sql.h"
#include "currency/currency_texts.h"
#include "currency/max_error.h"
#include "currency/rate_sheet.h"
#include "report/layout/page_facts.h"
#include "report/output/list_fields.h"
#include "report/output/list_reading.h"
#include "report/output/print_templates.h"

namespace chengheng {
namespace {

constexpr std::array currencyFields{
    ListField<_CyrencyInfo>{
        "sExchCode", Alignment::left,
        [](const _CyrencyInfo& currency) { return ReportCell(currency.sExchCode); }},
    ListField<_CyrencyInfo>{
        "sExchName", Alignment::left,
        [](const _CyrencyInfo& currency) { return ReportCell(currency.sExchName); }},
    ListField<_CyrencyInfo>{"bMode", Alignment::left,
                            [](const _CyrencyInfo& currency) {
                                return ReportCell(currency.bMode == 1
                                                      ? currency_texts::foreignTimesRate
                                                      : currency_texts::foreignByRate);
                            }},
    ListField<_CyrencyInfo>{"byDecimal", Alignment::center,
                            [](const _CyrencyInfo& currency) {
                                return ReportCell(std::to_string(currency.byDecimal));
                            }},
    ListField<_CyrencyInfo>{
        "fMaxError", Alignment::right,
        [](const _CyrencyInfo& currency) { return ReportCell(plainMaxError(currency.fMaxError)); }},
};

/// A month's or a day's rates of a currency.
struct Rate {
    std::string time;
    double rate;
    double adjustRate;
    int decimals;
};

/// Absent where no rate was entered.
ReportCell rateCell(double rate, int decimals) {
    const std::string text = rateText(rate, decimals);
    return text.empty() ? ReportCell() : ReportCell(text);
}

constexpr std::array<ListField<Rate>, 3> rateFields(const char* time) {
    return {ListField<Rate>{time, Alignment::left,
                            [](const Rate& rate) { return ReportCell(rate.time); }},
            ListField<Rate>{"dRate", Alignment::right,
                            [](const Rate& rate) { return rateCell(rate.rate, rate.decimals); }},
            ListField<Rate>{"dAdjustRate", Alignment::right, [](const Rate& rate) {
                                return rateCell(rate.adjustRate, rate.decimals);
                            }}};
}
constexpr std::array fixedFields = rateFields("byPeroid");
constexpr std::array floatingFields = rateFields("dtDate");

std::string timeOf(const _ExchgFixInfo& row) {
    return fmt::format("{}.{:02}", row.dtDate.year, row.byPeroid);
}
std::string timeOf(const _ExchgFltInfo& row) { return paperDate(row.dtDate); }

template <class Row>
bool fillRates(Report& report, std::span<const ListField<Rate>> fields,
               const std::string& condition, const _CyrencyInfo& currency, int year) {
    std::vector<Row> rows;
    if (!readForList(condition.c_str(), rows)) return false;
    std::vector<Rate> rates;
    for (const Row& row : rows) {
        if (year != 0 && row.dtDate.year != year) continue;
        rates.push_back({timeOf(row), row.dRate, row.dAdjustRate, currency.byDecimal});
    }
    report.lines.push_back(
        {.left = fmt::format(currency_texts::ratesOf, currency.sExchName, currency.sExchCode)});
    addRows<Rate>(report, fields, rates);
    return true;
}

}  // namespace

PrintedList currencyList() {
    return {currencyListTemplate, ColumnSource::field, everyRecord(currencyFields)};
}

PrintedList rateList(RateKind kind, const _CyrencyInfo& currency, int month, int year) {
    if (kind == RateKind::fixed)
        return {fixedRateTemplate, ColumnSource::field, [currency, year](Report& report) {
                    return fillRates<_ExchgFixInfo>(report, fixedFields,
                                                    currency_sql::fixedRatesOf(currency.lId),
                                                    currency, year);
                }};
    return {floatingRateTemplate, ColumnSource::field, [currency, month, year](Report& report) {
                return fillRates<_ExchgFltInfo>(report, floatingFields,
                                                currency_sql::floatingRatesOf(currency.lId, month),
                                                currency, year);
            }};
}

}  // namespace chengheng
