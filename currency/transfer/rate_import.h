#pragma once

#include <optional>
#include <string>

#include "base/system/output_target.h"
#include "currency/transfer/rate_plan.h"
#include "session/record_change.h"

namespace chengheng {

/// Brings rates of a year from a spreadsheet into the open set of books (g_pDB): first a plan that
/// changes nothing, then exactly that plan, whole or not at all. Whatever does not give a plan or
/// `done` has told the operator why.
class RateImport {
  public:
    RateImport(IMessages& messages, int year, QuotedAs quotedAs)
        : m_messages(messages), m_year(year), m_quotedAs(quotedAs) {}

    /// Reads a CSV or XLSX file and decides on its rows.
    std::optional<RatePlan> plan(const std::string& path);
    /// The same of a sheet that was read already.
    std::optional<RatePlan> plan(Sheet sheet, const std::string& name);

    /// Does what the last plan says, under the locks of a change. What the rows ask is asked once
    /// for all. Stale when the books have changed so that the plan would be another one.
    Outcome apply(const RatePlan& plan, const ImportProgress& progress = {});

  private:
    Status readState(RateState& state) const;

    IMessages& m_messages;
    const int m_year;
    const QuotedAs m_quotedAs;
    QuotedSheet m_sheet;
    RateState m_state;  ///< of the last plan
};

/// What was copied from a spreadsheet into a grid of rates, as a sheet that can be planned. A block
/// with headings or days of its own stays as it is, with its headings added; one of figures alone
/// goes down from a day, in months or days, beginning in a column of rates.
Sheet pastedRates(Sheet block, RateKind kind, const Date& from, bool isAdjustment);

/// A currency's rates of a year as a sheet that reads back as they are; days without a rate are
/// left out.
Sheet exportedRates(RateKind kind, const _CyrencyInfo& currency, std::span<const RateRow> rows);

/// Writes them as a file, CSV or XLSX by the end of its name.
Outcome exportRates(IMessages& messages, RateKind kind, int currency, int year,
                    const std::string& path, Overwrite overwrite);

}  // namespace chengheng
