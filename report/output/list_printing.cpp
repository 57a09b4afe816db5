#include "report/output/list_printing.h"

#include <fmt/format.h>

#include "base/system/workstation.h"
#include "data/access/CNbCwDB.h"
#include "data/lookups/CGetData.h"
#include "report/engine/print_texts.h"
#include "report/layout/print_refusal.h"
#include "session/host_globals.h"
#include "session/last_failure.h"

namespace chengheng {

ReportFacts hostReportFacts() {
    ReportFacts facts;
    if (CGetData::m_pzAccountMInfo != nullptr) facts.company = CGetData::m_pzAccountMInfo->sCompany;
    facts.setName = g_lpszNbZwSetName;
    if (g_lpLogonUserInfo != nullptr) facts.operatorName = g_lpLogonUserInfo->sUserName;
    facts.day = today();
    return facts;
}

std::optional<Refusal> makeListReport(const PrintedList& list, Report& report) {
    if (g_pDB == nullptr || g_pDB->DBSelect(g_lpszNbZwDBName) == 0) {
        Refusal refusal = printRefusal(print_texts::selectFailed);
        refusal.notice.detail = lastFailureText();
        return refusal;
    }
    if (auto refusal = readPrintTemplate(list.templateNumber, list.source, report)) return refusal;
    if (!list.fill(report)) {
        const std::string failure = lastFailureText();
        return printRefusal(
            fmt::format(print_texts::listUnreadable, failure.empty() ? list.otherReason : failure));
    }
    report.facts = hostReportFacts();
    return std::nullopt;
}

void printList(const PrintedList& list, ReportOutput output, IMessages& messages,
               IReportPrinter& printer) {
    Report report;
    if (const auto refusal = makeListReport(list, report))
        messages.tell(refusal->notice);
    else
        printer.put(report, output);
}

}  // namespace chengheng
