#include "screen/report/screen_report_printer.h"

#include <QApplication>

#include "report/engine/report_run.h"
#include "screen/report/CNxGridControl.h"
#include "screen/report/CenRptSkill.h"
#include "session/host_messages.h"

namespace chengheng {
namespace {

/// While another program has the keyboard, no window of ours is the active one.
QWidget* frontWindow() {
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr ? active : g_lpHead->owner.data();
}

void run(const Report& report, ReportOutput output) {
    const auto refusal = runReport(report, [output](CReport& engine) {
        CenRptSkill(engine, static_cast<int>(output), frontWindow());
    });
    if (refusal) hostMessages().tell(refusal->notice);
}

}  // namespace

void ScreenReportPrinter::print(const Report& report) { run(report, ReportOutput::print); }

void ScreenReportPrinter::preview(const Report& report) { run(report, ReportOutput::preview); }

}  // namespace chengheng
