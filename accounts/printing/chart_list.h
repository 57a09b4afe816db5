#pragma once

#include <span>
#include <string>

#include "data/tables/accounts.h"
#include "report/output/list_printing.h"

namespace chengheng {

/// Which accounts of the chart are printed: those from one code to another and of some levels.
struct ChartRange {
    std::string firstCode = {};  ///< empty: from the first account
    std::string lastCode = {};   ///< with all accounts below it; empty: to the last account
    int firstLevel = 1;
    int lastLevel = 6;

    bool holds(const _CodeInfo& account) const;
};

/// The chart of accounts in code order.
PrintedList chartList(const ChartRange& range = {});

/// Level, code, indented name, currency and auxiliary accounting.
void addAccounts(Report& report, std::span<const _CodeInfo> accounts);

}  // namespace chengheng
