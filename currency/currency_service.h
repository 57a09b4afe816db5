#pragma once

#include <optional>
#include <vector>

#include "currency/currency_rules.h"
#include "currency/rate_rows.h"
#include "session/record_change.h"

namespace chengheng {

/// Which of the two rates of a row.
enum class RateColumn { rate, adjustRate };

/// Reads and changes the currencies of the open set of books and their rates. Whatever does not
/// give `done` has told the operator why. Changes hold their locks across checks and writing.
class CurrencyService {
  public:
    explicit CurrencyService(IMessages& messages) : m_messages(messages) {}

    /// Every currency in the order of the ids; nothing when they cannot be read.
    std::optional<std::vector<_CyrencyInfo>> readAll();
    /// One currency, and whether accounts are kept in it.
    Outcome read(int id, _CyrencyInfo& currency, bool& isUsed);
    /// The rates of a currency, as readRates gives them.
    std::optional<std::vector<RateRow>> rates(RateKind kind, int currencyId, int year,
                                              int month = 0);
    /// The same right after `read`, which has seen to the connection.
    std::optional<std::vector<RateRow>> ratesAfterRead(RateKind kind, int currencyId, int year,
                                                       int month = 0);

    /// Adds a currency whose symbol and name nobody has yet, and a rate of 0 for each month and
    /// each day of the year, all of it or nothing.
    Outcome add(const CurrencyInput& input, int year, _CyrencyInfo& added);
    /// Writes over a currency that was loaded before and gives it as it is now. One that another
    /// workstation changed since it was loaded is left as it is.
    Outcome modify(const _CyrencyInfo& loaded, const CurrencyInput& input, _CyrencyInfo& modified);
    /// Asks and deletes a currency with all its rates; the id 0: none is selected.
    Outcome remove(int id, bool isUsed);
    /// Writes one of the rates in a row of a currency; the other one stays as it is stored. Gives
    /// the row as it was stored before and as it is now.
    Outcome writeRate(RateKind kind, int currencyId, int rowId, RateColumn column, double value,
                      RateEdit& written);

  private:
    IMessages& m_messages;
};

}  // namespace chengheng
