#include "host/screen/report/screen_report_printer.h"

#include <QApplication>

#include "host/screen/report/CenRptSkill.h"
#include "host/services/host_messages.h"
#include "print/report_run.h"

namespace chengheng {
namespace {

void run(const Report& report, ReportOutput output) {
    const auto notice = runReport(report, [output](CReport& engine) {
        CenRptSkill(engine, static_cast<int>(output), QApplication::activeWindow());
    });
    if (notice) hostMessages().tell(*notice);
}

}  // namespace

void ScreenReportPrinter::print(const Report& report) { run(report, ReportOutput::print); }

void ScreenReportPrinter::preview(const Report& report) { run(report, ReportOutput::preview); }

}  // namespace chengheng
