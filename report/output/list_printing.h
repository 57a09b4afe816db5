#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "base/messages/refusal.h"
#include "report/output/print_template.h"
#include "report/output/report_printer.h"

namespace chengheng {

/// A list that windows print: which template has its columns, and how its rows come.
struct PrintedList {
    std::int32_t templateNumber;
    ColumnSource source = ColumnSource::position;
    /// Reads the records from g_pDB, whose database is selected, and adds a row for each. False
    /// when they could not be read; no records are an empty list.
    std::function<bool(Report& report)> fill;
    /// Why there are no rows where the database did not fail.
    const char* otherReason = "";
};

/// Makes a list's report from the open set of books; why not, when it cannot be made.
std::optional<Refusal> makeListReport(const PrintedList& list, Report& report);

/// Prints or previews a list of the open set of books, or tells why not. All that a window's
/// commands 打印 and 打印预览 do.
void printList(const PrintedList& list, ReportOutput output, IMessages& messages,
               IReportPrinter& printer = hostReportPrinter());

/// Company, books and operator of the session, and today.
ReportFacts hostReportFacts();

}  // namespace chengheng
