#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/values/date.h"
#include "data/sql/sql_format.h"

/// Conditions on the currencies, on their rates and on the accounts that are kept in them.
namespace chengheng::currency_sql {

inline constexpr const char* inOrder = "lId > 0 ORDER BY lId";
/// A currency by its id.
std::string ofId(std::int32_t currency);
/// The currencies of a symbol, of a name, other than one of an id (0: all of them).
std::string ofSymbol(std::string_view symbol, std::int32_t other);
std::string ofName(std::string_view name, std::int32_t other);
/// The accounts and the rates of a currency.
std::string ofCurrency(std::int32_t currency);

/// Appends the row of a floating rate, still 0, to a batch.
void addFloatingRate(std::string& batch, std::int32_t id, std::int32_t currency, const Date& day);
inline constexpr const char* counters = "ABIdTable";
inline constexpr const char* floatingRateCounter = "sTable = 'ExchgFlt'";
inline constexpr SqlFormat<std::int32_t> lastId = "lLastId = %d ";

/// The rates of a currency: by month, and by day of a month (0: of every month).
std::string fixedRatesOf(std::int32_t currency);
std::string floatingRatesOf(std::int32_t currency, int month);

}  // namespace chengheng::currency_sql
