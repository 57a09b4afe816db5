#include "currency/currency_sql.h"

namespace chengheng::currency_sql {

std::string ofId(std::int32_t currency) { return formatSql("lId = %d", currency); }

std::string ofSymbol(std::string_view symbol, std::int32_t other) {
    return other == 0 ? formatSql("sExchCode = '%s'", symbol)
                      : formatSql("lId <> %d AND sExchCode = '%s'", other, symbol);
}

std::string ofName(std::string_view name, std::int32_t other) {
    return other == 0 ? formatSql("sExchName = '%s'", name)
                      : formatSql("lId <> %d AND sExchName = '%s'", other, name);
}

std::string ofCurrency(std::int32_t currency) { return formatSql("byExchId = %d", currency); }

void addFloatingRate(std::string& batch, std::int32_t id, std::int32_t currency, const Date& day) {
    appendSql(batch, "Insert ExchgFlt Values(%d, %d, '%d/%d/%d', %d, 0.0, 0.0)\n", id, currency,
              day.year, day.month, day.day, day.month);
}

std::string fixedRatesOf(std::int32_t currency) {
    return formatSql("byExchId = %d ORDER BY byPeroid", currency);
}

std::string floatingRatesOf(std::int32_t currency, int month) {
    return month == 0
               ? formatSql("byExchId = %d ORDER BY dtDate", currency)
               : formatSql("byExchId = %d AND byPeroid = %d ORDER BY dtDate", currency, month);
}

}  // namespace chengheng::currency_sql
