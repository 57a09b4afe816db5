#include "report/output/report_printer.h"

#include "report/engine/print_texts.h"
#include "session/host_messages.h"
#include "session/log_notes.h"
#include "session/session_texts.h"

namespace chengheng {
namespace {

/// Serves a program that has no screen and installed nothing.
class NoPrinter final : public IReportPrinter {
  public:
    void print(const Report&) override { tellNone(); }
    void preview(const Report&) override { tellNone(); }

  private:
    static void tellNone() {
        hostMessages().tell({.text = print_texts::noPrinter, .icon = MessageIcon::warning});
    }
};

NoPrinter noPrinter;
IReportPrinter* installed = &noPrinter;

}  // namespace

void IReportPrinter::put(const Report& report, ReportOutput output) {
    const bool isPrinted = output == ReportOutput::print;
    noteOutput(isPrinted ? session_texts::printed : session_texts::previewed, report.title);
    isPrinted ? print(report) : preview(report);
}

IReportPrinter& hostReportPrinter() { return *installed; }

HostReportPrinter::HostReportPrinter(IReportPrinter& printer) : m_before(installed) {
    installed = &printer;
}

HostReportPrinter::~HostReportPrinter() { installed = m_before; }

}  // namespace chengheng
